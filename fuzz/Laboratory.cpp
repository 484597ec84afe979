#include "fuzz/Laboratory.h"

#include <cstdlib>
#include <fstream>
#include <utility>
#include <variant>

#include "app/BatchReview.h"
#include "app/HeadlessHost.h"
#include "forms/Form1TicContent.h"
#include "forms/Form1VoaContent.h"
#include "forms/Form2Content.h"
#include "forms/Form4Content.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr::fuzz {

namespace fs = std::filesystem;

namespace {

// Every character as wide as high: what the forms compute from it need not look well.
class BlockMetrics : public TextMetrics {
  public:
    int TextWidth(std::string_view utf8, int points) override {
        return static_cast<int>(utf8.size()) * TextHeight(points);
    }
    int TextHeight(int points) override { return points * kResolution / 72; }
};

fs::path NewDirectory() {
    std::string pattern = (fs::temp_directory_path() / "qfr-fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        std::abort();
    }
    return pattern;
}

SavedBatch Restore(const fs::path& file) {
    auto restored = RestoreBatch(LineReader::Open(file).value(), TextOf(file));
    return std::get<SavedBatch>(std::move(restored));
}

}  // namespace

Laboratory::Laboratory(std::string_view fileName)
    : directory_(NewDirectory()), fileName_(PathOf(fileName)) {
    // The names that the batch stores are found at once when the files have them.
    for (const auto& entry : fs::directory_iterator(QFR_EXAMPLE_DIR)) {
        fs::copy_file(entry, directory_ / LowerCase(TextOf(entry.path().filename())));
    }
    example_ = Restore(directory_ / "example.qff");
}

Laboratory::~Laboratory() {
    std::error_code ignored;
    fs::remove_all(directory_, ignored);
}

void Laboratory::Put(const std::uint8_t* data, std::size_t size) const {
    std::ofstream out(File(), std::ios::binary | std::ios::trunc);
    const std::string content(data, data + size);
    out << content;
}

std::string Laboratory::Name() const {
    return TextOf(File());
}

void Laboratory::Print(const SavedBatch& batch, const std::vector<FormDriver>& forms) {
    Silence silence;
    BlockMetrics metrics;
    HeadlessHost host(batch, metrics, silence);
    for (const FormDriver form : forms) {
        form(host);
    }
}

void Laboratory::Review(const SavedBatch& batch) {
    BlockMetrics metrics;
    for (const Finding& finding : ReviewAsPrinted(batch, 0, metrics, {})) {
        FindingLine(finding, batch.Batch);
    }
}

std::vector<FormDriver> AllForms() {
    return {PrintDataSheets, Form2MCRClick, Form4MBSClick, Form5IPCClick,
            Form6CIDClick,   Form7CCDClick, Form8ARTClick};
}

void PrintDataSheets(FormHost& host) {
    host.Page().testPrinter();
    const std::size_t records = host.Batch().SampleList ? host.Batch().SampleList->size() : 0;
    for (std::size_t record = 0; record < records; ++record) {
        PrintFormIVoa(host, record);
        PrintFormITic(host, record);
    }
}

}  // namespace qfr::fuzz
