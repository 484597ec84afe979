#include "app/PackageNotesDialog.h"

#include <string>

#include <QHeaderView>

#include "platform/WindowServices.h"
#include "ui_PackageNotesDialog.h"

namespace qfr {

void ShowPackageNotes(const std::vector<PackageNote>& notes, const Batch& batch,
                      const QString& summary, QWidget* parent) {
    QDialog dialog(parent);
    Ui::PackageNotesDialog ui;
    ui.setupUi(&dialog);
    dialog.setProperty(kHelpTopicProperty, kPrintAllHelpTopic);
    ui.NotesLabel->setText(summary + " &Messages:");
    QTableWidget& table = *ui.NotesTable;
    table.setRowCount(static_cast<int>(notes.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        const PackageNote& note = notes[static_cast<std::size_t>(row)];
        const auto& record = note.work->record;
        int column = 0;
        for (const std::string& text :
             {std::string(note.work->form->caption),
              record ? SampleName((*batch.SampleList)[*record]) : std::string(), note.text,
              std::string(note.printed ? "Yes" : "No")}) {
            auto* const cell = new QTableWidgetItem(QString::fromStdString(text));
            cell->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
            table.setItem(row, column++, cell);
        }
    }
    QHeaderView& columns = *table.horizontalHeader();
    columns.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    columns.setSectionResizeMode(QHeaderView::ResizeToContents);
    columns.setSectionResizeMode(2, QHeaderView::Stretch);
    // Long messages wrap.
    table.verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table.verticalHeader()->hide();
    table.setCurrentCell(0, 0);
    QObject::connect(ui.OkButton, &QPushButton::clicked, &dialog, &QDialog::accept);
    ui.OkButton->setFocus();
    dialog.exec();
}

}  // namespace qfr
