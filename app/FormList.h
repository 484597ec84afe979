// The forms, in the order in which they print.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "forms/FormHost.h"

namespace qfr {

struct FormRow {
    std::string_view name;     // among the options of the companion command
    std::string_view caption;  // in lists
    // One of the two: for each sample, or once for the batch.
    void (*printSample)(FormHost& host, std::size_t record) = nullptr;
    void (*printBatch)(FormHost& host) = nullptr;
    // Unless it is asked for by name, only for samples that have TICs.
    bool onlyWithTics = false;
};

inline constexpr std::size_t kFormCount = 8;
extern const std::array<FormRow, kFormCount> kForms;

}  // namespace qfr
