#include "data/CutReports.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "data/Batch.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr const char* kCompounds = "the compounds";

// `areas`: one for each internal standard, empty where the report lacks it.
void AddStandards(const std::vector<std::string>& areas, std::vector<std::string>& lacks) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < areas.size(); ++i) {
        if (areas[i].empty()) {
            names.emplace_back(InternalStandardNames[i]);
        }
    }
    if (names.size() == areas.size()) {
        lacks.emplace_back("the internal standards");
    } else if (!names.empty()) {
        lacks.push_back((names.size() == 1 ? "the internal standard " : "the internal standards ") +
                        Enumerated(names));
    }
}

void AddStandards(const InternalStandardPeaks& peaks, std::vector<std::string>& lacks) {
    std::vector<std::string> areas;
    for (const PeakData& peak : peaks) {
        areas.push_back(peak.Area);
    }
    AddStandards(areas, lacks);
}

}  // namespace

std::string WhatIsCutOff(const QuantReport& report) {
    std::vector<std::string> lacks;
    if (report.RowCount == 0) {
        lacks.emplace_back(kCompounds);
    }
    const auto cut = std::ranges::find(report.Rows, false, &CompoundRow::Whole);
    if (cut != report.Rows.end()) {
        lacks.push_back("the end of row " + std::to_string(cut - report.Rows.begin() + 1));
    }
    if (!report.Monitoring || report.Monitoring->empty()) {
        lacks.emplace_back("the monitoring compounds");
    }
    AddStandards(report.InternalStandards, lacks);
    return Enumerated(lacks);
}

std::string WhatIsCutOff(const CalibrationReport& report) {
    std::vector<std::string> lacks;
    if (report.Blocks.empty()) {
        lacks.emplace_back(kCompounds);
    } else if (report.HasTextBehind) {
        lacks.emplace_back("the end of a compound");
    }
    std::vector<std::string> areas;
    for (const auto& standard : report.StandardAreas) {
        areas.push_back(standard.front());
    }
    AddStandards(areas, lacks);
    return Enumerated(lacks);
}

std::string WhatIsCutOff(const CheckReport& report) {
    std::vector<std::string> lacks;
    if (report.Rows.empty()) {
        lacks.emplace_back(kCompounds);
    }
    AddStandards(report.InternalStandards, lacks);
    return Enumerated(lacks);
}

}  // namespace qfr
