// The TIC entry dialog: the tentatively identified compounds of one sample, in a grid.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>

#include "dialogs/EntryGrid.h"
#include "dialogs/HoldsEntries.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TTICForm;
}

namespace qfr {

class TTICForm : public QDialog, public HoldsEntries {
    Q_OBJECT

  public:
    TTICForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TTICForm() override;

    // Edits the list of the sample at this index in SampleList, shown under its number. True when
    // OK has stored it; Cancel discards what was typed. `row`, from 1, has the focus.
    bool Run(std::size_t record, const std::string& sampleNo, int row = 1);
    // Keeps incomplete rows, which OK leaves out, but no more rows than a sample may have.
    void StoreInto(Batch& batch, Entries& entries) const override;

  private:
    void OnShow(const SampleRecord& sample, const std::string& sampleNo);
    void AddButtonClick();
    void DeleteButtonClick();
    void OkButtonClick();
    void EmptyRows();
    // Lets Undo bring back what OK has left out of the list, if it is still the list that OK made.
    void OfferLeftOut(const SampleRecord& sample);
    void ShowSteps();
    std::vector<TicEntry> Rows() const;
    // Whether the user agrees to lose these rows, from 1; otherwise he is at what the first lacks.
    bool AreToBeLeftOut(const std::vector<std::size_t>& rows);

    FormHost& host_;
    std::unique_ptr<Ui::TTICForm> ui_;
    std::size_t record_ = 0;
    // The rows of which OK has kept the complete ones, by the sample's file, and what it kept.
    struct LeftOut {
        EntryGrid::Cells Rows;
        std::optional<TicListType> Kept;
    };
    std::map<std::string, LeftOut> leftOut_;
};

}  // namespace qfr
