// A window in which values are typed that the batch and its entries get only when the window or one
// of its controls is left.
#pragma once

#include "data/Batch.h"
#include "data/Entries.h"

namespace qfr {

class HoldsEntries {
  public:
    virtual ~HoldsEntries() = default;
    // While the window shows: puts what stands in its controls, complete or not, where it would be
    // stored; in the place of a wrong date the one before stays. Both are those of the program, or
    // copies of them.
    virtual void StoreInto(Batch& batch, Entries& entries) const = 0;
};

}  // namespace qfr
