// The exported values against the pages that they stand on, and the files that they go into.
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "app/ExportValues.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "review/ValueFiles.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using Texts = std::set<std::string>;

// A form of a batch: what is exported of it, and its recorded texts.
struct ExportedForm {
    FormValues values;
    PrintJob job;
};

std::vector<ExportedForm> ExportBatch(const fs::path& file) {
    SavedBatch saved =
        std::get<SavedBatch>(RestoreBatch(LineReader::Open(file).value(), TextOf(file)));
    PackageChoice choice{.samples = std::vector<bool>(SamplesOf(saved.Batch).size(), true)};
    choice.forms.assign(kForms.size(), true);
    const std::vector<PackageWork> works = PlanPackage(saved.Batch, choice);
    TimesMetrics metrics;
    MessageLog messages;
    HeadlessHost host(std::move(saved), metrics, messages);
    std::vector<ExportedForm> forms;
    for (const PackageWork& work : works) {
        auto values = ValuesOfWork(host, work);
        const std::vector<std::string> told = messages.TakeTexts();
        auto job = PrintWork(host, work);
        EXPECT_EQ(messages.TakeTexts(), told);
        EXPECT_EQ(values.has_value(), job.has_value());
        if (values && job) {
            forms.push_back({*std::move(values), *std::move(job)});
        }
    }
    return forms;
}

bool Matches(const std::string& text, const std::regex& pattern, std::smatch& match) {
    return std::regex_match(text, match, pattern);
}

// What a text on a page states: itself, the abundance and the flag of "(  18.4  *  )1", and the two
// sides of "VMC1 = name".
Texts Stated(const std::string& text) {
    static const std::regex kAbundance(R"((?:\( +)?(\S+) {2,}(\*?) *(?:\)\d)?)");
    static const std::regex kCompound(R"((VMC\d+) = (.*))");
    Texts stated = {Trim(text)};
    std::smatch match;
    if (Matches(text, kAbundance, match) || Matches(text, kCompound, match)) {
        stated.insert({match[1], match[2]});
    }
    return stated;
}

// Texts that are no values, wherever they stand: what numbers pages, rows and columns.
bool IsNumbering(const TextItem& item) {
    static const std::regex kNumbering(
        R"( *|Page \d+ of \d+|\d. - FORM .*|VMC\d+|(modification of )?TQW04.2 \(5/2005\))");
    static const std::regex kRow(R"(\d+)");
    std::smatch match;
    // Each form has the numbers of its rows at another place, left of them.
    return Matches(item.text, kNumbering, match) ||
           std::ranges::any_of(std::array{0.65, 0.8, 1.05, 1.45}, [&](double inches) {
               return std::abs(item.x - inches * kResolution) <= 1 &&
                      Matches(item.text, kRow, match);
           });
}

// The texts of a job; names that were broken after hyphens are whole again.
Texts PrintedTexts(const PrintJob& job) {
    Texts texts;
    TextItem last;
    for (const JobPage& page : job.pages) {
        for (const PageItem& item : page.items) {
            const auto* const text = std::get_if<TextItem>(&item);
            if (text == nullptr || IsNumbering(*text)) {
                continue;
            }
            std::string name;
            if (text->x == last.x && last.text.ends_with('-')) {
                name = last.text;
                texts.erase(name);
            }
            last = *text;
            last.text = name + text->text;
            texts.insert(last.text);
        }
    }
    return texts;
}

Texts ValueTexts(const FormValues& values) {
    std::vector<ValueTable> tables = values.Tables;
    tables.push_back(values.Fields);
    Texts texts;
    for (const ValueTable& table : tables) {
        for (const std::vector<std::string>& row : table.Rows) {
            EXPECT_EQ(row.size(), table.Columns.size());
            for (std::size_t i = 0; i < row.size(); ++i) {
                // Tells who reads the row what it is about; the form has it in a footnote.
                const bool isKey = table.Columns[i].Name == "internalStandard";
                texts.insert(isKey ? "" : Trim(row[i]));
            }
        }
    }
    texts.erase("");
    return texts;
}

TEST(Export, EqualsTheTextsOnThePages) {
    std::vector<ExportedForm> forms;
    std::map<std::string, Texts> labels;  // stand on every form of a kind, whatever the batch
    for (const fs::path& file :
         {ExampleDir() / "example.qff", TestData("wrapped/wrapped.qff"),
          TestData("landscape/landscape.qff"), TestData("damaged/damaged.qff")}) {
        for (ExportedForm& form : ExportBatch(file)) {
            const Texts texts = PrintedTexts(form.job);
            Texts& common = labels.try_emplace(form.values.Form, texts).first->second;
            std::erase_if(common, [&](const auto& text) { return !texts.contains(text); });
            forms.push_back(std::move(form));
        }
    }
    EXPECT_EQ(labels.size(), kForms.size());
    for (ExportedForm& form : forms) {
        SCOPED_TRACE("form " + form.values.Form + " of " + form.values.Sample);
        if (form.values.Form == "tic") {
            // Of more the pages repeat the first ones.
            auto& rows = form.values.Tables.front().Rows;
            rows.resize(std::min<std::size_t>(rows.size(), 30));
        }
        const Texts exported = ValueTexts(form.values);
        Texts onPages;
        for (const std::string& text : PrintedTexts(form.job)) {
            const Texts stated = Stated(text);
            onPages.insert(stated.begin(), stated.end());
            EXPECT_TRUE(labels[form.values.Form].contains(text) ||
                        std::ranges::any_of(
                            stated, [&](const auto& part) { return exported.contains(part); }))
                << "not exported: " << text;
        }
        for (const std::string& text : exported) {
            EXPECT_TRUE(onPages.contains(text)) << "not on a page: " << text;
        }
    }
}

}  // namespace
}  // namespace qfr::test
