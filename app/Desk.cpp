#include "app/Desk.h"

#include <utility>

#include "app/MainForm.h"

namespace qfr {

Desk::Desk(TQFRForm& window, const DesktopServices& services, StartCommands commands)
    : window_(window),
      memory_(services.Memory),
      start_(new StartPage(std::move(commands), window, services.Memory,
                           services.Settings.ProgramDir() + "example/example.qff")),
      batch_(new BatchPage(window, services)) {
    addWidget(start_);
    addWidget(batch_);
}

void Desk::Refresh() {
    const bool loaded = IsLoaded(window_.Batch());
    QWidget* const page = loaded ? static_cast<QWidget*>(batch_) : start_;
    const bool isNew = std::exchange(isNew_, false) || page != currentWidget();
    setCurrentWidget(page);
    if (!loaded) {
        const std::optional<RecoveryOffer> offer = window_.Recovery();
        start_->SetRecovery(offer ? QString::fromStdString(OfferText(*offer)) : QString());
        start_->Refresh();
    } else if (!isNew) {
        batch_->Refresh();
    } else {
        batch_->ShowNew();
    }
    if (!loaded && isNew) {
        start_->FocusFirst();
    }
}

void Desk::BeginBatch() {
    batch_->ForgetPrinted();
    isNew_ = true;
}

}  // namespace qfr
