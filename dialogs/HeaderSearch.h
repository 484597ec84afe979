// The bar that looks for a text in the cells of the table of all headers.
#pragma once

#include "dialogs/HeaderTable.h"
#include "dialogs/SheetView.h"
#include "platform/qt/FindBar.h"

namespace qfr {

class HeaderSearch : public FindBar {
    Q_OBJECT

  public:
    using FindBar::FindBar;

    // Both outlive it; the table is open while the bar shows.
    void LookIn(const HeaderTable& table, SheetView& view);

  private:
    // From the current cell, wherever the user has gone meanwhile.
    Found Look(const std::string& text, int by) override;
    void Leave() override { view_->setFocus(); }

    const HeaderTable* table_ = nullptr;
    SheetView* view_ = nullptr;
};

}  // namespace qfr
