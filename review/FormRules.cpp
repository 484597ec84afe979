// What came of printing: forms that are refused or that print with a message, and what stands where
// on the recorded pages.
#include <algorithm>
#include <cstdlib>

#include "data/EntryChecks.h"
#include "data/EntryTables.h"
#include "forms/FormList.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

std::string InInches(int pixels) {
    return FormatFixed(static_cast<double>(pixels) / kResolution, 2) + " inches";
}

int Pixels(double inches) {
    return static_cast<int>(inches * kResolution);
}

const FormRow& FormNamed(std::string_view name) {
    return *std::ranges::find(kForms, name, &FormRow::name);
}

// The files that a form takes its numbers from.
MendPlace FilesOf(std::string_view form) {
    return form == "6"   ? CalibrationFilePlace()
           : form == "7" ? CheckFilePlace()
                         : SampleFilesPlace();
}

std::optional<MendPlace> PlaceInDialog(const Reviewed& batch, EntryDialog dialog,
                                       const std::string& text) {
    for (const EntryField& field : TableOf(dialog).Fields) {
        for (std::size_t item = 0; item < ItemCount(field, batch.Saved); ++item) {
            if (field.Kind != EntryKind::kChoice && field.Texts.Get(batch.Saved, item) == text) {
                return EntryPlace(dialog, field.Control, item);
            }
        }
    }
    return std::nullopt;
}

// Adds what is wrong with a text of the form, to be mended where it was typed, or else in the
// form's files.
void AddText(const Reviewed& batch, const RecordedForm& form, const std::string& text,
             const std::string& sentence, Findings& findings) {
    const std::optional<EntryDialog> dialog = FormNamed(form.Form).entry;
    const auto typed = dialog ? PlaceInDialog(batch, *dialog, text) : std::nullopt;
    const auto header = batch.HeaderTexts.find(text);
    if (typed || header == batch.HeaderTexts.end()) {
        findings.Add(form.Record, "", sentence, typed ? *typed : FilesOf(form.Form), form.Form);
        return;
    }
    const auto& [record, field] = header->second;
    findings.Add(form.Record ? form.Record : record, "", sentence, HeaderPlace(field), form.Form);
}

// ---- What stands on a page

// A line of a header with the value centred above it, and the label before it.
struct PrintedField {
    const TextItem* Label = nullptr;  // null: the line has none
    const RuleItem* Line = nullptr;
    const TextItem* Value = nullptr;
};

bool IsNear(int one, int other) {
    return std::abs(one - other) <= 3;
}

std::vector<PrintedField> FieldsOf(const JobPage& page) {
    // As Page::PrintLabelledField draws them.
    const int gap = Pixels(0.1);
    const int rise = Pixels(10.0 / 72 + 0.05);
    std::vector<PrintedField> fields;
    for (std::size_t i = 0; i + 1 < page.items.size(); ++i) {
        const auto* line = std::get_if<RuleItem>(&page.items[i]);
        const auto* value = std::get_if<TextItem>(&page.items[i + 1]);
        if (line == nullptr || value == nullptr || line->y1 != line->y2 ||
            !IsNear(line->x1 + line->x2, 2 * value->x + value->width) ||
            !IsNear(line->y1 - rise, value->y)) {
            continue;
        }
        const auto* label = i > 0 ? std::get_if<TextItem>(&page.items[i - 1]) : nullptr;
        const bool isLabel = label != nullptr && IsNear(label->x + label->width + gap, line->x1);
        fields.push_back({isLabel ? label : nullptr, line, value});
    }
    return fields;
}

// Numbers that are meant to reach across the rule to their right (inches).
struct MeantToCross {
    std::string_view Form;
    double Line;
    double Right;  // where the number ends
};
constexpr MeantToCross kMeantToCross[] = {{"7", 4.8, 4.9}, {"7", 5.5, 5.6}};

bool IsMeantToCross(std::string_view form, const TextItem& text, const RuleItem& line) {
    return std::ranges::any_of(kMeantToCross, [&](const MeantToCross& meant) {
        return meant.Form == form && IsNear(Pixels(meant.Line), line.x1) &&
               IsNear(Pixels(meant.Right), text.x + text.width);
    });
}

bool Crosses(const TextItem& text, const RuleItem& line) {
    constexpr int kTouch = kResolution / 100;
    const int middle = text.y + text.height / 2;
    return line.x1 == line.x2 && line.x1 > text.x + kTouch &&
           line.x1 < text.x + text.width - kTouch && middle > std::min(line.y1, line.y2) &&
           middle < std::max(line.y1, line.y2);
}

std::vector<RuleItem> VerticalLines(const JobPage& page) {
    std::vector<RuleItem> lines;
    for (const PageItem& item : page.items) {
        const auto* line = std::get_if<RuleItem>(&item);
        if (line != nullptr && line->x1 == line->x2) {
            lines.push_back(*line);
        }
    }
    return lines;
}

std::span<const JobPage> PagesOf(const RecordedForm& form) {
    return form.Job ? std::span(form.Job->pages) : std::span<const JobPage>();
}

template <typename Look>
void ForTexts(const JobPage& page, Look look) {
    for (const PageItem& item : page.items) {
        if (const auto* text = std::get_if<TextItem>(&item);
            text != nullptr && !IsBlank(text->text)) {
            look(*text);
        }
    }
}

// "Page 1 of 2"
struct PageNumber {
    int Page = 0;
    int Of = 0;
};
std::optional<PageNumber> PageNumberIn(std::string_view text) {
    constexpr std::string_view kPage = "Page ";
    constexpr std::string_view kOf = " of ";
    const std::size_t of = text.find(kOf);
    if (!text.starts_with(kPage) || of == std::string_view::npos) {
        return std::nullopt;
    }
    const auto page = ParseInteger(text.substr(kPage.size(), of - kPage.size()));
    const auto count = ParseInteger(text.substr(of + kOf.size()));
    return page && count ? std::optional(PageNumber{*page, *count}) : std::nullopt;
}

// What the dialog of a form finds missing or wrong; absent where that is not why it is refused.
std::optional<MendPlace> PlaceOfFault(const Reviewed& batch, const RecordedForm& form,
                                      EntryDialog dialog) {
    Entries shown = batch.Saved;
    shown.InitialCalibration = batch.Initial;
    shown.ContinuingCalibration = batch.Continuing;
    shown.StandardSummary = batch.Summary;
    const EntryTable& table = TableOf(dialog);
    const auto fault = CheckEntries(
        table, shown,
        {.LevelCount = batch.LevelCount, .CheckReport = CheckReportNamed(batch.Batch)});
    if (!fault || std::ranges::find(form.Messages, fault->Message.text, &Message::text) ==
                      form.Messages.end()) {
        return std::nullopt;
    }
    for (const EntryField& field : table.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, shown); ++item) {
            const MendPlace place = EntryPlace(dialog, field.Control, item);
            if (place.Control == fault->Control && place.Row == fault->Row) {
                return place;
            }
        }
    }
    return std::nullopt;
}

MendPlace PlaceOfRefusal(const Reviewed& batch, const RecordedForm& form) {
    const std::optional<EntryDialog> dialog = FormNamed(form.Form).entry;
    if (const auto place = dialog ? PlaceOfFault(batch, form, *dialog) : std::nullopt) {
        return *place;
    }
    const std::string title = form.Messages.empty() ? "" : form.Messages.back().title;
    if (title == "Incomplete Header Information") {
        return HeaderPlace(
            FirstEmptyField(batch.Samples.front().Header).value_or(HeaderField::kLabName));
    }
    if (title == "Analysis Date Not Specified" || title == kIncorrectTimeFormat) {
        return HeaderPlace(HeaderField::kDateAnalyzed);  // of the lab blank, the first sample
    }
    if (title == "Lab Blank Not Specified") {
        return LabBlankPlace();
    }
    // What is not there.
    if (form.Form == "2" && !batch.Samples.empty()) {
        return EntryPlace(EntryDialog::kRecoveryRanges, "FileEdit");
    }
    if (form.Form == "7" && batch.Check) {
        return batch.Calibration ? EntryPlace(EntryDialog::kContinuingCalibration, "LimitEdit")
                                 : CalibrationFilePlace();
    }
    if (form.Form == "8" && !(batch.Calibration && batch.Check)) {
        return batch.Calibration ? CheckFilePlace() : CalibrationFilePlace();
    }
    return form.Form == "8" && !batch.Quant.empty() && !batch.Quant.front() ? LabBlankPlace()
                                                                            : FilesOf(form.Form);
}

// The sample that a form is refused for; absent where it is not one.
std::optional<std::size_t> SampleOfRefusal(const Reviewed& batch, const RecordedForm& form) {
    if (!form.Messages.empty() && form.Messages.back().title == kIncorrectTimeFormat) {
        for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
            if (!IsDateTimeText(batch.Header(record, HeaderField::kDateAnalyzed))) {
                return record;
            }
        }
    }
    return form.Record;
}

// Comments without room and limits that came back otherwise are typed; the rest is about files.
MendPlace PlaceOfMessage(const RecordedForm& form, const Message& message) {
    return form.Form == "4" ? EntryPlace(EntryDialog::kBlankComments, "RichEdit1")
           : form.Form == "2" && message.title == "Warning"
               ? EntryPlace(EntryDialog::kRecoveryRanges, "FileEdit")
           : form.Form == "8" && message.title.starts_with("Calibration") ? CalibrationFilePlace()
                                                                          : FilesOf(form.Form);
}

// What other rules say in more detail.
bool IsToldElsewhere(const Message& message) {
    return message.title == "Quantitation Report Changed" ||
           message.title == "Internal Standard Values Missing";
}

}  // namespace

void Prints(const Reviewed& /*batch*/, const RecordedForm& form, Findings& findings) {
    if (form.Job) {
        const auto pages = std::ranges::count_if(
            PagesOf(form), [](const JobPage& page) { return !page.items.empty(); });
        findings.Add(form.Record, "",
                     "Prints " + Counted(static_cast<std::size_t>(pages), "page") + ".", {},
                     form.Form);
    }
}

void Refused(const Reviewed& batch, const RecordedForm& form, Findings& findings) {
    // Without the sample's report, that is what is told.
    if (form.Job || (form.Record && !batch.Quant[*form.Record])) {
        return;
    }
    std::string sentence = "Does not print:";
    constexpr std::size_t kTold = 3;
    for (std::size_t i = 0; i < std::min(form.Messages.size(), kTold); ++i) {
        sentence += " " + AsLine(form.Messages[i]);
    }
    if (form.Messages.size() > kTold) {
        sentence += " And " + Counted(form.Messages.size() - kTold, "more message") + ".";
    }
    findings.Add(SampleOfRefusal(batch, form), "", sentence, PlaceOfRefusal(batch, form),
                 form.Form);
}

void PrintsWithMessage(const Reviewed& /*batch*/, const RecordedForm& form, Findings& findings) {
    for (const Message& message : form.Messages) {
        if (form.Job && !IsToldElsewhere(message)) {
            findings.Add(form.Record, "", AsLine(message), PlaceOfMessage(form, message),
                         form.Form);
        }
    }
}

void PageCounts(const Reviewed& /*batch*/, const RecordedForm& form, Findings& findings) {
    PageNumber last;
    for (const JobPage& page : PagesOf(form)) {
        ForTexts(page, [&](const TextItem& text) {
            const auto number = PageNumberIn(text.text);
            last = number && number->Page > last.Page ? *number : last;
        });
    }
    if (last.Page != last.Of) {
        findings.Add(form.Record, "",
                     "The last page is \"Page " + std::to_string(last.Page) + " of " +
                         std::to_string(last.Of) + "\".",
                     FilesOf(form.Form), form.Form);
    }
}

void WideValues(const Reviewed& batch, const RecordedForm& form, Findings& findings) {
    for (const JobPage& page : PagesOf(form)) {
        for (const PrintedField& field : FieldsOf(page)) {
            const std::string& text = field.Value->text;
            const int room = field.Line->x2 - field.Line->x1;
            // The lists' own values are wider than the lines of some forms.
            if (field.Value->width > room + 3 && !IsListedChoice(text)) {
                AddText(batch, form, text,
                        (field.Label != nullptr ? field.Label->text + " " : "") + Quoted(text) +
                            " is " + InInches(field.Value->width) + " wide, and its line " +
                            InInches(room) + ".",
                        findings);
            }
        }
    }
}

void TextOverLine(const Reviewed& batch, const RecordedForm& form, Findings& findings) {
    for (const JobPage& page : PagesOf(form)) {
        const std::vector<RuleItem> lines = VerticalLines(page);
        ForTexts(page, [&](const TextItem& text) {
            const auto crossed = std::ranges::find_if(lines, [&](const RuleItem& line) {
                return Crosses(text, line) && !IsMeantToCross(form.Form, text, line);
            });
            if (crossed != lines.end()) {
                AddText(batch, form, text.text,
                        Quoted(text.text) + " runs over the line at " + InInches(crossed->x1) + ".",
                        findings);
            }
        });
    }
}

void TextOffPage(const Reviewed& batch, const RecordedForm& form, Findings& findings) {
    for (const JobPage& page : PagesOf(form)) {
        ForTexts(page, [&](const TextItem& text) {
            if (text.x < 0 || text.y < 0 || text.x + text.width > page.width ||
                text.y + text.height > page.height) {
                AddText(batch, form, text.text, Quoted(text.text) + " runs off the page.",
                        findings);
            }
        });
    }
}

}  // namespace qfr
