// What Form IV states: the lab blank, and the samples that were analyzed with it.
#pragma once

#include <string>
#include <vector>

#include "data/Entries.h"
#include "forms/FormContent.h"

namespace qfr {

// Header and sample number are the lab blank's.
struct Form4Content : FormContent {
    std::string DateAnalyzed;
    std::string TimeAnalyzed;
    std::vector<ListedSample> Samples;
    std::vector<std::string> Comments;  // what is typed beyond the form's two lines is left out
};

// `blankTime`: when the lab blank, the first of the samples, was analyzed.
Form4Content BuildForm4Content(const SampleListType& samples, DateTime blankTime,
                               const BlankComments& comments);

// The driver: asks for what the form needs and prints it for the batch.
void Form4MBSClick(FormHost& host);

}  // namespace qfr
