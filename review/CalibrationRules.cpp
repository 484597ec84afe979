// The initial calibration of Form VI and its raw data files, and the continuing calibration of Form
// VII against it.
#include <algorithm>
#include <cmath>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

// Mean and %RSD of response factors.
struct Spread {
    int Count = 0;
    double Mean = 0;
    double Squares = 0;  // of the deviations, their sum

    // Of all of them, as the form prints it, or as one sample of more.
    double RsdOfAll() const { return 100 * std::sqrt(Squares / Count) / Mean; }
    double RsdOfSample() const { return 100 * std::sqrt(Squares / (Count - 1)) / Mean; }
};

// Absent where there are fewer than two, one is no number, or they have no mean to relate to.
std::optional<Spread> SpreadOf(std::span<const std::string> rfs) {
    Spread spread;
    std::vector<double> values;
    for (const std::string& rf : rfs) {
        if (IsBlank(rf)) {
            continue;
        }
        const auto value = ParseNumber(rf);
        if (!value) {
            return std::nullopt;
        }
        values.push_back(*value);
        spread.Mean += *value;
    }
    if (values.size() < 2 || spread.Mean == 0) {
        return std::nullopt;
    }
    spread.Count = static_cast<int>(values.size());
    spread.Mean /= spread.Count;
    for (const double value : values) {
        spread.Squares += (value - spread.Mean) * (value - spread.Mean);
    }
    return spread;
}

std::span<const std::string> Levels(const Reviewed& batch,
                                    const std::array<std::string, kMaxLevels>& rfs) {
    return std::span(rfs).first(static_cast<std::size_t>(batch.LevelCount));
}

std::string LevelName(std::size_t level) {
    return "level " + std::to_string(level + 1);
}

MendPlace LevelPlace(std::size_t level) {
    return EntryPlace(EntryDialog::kInitialCalibration, "CalFileEdit", level);
}

const std::vector<CalibrationRecord>& CompoundsOf(const Reviewed& batch) {
    static const std::vector<CalibrationRecord> kNone;
    return batch.InitialCalibration ? batch.InitialCalibration->Compounds : kNone;
}

// The rows of Form VII; none where it is refused.
std::span<const Form7Content::Compound> CheckedCompounds(const Reviewed& batch) {
    return batch.ContinuingCalibration ? std::span(batch.ContinuingCalibration->Compounds)
                                       : std::span<const Form7Content::Compound>();
}

// Whether a head states none of the amounts that it stands for.
bool IsForeignHead(const std::string& head, std::span<const std::string> amounts) {
    const auto value = ParseNumber(head);
    return !amounts.empty() && std::ranges::none_of(amounts, [&](const std::string& amount) {
        return value ? ParseNumber(amount) == value : Trim(amount) == head;
    });
}

// The amount that most of them have, as written.
std::string MostFrequent(const std::vector<std::string>& amounts) {
    std::map<std::string, std::size_t> counts;
    for (const std::string& amount : amounts) {
        ++counts[Trim(amount)];
    }
    const auto count = [](const auto& entry) { return entry.second; };
    return counts.empty() ? "" : std::ranges::max_element(counts, {}, count)->first;
}

}  // namespace

// ---- Form VI

void LargeRsd(const Reviewed& batch, Findings& findings) {
    for (const CalibrationRecord& compound : CompoundsOf(batch)) {
        const auto rsd = ParseNumber(compound.RSD);
        if (rsd && *rsd > batch.Limits.MaxRsd) {
            findings.AddBatch("The %RSD is " + compound.RSD + ", above " +
                                  FormatGeneral(batch.Limits.MaxRsd) + ".",
                              CalibrationFilePlace(), compound.Name);
        }
    }
}

void FewLevels(const Reviewed& batch, Findings& findings) {
    if (batch.Calibration && batch.LevelCount < batch.Limits.MinLevels) {
        findings.AddBatch("The initial calibration has " +
                              Counted(static_cast<std::size_t>(batch.LevelCount), "level") +
                              ", fewer than " + FormatGeneral(batch.Limits.MinLevels) + ".",
                          CalibrationFilePlace());
    }
}

void UnusedLevels(const Reviewed& batch, Findings& findings) {
    for (const CalibrationRecord& compound : CompoundsOf(batch)) {
        std::vector<std::string> unused;
        const auto rfs = Levels(batch, compound.RF);
        for (std::size_t level = 0; level < rfs.size(); ++level) {
            if (IsBlank(rfs[level])) {
                unused.push_back(std::to_string(level + 1));
            }
        }
        if (!unused.empty()) {
            findings.AddBatch((unused.size() == 1 ? "Not used: level " : "Not used: levels ") +
                                  Enumerated(unused) + " of " + std::to_string(rfs.size()) + ".",
                              CalibrationFilePlace(), compound.Name);
        }
    }
}

void RfsWithoutNumber(const Reviewed& batch, Findings& findings) {
    if (!batch.Calibration) {
        return;
    }
    for (const CompoundBlock& block : batch.Calibration->Blocks) {
        for (const std::string& rf : Levels(batch, block.RF)) {
            if (!IsBlank(rf) && !ParseNumber(rf)) {
                findings.AddBatch("The response factor " + Quoted(Trim(rf)) + " is no number.",
                                  CalibrationFilePlace(), block.Name);
            }
        }
    }
}

void RoundedRsd(const Reviewed& batch, Findings& findings) {
    const auto& compounds = CompoundsOf(batch);
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        const auto unrounded = SpreadOf(Levels(batch, batch.Calibration->Blocks[i].RF));
        const auto rsd = ParseNumber(compounds[i].RSD);
        if (unrounded && rsd &&
            std::abs(unrounded->RsdOfAll() - *rsd) > batch.Limits.RsdDifference) {
            findings.AddBatch("The %RSD is " + compounds[i].RSD +
                                  " of response factors rounded to whole numbers, and " +
                                  FormatFixed(unrounded->RsdOfAll(), 2) +
                                  " of those in the report.",
                              CalibrationFilePlace(), compounds[i].Name);
        }
    }
}

void RsdOfSample(const Reviewed& batch, Findings& findings) {
    for (const CalibrationRecord& compound : CompoundsOf(batch)) {
        const auto spread = SpreadOf(compound.RF);
        const auto rsd = ParseNumber(compound.RSD);
        if (spread && rsd && *rsd <= batch.Limits.MaxRsd &&
            spread->RsdOfSample() > batch.Limits.MaxRsd) {
            findings.AddBatch("The %RSD is " + compound.RSD + " with n levels, and " +
                                  FormatFixed(spread->RsdOfSample(), 2) + " with n - 1, above " +
                                  FormatGeneral(batch.Limits.MaxRsd) + ".",
                              CalibrationFilePlace(), compound.Name);
        }
    }
}

void LevelHeads(const Reviewed& batch, Findings& findings) {
    if (!batch.InitialCalibration) {
        return;
    }
    const auto& levels = batch.InitialCalibration->Levels;
    for (std::size_t level = 0; level < levels.size(); ++level) {
        std::vector<std::string> amounts;
        for (const CalibrationRecord& compound : CompoundsOf(batch)) {
            amounts.push_back(compound.Amount[level]);
        }
        if (IsForeignHead(levels[level].Amount, amounts)) {
            findings.AddBatch("The columns are headed " + Quoted(levels[level].Amount) +
                                  ", and the amount is " + MostFrequent(amounts) + ".",
                              CalibrationFilePlace(), LevelName(level));
        }
    }
}

void LevelFilesMissing(const Reviewed& batch, Findings& findings) {
    for (std::size_t level = 0; level < batch.LevelFiles.size(); ++level) {
        if (!batch.LevelFiles[level]) {
            findings.AddBatch("The raw data file " +
                                  FileNameOnly(batch.Calibration->DataFiles[level]) +
                                  " is not there.",
                              LevelPlace(level), LevelName(level));
        }
    }
}

void LevelFileIds(const Reviewed& batch, Findings& findings) {
    for (std::size_t level = 0; level < batch.LevelFiles.size(); ++level) {
        const auto& file = batch.LevelFiles[level];
        const std::string stated = file && file->HasTitle()
                                       ? file->LabFileId()
                                       : FileNameOnly(batch.Calibration->DataFiles[level]);
        const std::string shown = Trim(batch.Initial.LabFileIds[level]);
        if (!shown.empty() && LowerCase(shown) != LowerCase(Trim(stated))) {
            findings.AddBatch("The lab file ID is " + Quoted(shown) + ", and the raw data file's " +
                                  Quoted(stated) + ".",
                              LevelPlace(level), LevelName(level));
        }
    }
}

// ---- Form VII

void CheckHead(const Reviewed& batch, Findings& findings) {
    if (!batch.ContinuingCalibration) {
        return;
    }
    std::vector<std::string> amounts;
    for (const CheckRow& row : batch.Check->Rows) {
        if (!IsBlank(row.Amount)) {
            amounts.push_back(row.Amount);
        }
    }
    const std::string& head = batch.ContinuingCalibration->Amount;
    if (IsForeignHead(head, amounts)) {
        findings.AddBatch("The standard's column is headed " + Quoted(head) +
                              ", and the amount is " + MostFrequent(amounts) + ".",
                          CheckFilePlace());
    }
}

void CheckMeanRfs(const Reviewed& batch, Findings& findings) {
    const auto rows = CheckedCompounds(batch);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CalibrationRecord& calibrated = CompoundsOf(batch)[i];
        const auto mean = ParseNumber(rows[i].MeanRF);
        const auto mean6 = ParseNumber(calibrated.MeanRF);
        if (rows[i].Name == calibrated.Name && mean && mean6 &&
            std::abs(*mean - *mean6) > batch.Limits.MeanRfDifference) {
            findings.AddBatch(
                "The mean RF is " + rows[i].MeanRF + ", and on Form VI " + calibrated.MeanRF + ".",
                CheckFilePlace(), rows[i].Name);
        }
    }
}

void CheckPercentD(const Reviewed& batch, Findings& findings) {
    if (!batch.Check) {
        return;
    }
    for (const CheckRow& row : batch.Check->Rows) {
        const auto mean = ParseNumber(row.MeanRF);
        const auto rf = ParseNumber(row.RF);
        const auto percent = ParseNumber(row.PercentD);
        if (!mean || !rf || !percent || *mean == 0) {
            continue;
        }
        // Laboratories differ in the sign.
        const double recomputed = 100 * (*rf - *mean) / *mean;
        if (std::abs(std::abs(recomputed) - std::abs(*percent)) > batch.Limits.PercentDDifference) {
            findings.AddBatch("The %D is " + Trim(row.PercentD) + ", and " +
                                  FormatFixed(recomputed, 1) + " of RF " + Trim(row.RF) +
                                  " and mean RF " + Trim(row.MeanRF) + ".",
                              CheckFilePlace(), row.Name);
        }
    }
}

void CheckAboveMaximum(const Reviewed& batch, Findings& findings) {
    for (const Form7Content::Compound& row : CheckedCompounds(batch)) {
        const auto percent = ParseNumber(row.PercentD);
        const auto maximum = ParseNumber(row.MaximumPercentD);
        if (percent && maximum && std::abs(*percent) > *maximum) {
            findings.AddBatch("The %D is " + Trim(row.PercentD) + ", beyond MAX %D " +
                                  Trim(row.MaximumPercentD) + ".",
                              CheckFilePlace(), row.Name);
        }
    }
}

void CheckBelowMinimum(const Reviewed& batch, Findings& findings) {
    for (const Form7Content::Compound& row : CheckedCompounds(batch)) {
        const auto rf = ParseNumber(row.RF);
        const auto minimum = ParseNumber(row.MinimumRF);
        if (rf && minimum && *rf < *minimum) {
            findings.AddBatch(
                "The RF is " + Trim(row.RF) + ", below MIN RF " + Trim(row.MinimumRF) + ".",
                CheckFilePlace(), row.Name);
        }
    }
}

void CheckWithoutCriteria(const Reviewed& batch, Findings& findings) {
    const MendPlace place = EntryPlace(EntryDialog::kContinuingCalibration, "LimitEdit");
    for (const Form7Content::Compound& row : CheckedCompounds(batch)) {
        if (!row.Name.empty() && IsBlank(row.MinimumRF) && IsBlank(row.MaximumPercentD)) {
            findings.AddBatch("The RF criteria file has no limits for it.", place, row.Name);
        }
        for (const std::string& limit : {row.MinimumRF, row.MaximumPercentD}) {
            if (!IsBlank(limit) && !ParseNumber(limit)) {
                findings.AddBatch(
                    "The limit " + Quoted(Trim(limit)) + " of the RF criteria file is no number.",
                    place, row.Name);
            }
        }
    }
}

void CheckOrder(const Reviewed& batch, Findings& findings) {
    const auto rows = CheckedCompounds(batch);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string& calibrated = CompoundsOf(batch)[i].Name;
        if (rows[i].Name != calibrated) {
            findings.AddBatch("Row " + std::to_string(i + 1) + " of the check report is " +
                                  Quoted(rows[i].Name) + ", and of the calibration report " +
                                  Quoted(calibrated) + ".",
                              CheckFilePlace());
            return;  // the rows behind it are shifted too
        }
    }
}

}  // namespace qfr
