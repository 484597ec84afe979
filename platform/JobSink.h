// Where finished print jobs go, one by one or as a package.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "platform/FileReplace.h"
#include "platform/Messages.h"
#include "platform/PrintJob.h"

namespace qfr {

// In the place of a printer's index: the preview on the screen, whichever printer is chosen.
inline constexpr int kPreviewIndex = -1;

class JobSink {
  public:
    virtual ~JobSink() = default;
    // Called before anything is drawn, with the index of the chosen printer and the job's title.
    // False: the user gave the job up (no file chosen); it is recorded to its end and dropped.
    virtual bool BeginJob(int printerIndex, const std::string& title) = 0;
    // Takes the whole job. The sink reports its own failures to the user.
    virtual void TakeJob(int printerIndex, PrintJob job) = 0;
};

// Jobs that belong together, taken one at a time. A package that is dropped before it is finished
// leaves behind only what is printed already.
class JobPackage {
  public:
    virtual ~JobPackage() = default;
    // Why the job could not be printed, and the next ones would not be either; absent on success.
    virtual std::optional<Message> Take(PrintJob job) = 0;
    // Comes after the last job; jobs that are to be seen together are joined now. The package
    // reports its own failures to the user.
    virtual void Finish() = 0;
    // Jobs that have reached paper, a file or the user's eyes so far.
    virtual std::size_t Printed() const = 0;
    // Whether the user's eyes are all that it reaches.
    virtual bool IsOnlyShown() const { return false; }
};

class PackageSink {
  public:
    virtual ~PackageSink() = default;
    // Called before anything is drawn, with the index of the chosen printer and what the whole is
    // called. Null: the user gave it up (no file chosen).
    virtual std::unique_ptr<JobPackage> BeginPackage(int printerIndex,
                                                     const std::string& title) = 0;
};

// A PDF document that is made job by job.
class PdfWriter {
  public:
    virtual ~PdfWriter() = default;
    // Takes the job's pages; the job itself is not needed any longer.
    virtual void Add(const PrintJob& job) = 0;
    virtual bool HasPages() const = 0;
    // The document as a file (UTF-8 name), there whole or not at all; comes last. The reason of a
    // failure, absent on success.
    virtual std::optional<std::string> Write(const std::string& title, const std::string& fileName,
                                             ReadOnlyFile readOnly = ReadOnlyFile::kStays) = 0;
};

}  // namespace qfr
