#include "dialogs/Form1Header.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QShortcut>

#include "data/HeaderFields.h"
#include "data/LabFiles.h"
#include "dialogs/EntryDialogs.h"
#include "dialogs/FieldRemarks.h"
#include "dialogs/HeaderMarks.h"
#include "forms/Form1TicContent.h"
#include "forms/Form1VoaContent.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/MaskEdit.h"
#include "platform/qt/PrintTarget.h"
#include "platform/qt/WaitCursor.h"
#include "ui_Form1Header.h"

namespace qfr {

namespace {

constexpr int kVoaHelpTopic = 110;
constexpr int kTicHelpTopic = 120;
constexpr int kRightLabels = 3;  // their column among the fields
const char* const kDefaultsFile = "DefaultInfo.txt";
const char* const kDateMask = "!99/99/9999 99:99;1;_";

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
    : host_(host), services_(services), ui_(std::make_unique<Ui::TForm1Header>()) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    ui_->setupUi(this);
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        SetUpControl(HeaderFieldAt(number));
    }
    ui_->Button1->hide();

    for (QWidget* const control : fieldControls_) {
        control->installEventFilter(this);
    }
    for (QWidget* const control :
         std::initializer_list<QWidget*>{ui_->FileComboBox, ui_->OkButton, ui_->PrintButton}) {
        control->installEventFilter(this);
    }
    KeepToOneFieldEach(*this);
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
    for (QWidget* const control : fieldControls_) {
        auto* const box = qobject_cast<QComboBox*>(control);
        connect(box != nullptr ? box->lineEdit() : static_cast<QLineEdit*>(control),
                &QLineEdit::textEdited, this, [control] { ShowCarriedOver(*control, false); });
    }
    connect(ui_->ComboBox2, &QComboBox::currentTextChanged, this, &TForm1Header::ComboBox2Change);

    SetUpSteps();
    TellOfNoSuchDates(*this, *ui_->DateNote);
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
    PrintTarget::PutBelow(*ui_->Fields, kRightLabels, *ui_->PrintButton, services_.Printers());
}

TForm1Header::~TForm1Header() = default;

void TForm1Header::SetUpControl(HeaderField field) {
    const HeaderEntry& entry = HeaderEntryOf(field);
    const auto text = [](std::string_view ascii) {
        return QString::fromLatin1(ascii.data(), std::ssize(ascii));
    };
    auto* const control = findChild<QWidget*>(text(entry.Control));
    fieldControls_.at(static_cast<std::size_t>(field) - 1) = control;
    if (auto* const date = qobject_cast<MaskEdit*>(control)) {
        date->SetMask(kDateMask);
        return;
    }
    if (auto* const box = qobject_cast<QComboBox*>(control)) {
        for (const std::string_view choice : entry.Choices) {
            choice.empty() ? void() : box->addItem(text(choice));
        }
    }
    SetTextOfField(field, std::string(entry.FirstText));
}

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
        SetTextOfField(HeaderFieldAt(number), "");
        ShowCarriedOver(*ControlOf(HeaderFieldAt(number)), false);
    }
    rename_.reset();
    ShowRename();
}

void TForm1Header::SetPendingFocus(HeaderField field) {
    pendingFocus_ = ControlOf(field);
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
        const std::string& value = record->Header[HeaderFieldAt(number)];
        if (!value.empty()) {
            SetTextOfField(HeaderFieldAt(number), value);
        }
        ShowCarriedOver(*ControlOf(HeaderFieldAt(number)),
                        value.empty() && !IsUnfilled(TextOfField(HeaderFieldAt(number))));
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
    if (record == nullptr || std::ranges::count(fieldControls_, control) == 0) {
        return;
    }
    const HeaderField field = FieldOf(control);
    record->Header[field] = TextOfField(field);
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
        std::string text = TextOfField(field);
        if (!HeaderFault(field, text)) {
            batch.SampleList->at(currentRecord_).Header[field] = std::move(text);
        }
    }
}

void TForm1Header::SaveAll() {
    for (QWidget* const control : fieldControls_) {
        Store(control);
    }
    if (Record() != nullptr) {
        MarkRecord(currentRecord_);
    }
}

HeaderField TForm1Header::FieldOf(const QWidget* control) const {
    const auto place = std::ranges::find(fieldControls_, control);
    return HeaderFieldAt(static_cast<int>(place - fieldControls_.begin()) + 1);
}

bool TForm1Header::IsWrong(const MaskEdit* date) const {
    const HeaderField field = FieldOf(date);
    return HeaderFault(field, TextOfField(field)).has_value();
}

void TForm1Header::OnDateExit(MaskEdit* date) {
    if (IsWrong(date)) {
        RefuseDate(date);
    } else if (!IsUnfilled(TextOfField(FieldOf(date)))) {
        Save(date);
    }
}

// Whether the user is held at a wrong date.
bool TForm1Header::DateRefused() {
    if (refusedDate_ != nullptr) {
        return true;
    }
    auto* const date = qobject_cast<MaskEdit*>(focusWidget());
    if (date == nullptr || !IsWrong(date)) {
        return false;
    }
    RefuseDate(date);
    return true;
}

// The message has to wait until the focus, which may be on its way to another control or its popup,
// has arrived there; only then can it be brought back.
void TForm1Header::RefuseDate(MaskEdit* date) {
    refusedDate_ = date;
    QMetaObject::invokeMethod(this, &TForm1Header::ReturnToDate, Qt::QueuedConnection);
}

void TForm1Header::ReturnToDate() {
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    returning_ = true;
    refusedDate_->setFocus();
    host_.Show({"The entry is not a correct date.", "Entry Error"});
    returning_ = false;
    refusedDate_ = nullptr;
}

bool TForm1Header::eventFilter(QObject* watched, QEvent* event) {
    auto* const control = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn: {
            const bool savesAll = control == ui_->OkButton || control == ui_->PrintButton ||
                                  control == ui_->ZOVComboBox || control == ui_->LabComboBox ||
                                  control == ui_->FileComboBox;
            // A refused date is not stored by way of the control that was to be entered.
            if (savesAll && isVisible() && refusedDate_ == nullptr &&
                IsBetweenControls(*static_cast<QFocusEvent*>(event))) {
                SaveAll();
            }
            break;
        }
        case QEvent::FocusOut: {
            if (!isVisible() || returning_ ||
                !IsBetweenControls(*static_cast<QFocusEvent*>(event))) {
                break;
            }
            if (auto* const date = qobject_cast<MaskEdit*>(control)) {
                OnDateExit(date);
            } else {
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
    SampleHeader header;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        header[HeaderFieldAt(number)] = TextOfField(HeaderFieldAt(number));
    }
    ApplyMatrixRules(header);
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        if (header[field] != TextOfField(field)) {
            SetTextOfField(field, header[field]);
        }
    }
}

void TForm1Header::EnterButtonClick() {
    if (Record() != nullptr) {
        services_.EnterTics(currentRecord_, ui_->ZOVComboBox->currentText().toStdString());
    }
}

void TForm1Header::Button1Click() {
    if (const std::optional<std::string> file = services_.ChooseLaboratoryFile()) {
        if (WriteValueLines(PathOf(*file), TextsOf(kLaboratoryFields))) {
            host_.Show(CouldNotBeWritten(*file));
        }
    }
}

void TForm1Header::Button2Click() {
    if (const auto chosen = services_.ChooseFiles(FileKind::kText, false)) {
        const std::string& file = chosen->files.front();
        if (!TakeTexts(kLaboratoryFields, ReadLaboratoryFile(PathOf(file)), file)) {
            host_.Show(CouldNotReadValues());
        }
    }
}

void TForm1Header::Button3Click() {
    const std::filesystem::path file = services_.Settings().ForWriting(kDefaultsFile);
    if (AgreesToReplace(file, host_) && WriteValueLines(file, TextsOf(kDefaultsFields))) {
        host_.Show(CouldNotBeWritten(kDefaultsFile));
    }
}

void TForm1Header::Button4Click() {
    const auto texts = ReadDefaultsFile(services_.Settings().ForReading(kDefaultsFile));
    if (!TakeTexts(kDefaultsFields, texts, kDefaultsFile) ||
        texts->size() < kDefaultsFields.size()) {
        host_.Show(CouldNotReadValues());
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

QWidget* TForm1Header::ControlOf(HeaderField field) const {
    return fieldControls_.at(static_cast<std::size_t>(field) - 1);
}

std::string TForm1Header::TextOfField(HeaderField field) const {
    const QWidget* const control = ControlOf(field);
    if (const auto* const date = qobject_cast<const MaskEdit*>(control)) {
        return HeaderText(field, date->MaskText());
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(control)) {
        return HeaderText(field, box->currentText().toStdString());
    }
    return HeaderText(field, static_cast<const QLineEdit*>(control)->text().toStdString());
}

void TForm1Header::SetTextOfField(HeaderField field, const std::string& text) {
    QWidget* const control = ControlOf(field);
    if (auto* const date = qobject_cast<MaskEdit*>(control)) {
        date->SetMaskText(text);
    } else if (auto* const box = qobject_cast<QComboBox*>(control)) {
        box->setEditText(QString::fromStdString(text));
    } else {
        auto& edit = *static_cast<QLineEdit*>(control);
        FillEdit(edit, [&] { edit.setText(QString::fromStdString(text)); });
    }
}

std::vector<std::string> TForm1Header::TextsOf(std::span<const HeaderField> fields) const {
    std::vector<std::string> texts;
    for (const HeaderField field : fields) {
        texts.push_back(TextOfField(field));
    }
    return texts;
}

bool TForm1Header::TakeTexts(std::span<const HeaderField> fields,
                             std::optional<std::vector<std::string>> texts,
                             const std::string& fileName) {
    if (!texts) {
        return false;
    }
    for (const Message& message : MakeBatchTexts(*texts, fileName)) {
        host_.Show(message);
    }
    for (std::size_t i = 0; i < fields.size() && i < texts->size(); ++i) {
        SetTextOfField(fields[i], (*texts)[i]);
    }
    return true;
}

}  // namespace qfr
