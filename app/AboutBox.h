// The about box.
#pragma once

#include <memory>

#include <QDialog>

namespace qfr {

std::unique_ptr<QDialog> MakeAboutBox(QWidget* parent);

}  // namespace qfr
