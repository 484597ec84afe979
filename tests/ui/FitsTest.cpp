// Every window on the screens and with the letters that a laboratory may have.
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>

#include "dialogs/EntryGrid.h"
#include "platform/qt/HelpFile.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/PageView.h"
#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "platform/qt/ToldFilesDialog.h"
#include "tests/pdf/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

// Whether what lies outside of the parent can be scrolled to, or is drawn in part on purpose.
bool Scrolls(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    return qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(parent) != nullptr;
}

// The least size in which the widget's caption is whole.
QSize Needed(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                 : label->minimumSizeHint();
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        const QSize caption = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        const int given = button->minimumWidth();  // on purpose, where a row has little room
        const QSize hint = button->minimumSizeHint();
        return {given > 0 ? std::max(given, caption.width()) : hint.width(), hint.height()};
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        option.editable = box->isEditable();
        const QRect place = box->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                         QStyle::SC_ComboBoxEditField, box);
        const int text = box->fontMetrics().horizontalAdvance(box->currentText());
        return {box->width() + std::max(text - place.width(), 0), box->minimumSizeHint().height()};
    }
    return widget.minimumSize();
}

// Pages, and the 26 columns of all headers, are wider than any window.
bool IsWideByNature(const QAbstractScrollArea& area) {
    return area.objectName() == "HeadersTable" || qobject_cast<const PageView*>(&area) != nullptr;
}

// Nothing of it is beside what shows, and nothing below while its window could be higher.
void ExpectInSight(const QAbstractScrollArea& area, const std::string& name) {
    if (!IsWideByNature(area)) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return area.horizontalScrollBar()->maximum() == 0; }))
            << name << " scrolls sideways";
    }
    const bool asksForAll =
        qobject_cast<const EntryGrid*>(&area) != nullptr || area.objectName() == "FitArea";
    if (asksForAll && area.height() < area.sizeHint().height()) {
        const QWidget& window = *area.window();
        EXPECT_GE(window.frameGeometry().height() + 40,
                  window.screen()->availableGeometry().height())
            << name << " scrolls down in a low window";
    }
}

// Or, where there is little room, some letters of them; that by which rows are sorted has room for
// its mark.
void ExpectHeadsShow(const QHeaderView& heads, const std::string& name) {
    const QFontMetrics metrics = heads.fontMetrics();
    for (int section = 0; section < heads.count(); ++section) {
        const QString head = heads.model()->headerData(section, heads.orientation()).toString();
        const bool isSorted =
            heads.isSortIndicatorShown() && heads.sortIndicatorSection() == section;
        const int whole = isSorted || heads.orientation() == Qt::Vertical
                              ? heads.sectionSizeHint(section)
                              : metrics.horizontalAdvance(head);
        EXPECT_GE(heads.sectionSize(section), std::min(whole, 9 * metrics.averageCharWidth()))
            << name << ", section " << section;
    }
}

void ExpectWhole(const QWidget& widget) {
    const std::string name = widget.objectName().toStdString() + " of " +
                             widget.parentWidget()->objectName().toStdString();
    EXPECT_TRUE(Scrolls(widget) || widget.parentWidget()->rect().contains(widget.geometry()))
        << name << " is clipped";
    const QSize needed = Needed(widget);
    EXPECT_TRUE(widget.width() >= needed.width() && widget.height() >= needed.height())
        << name << ": " << widget.width() << " x " << widget.height() << " instead of "
        << needed.width() << " x " << needed.height();
    if (const auto* const heads = qobject_cast<const QHeaderView*>(&widget)) {
        ExpectHeadsShow(*heads, name);
    } else if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(&widget)) {
        ExpectInSight(*area, name);
    }
}

void ExpectFits(QWidget& window) {
    SCOPED_TRACE(window.objectName().toStdString() + " " + window.windowTitle().toStdString());
    QTest::qWait(0);
    const QRect screen = window.screen()->availableGeometry();
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.contains(window.frameGeometry()); }))
        << window.frameGeometry().right() << "," << window.frameGeometry().bottom();
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() &&
            !widget->objectName().startsWith("qt_")) {
            ExpectWhole(*widget);
        }
    }
}

void ShowOn(QScreen& screen, QWidget& window) {
    window.hide();
    window.move(screen.geometry().topLeft() + QPoint(60, 60));
    window.show();
    QTest::qWait(0);
    EXPECT_EQ(window.screen(), &screen);
}

// The window that a menu command opens, with what the batch has for it.
void ExpectCommandFits(TQFRForm& form, QAction& command) {
    QTimer::singleShot(0, [] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            ExpectFits(*dialog);
            dialog->reject();
        }
    });
    command.trigger();
    QTest::qWait(0);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window != &form) {
            ExpectFits(*window);
            window->close();
        }
    }
}

// The keys of the commands that open one.
const QStringList kOpening = {"Ctrl+1", "Ctrl+T", "Ctrl+2",       "Ctrl+4",
                              "Ctrl+5", "Ctrl+6", "Ctrl+7",       "Ctrl+8",
                              "Ctrl+O", "Ctrl+H", "Ctrl+Shift+P", "Ctrl+Shift+R"};

// The example with long names of reports.
std::string BatchOfLongNames(const WindowRig& rig) {
    QString batch = QString::fromStdString(ReadAll(ExampleDir() / "example.qff"));
    batch.replace("\\za10", "\\" + QString("run of may ").repeated(9) + "za10");
    rig.dir.Write("long.qff", batch.toStdString());
    return rig.Path("long.qff");
}

// All windows that the program keeps, and those that it makes when they are needed.
void ExpectAllFit(QScreen& screen) {
    WindowRig rig;
    ShowOn(screen, rig.form);
    ExpectFits(rig.form);
    for (const std::string& batch : {BatchOfLongNames(rig), Example("example.qff")}) {
        rig.form.RestoreFile(batch);
        ExpectFits(rig.form);
        for (QAction* const action : rig.form.findChildren<QAction*>()) {
            if (kOpening.contains(action->shortcut().toString())) {
                ExpectCommandFits(rig.form, *action);
            }
        }
    }
    PrinterSetupDialog setup(rig.form.Page().Printer(), rig.memory, &rig.form);
    HelpWindow help(HelpFile::Open(QFR_HELP_FILE));
    PdfSaver saver(rig.chooser, rig.log, rig.memory);
    const PreviewWindow preview({{"Form 6", kLetterPaper, {LetterPage({})}}}, "Form 6",
                                {FormsTypeface(), saver, rig.log, rig.printed, rig.memory},
                                &rig.form);
    const QMessageBox message(QMessageBox::Warning, "Warning", QString("A line.\n").repeated(50),
                              QMessageBox::Ok, &rig.form);
    ShowToldFiles({{"a.prn", std::string(400, 'x')}}, 0, &rig.form);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QDialog*>(window) != nullptr || window == &rig.form || window == &help) {
            ShowOn(screen, *window);
            ExpectFits(*window);
        }
    }
}

// Letters of this size, or, of none, the usual ones.
class Letters {
  public:
    explicit Letters(int points) {
        QFont font = usual_;
        font.setPointSize(points > 0 ? points : font.pointSize());
        QApplication::setFont(font);
    }
    ~Letters() { QApplication::setFont(usual_); }
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

  private:
    QFont usual_ = QApplication::font();
};

TEST(Fits, ScrollsToTheControlThatHasTheFocusInTheUsualOrder) {
    std::string usual;
    for (const auto& [screen, points] : {std::pair(0, 0), {1, 15}}) {
        const Letters letters(points);
        WindowRig rig;
        rig.form.RestoreFile(Example("example.qff"));
        auto& header = rig.Find<QWidget>("TForm1Header");
        ShowOn(*QApplication::screens()[screen], header);
        EXPECT_EQ(header.findChild<QScrollArea*>("FitArea") != nullptr, points > 0);
        rig.Face(header);
        header.findChild<QWidget*>("ZOVComboBox")->setFocus();
        std::string order;
        for (int i = 0; i < 40; ++i) {
            const QWidget& control = *header.focusWidget();
            EXPECT_TRUE(control.visibleRegion().boundingRect() == control.rect()) << rig.Focus();
            order += rig.Focus() + " ";
            rig.Press(Qt::Key_Tab);
        }
        usual = usual.empty() ? order : usual;
        EXPECT_EQ(order, usual);
        rig.Type("&n");
        EXPECT_EQ(rig.Focus(), "Edit1");
    }
}

// The head, and what the table holds.
bool ShowsAll(const QTableView& table, int column) {
    const QString head = table.model()->headerData(column, Qt::Horizontal).toString();
    const int cells = static_cast<const QAbstractItemView&>(table).sizeHintForColumn(column);
    return table.columnWidth(column) >= cells &&
           table.columnWidth(column) > table.fontMetrics().horizontalAdvance(head);
}

TEST(Fits, LargeLettersHaveTheRoomThatThereIs) {
    const Letters letters(15);
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    EXPECT_EQ(rig.Get<QTableView>("FormsTable").verticalScrollBar()->maximum(), 0)
        << "the window grows with them";
    ShowOn(*QApplication::screens()[2], rig.form);
    auto& samples = rig.Get<QTableView>("SamplesTable");
    EXPECT_TRUE(QTest::qWaitFor([&] { return samples.model()->index(3, 7).data() != "..."; }));
    for (int column = 0; column < samples.model()->columnCount(); ++column) {
        EXPECT_TRUE(ShowsAll(samples, column)) << column;
    }
    rig.form.ShowReview();
    auto& review = WindowRig::Find<QDialog>("ReviewDialog");
    ShowOn(*QApplication::screens()[2], review);
    auto& findings = *review.findChild<QTableView*>("FindingsTable");
    const QModelIndex finding = findings.currentIndex().siblingAtColumn(3);
    EXPECT_GE(findings.columnWidth(3), findings.sizeHintForIndex(finding).width());
}

TEST(Fits, CaptionsBreakBeforeTheirBrackets) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    auto& header = WindowRig::Find<QWidget>("TForm1Header");
    ShowOn(*QApplication::screens()[1], header);
    const auto& caption = *header.findChild<QLabel*>("ConcUnitsLabel");
    EXPECT_TRUE(caption.text().contains("\n(ug/l or ug/kg)"));
    EXPECT_GE(caption.width(), caption.fontMetrics().size(0, caption.text()).width());
    EXPECT_EQ(header.findChild<QWidget*>("ComboBox4")->accessibleName(),
              "Concentration Units: (ug/l or ug/kg)");
}

TEST(Fits, EveryWindowOnEveryScreen) {
    for (const auto& [screen, points] : {std::pair(0, 0), {1, 0}, {2, 15}}) {
        SCOPED_TRACE(screen);
        const Letters letters(points);
        ExpectAllFit(*QApplication::screens()[screen]);
    }
}

}  // namespace
}  // namespace qfr::test
