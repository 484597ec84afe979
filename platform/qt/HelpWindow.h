// The window that shows the help file: its contents, its pages, and a search in the page.
#pragma once

#include <memory>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QTreeWidget>

#include "platform/qt/HelpFile.h"

namespace qfr {

class HelpPage;

// Takes input beside whatever dialog is open, modal ones included.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    explicit HelpWindow(std::unique_ptr<HelpFile> help);
    ~HelpWindow() override;

    // Comes to the front with the page of a context number.
    void ShowTopic(int topic);

  protected:
    bool event(QEvent* event) override;

  private:
    void FillContents();
    void AddKeys();
    void StandBeside();
    void ShowPage(const QString& page);
    void PageShown();
    void ZoomChosen();
    void ZoomBy(int steps);  // of the list's percentages
    void FindAsTyped();
    void FindNext(QTextDocument::FindFlags direction);

    const std::unique_ptr<HelpFile> help_;
    HelpPage* page_;
    QTreeWidget* contents_;
    QComboBox* zoomCombo_;
    QLineEdit* findEdit_;
    QLabel* findState_;
    QPushButton* backButton_;
    QPushButton* forwardButton_;
    double usualPointSize_;
};

}  // namespace qfr
