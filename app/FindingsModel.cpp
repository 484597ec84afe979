#include "app/FindingsModel.h"

#include <algorithm>

#include "platform/Text.h"

namespace qfr {

const std::array<const char*, FindingsModel::kColumns> FindingsModel::kHeads = {
    "Severity", "Form", "Sample, Compound", "Finding", "Where to Mend It"};

void FindingsModel::Take(std::vector<Finding> findings, const Batch& batch) {
    beginResetModel();
    findings_ = std::move(findings);
    cells_.clear();
    lines_.clear();
    shown_.clear();
    for (const Finding& finding : findings_) {
        cells_.push_back({std::string(SeverityName(finding.Rule->Severity)),
                          std::string(finding.Form), OneLine(SubjectText(finding, batch)),
                          OneLine(finding.Sentence),
                          finding.Mend.Control.empty() ? "" : OneLine(MendText(finding.Mend))});
        lines_.push_back(OneLine(FindingLine(finding, batch)));
    }
    endResetModel();
}

void FindingsModel::Show(const FindingsFilter& filter) {
    const auto shows = [&filter](const Finding& finding) {
        return std::ranges::count(filter.Severities, finding.Rule->Severity) > 0 &&
               (!filter.Form || finding.Form == *filter.Form) &&
               (!filter.Record || std::ranges::binary_search(finding.Records, *filter.Record));
    };
    beginResetModel();
    shown_.clear();
    for (std::size_t i = 0; i < findings_.size(); ++i) {
        if (shows(findings_[i])) {
            shown_.push_back(i);
        }
    }
    endResetModel();
}

std::string FindingsModel::CellsAt(int row) const {
    std::string text;
    for (std::string cell : cells_[shown_[static_cast<std::size_t>(row)]]) {
        std::ranges::replace(cell, '\t', ' ');
        text += (text.empty() ? "" : "\t") + cell;
    }
    return text + '\t' + std::string(At(row).Rule->Id);
}

std::string FindingsModel::Heads() {
    std::string text;
    for (const char* const head : kHeads) {
        text += std::string(head) + '\t';
    }
    return text + "Rule";
}

int FindingsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int FindingsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kColumns);
}

QVariant FindingsModel::data(const QModelIndex& index, int role) const {
    // A narrow column elides its texts, and its head.
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    return QString::fromStdString(cells_[shown_[static_cast<std::size_t>(index.row())]]
                                        [static_cast<std::size_t>(index.column())]);
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return (role == Qt::DisplayRole || role == Qt::ToolTipRole) && orientation == Qt::Horizontal
               ? QVariant(kHeads[static_cast<std::size_t>(section)])
               : QVariant();
}

}  // namespace qfr
