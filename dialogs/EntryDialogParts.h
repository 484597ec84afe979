// What each of the entry dialogs that are their tables has besides its entries.
#pragma once

#include <vector>

#include <QDialog>

#include "data/EntrySources.h"
#include "data/EntryTables.h"
#include "forms/FormHost.h"

namespace qfr {

// Its Cancel is always "CancelButton".
struct EntryDialogParts {
    EntryDialog dialog;
    void (*setUp)(QDialog& dialog);  // its design, and what that leaves open
    // What the dialog offers for the entries that are about to show; null: the same for all.
    void (*prepare)(QDialog& dialog, FormHost& host);
    const char* firstFocus;  // null: `prepare` sets it
    const char* okButton;
    const char* helpButton;
    // What its entries may have come from; null: nobody asks.
    std::vector<EntrySource> (*sources)(const Entries& entries, const Batch& batch,
                                        Reports& reports, int levelCount);
    int helpTopic;
    // A click on Help leaves the entry, and may leave a wrong one; otherwise it leaves none, so
    // that a wrong one does not stand in its way.
    bool helpTakesFocus;
};

const EntryDialogParts& PartsOf(EntryDialog dialog);

}  // namespace qfr
