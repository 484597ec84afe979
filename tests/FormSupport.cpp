#include "tests/FormSupport.h"

#include <cstdlib>

namespace qfr::test {

namespace {

bool Near(int pixel, double inches) {
    return std::abs(pixel - inches * kResolution) <= 1.5;
}

// The items of one kind that fulfil the predicate.
template <typename Item, typename Predicate>
std::vector<Item> ItemsWhere(const JobPage& page, Predicate predicate) {
    std::vector<Item> items;
    for (const PageItem& item : page.items) {
        if (const auto* found = std::get_if<Item>(&item); found != nullptr && predicate(*found)) {
            items.push_back(*found);
        }
    }
    return items;
}

template <typename Predicate>
std::vector<std::string> TextsWhere(const JobPage& page, Predicate predicate) {
    std::vector<std::string> texts;
    for (const TextItem& item : ItemsWhere<TextItem>(page, predicate)) {
        texts.push_back(item.text);
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

TextItem FindText(const JobPage& page, std::string_view text) {
    const auto found = ItemsWhere<TextItem>(page, [&](const auto& t) { return t.text == text; });
    EXPECT_FALSE(found.empty()) << "not on the page: " << text;
    return found.empty() ? TextItem() : found.front();
}

bool HasText(const JobPage& page, std::string_view text) {
    return !TextsWhere(page, [&](const TextItem& t) { return t.text == text; }).empty();
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    return TextsWhere(page, [x](const TextItem& t) { return Near(t.x, x); });
}

std::vector<std::string> TextsEndingAt(const JobPage& page, double x) {
    return TextsWhere(page, [x](const TextItem& t) { return Near(t.x + t.width, x); });
}

std::vector<double> RulesAcross(const JobPage& page, double x1, double x2) {
    std::vector<double> levels;
    for (const RuleItem& rule : ItemsWhere<RuleItem>(page, [=](const RuleItem& r) {
             return r.y1 == r.y2 && Near(r.x1, x1) && Near(r.x2, x2);
         })) {
        levels.push_back(static_cast<double>(rule.y1) / kResolution);
    }
    return levels;
}

}  // namespace qfr::test
