#include "forms/Form1VoaContent.h"

#include <cmath>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

std::optional<Form1VoaContent> BuildForm1VoaContent(const Batch& batch, std::size_t record,
                                                    Reports& reports, Messages& messages) {
    const SampleRecord& sample = (*batch.SampleList)[record];
    if (sample.CompoundCount > kMaxPrintedRows) {
        messages.Show({"The batch counts more than 1,000 compounds for\n" +
                           FileNameOnly(sample.FileName) + ". They cannot be printed.",
                       kFileErrorTitle});
        return std::nullopt;
    }
    const auto report = reports.Read<QuantReport>(sample.FileName, batch.Folder);
    if (!report) {
        messages.Show(ReportNotFound(sample.FileName));
        return std::nullopt;
    }
    if (const auto changed = ReportChanged(batch, sample, report)) {
        messages.Show(*changed);
    }
    if (report->TextsCut) {
        messages.Show(TextsWereCut(sample.FileName));
    }
    Form1VoaContent content{
        {PrintedHeader(sample.Header), sample.Header[HeaderField::kZovSampleNo]}, {}};
    const auto rows = static_cast<std::size_t>(sample.CompoundCount);
    // The flags outlive the blank that they are about: without one they say nothing.
    const std::size_t blanks = LabBlankRecords(batch);
    const bool comparesToBlank = blanks > 0 && record >= blanks;
    for (std::size_t row = 0; row < rows; ++row) {
        const bool inBlank =
            comparesToBlank && row < batch.BlankHitFlags.size() && batch.BlankHitFlags[row];
        content.Rows.push_back(
            ReadVoaRow(row < report->Rows.size() ? report->Rows[row] : CompoundRow(), inBlank));
    }
    return content;
}

VoaRow ReadVoaRow(const CompoundRow& row, bool inBlank) {
    VoaRow printed{row.CasNumber, row.Name, row.Concentration, ""};
    if (printed.Concentration.starts_with('U')) {
        printed.Concentration.erase(0, 1);
        printed.Qualifier = "U";
    }
    printed.Concentration = ToSignificantFigures(printed.Concentration, 2);
    if (printed.Concentration.starts_with('U')) {
        printed.Concentration.clear();
    }
    if (printed.Qualifier != "U") {
        printed.Qualifier = row.Qualifier + (inBlank ? "B" : "");
    }
    return printed;
}

std::string ToSignificantFigures(std::string_view text, int n) {
    const std::optional<double> number = ParseNumber(text);
    if (!number) {
        return std::string(text);
    }
    if (*number == 0) {
        return "0.00";
    }
    double value = *number;
    int exponent = 0;
    for (double digits = std::trunc(std::log10(value)); digits != n - 1;
         digits = std::trunc(std::log10(value))) {
        if (digits > 1) {
            value *= 0.1;
            ++exponent;
        } else {
            // On purpose: one decimal at the most, so that small values lose their second figure.
            value *= 10;
            --exponent;
            if (exponent == -1) {
                break;
            }
        }
    }
    double whole = 0;
    if (std::modf(value, &whole) >= 0.5) {
        whole += 1;
    }
    std::string result = FormatGeneral(whole * std::pow(10.0, exponent));
    if (result.size() == static_cast<std::size_t>(n) - 1) {
        result += ".0";
    }
    return result;
}

}  // namespace qfr
