// PDF output: US Letter or the job's paper, full page, embedded subset fonts, searchable text.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QByteArray>

#include "platform/FileReplace.h"
#include "platform/PrintJob.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

// How the landscape pages of a document lie: to be read, or on the paper as it goes through a
// printer, upright, with their top along its left edge.
enum class Landscape { kUpright, kTurnedOntoPaper };

// All pages of the jobs, in order, as one PDF document; empty when there is none.
QByteArray RenderPdf(const std::vector<PrintJob>& jobs, const std::string& title, FormFonts& fonts,
                     Landscape landscape = Landscape::kUpright);

// Renders, adds an outline where there are several jobs, and replaces the file whole (UTF-8 name).
// The reason of a failure, absent on success.
std::optional<std::string> WritePdf(const std::vector<PrintJob>& jobs, const std::string& title,
                                    const std::string& fileName, FormFonts& fonts,
                                    ReadOnlyFile readOnly = ReadOnlyFile::kStays);

// Name and version of the library that makes the outline.
std::string OutlineLibrary();

}  // namespace qfr
