// What every window asks of the program around it, besides messages and the batch.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/FileChooser.h"
#include "platform/SettingsDir.h"

namespace qfr {

// A window that knows no WindowServices names the context number of its help in this property.
inline constexpr const char* kHelpTopicProperty = "helpTopic";
inline constexpr int kPrintAllHelpTopic = 170;
inline constexpr int kPrintingHelpTopic = 180;
inline constexpr int kReviewHelpTopic = 190;
inline constexpr int kHeadersHelpTopic = 200;

class PrinterChoice;

class WindowServices {
  public:
    virtual ~WindowServices() = default;

    // Runs the program's open dialog for this kind of file, starting in the kind's directory, and
    // remembers where the choice came from. Absent when the user cancelled.
    virtual std::optional<ChosenFiles> ChooseFiles(FileKind kind, bool multiSelect) = 0;

    // Remembers where files came from that were chosen without that dialog.
    virtual void RememberChoice(const ChosenFiles& chosen) = 0;

    // Runs the program's save dialog for a laboratory file, starting where text files were last,
    // and remembers the directory. A full path (UTF-8), or absent when the user cancelled.
    virtual std::optional<std::string> ChooseLaboratoryFile() = 0;

    virtual const SettingsDir& Settings() const = 0;

    // Shows the TIC entry dialog for the sample at this index in SampleList, under its number.
    virtual void EnterTics(std::size_t record, const std::string& sampleNo) = 0;

    // Opens the help file at a context number.
    virtual void ShowHelp(int topic) = 0;

    // A window that took the main window's place has hidden itself.
    virtual void ShowMainWindow() = 0;

    // Where the print jobs of the run go.
    virtual PrinterChoice& Printers() = 0;
};

}  // namespace qfr
