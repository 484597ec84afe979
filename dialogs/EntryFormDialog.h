// The entry dialogs that are their tables: each shows the fields of its table in the controls that
// the table names, and yields them back.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <QDialog>

#include "data/EntrySources.h"
#include "data/EntryTables.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "forms/FormList.h"
#include "platform/WindowServices.h"

namespace qfr {

struct EntryDialogParts;
class EntryNote;

class EntryFormDialog : public EntryWindow {
  public:
    EntryFormDialog(EntryDialog dialog, FormHost& host, WindowServices& services,
                    QWidget* parent = nullptr);

    bool Run(std::size_t headerRecord) override;
    void StoreInto(Batch& batch, Entries& entries) const override;

  private:
    void AddField(const EntryField& field);
    std::optional<EntryFault> Leave(const QWidget& control);
    void BrowseClick(const EntryField& field, std::size_t item);
    void OkClick();
    void ShowEntries();
    void StoreEntries();
    void FinishEditing();
    // What the entries on show may have come from.
    void FindSources();
    void ShowSources();

    const EntryDialogParts& parts_;
    FormHost& host_;
    WindowServices& services_;
    const EntryTable& table_;
    EntryNote* note_;
    LeaveChecks checks_;
    std::vector<EntrySource> sources_;
};

std::unique_ptr<EntryWindow> MakeEntryDialog(EntryDialog dialog, FormHost& host,
                                             WindowServices& services, QWidget* parent);

}  // namespace qfr
