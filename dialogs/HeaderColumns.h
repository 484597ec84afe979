// The widths of the columns of all headers: as wide as their heads and values ask for, up to a
// limit. A column that the user has resized stays as it is, also in later runs.
#pragma once

#include <array>

#include <QObject>

#include "data/Batch.h"
#include "platform/qt/Remembered.h"

class QTableView;

namespace qfr {

class HeaderColumns : public QObject {
  public:
    // The view has its model, of a HeaderTable; the memory outlives this.
    HeaderColumns(QTableView& view, Remembered& memory);

    // To the values that there are now. Those that are entered from then on make columns wider,
    // never narrower.
    void Fit();

  private:
    void Widen(int firstRow, int lastRow);
    int WidthFor(int column, int firstRow, int lastRow) const;
    void Keep(int column, int width);

    QTableView& view_;
    Remembered& memory_;
    std::array<int, SampleHeader::kCount> chosen_{};  // by the user, in pixels; 0: not by him
    bool fitting_ = false;
};

}  // namespace qfr
