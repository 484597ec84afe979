// Rows of the TIC entry grid, whole or not.
#pragma once

#include <optional>

#include "data/Batch.h"
#include "platform/Messages.h"

namespace qfr {

// As the row is kept: its cells trimmed and its compound name in lower case.
TicEntry KeptTic(const TicEntry& row);

// Names the samples whose lists hold rows that lack a cell; absent without any.
std::optional<Message> IncompleteTicsNote(const Batch& batch);

}  // namespace qfr
