#include "tests/FormSupport.h"

#include <cstdlib>

namespace qfr::test {

namespace {

bool Near(int pixel, double inches) {
    return std::abs(pixel - inches * kResolution) <= 1.5;
}

template <typename Predicate>
std::vector<std::string> TextsWhere(const JobPage& page, Predicate predicate) {
    std::vector<std::string> texts;
    for (const PageItem& item : page.items) {
        if (const auto* text = std::get_if<TextItem>(&item); text != nullptr && predicate(*text)) {
            texts.push_back(text->text);
        }
    }
    return texts;
}

}  // namespace

bool ScriptedHost::ShowEntryDialog(EntryDialog dialog, std::size_t /*headerRecord*/) {
    if (dialogs.empty()) {
        ADD_FAILURE() << "unexpected entry dialog";
        return false;
    }
    auto answer = std::move(dialogs.front());
    dialogs.pop_front();
    return answer(dialog);
}

SampleRecord CompleteRecord(const std::string& sampleNo, const std::string& fileName) {
    SampleRecord record;
    record.FileName = fileName;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        std::string& value = record.Header[HeaderFieldAt(number)];
        if (value.empty()) {
            value = "v" + std::to_string(number);
        }
    }
    record.Header[HeaderField::kZovSampleNo] = sampleNo;
    return record;
}

TextItem FindText(const JobPage& page, std::string_view text) {
    for (const PageItem& item : page.items) {
        if (const auto* found = std::get_if<TextItem>(&item);
            found != nullptr && found->text == text) {
            return *found;
        }
    }
    ADD_FAILURE() << "not on the page: " << text;
    return {};
}

bool HasText(const JobPage& page, std::string_view text) {
    return !TextsWhere(page, [&](const TextItem& item) { return item.text == text; }).empty();
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    return TextsWhere(page, [x](const TextItem& item) { return Near(item.x, x); });
}

std::vector<std::string> TextsEndingAt(const JobPage& page, double x) {
    return TextsWhere(page, [x](const TextItem& item) { return Near(item.x + item.width, x); });
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
