// A row of controls. Where the window is too narrow for all, its lesser buttons are found in a
// menu, "More", at the row's end.
#pragma once

#include <vector>

#include <QHBoxLayout>
#include <QPushButton>
#include <QWidget>

namespace qfr {

class FoldingRow : public QWidget {
    Q_OBJECT

  public:
    explicit FoldingRow(QWidget* parent = nullptr);

    // Where the controls are added.
    QHBoxLayout* Row() { return row_; }
    // Comes when everything is in the row. The buttons of a group fold together, the first group
    // first.
    using Group = std::vector<QPushButton*>;
    void LetFold(std::vector<Group> groups);

    // Of what stays.
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // Of a row without the first so many groups.
    int WidthWithout(std::size_t folded) const;
    bool IsAmong(std::size_t groups, const QPushButton* button) const;
    void Fit();
    void FillMenu();

    QHBoxLayout* row_;
    QPushButton* more_ = nullptr;
    std::vector<Group> groups_;
};

}  // namespace qfr
