// The exported values against the pages that they stand on, and the files that they go into.
#include <array>
#include <cmath>
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

std::vector<fs::path> Batches() {
    return {ExampleDir() / "example.qff", TestData("wrapped/wrapped.qff"),
            TestData("landscape/landscape.qff"), TestData("damaged/damaged.qff")};
}

// A form of a batch: what is exported of it, and its recorded texts.
struct ExportedForm {
    FormValues values;
    PrintJob job;
};

std::vector<ExportedForm> ExportBatch(const fs::path& file) {
    SavedBatch saved =
        std::get<SavedBatch>(RestoreBatch(LineReader::Open(file).value(), TextOf(file)));
    const std::vector<PackageWork> works = PlanWholePackage(saved.Batch);
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
    for (const fs::path& file : Batches()) {
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

// "compounds[2].rf" and the like of a form of the example, its rows counted from 1.
std::string ValueAt(const Json& form, const std::string& path) {
    static const std::regex kPath(R"((\w+)\[(\d+)\]\.(\w+))");
    std::smatch match;
    const bool ofTable = std::regex_match(path, match, kPath);
    const Json& value = ofTable ? form["tables"][match[1]][std::stoul(match[2]) - 1][match[3]]
                                : form["fields"][path];
    return value.is_object() ? value["text"].get<std::string>() + "=" + value["number"].dump()
                             : value.get<std::string>();
}

std::vector<FormValues> ValuesOfBatch(const fs::path& file) {
    std::vector<FormValues> values;
    for (ExportedForm& form : ExportBatch(file)) {
        values.push_back(std::move(form.values));
    }
    return values;
}

TEST(Export, HasEachTextUnderItsName) {
    const Json document = Json::parse(JsonText(ValuesOfBatch(ExampleDir() / "example.qff")));
    const std::tuple<const char*, const char*, const char*> values[] = {
        {"1", "dilutionFactor", "1=1.0"},
        {"1", "percentMoisture", "N/A=null"},
        {"1", "dateAnalyzed", "05/18/2005 09:32"},
        {"1", "compounds[2].casNumber", "74-87-3"},
        {"1", "compounds[2].concentration", "5.0=5.0"},
        {"1", "compounds[2].qualifier", "U"},
        {"tic", "compounds[1].retentionTime", "1.41=1.41"},
        {"tic", "compounds[1].estimatedConcentration", "9.2=9.2"},
        {"2", "compounds[11].number", "VMC11"},
        {"2", "compounds[1].limits", "(65-131)"},
        {"2", "samples[1].vmc12", "94=94.0"},
        {"2", "samples[4].vmc1", "58=58.0"},
        {"2", "samples[4].vmc1Flag", "*"},
        {"4", "samples[5].labSampleId", "F0505118-03DL"},
        {"4", "samples[5].analyzed", "05/18/2005 21:47"},
        {"4", "samples[5].flag", "*"},
        {"5", "injectionTime", "08:12"},
        {"5", "ions[6].abundance", "84.2=84.2"},
        {"5", "samples[1].timeAnalyzed", "09:32"},
        {"6", "lastCalibrationTime", "11:49"},
        {"6", "levels[2].amount", "10=10.0"},
        {"6", "compounds[1].rf4", "353=353.0"},
        {"6", "compounds[1].meanRf", "389=389.0"},
        {"6", "compounds[1].percentRsd", "7.18=7.18"},
        {"7", "firstCalibrationTime", "09:41"},
        {"7", "compounds[1].rf", "354=354.0"},
        {"7", "compounds[1].minimumRf", "10=10.0"},
        {"7", "compounds[1].percentD", "-9.1=-9.1"},
        {"7", "compounds[1].maximumPercentD", "40.0=40.0"},
        {"8", "standard[2].areaUpperLimit", "2940868=2940868.0"},
        {"8", "standard[2].rtLowerLimit", "5.51=5.51"},
        {"8", "samples[1].is2Rt", "5.99=5.99"},
        {"8", "samples[1].is3Area", "686134=686134.0"},
        {"8", "samples[8].is3AreaFlag", "*"},
    };
    for (const auto& [name, path, text] : values) {
        const auto form = std::ranges::find(document["forms"], name, [](const Json& each) {
            return each["form"].get<std::string>();
        });
        EXPECT_EQ(ValueAt(*form, path), text) << "form " << name << ", " << path;
    }
}

// What is wrong with the value by its part of the schema, each with its place in the document.
std::string Faults(const Json& value, const Json& part, const Json& schema,
                   const std::string& place = "") {
    if (part.contains("$ref")) {
        const auto name = part["$ref"].get<std::string>().substr(1);
        return Faults(value, schema.at(Json::json_pointer(name)), schema, place);
    }
    if (part.contains("const")) {
        return value == part["const"] ? "" : place + " is " + value.dump() + "\n";
    }
    if (part.contains("oneOf")) {
        const std::string form = value["form"];
        const std::string name = "form" + (form == "tic" ? "Tic" : form);
        const Json reference = {{"$ref", "#/$defs/" + name}};
        return std::ranges::count(part["oneOf"], reference) == 1
                   ? Faults(value, reference, schema, place + "/" + name)
                   : place + " is of no form\n";
    }
    const Json types = part["type"].is_array() ? part["type"] : Json::array({part["type"]});
    if (std::ranges::count(types, value.is_number() ? "number" : value.type_name()) == 0) {
        return place + " is no " + types.dump() + "\n";
    }
    std::string faults;
    if (value.is_array()) {
        for (const Json& item : value) {
            faults += Faults(item, part["items"], schema, place + "[]");
        }
    }
    if (!value.is_object()) {
        return faults;
    }
    for (const Json& name : part.value("required", Json::array())) {
        faults += value.contains(name) ? "" : place + " lacks " + name.dump() + "\n";
    }
    const Json patterns = part.value("patternProperties", Json::object());
    for (const auto& [name, member] : value.items()) {
        Json known = part["properties"].value(name, Json());
        for (const auto& [pattern, each] : patterns.items()) {
            if (known.is_null() && std::regex_match(name, std::regex(pattern))) {
                known = each;
            }
        }
        faults += known.is_null() ? place + " has " + name + "\n"
                                  : Faults(member, known, schema, place + "/" + name);
    }
    return faults;
}

TEST(Export, WritesTheDocumentThatItsSchemaDescribes) {
    const Json schema =
        Json::parse(ReadAll(fs::path(QFR_SOURCE_DIR) / "packaging/qfrforms-values.schema.json"));
    for (const fs::path& file : Batches()) {
        EXPECT_EQ(Faults(Json::parse(JsonText(ValuesOfBatch(file))), schema, schema), "");
    }
}

TEST(Export, KeepsTextsAsTheyStand) {
    const std::string odd[] = {"a,b",  "say \"x\"", "two\r\nlines", " blanks ", "Größe",
                               "=1+1", "\t"};
    for (const std::string& text : odd) {
        const FormValues form{
            "1", text, "", {"", {{"field"}}, {{text}}}, {{"rows", {{"cell", true}}, {{text}}}}};
        const Json exported = Json::parse(JsonText({&form, 1}))["forms"][0];
        EXPECT_EQ(exported["sample"].get<std::string>(), text);
        EXPECT_EQ(exported["tables"]["rows"][0]["cell"].dump(),
                  Json({{"text", text}, {"number", nullptr}}).dump());
    }
    const FormValues form{
        "1",
        odd[0],
        odd[1],
        {"", {{"field"}, {"shared", true}}, {{odd[2], "x"}}},
        {{"rows", {{"shared", true}, {"cell"}}, {{" 05.50 ", odd[3]}, {"", odd[4]}}}}};
    EXPECT_EQ(CsvText({&form, 1}),
              "sample,report,table,row,field,shared,shared.number,cell\r\n"
              "\"a,b\",\"say \"\"x\"\"\",,,\"two\r\nlines\",x,,\r\n"
              "\"a,b\",\"say \"\"x\"\"\",rows,1,, 05.50 ,5.5, blanks \r\n"
              "\"a,b\",\"say \"\"x\"\"\",rows,2,,,,Größe\r\n");
    EXPECT_EQ(CsvText({}), "sample,report,table,row\r\n");
    // A document comes of bytes that are no text, too.
    const FormValues broken{"1", "\xFF", "", {"", {}, {{}}}, {}};
    EXPECT_TRUE(Json::accept(JsonText({&broken, 1})));
}

TEST(Export, ReplacesAllFilesOrNone) {
    const TempDir dir;
    const std::string folder = TextOf(dir.Path());
    dir.Write("form-1.csv", "old");
    fs::create_directory(dir.Path() / "form-8.csv");  // cannot be replaced
    const auto failure = WriteValues({}, ExportFormat::kCsv, folder);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Target, dir.Path() / "form-8.csv");
    EXPECT_EQ(ReadAll(dir.Path() / "form-1.csv"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), {}), 2);
    fs::remove(dir.Path() / "form-8.csv");
    EXPECT_FALSE(WriteValues({}, ExportFormat::kCsv, folder));
    EXPECT_EQ(ReadAll(dir.Path() / "form-1.csv"), CsvText({}));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), {}), std::ssize(kForms));
}

}  // namespace
}  // namespace qfr::test
