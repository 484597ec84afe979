#include "tests/FormSupport.h"

#include <algorithm>
#include <cstdlib>

namespace qfr::test {

ScriptedHost::ScriptedHost() {
    printer.Printers = {"PDF file"};
    page.testPrinter();
}

SampleRecord CompleteRecord(const std::string& sampleNo, const std::string& fileName) {
    SampleRecord record;
    record.FileName = fileName;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        std::string& value = record.Header[HeaderFieldAt(number)];
        value = value.empty() ? "v" + std::to_string(number) : value;
    }
    record.Header[HeaderField::kZovSampleNo] = sampleNo;
    return record;
}

bool HasText(const JobPage& page, std::string_view text) {
    return std::ranges::any_of(page.items, [text](const PageItem& item) {
        const auto* found = std::get_if<TextItem>(&item);
        return found != nullptr && found->text == text;
    });
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    std::vector<std::string> texts;
    for (const PageItem& item : page.items) {
        const auto* found = std::get_if<TextItem>(&item);
        if (found != nullptr && std::abs(found->x - x * kResolution) <= 1.5) {
            texts.push_back(found->text);
        }
    }
    return texts;
}

}  // namespace qfr::test
