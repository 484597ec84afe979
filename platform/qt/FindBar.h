// The bar that looks for a text in what a window shows, while the text is typed. It hides until it
// is opened.
#pragma once

#include <cstddef>
#include <string>

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace qfr {

class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(QWidget* parent = nullptr);

    // Shows the bar with its text ready to be typed over; nothing is looked for before it is, or
    // before the user goes on.
    void Open();
    void Close();
    // Goes to the next place (1) or the one before (-1), from the last one to the first; opens the
    // bar if need be.
    void GoOn(int by);

  protected:
    struct Found {
        std::size_t Count = 0;
        std::size_t Place = 0;  // that is shown, from 0
    };
    // Looks for the text and shows one of the places where it stands: the first one from where the
    // user is on (0), the next one (1) or the one before (-1).
    virtual Found Look(const std::string& text, int by) = 0;
    // The bar was closed.
    virtual void Leave() = 0;

  private:
    void Find(int by);
    void Tell(const QString& told);

    QLineEdit* edit_;
    QLabel* count_;
};

}  // namespace qfr
