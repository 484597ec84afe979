// What a form's driver asks of the program around it. The main window answers with dialogs, the
// companion command with the saved entries and standard error, tests with a script.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "data/Batch.h"
#include "data/Entries.h"
#include "data/Reports.h"
#include "forms/Page.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace qfr {

class FormHost : public Messages {
  public:
    virtual qfr::Page& Page() = 0;
    virtual qfr::Batch& Batch() = 0;
    virtual qfr::Entries& Entries() = 0;
    virtual BatchFlags& Flags() = 0;
    // The levels of the calibration report, up to kMaxLevels, as the last form that read it found
    // them.
    int& LevelCount() { return levelCount_; }
    // The files of the batch, as they are read in this run.
    qfr::Reports& Reports() { return reports_; }
    // A new run begins: everything is read anew.
    void BeginRun() { reports_ = qfr::Reports(*this); }

    // Shows the dialog with its entry of Entries() and stores there what it holds when it closes.
    // `headerRecord` is the index in SampleList of the record whose header the form prints. True:
    // it was closed with OK.
    virtual bool ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) = 0;

    // The Form 1 header dialog focuses this field when it is next shown.
    virtual void SetPendingFocus(HeaderField field) = 0;

  private:
    int levelCount_ = 0;
    qfr::Reports reports_{*this};
};

// What is said where nothing is loaded; before Form 1 under a title of its own.
inline constexpr char kFilesNotSpecifiedTitle[] = "Files Not Specified";
inline constexpr std::string_view kSpecifyFiles =
    "Please use Data Files|Load Files menu selections\nto specify files.";

// The title of the calibration forms where a file is not named.
inline constexpr char kCalibrationNotSpecifiedTitle[] = "Calibration File Not Specified";

// A calibration or check report that the batch names; absent after the message `notOpened`, or that
// it has too many compounds. Texts that are cut are told of unless it is opened once more.
template <typename Report>
FileContent<Report> OpenCalibration(FormHost& host, const std::string& name, const char* notOpened,
                                    bool onceMore = false) {
    FileContent<Report> report = host.Reports().Read<Report>(name, host.Batch().Folder);
    if (!report) {
        host.Show({notOpened, "Calibration File Could Not Be Opened"});
        return report;
    }
    if constexpr (std::is_same_v<Report, CalibrationReport>) {
        if (report->TooManyBlocks) {
            host.Show(OverLimitMessage(FileNameOnly(name), kMaxCompoundsText));
            return {};
        }
    }
    if (report->TextsCut && !onceMore) {
        host.Show(TextsWereCut(name));
    }
    return report;
}

// Finds the first record with a complete header: its index in SampleList, or absent after the
// message that says what is missing. `formName` is as in "Form 4".
std::optional<std::size_t> CheckFormPreconditions(FormHost& host, std::string_view formName);

// The same record, once the form's entry dialog was closed with OK; absent otherwise.
std::optional<std::size_t> CheckAndAsk(FormHost& host, std::string_view formName,
                                       EntryDialog dialog);

// Whether a lab blank is named; false after the message that says so.
bool LabBlankSpecified(FormHost& host);

// Whether the analysis date of every record from index `first` of SampleList is empty or a
// date-time; false after the message that names the first other one.
bool AnalysisDatesReadable(FormHost& host, std::size_t first);

}  // namespace qfr
