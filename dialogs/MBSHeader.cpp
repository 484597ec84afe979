#include "dialogs/MBSHeader.h"

#include <algorithm>
#include <cmath>

#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>

#include "ui_MBSHeader.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 122;
constexpr int kPrintedLines = 2;
constexpr int kBoxWidth = 369;  // pixels
constexpr int kBoxLetters = 50;
constexpr int kSlack = 4;  // pixels; the box rounds each line up

}  // namespace

TMBSHeader::TMBSHeader(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryWindow(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      host_(host),
      ui_(std::make_unique<Ui::TMBSHeader>()) {
    ui_->setupUi(this);
    FitToFont();
    connect(ui_->RichEdit1, &QPlainTextEdit::textChanged, this, &TMBSHeader::CutToLength);
    connect(ui_->OkButton, &QPushButton::clicked, this, &TMBSHeader::accept);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TMBSHeader::reject);
    ConnectHelp(*this, services, kHelpTopic);
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
    ui_->RichEdit1->moveCursor(QTextCursor::End);
    ui_->RichEdit1->horizontalScrollBar()->setValue(0);
    ui_->RichEdit1->setFocus();
    const bool accepted = exec() == Accepted;
    entry.clear();
    for (const QString& line : ui_->RichEdit1->toPlainText().split('\n')) {
        entry.push_back(line.toStdString());
    }
    return accepted;
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

// The box shows the lines that are printed.
void TMBSHeader::FitToFont() {
    QPlainTextEdit& box = *ui_->RichEdit1;
    const double margins = 2 * (box.document()->documentMargin() + box.frameWidth());
    const int lines = kPrintedLines * box.fontMetrics().lineSpacing();
    box.setMinimumWidth(std::max(kBoxWidth, kBoxLetters * box.fontMetrics().averageCharWidth()));
    box.setFixedHeight(lines + static_cast<int>(std::ceil(margins)) + kSlack);
}

}  // namespace qfr
