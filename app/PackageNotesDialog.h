// What forms had to say while a package was printed, in one list.
#pragma once

#include <vector>

#include "app/Package.h"
#include "data/Batch.h"

class QString;
class QWidget;

namespace qfr {

// Shows the list until it is closed. `summary` stands above it. The notes are about forms and
// samples of the batch.
void ShowPackageNotes(const std::vector<PackageNote>& notes, const Batch& batch,
                      const QString& summary, QWidget* parent);

}  // namespace qfr
