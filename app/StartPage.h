// The main window without a batch: what there is to begin with, and the batches of late.
#pragma once

#include <ctime>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QWidget>

#include "platform/FileDates.h"
#include "platform/Messages.h"
#include "platform/qt/Remembered.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class QVBoxLayout;

namespace qfr {

// What the page starts. A command that is absent is not offered.
struct StartCommands {
    std::function<void()> LoadFiles = {};
    std::function<void()> LoadFolder = {};
    std::function<void()> RestoreBatch = {};
    std::function<void()> RecoverBatch = {};  // offered only while there is something to recover
    std::function<void(const std::string& file)> OpenBatch = {};
};

// The batches of late (full names, UTF-8, newest first), and one that was opened or saved.
std::vector<std::string> RecentBatches(const Remembered& memory);
void RememberBatch(Remembered& memory, const std::string& file);

class StartPage : public QWidget {
  public:
    // `example`: the batch file of the example (UTF-8); it need not be there.
    StartPage(StartCommands commands, Messages& messages, Remembered& memory, std::string example);

    // Looks again for what is there.
    void Refresh();
    // Puts the focus where the user most likely goes on.
    void FocusFirst();
    // Offers to recover a batch, with what is known of it; an empty text takes the offer back.
    void SetRecovery(const QString& text);

  private:
    // A button, and beside it what is known of the batch that it leads to.
    struct Command {
        QPushButton* Button = nullptr;
        QLabel* What = nullptr;
        void Describe(const QString& what) const;
        void Offer(bool offered) const;
    };
    Command AddCommand(QGridLayout& commands, const char* name, const QString& caption,
                       const QString& what, const std::function<void()>& handler);
    void AddRecent(QVBoxLayout& rows);
    void ShowExample();
    void ShowRecent();
    void ShowDate(QTreeWidgetItem& item) const;
    void TakeDate(const std::string& file, const std::optional<std::time_t>& written);
    void OpenRecent();
    void ForgetRecent();

    const StartCommands commands_;
    Messages& messages_;
    Remembered& memory_;
    const std::string exampleFile_;
    Command load_;
    Command example_;
    Command recover_;
    QLabel* recentLabel_;
    QTreeWidget* recentTree_;
    // When the recent batches were saved, as far as that is known; absent: one is missing.
    std::map<std::string, std::optional<std::time_t>> saved_;
    FileDates dates_;
};

}  // namespace qfr
