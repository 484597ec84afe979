#include "dialogs/MBSHeader.h"

#include <algorithm>
#include <cmath>

#include <QEvent>
#include <QFontInfo>
#include <QScrollBar>
#include <QTextBlock>

#include "forms/Form4Content.h"
#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/PrintTarget.h"
#include "ui_MBSHeader.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 122;
constexpr int kBoxWidth = 369;      // pixels
constexpr double kFormPoints = 10;  // of the form's letters
constexpr int kSlack = 4;           // pixels; the box rounds each line up

// The form's letters in the dialog's size, so that what fits the box fits the line.
QFont FontOfForm() {
    QFont font;
    font.setFamilies({"Times New Roman", "Liberation Serif"});
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

}  // namespace

TMBSHeader::TMBSHeader(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryWindow(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      host_(host),
      ui_(std::make_unique<Ui::TMBSHeader>()) {
    ui_->setupUi(this);
    ui_->RichEdit1->setFont(FontOfForm());
    FitToFont();
    TypeNoFieldEnd(*ui_->RichEdit1, [this] {
        hasFieldEnd_ = true;
        ShowRoom();
    });
    connect(ui_->RichEdit1, &QPlainTextEdit::textChanged, this, [this] {
        TakeBackFieldEnds();
        CutToLength();
        ShowRoom();
    });
    connect(ui_->OkButton, &QPushButton::clicked, this, &TMBSHeader::OkClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TMBSHeader::reject);
    ConnectHelp(*this, services, kHelpTopic);
    PrintTarget::PutBefore(*ui_->OkButton, services.Printers());
}

TMBSHeader::~TMBSHeader() = default;

bool TMBSHeader::Run(std::size_t /*headerRecord*/) {
    std::vector<std::string>& entry = host_.Entries().Comments.Lines;
    QStringList lines;
    for (const std::string& line : entry) {
        lines << QString::fromStdString(line);
    }
    const QString text = lines.join('\n');
    // Comments of a batch file that was edited elsewhere are not cut, they only do not grow.
    room_ = std::max(kMaxLength, static_cast<int>(text.size()));
    ui_->RichEdit1->setPlainText(text);
    hasFieldEnd_ = false;
    ShowRoom();
    ui_->RichEdit1->moveCursor(QTextCursor::End);
    ui_->RichEdit1->horizontalScrollBar()->setValue(0);
    ui_->RichEdit1->setFocus();
    TakePendingFocus();
    const bool accepted = exec() == Accepted;
    entry = Lines();
    return accepted;
}

void TMBSHeader::StoreInto(Batch& /*batch*/, Entries& entries) const {
    entries.Comments.Lines = Lines();
}

std::vector<std::string> TMBSHeader::Lines() const {
    std::vector<std::string> lines;
    for (const QString& line : ui_->RichEdit1->toPlainText().split('\n')) {
        lines.push_back(EnteredField(line.toStdString()));
    }
    return lines;
}

void TMBSHeader::OkClick() {
    auto question = CommentsNotPrinted(host_.Page(), Lines());
    if (question) {
        question->text += "\nPrint the form all the same?";
        question->icon = MessageIcon::kWarning;
    }
    if (!question || host_.AskYesNo(*question)) {
        accept();
    } else {
        ui_->RichEdit1->setFocus();
    }
}

// A pasted one; no key types it.
void TMBSHeader::TakeBackFieldEnds() {
    QTextDocument& document = *ui_->RichEdit1->document();
    for (QTextCursor found = document.find(";"); !found.isNull();
         found = document.find(";", found)) {
        found.joinPreviousEditBlock();
        found.insertText(",");
        found.endEditBlock();
        hasFieldEnd_ = true;
    }
}

void TMBSHeader::ShowRoom() {
    const std::vector<std::string> lines = Lines();
    const std::vector<std::size_t> lengths = CommentsOnForm(host_.Page(), lines);
    QList<QTextEdit::ExtraSelection> beyond;
    QStringList used;
    for (std::size_t i = 0; i < std::max(lines.size(), kCommentLines); ++i) {
        const std::string line = i < lines.size() ? lines[i] : "";
        if (i < kCommentLines) {
            used << QString::number(CommentLengthInch(host_.Page(), line), 'f', 1);
        }
        if (i < lines.size() && lengths[i] < line.size()) {
            const auto printed = QString::fromStdString(line.substr(0, lengths[i])).size();
            QTextCursor cursor(ui_->RichEdit1->document()->findBlockByNumber(static_cast<int>(i)));
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor,
                                static_cast<int>(printed));
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            QTextCharFormat struckOut;
            struckOut.setFontStrikeOut(true);
            struckOut.setForeground(Qt::red);
            beyond.push_back({cursor, struckOut});
        }
    }
    ui_->RichEdit1->setExtraSelections(beyond);
    QStringList notes = {beyond.empty() ? "" : "What is struck out has no room on the form.",
                         hasFieldEnd_ ? kNoFieldEnd : ""};
    notes.removeAll("");
    ui_->RoomLabel->setText(
        QString("Two lines print, each %1 inches long. Used: %2 and %3 inches.\n%4")
            .arg(kCommentLineLength)
            .arg(used[0], used[1], notes.join('\n')));
}

void TMBSHeader::CutToLength() {
    const int length = ui_->RichEdit1->document()->characterCount() - 1;
    if (length <= room_) {
        return;
    }
    // The end of what came in is where the caret is.
    const int excess = length - room_;
    QTextCursor cursor = ui_->RichEdit1->textCursor();
    const int end = cursor.position() >= excess ? cursor.position() : length;
    cursor.joinPreviousEditBlock();
    cursor.setPosition(end - excess);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
}

void TMBSHeader::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        FitToFont();
    }
}

// The box shows the lines that are printed, as long as they are.
void TMBSHeader::FitToFont() {
    QPlainTextEdit& box = *ui_->RichEdit1;
    const double margins = 2 * (box.document()->documentMargin() + box.frameWidth());
    const int lines = static_cast<int>(kCommentLines) * box.fontMetrics().lineSpacing();
    const double line =
        kCommentLineLength * kPointsPerInch / kFormPoints * QFontInfo(box.font()).pixelSize();
    box.setMinimumWidth(
        std::max(kBoxWidth, static_cast<int>(std::ceil(line + margins)) + box.cursorWidth()));
    box.setFixedHeight(lines + static_cast<int>(std::ceil(margins)) + kSlack);
}

}  // namespace qfr
