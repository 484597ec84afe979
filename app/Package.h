// The forms of a batch one after another: which jobs are due, and one job at a time, so that
// whoever prints them can stop between two.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/FormList.h"
#include "app/HeadlessHost.h"
#include "data/Batch.h"
#include "platform/PrintJob.h"

namespace qfr {

// What is to be printed.
struct PackageChoice {
    std::array<bool, kFormCount> forms{};  // of kForms
    // Of SampleList, for the forms that print for each sample; empty when there is no SampleList.
    std::vector<bool> samples;
    // The forms are asked for by name: a form that a sample has nothing for refuses it, instead of
    // leaving it out.
    bool byName = false;
};

// One job that is due.
struct PackageWork {
    const FormRow* form = nullptr;
    // Index in SampleList; absent for a form that prints once for the batch, and where a batch has
    // no SampleList that the form could print for.
    std::optional<std::size_t> record;
};

// In the order in which they print: form, then sample.
std::vector<PackageWork> PlanPackage(const Batch& batch, const PackageChoice& choice);

// What the sample is called in lists: its number, or else its report.
std::string SampleName(const SampleRecord& record);

// Runs the form's driver, which finds the dialogs answered. The job, named by form and sample;
// absent when the driver has refused it with a message.
std::optional<PrintJob> PrintWork(HeadlessHost& host, const PackageWork& work);

}  // namespace qfr
