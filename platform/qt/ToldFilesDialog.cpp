#include "platform/qt/ToldFilesDialog.h"

#include <string>
#include <vector>

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "platform/Text.h"
#include "platform/WindowServices.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/Tables.h"

namespace qfr {

namespace {

constexpr int kLettersAcross = 110;  // of the window
constexpr int kLinesDown = 22;

QTableWidget* MakeTable(const std::vector<ToldFile>& files, QWidget& parent) {
    auto* const table = new QTableWidget(0, 2, &parent);
    table->setObjectName("ToldFilesTable");
    table->setHorizontalHeaderLabels({"File", "What to know"});
    std::vector<std::vector<std::string>> rows;
    for (const ToldFile& file : files) {
        rows.push_back({FileNameOnly(file.File), file.What});
    }
    FillWrapped(*table, rows, 1);
    for (int row = 0; const ToldFile& file : files) {
        for (int column = 0; column < table->columnCount(); ++column) {
            table->item(row, column)->setToolTip(Shown(file.File));
        }
        ++row;
    }
    return table;
}

// Tab-separated, as spreadsheets take it.
QString AsText(const std::vector<ToldFile>& files) {
    QString text;
    for (const ToldFile& file : files) {
        text += Shown(file.File) + '\t' + Shown(file.What) + '\n';
    }
    return text;
}

}  // namespace

void ShowToldFiles(const std::vector<ToldFile>& told, int helpTopic, QWidget* parent) {
    const std::vector<ToldFile> files = OncePerFile(told);
    auto* const dialog = new QDialog(parent);
    dialog->setObjectName("ToldFilesDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle("Files to Look At");
    dialog->setProperty(kHelpTopicProperty, helpTopic);
    auto* const label = new QLabel("&Not taken as they are, or in doubt:", dialog);
    QTableWidget* const table = MakeTable(files, *dialog);
    label->setBuddy(table);
    auto* const copy = new QPushButton("&Copy", dialog);
    copy->setObjectName("CopyButton");
    auto* const okay = new QPushButton("&OK", dialog);
    okay->setObjectName("OkButton");
    okay->setDefault(true);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addStretch();
    buttons->addWidget(okay);
    auto* const rows = new QVBoxLayout(dialog);
    rows->addWidget(label);
    rows->addWidget(table);
    rows->addLayout(buttons);
    QObject::connect(copy, &QPushButton::clicked, dialog,
                     [files] { QGuiApplication::clipboard()->setText(AsText(files)); });
    QObject::connect(okay, &QPushButton::clicked, dialog, &QDialog::accept);
    okay->setFocus();
    dialog->resize(kLettersAcross * dialog->fontMetrics().averageCharWidth(),
                   kLinesDown * dialog->fontMetrics().height());
    dialog->open();
}

}  // namespace qfr
