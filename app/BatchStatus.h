// What the status bar says of the batch: its files, and how many headers are complete.
#pragma once

#include <array>

#include <QLabel>
#include <QStatusBar>

#include "data/Batch.h"

namespace qfr {

class BatchStatus {
  public:
    // Puts its labels into the bar, which outlives this.
    explicit BatchStatus(QStatusBar& bar);

    // A note that showed in their place goes. Of a batch without files there is nothing to say.
    void Show(const Batch& batch);

  private:
    QStatusBar& bar_;
    std::array<QLabel*, 5> labels_;
};

}  // namespace qfr
