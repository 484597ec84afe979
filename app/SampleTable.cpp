#include "app/SampleTable.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/DateTime.h"
#include "platform/Text.h"
#include "platform/qt/ShownText.h"

namespace qfr {

namespace {

constexpr std::array<const char*, SampleTable::kColumns> kHeads = {
    "No.",           "ZOV Sample No.", "Lab Sample ID", "Report",
    "Date Analyzed", "Header",         "TICs",          "Findings"};

}  // namespace

SampleTable::Line SampleTable::LineOf(const SampleRecord& sample, int number) {
    const std::string& date = sample.Header[HeaderField::kDateAnalyzed];
    Line line;
    line.Path = Shown(sample.FileName);
    line.Analyzed = ParseDateTime(date).value_or(DateTime{}).seconds;
    line.Filled = SampleHeader::kCount - static_cast<int>(EmptyFields(sample.Header).size());
    line.Tics = sample.TicList ? static_cast<int>(sample.TicList->size()) : -1;
    line.Cells = {QString::number(number),
                  Shown(sample.Header[HeaderField::kZovSampleNo]),
                  Shown(sample.Header[HeaderField::kLabSampleId]),
                  Shown(FileNameOnly(sample.FileName)),
                  Shown(PrintableDate(date)),
                  QString("%1 of %2").arg(line.Filled).arg(SampleHeader::kCount),
                  line.Tics < 0 ? QString() : QString::number(line.Tics)};
    return line;
}

bool SampleTable::Show(const Batch& batch) {
    std::vector<Line> lines;
    for (const SampleRecord& sample : SamplesOf(batch)) {
        lines.push_back(LineOf(sample, static_cast<int>(lines.size()) + 1));
    }
    const bool others = !std::ranges::equal(lines, lines_, {}, &Line::Path, &Line::Path);
    if (others) {
        beginResetModel();
        lines_ = std::move(lines);
        findings_.clear();
        endResetModel();
    } else if (lines != lines_) {
        lines_ = std::move(lines);
        emit dataChanged(index(0, 0), index(rowCount() - 1, kFindings));
    }
    return others;
}

void SampleTable::ShowFindings(std::vector<FindingCount> findings) {
    if (findings != findings_ && (findings.empty() || findings.size() == lines_.size())) {
        findings_ = std::move(findings);
        emit dataChanged(index(0, kFindings), index(rowCount() - 1, kFindings));
    }
}

int SampleTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int SampleTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QString SampleTable::Text(int row, int column) const {
    const auto line = static_cast<std::size_t>(row);
    if (column == kFindings) {
        return findings_.empty() ? kNotKnownYet : Shown(FindingText(findings_[line]));
    }
    return lines_[line].Cells[static_cast<std::size_t>(column)];
}

QVariant SampleTable::SortKey(int row, int column) const {
    const Line& line = lines_[static_cast<std::size_t>(row)];
    switch (column) {
        case kNumber:
            return row;
        case kDateAnalyzed:
            return line.Analyzed;
        case kHeader:
            return line.Filled;
        case kTics:
            return line.Tics;
        case kFindings: {
            const FindingCount none;
            const FindingCount& count =
                findings_.empty() ? none : findings_[static_cast<std::size_t>(row)];
            // One error weighs more than any warnings.
            constexpr qulonglong kOneError = std::numeric_limits<std::uint32_t>::max();
            return kOneError * count.Errors + count.Warnings;
        }
        default:
            return Text(row, column);
    }
}

QVariant SampleTable::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return Text(index.row(), index.column());
        case Qt::ToolTipRole:
            return index.column() == kReport ? lines_[static_cast<std::size_t>(index.row())].Path
                                             : Text(index.row(), index.column());
        case kSortRole:
            return SortKey(index.row(), index.column());
        default:
            return {};
    }
}

QVariant SampleTable::headerData(int section, Qt::Orientation orientation, int role) const {
    // A narrow column cuts its head.
    return (role == Qt::DisplayRole || role == Qt::ToolTipRole) && orientation == Qt::Horizontal
               ? QVariant(kHeads[static_cast<std::size_t>(section)])
               : QVariant();
}

}  // namespace qfr
