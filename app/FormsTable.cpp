#include "app/FormsTable.h"

#include <algorithm>
#include <utility>

#include <QDateTime>

#include "app/Package.h"
#include "forms/FormList.h"
#include "platform/Text.h"
#include "platform/qt/ShownText.h"

namespace qfr {

namespace {

constexpr std::array<const char*, FormsTable::kColumns> kHeads = {"Form", "State", "Printed",
                                                                  "Where"};

QString PrintedText(const FormRow& form, const FormPrinted& printed,
                    const std::vector<PackageWork>& package) {
    const QString when = QDateTime::fromSecsSinceEpoch(printed.Last->When).toString(kShownDateTime);
    return form.printBatch != nullptr
               ? when
               : QString("%1 of %2, %3")
                     .arg(printed.Jobs)
                     .arg(std::ranges::count(package, &form, &PackageWork::form))
                     .arg(when);
}

}  // namespace

void FormsTable::Show(const Batch& batch, const std::vector<FormState>& states,
                      std::span<const PrintedJobs> printed) {
    const std::vector<PackageWork> package = PlanWholePackage(batch);
    lines_.resize(kForms.size());
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        const FormRow& form = kForms[i];
        Line line;
        line.Cells[kForm] = Shown(form.caption);
        line.Cells[kState] = states.empty() ? kNotKnownYet : Shown(states[i].Text);
        if (const FormPrinted done = PrintedOf(form, printed); done.Last != nullptr) {
            const std::string& place = done.Last->Where;
            line.Cells[kPrinted] = PrintedText(form, done, package);
            line.Cells[kWhere] = Shown(done.Last->IsFile ? FileNameOnly(place) : place);
            line.Place = Shown(place);
        }
        lines_[i] = std::move(line);
    }
    emit dataChanged(index(0, 0), index(rowCount() - 1, kWhere));
}

int FormsTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kForms.size());
}

int FormsTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumns;
}

QVariant FormsTable::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= lines_.size() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const Line& line = lines_[row];
    return role == Qt::ToolTipRole && index.column() == kWhere
               ? line.Place
               : line.Cells[static_cast<std::size_t>(index.column())];
}

QVariant FormsTable::headerData(int section, Qt::Orientation orientation, int role) const {
    return role == Qt::DisplayRole && orientation == Qt::Horizontal
               ? QVariant(kHeads[static_cast<std::size_t>(section)])
               : QVariant();
}

}  // namespace qfr
