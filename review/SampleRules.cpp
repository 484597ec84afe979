// The reports of the samples, and what Forms I, II and VIII state of them.
#include <algorithm>
#include <unordered_map>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

// The file list has no row of the lab blank.
MendPlace ReportPlace(const Reviewed& batch, std::size_t record) {
    return record < batch.Blanks() ? LabBlankPlace() : SampleFilesPlace();
}

// Forms II and VIII list the samples whose report is there; this finds their records.
template <typename Row>
std::vector<std::pair<std::size_t, const Row*>> RowsBySample(const Reviewed& batch,
                                                             const std::vector<Row>& rows) {
    std::vector<std::pair<std::size_t, const Row*>> found;
    for (std::size_t record = 0; record < batch.Samples.size() && found.size() < rows.size();
         ++record) {
        if (batch.Quant[record]) {
            found.emplace_back(record, &rows[found.size()]);
        }
    }
    return found;
}

// The amount of the highest level that a compound's response factors come from.
std::unordered_map<std::string, double> HighestAmounts(const Reviewed& batch) {
    std::unordered_map<std::string, double> highest;
    if (!batch.InitialCalibration) {
        return highest;
    }
    for (const CalibrationRecord& compound : batch.InitialCalibration->Compounds) {
        for (std::size_t level = 0; level < compound.RF.size(); ++level) {
            const auto amount = ParseNumber(compound.Amount[level]);
            if (amount && !IsBlank(compound.RF[level])) {
                double& most = highest[compound.Name];
                most = std::max(most, *amount);
            }
        }
    }
    return highest;
}

// What is unlike the first of two lists of names, by position; empty when nothing is.
std::string Difference(const std::vector<std::string>& names,
                       const std::vector<std::string>& others, const std::string& otherSample) {
    const auto [name, other] = std::ranges::mismatch(names, others);
    if (name == names.end() && other == others.end()) {
        return "";
    }
    if (name == names.end() || other == others.end()) {
        return Counted(names.size(), "compound") + "; " + otherSample + " has " +
               std::to_string(others.size()) + ".";
    }
    return "Compound " + std::to_string(name - names.begin() + 1) + " is " + Quoted(*name) +
           ", and in " + otherSample + " " + Quoted(*other) + ".";
}

// Samples whose names are not those of the batch's first report.
template <typename NamesOf>
void LookForOtherNames(const Reviewed& batch, Findings& findings, NamesOf namesOf) {
    std::optional<std::size_t> first;
    std::vector<std::string> expected;
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        if (!batch.Quant[record]) {
            continue;
        }
        std::vector<std::string> names = namesOf(*batch.Quant[record]);
        if (!first) {
            first = record;
            expected = std::move(names);
            continue;
        }
        const std::string difference =
            Difference(names, expected, SampleName(batch.Samples[*first]));
        if (!difference.empty()) {
            findings.AddSample(record, difference, ReportPlace(batch, record));
        }
    }
}

// Rows of which the blank's saved hits are not what its report has now; `flagged`: the saved ones
// have them.
void LookForOtherHits(const Reviewed& batch, bool flagged, const std::string& sentence,
                      Findings& findings) {
    if (batch.Blanks() == 0 || !batch.Quant.front()) {
        return;
    }
    const QuantReport& blank = *batch.Quant.front();
    const std::vector<bool> hits = ReadBlankHits(blank);
    const std::vector<bool>& saved = batch.Batch.BlankHitFlags;
    for (std::size_t record = 1; record < batch.Samples.size(); ++record) {
        const auto& sheet = batch.DataSheets[record];
        for (std::size_t row = 0; sheet && row < sheet->Rows.size(); ++row) {
            const bool isHit = row < hits.size() && hits[row];
            const bool isFlagged = row < saved.size() && saved[row];
            if (isHit != isFlagged && isFlagged == flagged && sheet->Rows[row].Qualifier != "U" &&
                !IsBlank(sheet->Rows[row].Concentration)) {
                findings.AddSample(record, sentence, LabBlankPlace(), sheet->Rows[row].Compound);
            }
        }
    }
}

struct PeakValue {
    std::size_t Standard;
    std::string_view Kind;  // "area" or "retention time"
    const std::string& Text;
    const std::string& Flag;
    const std::string& Lower;
    const std::string& Upper;
};

// The areas and retention times of a sample's internal standards.
std::vector<PeakValue> PeakValues(const Form8Content& content, const Form8Content::Sample& sample) {
    std::vector<PeakValue> values;
    for (std::size_t i = 0; i < sample.Peaks.size(); ++i) {
        const Form8Content::Peak& peak = sample.Peaks[i];
        const StandardISRecord& standard = content.Standard[i];
        values.push_back(
            {i, "area", peak.Area, peak.AreaFlag, standard.AreaLower, standard.AreaUpper});
        values.push_back(
            {i, "retention time", peak.RT, peak.RTFlag, standard.RTLower, standard.RTUpper});
    }
    return values;
}

template <typename Look>
void ForPeaks(const Reviewed& batch, Look look) {
    if (!batch.InternalStandards) {
        return;
    }
    for (const auto& [record, sample] : RowsBySample(batch, batch.InternalStandards->Samples)) {
        for (const PeakValue& value : PeakValues(*batch.InternalStandards, *sample)) {
            look(record, value, std::string(InternalStandardNames[value.Standard]));
        }
    }
}

template <typename Look>
void ForRecoveries(const Reviewed& batch, Look look) {
    if (!batch.Recoveries) {
        return;
    }
    const auto& compounds = batch.Recoveries->Compounds;
    for (const auto& [record, sample] : RowsBySample(batch, batch.Recoveries->Samples)) {
        for (std::size_t i = 0; i < std::min(sample->Recoveries.size(), compounds.size()); ++i) {
            look(record, sample->Recoveries[i], compounds[i]);
        }
    }
}

// The areas and retention times of the 12-hour standard.
template <typename Look>
void ForStandard(const Reviewed& batch, Look look) {
    for (std::size_t i = 0; batch.InternalStandards && i < InternalStandardNames.size(); ++i) {
        const StandardISRecord& standard = batch.InternalStandards->Standard[i];
        look("area", standard.Area, std::string(InternalStandardNames[i]));
        look("retention time", standard.RT, std::string(InternalStandardNames[i]));
    }
}

}  // namespace

// ---- Reports

void ReportsMissing(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        if (!batch.Quant[record]) {
            findings.AddSample(
                record,
                "The report " + FileNameOnly(batch.Samples[record].FileName) + " is not there.",
                ReportPlace(batch, record));
        }
    }
}

void ReportsChanged(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        if (!batch.Quant[record]) {
            continue;
        }
        if (const auto changed =
                ReportChanged(batch.Batch, batch.Samples[record], batch.Quant[record])) {
            findings.AddSample(record, OneLine(changed->text), ReportPlace(batch, record));
        }
    }
}

void RowOrder(const Reviewed& batch, Findings& findings) {
    LookForOtherNames(batch, findings, [](const QuantReport& report) {
        std::vector<std::string> names;
        for (const CompoundRow& row : report.Rows) {
            names.push_back(Trim(row.Name));
        }
        return names;
    });
}

void RecoveryOrder(const Reviewed& batch, Findings& findings) {
    LookForOtherNames(batch, findings, [](const QuantReport& report) {
        std::vector<std::string> names;
        if (report.Monitoring) {
            for (const MonitoringCompound& compound : *report.Monitoring) {
                names.push_back(Trim(compound.Name));
            }
        }
        return names;
    });
}

// ---- Form I

void AboveCalibration(const Reviewed& batch, Findings& findings) {
    const auto highest = HighestAmounts(batch);
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const SampleHeader& header = batch.Samples[record].Header;
        const double dilution = ParseNumber(header[HeaderField::kDilutionFactor]).value_or(1);
        // The levels are in ug/L: what they are of another unit, only the laboratory knows.
        if (!batch.DataSheets[record] || header[HeaderField::kConcUnits] != "ug/L") {
            continue;
        }
        for (const VoaRow& row : batch.DataSheets[record]->Rows) {
            const auto amount = highest.find(LowerCase(Trim(row.Compound)));
            const auto concentration = ParseNumber(row.Concentration);
            if (amount != highest.end() && concentration && row.Qualifier != "U" &&
                !Contains(row.Qualifier, "E") && *concentration > amount->second * dilution) {
                findings.AddSample(
                    record,
                    row.Concentration + " ug/L without E; the highest level is " +
                        FormatGeneral(amount->second) + " ug/L" +
                        (dilution == 1 ? "." : ", diluted " + FormatGeneral(dilution) + " times."),
                    ReportPlace(batch, record), Trim(row.Compound));
            }
        }
    }
}

void BlankFlagWithoutHit(const Reviewed& batch, Findings& findings) {
    LookForOtherHits(batch, true, "Flagged B, and the lab blank's report has no hit of it now.",
                     findings);
}

void BlankHitWithoutFlag(const Reviewed& batch, Findings& findings) {
    LookForOtherHits(batch, false, "Not flagged B, and the lab blank's report has a hit of it now.",
                     findings);
}

// ---- Form I TIC

void IncompleteTics(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const auto& tics = batch.Samples[record].TicList;
        if (!tics) {
            continue;
        }
        for (const std::size_t row : IncompleteTicRows(*tics)) {
            findings.AddSample(record,
                               "Row " + std::to_string(row) +
                                   " lacks a CAS number, name, retention time or concentration.",
                               TicPlace(static_cast<int>(row)));
        }
    }
}

void NoTics(const Reviewed& batch, Findings& findings) {
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        if (!batch.Samples[record].TicList) {
            findings.AddSample(record,
                               "No tentatively identified compounds are entered: nothing prints.",
                               TicPlace());
        }
    }
}

void RepeatedTics(const Reviewed& batch, Findings& findings) {
    constexpr std::size_t kRowsOfPage = 30;
    for (std::size_t record = 0; record < batch.Samples.size(); ++record) {
        const auto& tics = batch.Samples[record].TicList;
        if (tics && tics->size() > kRowsOfPage) {
            findings.AddSample(record,
                               std::to_string(tics->size()) +
                                   " compounds: the second page prints the first ones again, "
                                   "instead of those from 31 on.",
                               TicPlace(static_cast<int>(kRowsOfPage) + 1));
        }
    }
}

// ---- Form II

void RecoveryOutside(const Reviewed& batch, Findings& findings) {
    ForRecoveries(batch, [&](std::size_t record, const Form2Content::Recovery& recovery,
                             const Form2Content::Compound& compound) {
        if (!recovery.Flag.empty()) {
            findings.AddSample(
                record,
                "The recovery is " + Trim(recovery.Percent) + "%, outside " + compound.Limits + ".",
                ReportPlace(batch, record), compound.Name);
        }
    });
}

void RecoveryWithoutNumber(const Reviewed& batch, Findings& findings) {
    ForRecoveries(batch, [&](std::size_t record, const Form2Content::Recovery& recovery,
                             const Form2Content::Compound& compound) {
        if (!ParseNumber(recovery.Percent)) {
            findings.AddSample(record,
                               "The recovery " + Quoted(Trim(recovery.Percent)) +
                                   " is no number and cannot be compared.",
                               ReportPlace(batch, record), compound.Name);
        }
    });
}

void RecoveryWithoutRange(const Reviewed& batch, Findings& findings) {
    if (!batch.Recoveries) {
        return;
    }
    const auto& compounds = batch.Recoveries->Compounds;
    const auto isNamed = [](const Form2Content::Compound& compound) {
        return !compound.Name.empty();
    };
    if (!compounds.empty() && std::ranges::none_of(compounds, isNamed)) {
        findings.AddBatch(
            "The first sample's report names no monitoring compounds: no recovery is compared.",
            ReportPlace(batch, 0));
        return;
    }
    for (const Form2Content::Compound& compound : compounds) {
        if (isNamed(compound) && compound.Limits.empty()) {
            findings.AddBatch("The recovery ranges file has no range for it.",
                              EntryPlace(EntryDialog::kRecoveryRanges, "FileEdit"), compound.Name);
        }
    }
}

// ---- Form VIII

void StandardOutside(const Reviewed& batch, Findings& findings) {
    ForPeaks(batch, [&](std::size_t record, const PeakValue& value, const std::string& name) {
        if (!value.Flag.empty()) {
            findings.AddSample(record,
                               "The " + std::string(value.Kind) + " is " + Trim(value.Text) +
                                   ", outside " + value.Lower + " to " + value.Upper + ".",
                               ReportPlace(batch, record), name);
        }
    });
}

void StandardMissing(const Reviewed& batch, Findings& findings) {
    ForStandard(batch, [&](const std::string& kind, const std::string& text,
                           const std::string& name) {
        if (IsBlank(text)) {
            findings.AddBatch("The 12 hour standard has no " + kind + ".", CheckFilePlace(), name);
        }
    });
    ForPeaks(batch, [&](std::size_t record, const PeakValue& value, const std::string& name) {
        if (IsBlank(value.Text)) {
            findings.AddSample(record, "The report has no " + std::string(value.Kind) + ".",
                               ReportPlace(batch, record), name);
        }
    });
}

void StandardWithoutNumber(const Reviewed& batch, Findings& findings) {
    const auto isNoNumber = [](const std::string& text) {
        return !IsBlank(text) && !ParseNumber(text);
    };
    ForStandard(batch,
                [&](const std::string& kind, const std::string& text, const std::string& name) {
                    if (isNoNumber(text)) {
                        findings.AddBatch("The 12 hour standard's " + kind + " " + Quoted(text) +
                                              " is no number and gives no limits.",
                                          CheckFilePlace(), name);
                    }
                });
    ForPeaks(batch, [&](std::size_t record, const PeakValue& value, const std::string& name) {
        if (isNoNumber(value.Text)) {
            findings.AddSample(record,
                               "The " + std::string(value.Kind) + " " + Quoted(value.Text) +
                                   " is no number and cannot be compared.",
                               ReportPlace(batch, record), name);
        }
    });
}

}  // namespace qfr
