#include "dialogs/EntryFormDialog.h"

#include <set>

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/EntryControls.h"
#include "dialogs/EntryDialogParts.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/EntryNote.h"
#include "dialogs/MBSHeader.h"
#include "platform/qt/MaskEdit.h"
#include "platform/qt/PrintTarget.h"

namespace qfr {

EntryFormDialog::EntryFormDialog(EntryDialog dialog, FormHost& host, WindowServices& services,
                                 QWidget* parent)
    : EntryWindow(parent),
      parts_(PartsOf(dialog)),
      host_(host),
      services_(services),
      table_(TableOf(dialog)),
      note_(new EntryNote(this)),
      checks_(host, *this, [this](const QWidget& control) { return Leave(control); }) {
    parts_.setUp(*this);
    auto& cancel = *Find<QPushButton>(*this, "CancelButton");
    auto& help = *Find<QPushButton>(*this, parts_.helpButton);
    checks_.Allow(cancel);
    if (parts_.helpTakesFocus) {
        checks_.Allow(help);
    } else {
        help.setFocusPolicy(Qt::TabFocus);
    }
    for (const EntryField& field : table_.Fields) {
        AddField(field);
    }
    note_->setObjectName("EntryNote");
    auto& rows = static_cast<QVBoxLayout&>(*layout());
    rows.insertWidget(rows.indexOf(Find<QHBoxLayout>(*this, "Buttons")), note_);
    note_->Hear(*this);
    connect(Find<QPushButton>(*this, parts_.okButton), &QPushButton::clicked, this,
            &EntryFormDialog::OkClick);
    connect(&cancel, &QPushButton::clicked, this, &EntryFormDialog::reject);
    ConnectHelp(*this, services_, parts_.helpTopic, &help);
    PrintTarget::PutBefore(*Find<QPushButton>(*this, parts_.okButton), services_.Printers());
}

void EntryFormDialog::AddField(const EntryField& field) {
    for (std::size_t item = 0; item < ItemCount(field, host_.Entries()); ++item) {
        QWidget* const control = ControlOf(*this, field, item);
        if (auto* const date = qobject_cast<MaskEdit*>(control)) {
            date->SetMask(MaskOf(field));
        }
        if (auto* const edit = qobject_cast<QLineEdit*>(control)) {
            connect(edit, &QLineEdit::textChanged, this, &EntryFormDialog::ShowSources);
        }
        if (IsCheckedWhenLeft(table_, field)) {
            checks_.Watch(*control);
        }
        if (field.Browse) {
            connect(Find<QPushButton>(*this, ControlName(field.Browse->Button, field, item)),
                    &QPushButton::clicked, this,
                    [this, &field, item] { BrowseClick(field, item); });
        }
    }
}

bool EntryFormDialog::Run(std::size_t headerRecord) {
    if (!FormOf(parts_.dialog).onShow(host_, headerRecord)) {
        return false;
    }
    if (parts_.prepare) {
        parts_.prepare(*this, host_);
    }
    ShowEntries();
    note_->Forget();
    FindSources();
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->Steps().clear();
        grid->setCurrentCell(0, grid->columnCount() - 1);
    }
    if (parts_.firstFocus) {
        Find(*this, parts_.firstFocus)->setFocus();
    }
    TakePendingFocus();
    const bool accepted = exec() == Accepted;
    FinishEditing();
    StoreEntries();
    return accepted;
}

std::optional<EntryFault> EntryFormDialog::Leave(const QWidget& control) {
    StoreEntries();
    const std::string name = control.objectName().toStdString();
    Entries& entries = host_.Entries();
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (ControlName(field.Control, field, item) != name) {
                continue;
            }
            if (!field.Rules.Leave) {
                return CheckLeft(table_, field, item, entries,
                                 {.LevelCount = host_.LevelCount(),
                                  .CheckReport = CheckReportNamed(host_.Batch())});
            }
            host_.BeginRun();
            auto fault = field.Rules.Leave(entries, host_.Batch(), host_.Reports(), host_);
            ShowEntries();
            FindSources();
            return fault;
        }
    }
    return std::nullopt;
}

void EntryFormDialog::BrowseClick(const EntryField& field, std::size_t item) {
    if (checks_.Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(field.Browse->Kind, false)) {
        StoreEntries();
        ShowFault(host_, *this,
                  field.Browse->Take(host_.Entries(), item, chosen->files.front(), host_));
        ShowEntries();
    }
}

void EntryFormDialog::OkClick() {
    if (checks_.Refused()) {
        return;
    }
    FinishEditing();
    StoreEntries();
    host_.BeginRun();
    const std::optional<EntryFault> fault = FormOf(parts_.dialog).onOk(host_);
    ShowEntries();  // also what OK has taken over
    if (!ShowFault(host_, *this, fault)) {
        accept();
    }
}

void EntryFormDialog::ShowEntries() {
    const Entries& entries = host_.Entries();
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            ShowItem(*this, field, item, field.Texts.Get(entries, item));
        }
    }
}

void EntryFormDialog::StoreEntries() {
    StoreInto(host_.Batch(), host_.Entries());
}

void EntryFormDialog::StoreInto(Batch& /*batch*/, Entries& entries) const {
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (const auto text = EnteredItem(*this, field, item)) {
                field.Texts.Set(entries, item, *text);
            }
        }
    }
}

void EntryFormDialog::FindSources() {
    if (parts_.sources != nullptr) {
        sources_ =
            parts_.sources(host_.Entries(), host_.Batch(), host_.Reports(), host_.LevelCount());
        ShowSources();
    }
}

void EntryFormDialog::ShowSources() {
    std::set<std::string> told;
    for (const EntrySource& source : sources_) {
        QWidget& control = *Find(*this, source.Control);
        if (told.contains(source.Control) || !source.Gives(TextIn(control))) {
            continue;
        }
        told.insert(source.Control);
        ShowSource(*this, source.Control, source.Note);
    }
    for (const EntrySource& source : sources_) {
        if (!told.contains(source.Control)) {
            ShowSource(*this, source.Control, "");
        }
    }
}

void EntryFormDialog::FinishEditing() {
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->FinishEditing();
    }
}

std::unique_ptr<EntryWindow> MakeEntryDialog(EntryDialog dialog, FormHost& host,
                                             WindowServices& services, QWidget* parent) {
    if (dialog == EntryDialog::kBlankComments) {
        return std::make_unique<TMBSHeader>(host, services, parent);
    }
    return std::make_unique<EntryFormDialog>(dialog, host, services, parent);
}

}  // namespace qfr
