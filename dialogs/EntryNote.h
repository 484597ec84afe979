// The line in which a dialog says what is odd about what is being typed.
#pragma once

#include <QLabel>
#include <QList>
#include <QPointer>

class QLineEdit;

namespace qfr {

class MaskEdit;

// What becomes of a ";", until another entry is typed in; else the first date that does not exist,
// while it stands there. That date says so, too.
class EntryNote : public QLabel {
  public:
    explicit EntryNote(QWidget* parent = nullptr);

    // From now on hears what is typed in the window, whose entries are all there, and keeps each to
    // one field.
    void Hear(const QWidget& window);
    // Other entries show: nothing of them was typed yet.
    void Forget();

  private:
    void OnTyped(QLineEdit* edit, bool fieldEnd);
    void ShowNote();

    QList<MaskEdit*> dates_;
    bool hasFieldEnd_ = false;
    QPointer<QLineEdit> at_;  // where that was typed; null: it was pasted, or the edit is gone
};

}  // namespace qfr
