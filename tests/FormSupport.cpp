#include "tests/FormSupport.h"

#include <cstdlib>

namespace qfr::test {

namespace {

template <typename Predicate>
std::vector<std::string> TextsWhere(const JobPage& page, Predicate predicate) {
    std::vector<std::string> texts;
    for (const PageItem& item : page.items) {
        if (const auto* found = std::get_if<TextItem>(&item);
            found != nullptr && predicate(*found)) {
            texts.push_back(found->text);
        }
    }
    return texts;
}

}  // namespace

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
    return !TextsWhere(page, [&](const TextItem& t) { return t.text == text; }).empty();
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    return TextsWhere(page,
                      [x](const TextItem& t) { return std::abs(t.x - x * kResolution) <= 1.5; });
}

}  // namespace qfr::test
