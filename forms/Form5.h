// Form V: volatile organic instrument performance check, bromofluorobenzene (BFB).
#pragma once

#include <array>
#include <string>

#include "data/Entries.h"
#include "forms/FormHost.h"

namespace qfr {

// Asks for the tune and prints the form for the batch.
void Form5IPCClick(FormHost& host);

// The tune's abundances as they print: "  *" follows one that is outside its ion's range, four
// blanks follow the others.
std::array<std::string, TuneEntry::kIons> FlagTuneValues(const TuneEntry& tune);

}  // namespace qfr
