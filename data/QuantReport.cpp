#include "data/QuantReport.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/RawDataFile.h"
#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kTableHead = "compound#";

constexpr std::size_t kUsualRows = 64;

// Fields of a row of the compound table, from 1. The CAS number is the last one.
constexpr std::size_t kNameField = 2;
constexpr std::size_t kConcentrationField = 3;
constexpr std::size_t kQualifierField = 6;
constexpr std::size_t kRowFields = 7;

// Where the values of a report's header go.
constexpr std::pair<HeaderField, std::string QuantReport::*> kHeaderValues[] = {
    {HeaderField::kDateAnalyzed, &QuantReport::Acquired},
    {HeaderField::kSampleWtVol, &QuantReport::SampleSize},
    {HeaderField::kLabSampleId, &QuantReport::ClientSample},
    {HeaderField::kZovSampleNo, &QuantReport::SampleId},
    {HeaderField::kLabFileId, &QuantReport::LabFileId},
    {HeaderField::kInstrumentId, &QuantReport::Instrument}};

// What follows the label of a header line; empty when the line has no such label.
std::string AfterLastColon(std::string_view line) {
    const std::size_t colon = line.rfind(':');
    return colon == std::string_view::npos ? "" : Trim(line.substr(colon + 1));
}

void ReadAcquisitionLine(std::string_view line, QuantReport& report) {
    constexpr std::string_view kLabel = "Date:";
    const std::size_t label = line.find(kLabel);
    if (label == std::string_view::npos) {
        return;
    }
    const std::string date = Trim(line.substr(label + kLabel.size()));
    if (const auto when = ParseDateTime(date)) {
        report.Acquired = FormatDateTime(*when);
    } else {
        report.UnreadDate = date;
    }
}

// "Lab File ID: ABC01.D; Instrument: GCMS2"
void ReadLabFileLine(std::string_view line, QuantReport& report) {
    const std::string_view first = line.substr(0, line.find(';'));
    const std::size_t idColon = first.find(':');
    report.LabFileId = idColon == std::string_view::npos ? "" : Trim(first.substr(idColon + 1));

    if (first.size() == line.size()) {
        return;
    }
    const std::string_view last = line.substr(line.rfind(';') + 1);
    const std::size_t colon = last.rfind(':');
    if (LowerCase(CharacterRange(last, 2, 11)) == "instrument" && colon != std::string_view::npos) {
        // The colon and one blank are passed over, whatever stands in the blank's place.
        std::string_view value = last.substr(colon + 1);
        value.remove_prefix(FirstCharacters(value, 1).size());
        report.Instrument = value;
    }
}

void ReadHeaderLine(std::string_view line, QuantReport& report) {
    if (BeginsWith(line, "acquis")) {
        ReadAcquisitionLine(line, report);
    } else if (BeginsWith(line, "sample size")) {
        report.SampleSize = AfterLastColon(line);
    } else if (BeginsWith(line, "client sample")) {
        report.ClientSample = AfterLastColon(line);
    } else if (BeginsWith(line, "sample id:")) {
        report.SampleId = AfterLastColon(line);
    } else if (BeginsWith(line, "lab file id")) {
        ReadLabFileLine(line, report);
    }
}

CompoundRow ReadCompoundRow(std::string_view line, bool& textsCut) {
    const auto cells = static_cast<std::size_t>(std::ranges::count(line, ';')) + 1;
    // From 1. On purpose: of a row that is cut short its last field is looked at.
    std::array<std::string_view, kQualifierField + 1> fields;
    std::string_view rest = line;
    for (std::size_t k = 1; k <= kQualifierField; ++k) {
        fields[k] = k <= cells ? TakeField(rest) : fields[k - 1];
    }
    const auto cell = [&](std::size_t k) { return std::string(k <= cells ? fields[k] : ""); };
    CompoundRow row;
    row.Name = cell(kNameField);
    row.Concentration = cell(kConcentrationField);
    row.Qualifier = cell(kQualifierField);
    row.CasNumber = Trim(line.substr(line.rfind(';') + 1));
    for (std::string* text : {&row.Name, &row.Concentration, &row.Qualifier, &row.CasNumber}) {
        textsCut |= CutText(*text);
    }
    row.Found = !Trim(fields[kConcentrationField]).starts_with('U') &&
                !Contains(fields[kQualifierField], "J");
    row.Whole = cells >= kRowFields;
    return row;
}

// Each section takes what it needs from the report's lines, which go by once.

// The header and the compound table.
struct SampleSection {
    QuantReport& report;
    enum { kHeader, kRows, kDone } state = kHeader;

    void Take(const std::string& line) {
        if (state == kHeader) {
            const std::string trimmed = Trim(line);
            if (BeginsWith(trimmed, kTableHead)) {
                report.Rows.reserve(kUsualRows);
                state = kRows;
            } else {
                ReadHeaderLine(trimmed, report);
            }
        } else if (state == kRows) {
            if (IsBlank(line)) {
                state = kDone;
            } else if (++report.RowCount <= kMaxPrintedRows) {
                report.Rows.push_back(ReadCompoundRow(line, report.TextsCut));
            }
        }
    }
};

// Below "volatile" and one line of heads.
struct MonitoringSection {
    QuantReport& report;
    enum { kSearching, kHeads, kRows, kDone } state = kSearching;

    void Take(const std::string& line) {
        if (state == kSearching && BeginsWith(line, "volatile")) {
            report.Monitoring.emplace();
            state = kHeads;
        } else if (state == kHeads) {
            state = kRows;
        } else if (state == kRows) {
            if (IsBlank(line) || report.Monitoring->size() == kMaxMonitoringCompounds) {
                state = kDone;
            } else if (Contains(line, ";")) {
                std::string_view rest = line;
                TakeField(rest);
                std::string name = LowerCase(Trim(TakeField(rest)));
                std::string recovery = Trim(TakeField(rest));
                report.TextsCut |= CutText(name);
                report.TextsCut |= CutText(recovery);
                report.Monitoring->push_back({std::move(name), std::move(recovery)});
            }
        }
    }
};

// Below its heading and one line of heads, to the end of the report.
struct InternalStandardSection {
    QuantReport& report;
    enum { kSearching, kHeads, kRows } state = kSearching;

    void Take(const std::string& line) {
        if (state == kSearching) {
            constexpr std::string_view kHeading = "internal standard data";
            std::string_view start = line;
            start.remove_prefix(FirstCharacters(line, 10).size());
            while (!start.empty() && IsBlank(start.substr(0, 1))) {
                start.remove_prefix(1);
            }
            if (BeginsWith(start, kHeading) &&
                LowerCase(Trim(CharacterRange(line, 11, 42))) == kHeading) {
                state = kHeads;
            }
        } else if (state == kHeads) {
            state = kRows;
        } else {
            const std::string_view text = FirstCharacters(line, kMaxTextLine);
            for (std::size_t i = 0; i < InternalStandardNames.size(); ++i) {
                if (BeginsWith(text, InternalStandardNames[i])) {
                    report.InternalStandards[i] = {WholeCounts(GetField(text, 2)),
                                                   GetField(text, 3)};
                }
            }
        }
    }
};

}  // namespace

QuantReport QuantReport::Read(LineReader file) {
    QuantReport report;
    FrameReader frame(ReportKind::kQuantitation, report.Frame);
    SampleSection sample{report};
    MonitoringSection monitoring{report};
    InternalStandardSection standards{report};
    while (const auto line = file.Next()) {
        frame.Take(*line);
        sample.Take(*line);
        monitoring.Take(*line);
        standards.Take(*line);
    }
    for (std::string* text : {&report.UnreadDate, &report.SampleSize, &report.ClientSample,
                              &report.SampleId, &report.LabFileId, &report.Instrument}) {
        report.TextsCut |= CutText(*text);
    }
    for (PeakData& peak : report.InternalStandards) {
        report.TextsCut |= CutText(peak.Area);
        report.TextsCut |= CutText(peak.RetentionTime);
    }
    // A run keeps the reports of all its samples.
    report.Rows.shrink_to_fit();
    return report;
}

std::optional<std::size_t> StandardLines::Take(const std::string& line) {
    const std::string name = LowerCase(GetField(line, nameField_));
    for (std::size_t i = 0; i < found_.size(); ++i) {
        if (name == InternalStandardNames[i] && !std::exchange(found_[i], true)) {
            return i;
        }
    }
    return std::nullopt;
}

std::string WholeCounts(const std::string& area) {
    return area.substr(0, area.find('.'));
}

void ReadSampleHeader(const QuantReport& report, SampleRecord& record) {
    for (const auto& [field, value] : kHeaderValues) {
        record.Header[field] = BatchText(report.*value);
    }
    record.CompoundCount = report.RowCount;
    record.TakenIds = {record.Header[HeaderField::kLabFileId],
                       record.Header[HeaderField::kZovSampleNo]};
}

std::vector<std::string> ChangedValues(const QuantReport& report) {
    std::vector<std::string> changed;
    for (const auto& [field, value] : kHeaderValues) {
        if (BatchText(report.*value) != report.*value) {
            changed.push_back(report.*value);
        }
    }
    return changed;
}

std::vector<bool> ReadBlankHits(const QuantReport& blank) {
    std::vector<bool> hits;
    for (const CompoundRow& row : blank.Rows) {
        hits.push_back(row.Found);
    }
    return hits;
}

}  // namespace qfr
