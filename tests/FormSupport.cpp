#include "tests/FormSupport.h"

#include <cstdlib>

namespace qfr::test {

namespace {

bool Near(int pixel, double inches) {
    return std::abs(pixel - inches * kResolution) <= 1.5;
}

template <typename Predicate>
std::vector<TextItem> TextsWhere(const JobPage& page, Predicate predicate) {
    std::vector<TextItem> texts;
    for (const PageItem& item : page.items) {
        if (const auto* text = std::get_if<TextItem>(&item); text != nullptr && predicate(*text)) {
            texts.push_back(*text);
        }
    }
    return texts;
}

std::vector<std::string> Names(const std::vector<TextItem>& items) {
    std::vector<std::string> names;
    for (const TextItem& item : items) {
        names.push_back(item.text);
    }
    return names;
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

TextItem FindText(const JobPage& page, std::string_view text) {
    const auto found = TextsWhere(page, [&](const TextItem& item) { return item.text == text; });
    EXPECT_FALSE(found.empty()) << "not on the page: " << text;
    return found.empty() ? TextItem() : found.front();
}

bool HasText(const JobPage& page, std::string_view text) {
    return !TextsWhere(page, [&](const TextItem& item) { return item.text == text; }).empty();
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    return Names(TextsWhere(page, [x](const TextItem& t) { return Near(t.x, x); }));
}

std::vector<std::string> TextsEndingAt(const JobPage& page, double x) {
    return Names(TextsWhere(page, [x](const TextItem& t) { return Near(t.x + t.width, x); }));
}

std::vector<double> RulesAcross(const JobPage& page, double x1, double x2) {
    std::vector<double> levels;
    for (const PageItem& item : page.items) {
        if (const auto* rule = std::get_if<RuleItem>(&item);
            rule != nullptr && rule->y1 == rule->y2 && Near(rule->x1, x1) && Near(rule->x2, x2)) {
            levels.push_back(static_cast<double>(rule->y1) / kResolution);
        }
    }
    return levels;
}

}  // namespace qfr::test
