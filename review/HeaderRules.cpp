// The values of the samples' headers: each by itself, against the report that it comes from, and
// against those of the other samples.
#include <algorithm>
#include <span>
#include <unordered_map>

#include "data/HeaderFields.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

using enum HeaderField;

constexpr HeaderField kPackageFields[] = {kLabName, kContract, kLabCode,
                                          kCaseNo,  kModRefNo, kSdgNo};
constexpr HeaderField kInstrumentFields[] = {kInstrumentId, kGcColumn, kColumnId, kColumnLength};

std::string Is(HeaderField field, std::string_view value) {
    return std::string(HeaderEntryOf(field).Label) + " is " + Quoted(value);
}

bool IsWater(const SampleHeader& header) {
    return header[kMatrix] == "WATER";
}

bool IsKnownMatrix(const SampleHeader& header) {
    return IsWater(header) || header[kMatrix] == "SOIL" || header[kMatrix] == "SED";
}

bool IsSame(HeaderField field, std::string_view one, std::string_view other) {
    return Trim(one) == Trim(other) ||
           (field == kDateAnalyzed && IsSameMinute(DateTimeIn(one), DateTimeIn(other)));
}

template <typename Look>
void ForValues(const Reviewed& batch, Look look) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            look(record, HeaderFieldAt(number), batch.Header(record, HeaderFieldAt(number)));
        }
    }
}

using Doubt = std::optional<std::string>(HeaderField field, std::string_view value);
void ForDoubts(const Reviewed& batch, Doubt* doubtOf, Findings& findings) {
    ForValues(batch, [&](std::size_t record, HeaderField field, const std::string& value) {
        if (const auto doubt = doubtOf(field, value)) {
            findings.AddSample(record, *doubt, HeaderPlace(field));
        }
    });
}

// How many samples have each value of the field.
using ValueCounts = std::unordered_map<std::string, std::size_t>;
ValueCounts CountValues(const Reviewed& batch, HeaderField field) {
    ValueCounts counts;
    for (const SampleRecord& sample : batch.Samples) {
        ++counts[Trim(sample.Header[field])];
    }
    return counts;
}

// A value of a sample that its report contradicts.
struct Contradiction {
    std::size_t Record;
    HeaderField Field;
    const std::string& Shown;
    const std::string& Stated;
    std::size_t Samples;  // that show this value
};

template <typename Look>
void ForContradictions(const Reviewed& batch, Look look) {
    // Two analyses of a sample may share their lab sample ID.
    for (const HeaderField field : {kZovSampleNo, kLabFileId, kDateAnalyzed}) {
        ValueCounts counts = CountValues(batch, field);
        for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
            if (!batch.Quant[record]) {
                continue;
            }
            SampleRecord report;
            ReadSampleHeader(*batch.Quant[record], report);
            const std::string& stated = report.Header[field];
            const std::string& shown = batch.Header(record, field);
            if (!IsUnfilled(shown) && !stated.empty() && !IsSame(field, shown, stated)) {
                look(Contradiction{record, field, shown, stated, counts[Trim(shown)]});
            }
        }
    }
}

// Samples whose value is not that of most samples.
void LookForOthers(const Reviewed& batch, std::span<const HeaderField> fields, Findings& findings) {
    for (const HeaderField field : fields) {
        ValueCounts counts = CountValues(batch, field);
        counts.erase("");
        std::string most;
        for (const SampleRecord& sample : batch.Samples) {
            const std::string value = Trim(sample.Header[field]);
            most = most.empty() || (!value.empty() && counts[value] > counts[most]) ? value : most;
        }
        for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
            const std::string value = Trim(batch.Header(record, field));
            if (!value.empty() && value != most) {
                findings.AddSample(record,
                                   Is(field, value) + "; most samples have " + Quoted(most) + ".",
                                   HeaderPlace(field));
            }
        }
    }
}

}  // namespace

void EmptyValues(const Reviewed& batch, Findings& findings) {
    ForValues(batch, [&](std::size_t record, HeaderField field, const std::string& value) {
        if (field != kDateReceived && IsUnfilled(value)) {
            findings.AddSample(record, std::string(HeaderEntryOf(field).Label) + " is empty.",
                               HeaderPlace(field));
        }
    });
}

void NotReceived(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = batch.Blanks(); record < batch.Samples.size(); ++record) {
        if (IsUnfilled(batch.Header(record, kDateReceived))) {
            findings.AddSample(record, "Date Received is empty; only the lab blank has none.",
                               HeaderPlace(kDateReceived));
        }
    }
}

void Placeholders(const Reviewed& batch, Findings& findings) {
    ForDoubts(batch, &PlaceholderDoubt, findings);
}

void CarriedOver(const Reviewed& batch, Findings& findings) {
    ForContradictions(batch, [&](const Contradiction& found) {
        if (found.Samples > 1) {
            findings.AddSample(found.Record,
                               Is(found.Field, found.Shown) +
                                   " like another sample's; the report has " +
                                   Quoted(found.Stated) + ".",
                               HeaderPlace(found.Field));
        }
    });
}

void OtherThanReport(const Reviewed& batch, Findings& findings) {
    ForContradictions(batch, [&](const Contradiction& found) {
        if (found.Samples == 1) {
            findings.AddSample(
                found.Record,
                Is(found.Field, found.Shown) + "; the report has " + Quoted(found.Stated) + ".",
                HeaderPlace(found.Field));
        }
    });
}

void UnlistedChoices(const Reviewed& batch, Findings& findings) {
    ForDoubts(batch, &ChoiceDoubt, findings);
}

void ForeignUnits(const Reviewed& batch, Findings& findings) {
    constexpr HeaderField kUnits[] = {kWtVolUnits, kConcUnits};
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const SampleHeader& header = batch.Samples[record].Header;
        for (const HeaderField field : kUnits) {
            const bool ofWater = header[field] == "mL" || header[field] == "ug/L";
            const bool ofSoil = header[field] == "g" || header[field] == "ug/kg";
            if (IsKnownMatrix(header) && (IsWater(header) ? ofSoil : ofWater)) {
                findings.AddSample(record,
                                   Is(field, header[field]) + " for " + header[kMatrix] + ".",
                                   HeaderPlace(field));
            }
        }
    }
}

void MoistureOfMatrix(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const SampleHeader& header = batch.Samples[record].Header;
        const std::string value = Trim(header[kPercentMoisture]);
        const auto percent = ParseNumber(value);
        const bool fits =
            IsWater(header) ? value == "N/A" : percent && *percent >= 0 && *percent <= 100;
        if (IsKnownMatrix(header) && !value.empty() && !fits) {
            findings.AddSample(
                record,
                Is(kPercentMoisture, value) + " for " + header[kMatrix] +
                    (IsWater(header) ? ", which has N/A." : ", which has a number from 0 to 100."),
                HeaderPlace(kPercentMoisture));
        }
    }
}

void VolumesOfMatrix(const Reviewed& batch, Findings& findings) {
    constexpr HeaderField kVolumes[] = {kSoilExtractVolume, kSoilAliquotVolume};
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const SampleHeader& header = batch.Samples[record].Header;
        const bool soil = header[kMatrix] == "SOIL";
        for (const HeaderField field : kVolumes) {
            const std::string value = Trim(header[field]);
            const bool fits = soil ? ParseNumber(value).has_value() : value == "N/A";
            if (IsKnownMatrix(header) && !value.empty() && !fits) {
                findings.AddSample(record,
                                   Is(field, value) + " for " + header[kMatrix] +
                                       (soil ? ", which has a number." : ", which has N/A."),
                                   HeaderPlace(field));
            }
        }
    }
}

void ValuesWithoutNumber(const Reviewed& batch, Findings& findings) {
    constexpr HeaderField kNumbers[] = {kSampleWtVol, kColumnId, kDilutionFactor, kPurgeVolume,
                                        kColumnLength};
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        for (const HeaderField field : kNumbers) {
            const std::string value = Trim(batch.Header(record, field));
            const auto number = ParseNumber(value);
            if (!value.empty() && (!number || *number <= 0)) {
                findings.AddSample(record, Is(field, value) + ", not a number above 0.",
                                   HeaderPlace(field));
            }
        }
    }
}

void UnreadableDates(const Reviewed& batch, Findings& findings) {
    constexpr HeaderField kDates[] = {kDateReceived, kDateAnalyzed};
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        for (const HeaderField field : kDates) {
            // Only of the receipt the hour may be unknown.
            const std::string& text = batch.Header(record, field);
            const std::string value = field == kDateReceived ? WithoutUnfilledTime(text) : text;
            if (!IsUnfilled(value) && !DateTimeIn(value)) {
                const auto noSuchDate = NoSuchDate(value);
                findings.AddSample(record,
                                   Is(field, value) + ", which is no date." +
                                       (noSuchDate ? " " + *noSuchDate : ""),
                                   HeaderPlace(field));
            }
        }
    }
}

void OtherPackage(const Reviewed& batch, Findings& findings) {
    LookForOthers(batch, kPackageFields, findings);
}

void OtherInstrument(const Reviewed& batch, Findings& findings) {
    LookForOthers(batch, kInstrumentFields, findings);
}

void SampleTwice(const Reviewed& batch, Findings& findings) {
    std::unordered_map<std::string, std::size_t> first;
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const std::string number = Trim(batch.Header(record, kZovSampleNo));
        const auto [same, isNew] = first.emplace(LowerCase(number), record);
        if (!isNew && !number.empty()) {
            findings.AddSample(record,
                               FileNameOnly(batch.Samples[record].FileName) +
                                   " has the sample number of " +
                                   FileNameOnly(batch.Samples[same->second].FileName) + ".",
                               HeaderPlace(kZovSampleNo));
        }
    }
}

void BlankAsSample(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 1; batch.Blanks() > 0 && record < batch.Samples.size(); ++record) {
        if (LowerCase(batch.Samples[record].FileName) ==
            LowerCase(batch.Samples.front().FileName)) {
            findings.AddSample(record,
                               "The lab blank's report " +
                                   FileNameOnly(batch.Samples[record].FileName) +
                                   " is also one of the samples.",
                               SampleFilesPlace());
        }
    }
}

}  // namespace qfr
