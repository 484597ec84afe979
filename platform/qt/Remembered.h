// What the windows remember from one run to the next: one file of names and values beside the
// program's other settings files. Losing it costs nothing but habit, so a file that cannot be read
// counts as empty, and one that cannot be written is not told of.
#pragma once

#include <initializer_list>
#include <string>

#include <QSettings>
#include <QString>
#include <QVariant>

#include "platform/SettingsDir.h"

namespace qfr {

// Names of the folders where files of a kind were last put; that of batches is only where the
// user's own are.
inline constexpr const char* kPdfFolder = "folders/pdf";
inline constexpr const char* kBatchFolder = "folders/batch";
inline constexpr const char* kExportFolder = "folders/export";
// Of the printer that was chosen last.
inline constexpr const char* kPrinterName = "printer/name";
inline constexpr const char* kPaperName = "printer/paper";

class Remembered {
  public:
    explicit Remembered(const SettingsDir& settings);

    // An invalid value: nothing is remembered under the name. Names are paths: "preview/zoom".
    QVariant Value(const QString& name) const { return file_.value(name); }
    void Keep(const QString& name, const QVariant& value);

    // A folder of that name, if it is still there; else an empty text (UTF-8).
    std::string Folder(const QString& name) const;
    // The first of the folders of these names that is still there; else that of the user's
    // documents, or his home.
    std::string UsersFolder(std::initializer_list<const char*> names) const;
    void KeepFolder(const QString& name, const std::string& folder);

  private:
    QSettings file_;
};

}  // namespace qfr
