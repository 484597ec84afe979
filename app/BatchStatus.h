// What the status bar says of the batch: its files, and how many headers are complete.
#pragma once

#include <array>

#include <QStatusBar>

#include "data/Batch.h"
#include "platform/qt/ElidedLabel.h"

namespace qfr {

class BatchStatus {
  public:
    // Puts its labels into the bar, which outlives this.
    explicit BatchStatus(QStatusBar& bar);

    // A note that showed in their place goes. Of a batch without files there is nothing to say.
    void Show(const Batch& batch);

  private:
    QStatusBar& bar_;
    std::array<ElidedLabel*, 5> labels_;
};

}  // namespace qfr
