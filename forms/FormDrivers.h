// The drivers of the forms, which menu, Print All and the companion command run: each checks what
// it needs, shows the form's entry dialog, builds the form's content and prints its pages.
#pragma once

#include <cstddef>

#include "forms/FormHost.h"

namespace qfr {

// For the record at this index of SampleList: Form I VOA, the analysis data sheet, and Form I
// VOA-TIC, its tentatively identified compounds.
void PrintFormIVoa(FormHost& host, std::size_t record);
void PrintFormITic(FormHost& host, std::size_t record);

// For the batch.
void Form2MCRClick(FormHost& host);  // monitoring compound recovery
void Form4MBSClick(FormHost& host);  // method blank summary
void Form5IPCClick(FormHost& host);  // instrument performance check, bromofluorobenzene (BFB)
void Form6CIDClick(FormHost& host);  // initial calibration data
void Form7CCDClick(FormHost& host);  // continuing calibration data
void Form8ARTClick(FormHost& host);  // internal standard area and retention time summary

}  // namespace qfr
