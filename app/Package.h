// The forms of a batch one after another: which jobs are due, and one job at a time, so that
// whoever prints them can stop between two.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/HeadlessHost.h"
#include "data/Batch.h"
#include "forms/FormHost.h"
#include "forms/FormList.h"
#include "platform/JobSink.h"
#include "platform/PrintJob.h"
#include "platform/Printer.h"

namespace qfr {

// What is to be printed.
struct PackageChoice {
    std::vector<bool> forms = std::vector<bool>(kForms.size());  // of kForms
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
// Every form, and every sample of those that print for each.
std::vector<PackageWork> PlanWholePackage(const Batch& batch);

// Runs the form's driver, which finds the dialogs answered. The job, named by form and sample;
// absent when the driver has refused it with a message. The host keeps its entries, flags and
// levels, so that a form prints the same alone and among others, in any order.
std::optional<PrintJob> PrintWork(HeadlessHost& host, const PackageWork& work);

// The same as far as the content that would print, of which nothing is drawn.
std::optional<AnyFormContent> PrepareWork(HeadlessHost& host, const PackageWork& work);

// What a form had to say while it was printed, or why it was not.
struct PackageNote {
    const PackageWork* work = nullptr;
    std::string text;      // one line
    bool printed = false;  // the form was drawn all the same
};

struct PackageOutcome {
    std::vector<PackageNote> notes;  // about `dueJobs`
    bool cancelled = false;          // by the user
    bool failed = false;             // the last job could not be printed
};

// Runs the jobs on what `program` holds at the moment and hands each job to the package, which is
// left unfinished. `shouldContinue` comes before each job, with its number from 0, and once more
// behind the last one; where it answers no, or the package cannot take a job, the run stops. The
// program is left as it was.
PackageOutcome PrintPackage(FormHost& program, TextMetrics& metrics,
                            const std::vector<PackageWork>& dueJobs, JobPackage& package,
                            const std::function<bool(std::size_t job)>& shouldContinue);

}  // namespace qfr
