// The main window with a batch: its samples and its forms, how far each is, and the ways from
// there.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>

#include <QSortFilterProxyModel>
#include <QTimer>
#include <QWidget>

#include "app/BatchStates.h"
#include "app/FormsTable.h"
#include "app/SampleTable.h"
#include "data/Batch.h"
#include "data/Entries.h"

class QPushButton;
class QTableView;
class QVBoxLayout;

namespace qfr {

class ElidedLabel;
class TQFRForm;
struct DesktopServices;

class BatchPage : public QWidget {
  public:
    BatchPage(TQFRForm& window, const DesktopServices& services);

    // Shows the batch as it is now. What its forms lack and a review finds follows step by step,
    // while the window has nothing else to do.
    void Refresh();
    // Another batch is there: its first sample is chosen, and the focus is on the preview.
    void ShowNew();
    // What was printed until now is no longer of this batch.
    void ForgetPrinted();

  protected:
    // The window is in use again; whatever was open before it may have changed the batch.
    bool event(QEvent* event) override;

  private:
    // What the states were found out from.
    struct Source {
        qfr::Batch Batch;
        qfr::Entries Entries;
        BatchFlags Flags;
        bool operator==(const Source&) const = default;
    };

    void AddSamples(QVBoxLayout& rows);
    void AddForms(QVBoxLayout& rows);
    Source Now() const;
    bool IsNow(const std::optional<Source>& source) const;
    void LookThroughWhenIdle();
    void WaitLonger();
    void GoOnLooking();
    void EndLooking();
    void ShowStates();

    std::optional<std::size_t> CurrentRecord() const;
    void OpenHeader();
    void OpenTics();
    void OpenSample(const QModelIndex& index);
    void OpenForm();
    void PreviewAllForms();
    void PrintForm();
    void PrintSheets();

    TQFRForm& window_;
    const DesktopServices& services_;
    SampleTable samples_;
    QSortFilterProxyModel sorted_;
    FormsTable forms_;
    std::size_t printedBefore_ = 0;          // entries of the log about other batches
    std::optional<Source> source_;           // of the last look through; absent: there was none
    std::unique_ptr<LookThrough> looking_;   // null: it has come to its end
    std::chrono::nanoseconds lookedFor_{0};  // by now
    BatchStates states_;
    QTimer next_;  // step

    ElidedLabel* lookingLabel_;
    QPushButton* previewButton_;
    QPushButton* sheetsButton_;
    QTableView* samplesTable_;
    QTableView* formsTable_;
};

}  // namespace qfr
