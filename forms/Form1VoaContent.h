// What Form I VOA states: the concentrations of one sample's compounds.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Reports.h"
#include "forms/FormContent.h"

namespace qfr {

struct VoaRow {
    std::string CasNumber;
    std::string Compound;
    std::string Concentration;
    std::string Qualifier;  // "U": not detected
};

struct Form1VoaContent : FormContent {
    std::vector<VoaRow>
        Rows;  // as many as the record counts; those that the report lacks are empty
};

// For the record at this index of SampleList. A report that has changed since it was loaded is told
// in a message. Absent, after a message, when it cannot be opened or counts too many compounds.
std::optional<Form1VoaContent> BuildForm1VoaContent(const Batch& batch, std::size_t record,
                                                    Reports& reports, Messages& messages);

// `inBlank`: the lab blank contains this compound and the sample is not the blank itself.
VoaRow ReadVoaRow(const CompoundRow& row, bool inBlank);

// Rounds a number written as text to n significant figures the way the forms show them: with n = 2,
// "1234" gives "1200", "5.04" gives "5.0", "0.053" gives "0.1". Other texts come back unchanged.
std::string ToSignificantFigures(std::string_view text, int n);

// What it would print for the record at this index of SampleList; absent after a message.
std::optional<Form1VoaContent> PrepareForm1Voa(FormHost& host, std::size_t record);

// Prints it.
void PrintFormIVoa(FormHost& host, std::size_t record);

}  // namespace qfr
