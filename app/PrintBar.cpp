#include "app/PrintBar.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include <QHBoxLayout>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/ElidedLabel.h"
#include "platform/qt/PrintTarget.h"
#include "platform/qt/ShownText.h"

namespace qfr {

PrintBar::PrintBar(Services services, QWidget* parent)
    : QToolBar(parent), services_(std::move(services)), note_(new ElidedLabel) {
    setObjectName("PrintBar");
    setWindowTitle("Printing");
    setMovable(false);
    // It comes and goes with the batch, and no menu hides it.
    toggleViewAction()->setEnabled(false);
    toggleViewAction()->setVisible(false);
    auto* const controls = new QWidget;
    auto* const row = new QHBoxLayout(controls);
    row->setContentsMargins(6, 2, 6, 2);
    PrintTarget::PutInto(*row, services_.Printers);
    note_->setObjectName("PrintedNote");
    row->addWidget(note_, 1);
    openButton_ = AddButton(row, "Open F&ile", "OpenFileButton");
    folderButton_ = AddButton(row, "Show i&n Folder", "ShowInFolderButton");
    addWidget(controls);
    connect(openButton_, &QPushButton::clicked, this, [this] { Open(services_.OpenFile); });
    connect(folderButton_, &QPushButton::clicked, this, [this] { Open(services_.ShowInFolder); });
    Forget();
}

void PrintBar::ShowPrinted() {
    if (services_.Printed.Jobs().size() == shown_) {
        return;
    }
    Forget();
    const PrintedJobs& last = services_.Printed.Jobs().back();
    note_->setText(QString::fromStdString(PrintedNote(last)));
    note_->setToolTip(Shown(last.Where));
    openButton_->setVisible(last.IsFile);
    folderButton_->setVisible(last.IsFile);
}

void PrintBar::Forget() {
    shown_ = services_.Printed.Jobs().size();
    note_->clear();
    note_->setToolTip("");
    openButton_->hide();
    folderButton_->hide();
}

void PrintBar::Open(const Opener& opener) const {
    const std::string& file = services_.Printed.Jobs().at(shown_ - 1).Where;
    std::error_code failed;
    if (!std::filesystem::exists(PathOf(file), failed)) {
        services_.Messages.Show({FileNameOnly(file) + " is no longer where it was saved.",
                                 kFileNotFoundTitle, MessageIcon::kWarning});
    } else if (!opener(file)) {
        services_.Messages.Show({"No program was found that shows\n" + file + ".", kFileErrorTitle,
                                 MessageIcon::kWarning});
    }
}

}  // namespace qfr
