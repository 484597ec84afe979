// Every form of four batches as it prints, text by text and rule by rule, against the pages in
// tests/pages that somebody has looked at. tests/renew-pages.sh writes them anew.
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/FileLookup.h"
#include "platform/Numbers.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

// In inches; a pixel more or less shows.
std::string Inches(int pixels) {
    const std::string text = FormatFixed(static_cast<double>(pixels) / kResolution, 3);
    return std::string(8 - std::min<std::size_t>(text.size(), 8), ' ') + text;
}

std::string Dump(const TextItem& item) {
    return "text" + Inches(item.x) + " -" + Inches(item.x + item.width) + Inches(item.y) +
           (item.size < 10 ? "     " : "    ") + std::to_string(item.size) + "  \"" + item.text +
           "\"\n";
}

std::string Dump(const RuleItem& item) {
    return "rule" + Inches(item.x1) + Inches(item.y1) + " -" + Inches(item.x2) + Inches(item.y2) +
           "  pen " + std::to_string(item.penWidth) + "\n";
}

std::string Dump(const PrintJob& job) {
    std::ostringstream dump;
    dump << job.form << (job.sample.empty() ? "" : " of " + job.sample) << "\ntitle \"" << job.title
         << "\" on " << job.paper.name << "\ntext from x to x, y, points; rule from x, y to x, y\n";
    for (std::size_t i = 0; i < job.pages.size(); ++i) {
        const JobPage& page = job.pages[i];
        dump << "\npage " << i + 1
             << (page.orientation == PageOrientation::kPortrait ? " portrait" : " landscape")
             << Inches(page.width) << " x" << Inches(page.height) << "\n";
        for (const PageItem& item : page.items) {
            dump << std::visit([](const auto& kind) { return Dump(kind); }, item);
        }
    }
    return dump.str();
}

// The pages of each job by the name of their file, and what the forms had to say.
std::map<std::string, std::string> PrintedPages(const ApprovedBatch& batch) {
    std::map<std::string, std::string> pages;
    TimesMetrics metrics;
    PrintApproved(batch, metrics, [&](const FormRow& row, const auto& job, const auto& messages) {
        const std::string form = "form-" + std::string(row.name);
        if (job) {
            pages[form + (job->sample.empty() ? "" : "-" + job->sample) + ".txt"] = Dump(*job);
        }
        for (const Message& message : messages) {
            pages["messages.txt"] += form + ": " + AsLine(message) + "\n";
        }
    });
    return pages;
}

TEST(Pages, AreTheApprovedOnes) {
    for (const ApprovedBatch& batch : ApprovedBatches()) {
        const fs::path folder = fs::path(QFR_SOURCE_DIR) / "tests/pages" / batch.name;
        auto printed = PrintedPages(batch);
        if (std::getenv("QFR_RENEW_PAGES") != nullptr) {
            fs::remove_all(folder);
            fs::create_directories(folder);
            for (const auto& [name, content] : printed) {
                std::ofstream(folder / name, std::ios::binary) << content;
            }
        }
        std::map<std::string, std::string> approved;
        for (const auto& file : fs::directory_iterator(folder)) {
            const std::string name = TextOf(file.path().filename());
            approved[name] = ReadAll(file.path());
            printed[name];  // empty, where nothing prints any more
        }
        for (const auto& [name, content] : printed) {
            EXPECT_EQ(approved[name], content) << "tests/pages/" << batch.name << "/" << name;
        }
    }
}

}  // namespace
}  // namespace qfr::test
