#include "dialogs/Form1Header.h"

#include <algorithm>

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QShortcut>

#include "data/HeaderFields.h"
#include "dialogs/EntryDialogs.h"
#include "dialogs/HeaderMarks.h"
#include "forms/Form1TicContent.h"
#include "forms/Form1VoaContent.h"
#include "platform/DateTime.h"
#include "platform/Text.h"
#include "platform/qt/MaskEdit.h"
#include "platform/qt/PrintTarget.h"
#include "platform/qt/WaitCursor.h"
#include "ui_Form1Header.h"

namespace qfr {

namespace {

constexpr int kVoaHelpTopic = 110;
constexpr int kTicHelpTopic = 120;
constexpr int kRightLabels = 3;  // their column among the fields

// Whether the focus goes from control to control, and not to a menu, a popup or another window and
// back.
bool IsBetweenControls(const QFocusEvent& event) {
    switch (event.reason()) {
        case Qt::PopupFocusReason:
        case Qt::ActiveWindowFocusReason:
        case Qt::MenuBarFocusReason:
            return false;
        default:
            return true;
    }
}

}  // namespace

TForm1Header::TForm1Header(FormHost& host, WindowServices& services)
    : host_(host),
      services_(services),
      ui_(std::make_unique<Ui::TForm1Header>()),
      guard_(controls_, host) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    ui_->setupUi(this);
    controls_.FindIn(*this);
    ui_->Button1->hide();

    for (QWidget* const control : controls_.All()) {
        control->installEventFilter(this);
    }
    for (QWidget* const control :
         std::initializer_list<QWidget*>{ui_->FileComboBox, ui_->OkButton, ui_->PrintButton}) {
        control->installEventFilter(this);
    }
    ui_->EntryNote->Hear(*this);
    for (QComboBox* const box : findChildren<QComboBox*>()) {
        // A wheel that passes over the dialog must not change a value.
        box->setFocusPolicy(Qt::StrongFocus);
        if (box->isEditable()) {
            box->setCompleter(nullptr);  // it would change the case of what is typed
        }
    }

    for (QComboBox* const box : {ui_->ZOVComboBox, ui_->LabComboBox, ui_->FileComboBox}) {
        connect(box, &QComboBox::activated, this, &TForm1Header::OnSelect);
        connect(box, &QComboBox::currentIndexChanged, this, &TForm1Header::OnSelect);
    }
    for (QComboBox* const box : {ui_->ZOVComboBox, ui_->LabComboBox}) {
        connect(box, &QComboBox::editTextChanged, this,
                [this, box](const QString& text) { OnChange(box, text); });
    }
    for (QWidget* const control : controls_.All()) {
        connect(&HeaderControls::EditOf(*control), &QLineEdit::textEdited, this,
                [control] { ShowCarriedOver(*control, false); });
    }
    connect(ui_->ComboBox2, &QComboBox::currentTextChanged, this, &TForm1Header::ComboBox2Change);

    SetUpSteps();
    Connect(ui_->EnterButton, &TForm1Header::EnterButtonClick);
    Connect(ui_->Button1, &TForm1Header::Button1Click);
    Connect(ui_->Button2, &TForm1Header::Button2Click);
    Connect(ui_->Button3, &TForm1Header::Button3Click);
    Connect(ui_->Button4, &TForm1Header::Button4Click);
    Connect(ui_->Button5, &TForm1Header::Button5Click);
    Connect(ui_->PrintButton, &TForm1Header::PrintButtonClick);
    Connect(ui_->OkButton, &TForm1Header::OkButtonClick);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &TForm1Header::Button5Click);
    // The row of buttons is as wide as a small screen.
    PrintTarget::PutBelow(*ui_->Fields, kRightLabels, *ui_->EnterButton, services_.Printers());
}

TForm1Header::~TForm1Header() = default;

// A button that is chosen while a date is wrong does nothing: the date is complained about instead,
// also where the choice (by a mnemonic) did not move the focus.
void TForm1Header::Connect(QAbstractButton* button, void (TForm1Header::*handler)()) {
    connect(button, &QAbstractButton::clicked, this, [this, handler] {
        if (!DateRefused()) {
            (this->*handler)();
        }
    });
}

void TForm1Header::Open(int mode, std::size_t record) {
    const bool tic = mode != kFormIVoa;
    setWindowTitle(tic ? "Form 1 TIC Header" : "Form 1 Header");
    ui_->EnterButton->setEnabled(tic);
    ui_->EnterButton->setVisible(tic);
    OnShow(record);
    show();
}

void TForm1Header::OnShow(std::size_t record) {
    const QScopedValueRollback loading(loading_, true);
    for (QComboBox* const box : {ui_->ZOVComboBox, ui_->LabComboBox, ui_->FileComboBox}) {
        box->clear();
    }
    if (const auto& samples = host_.Batch().SampleList) {
        for (const SampleRecord& sample : *samples) {
            const auto text = [&sample](HeaderField field) {
                return QString::fromStdString(sample.Header[field]);
            };
            ui_->ZOVComboBox->addItem(text(HeaderField::kZovSampleNo));
            ui_->LabComboBox->addItem(text(HeaderField::kLabSampleId));
            ui_->FileComboBox->addItem(QString::fromStdString(FileNameOnly(sample.FileName)));
            MarkRecord(static_cast<std::size_t>(ui_->FileComboBox->count()) - 1);
        }
    }
    rename_.reset();
    ShowRename();
    ShowRecord(0);
    if (record > 0 && record < SamplesOf(host_.Batch()).size()) {
        ShowRecord(record);
    }
    (pendingFocus_ != nullptr ? pendingFocus_ : ui_->Edit1)->setFocus();
    pendingFocus_ = nullptr;
}

void TForm1Header::Reset() {
    const QScopedValueRollback loading(loading_, true);
    ui_->FileComboBox->clear();
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        controls_.SetText(HeaderFieldAt(number), "");
        ShowCarriedOver(*controls_.Of(HeaderFieldAt(number)), false);
    }
    rename_.reset();
    ShowRename();
}

void TForm1Header::SetPendingFocus(HeaderField field) {
    pendingFocus_ = controls_.Of(field);
}

void TForm1Header::OnSelect(int record) {
    if (loading_ || record < 0) {
        return;
    }
    const QScopedValueRollback loading(loading_, true);
    if (DateRefused()) {
        SelectInDropDowns(currentRecord_);
        return;
    }
    if (static_cast<std::size_t>(record) != currentRecord_) {
        // One drop-down shows the new sample already; the lists still hold what was typed before.
        SelectInDropDowns(currentRecord_);
        SaveAll();
    }
    ShowRecord(static_cast<std::size_t>(record));
}

void TForm1Header::ShowRecord(std::size_t record) {
    currentRecord_ = record;
    SelectInDropDowns(record);
    LoadRecord();
    ShowPlace();
    ui_->EntryNote->Forget();
}

void TForm1Header::SelectInDropDowns(std::size_t record) {
    for (QComboBox* const box : {ui_->ZOVComboBox, ui_->LabComboBox, ui_->FileComboBox}) {
        box->setCurrentIndex(static_cast<int>(record));
    }
}

void TForm1Header::OnChange(QComboBox* box, const QString& text) {
    const int record = static_cast<int>(currentRecord_);
    // A text that comes with another item is a choice, not typing.
    if (loading_ || box->currentIndex() != record) {
        return;
    }
    const QScopedValueRollback loading(loading_, true);
    const int caret = box->lineEdit()->cursorPosition();
    box->setItemText(record, text);
    box->lineEdit()->setCursorPosition(caret);
    NoteRename(box);
}

SampleRecord* TForm1Header::Record() {
    auto& samples = host_.Batch().SampleList;
    return samples && currentRecord_ < samples->size() ? &(*samples)[currentRecord_] : nullptr;
}

// An empty value leaves the text of the sample shown before, on purpose: so the laboratory's values
// go from sample to sample.
void TForm1Header::LoadRecord() {
    const SampleRecord* const record = Record();
    if (record == nullptr) {
        return;
    }
    ui_->FileComboBox->setToolTip(QString::fromStdString(record->FileName));
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        const std::string& value = record->Header[field];
        if (!value.empty()) {
            controls_.SetText(field, value);
        }
        ShowCarriedOver(*controls_.Of(field), value.empty() && !IsUnfilled(controls_.Text(field)));
    }
}

void TForm1Header::Save(QWidget* control) {
    Store(control);
    if (Record() != nullptr) {
        MarkRecord(currentRecord_);
    }
}

void TForm1Header::Store(QWidget* control) {
    SampleRecord* const record = Record();
    const auto field = controls_.FieldOf(control);
    if (record == nullptr || !field) {
        return;
    }
    record->Header[*field] = controls_.Text(*field);
    ShowCarriedOver(*control, false);
    // A value that was carried over is not yet in the list of its drop-down.
    if (control == ui_->ZOVComboBox || control == ui_->LabComboBox) {
        auto* const box = static_cast<QComboBox*>(control);
        box->setItemText(static_cast<int>(currentRecord_), box->currentText());
    }
}

void TForm1Header::StoreInto(Batch& batch, Entries& /*entries*/) const {
    if (currentRecord_ >= SamplesOf(batch).size()) {
        return;
    }
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        std::string text = controls_.Text(field);
        if (!HeaderFault(field, text)) {
            batch.SampleList->at(currentRecord_).Header[field] = std::move(text);
        }
    }
}

void TForm1Header::SaveAll() {
    for (QWidget* const control : controls_.All()) {
        Store(control);
    }
    if (Record() != nullptr) {
        MarkRecord(currentRecord_);
    }
}

// One that is left open as it was found is no entry.
bool TForm1Header::IsOpenDate(const QWidget* control) const {
    const auto* const date = qobject_cast<const MaskEdit*>(control);
    return date != nullptr && IsUnfilled(controls_.Text(*controls_.FieldOf(date)));
}

// Whether the user is held at a wrong date.
bool TForm1Header::DateRefused() {
    return guard_.IsHolding() || guard_.Refuses(focusWidget());
}

bool TForm1Header::eventFilter(QObject* watched, QEvent* event) {
    auto* const control = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn: {
            const bool savesAll = control == ui_->OkButton || control == ui_->PrintButton ||
                                  control == ui_->ZOVComboBox || control == ui_->LabComboBox ||
                                  control == ui_->FileComboBox;
            // A refused date is not stored by way of the control that was to be entered.
            if (savesAll && isVisible() && !guard_.IsHolding() &&
                IsBetweenControls(*static_cast<QFocusEvent*>(event))) {
                SaveAll();
            }
            break;
        }
        case QEvent::FocusOut: {
            const bool leaves = isVisible() && !guard_.IsReturning() &&
                                IsBetweenControls(*static_cast<QFocusEvent*>(event));
            if (leaves && !guard_.Refuses(control) && !IsOpenDate(control)) {
                Save(control);
            }
            break;
        }
        case QEvent::Wheel:
            if (qobject_cast<QComboBox*>(control) != nullptr && !control->hasFocus()) {
                event->ignore();
                return true;
            }
            break;
        case QEvent::KeyPress:
            // Typing chooses no sample; blank and the arrow keys do what they do in every list.
            if (control == ui_->FileComboBox) {
                const QString text = static_cast<QKeyEvent*>(event)->text();
                if (!text.isEmpty() && text.front().isPrint() && text != " ") {
                    return true;
                }
            }
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

// Enter presses the button that has the focus; in an entry it must neither print nor leave.
void TForm1Header::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
    }
}

void TForm1Header::ComboBox2Change() {
    if (loading_) {
        return;
    }
    const SampleHeader before = controls_.Texts();
    SampleHeader after = before;
    ApplyMatrixRules(after);
    for (const HeaderField field : kRuledByMatrix) {
        if (after[field] != before[field]) {
            controls_.SetText(field, after[field]);
        }
    }
}

void TForm1Header::EnterButtonClick() {
    if (Record() != nullptr) {
        services_.EnterTics(currentRecord_, ui_->ZOVComboBox->currentText().toStdString());
    }
}

void TForm1Header::Button5Click() {
    services_.ShowHelp(ui_->EnterButton->isVisible() ? kTicHelpTopic : kVoaHelpTopic);
}

void TForm1Header::PrintButtonClick() {
    SaveAll();
    if (Record() == nullptr) {
        return;
    }
    const WaitCursor wait;
    host_.BeginRun();
    if (!host_.Page().testPrinter()) {
        return;
    }
    if (ui_->EnterButton->isEnabled()) {
        PrintFormITic(host_, currentRecord_);
    } else {
        PrintFormIVoa(host_, currentRecord_);
    }
}

void TForm1Header::OkButtonClick() {
    if (DateRefused()) {  // closing by key or close box comes here without the button
        return;
    }
    SaveAll();
    hide();
    services_.ShowMainWindow();
}

}  // namespace qfr
