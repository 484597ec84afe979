// Form I VOA: volatile organics analysis data sheet of one sample.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "forms/FormHost.h"
#include "platform/LineReader.h"

namespace qfr {

// Its title, which stands on Form I TIC too.
inline constexpr std::string_view kDataSheetTitle = "VOLATILE ORGANICS ANALYSIS DATA SHEET";

// Prints the sheet of the record at this index of SampleList. The printer has been tested already.
void PrintFormIVoa(FormHost& host, std::size_t record);

// The header of the page being drawn, which Form I TIC shares.
void PrintFormIVoaHeader(Page& page, const SampleHeader& header);

// No laboratory's compound library has longer texts; what a cell of a report holds beyond is cut
// (characters).
inline constexpr std::size_t kMaxCellLength = 400;

// One row of the compound table as it prints.
struct VoaRow {
    std::string CasNumber;
    std::string Compound;
    std::string Concentration;
    std::string Qualifier;  // "U": not detected
};

// Takes the next row of the report apart. `inBlank`: the lab blank contains this compound and the
// sample is not the blank itself. A missing row is empty.
VoaRow ReadVoaRow(LineReader& report, bool inBlank);

// Rounds a number written as text to n significant figures the way the forms show them: with n = 2,
// "1234" gives "1200", "5.04" gives "5.0", "0.053" gives "0.1". Other texts come back unchanged.
std::string ToSignificantFigures(std::string_view text, int n);

}  // namespace qfr
