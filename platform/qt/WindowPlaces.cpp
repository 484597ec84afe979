#include "platform/qt/WindowPlaces.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTableView>
#include <QTableWidget>
#include <QWidget>

namespace qfr {

namespace {

QString NameOf(const QWidget& window) {
    return window.objectName().isEmpty()
               ? QString(window.metaObject()->className()).section("::", -1)
               : window.objectName();
}

bool HasPlace(const QWidget& window) {
    const Qt::WindowType type = window.windowType();
    return window.isWindow() && (type == Qt::Window || type == Qt::Dialog) &&
           qobject_cast<const QMessageBox*>(&window) == nullptr &&
           window.minimumSize() != window.maximumSize();
}

// Of the bar above a window by which it is moved. How high it really is, is known only when the
// window shows; therefore places are without it.
int BarOf(const QWidget& window) {
    return window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
}

// A place that no screen has any more, or not for its bar, is not taken.
QScreen* ScreenOf(const QRect& place, int bar) {
    for (QScreen* const screen : QGuiApplication::screens()) {
        const QRect seen =
            screen->availableGeometry() & QRect(place.x(), place.y() - bar, place.width(), bar);
        if (seen.width() >= place.width() / 2 && seen.height() >= bar / 2) {
            return screen;
        }
    }
    return nullptr;
}

// The sizes of what the user can move in a window, with the name of each.
template <typename Function>
void ForEachPart(const QWidget& window, const QString& name, const Function& function) {
    if (qobject_cast<const QFileDialog*>(&window) != nullptr) {
        return;
    }
    for (QTableView* const table : window.findChildren<QTableView*>()) {
        // Grids for entries fit their columns to the font.
        if (table->window() == &window && !table->objectName().isEmpty() &&
            qobject_cast<QTableWidget*>(table) == nullptr &&
            !table->property(kKeepsColumns).toBool()) {
            function(name + '/' + table->objectName(), *table->horizontalHeader());
        }
    }
    for (QSplitter* const splitter : window.findChildren<QSplitter*>()) {
        if (splitter->window() == &window && !splitter->objectName().isEmpty()) {
            function(name + '/' + splitter->objectName(), *splitter);
        }
    }
}

QVariantList SizesOf(const QHeaderView& header) {
    QVariantList sizes;
    for (int section = 0; section < header.count(); ++section) {
        sizes << header.sectionSize(section);
    }
    return sizes;
}
QVariantList SizesOf(const QSplitter& splitter) {
    QVariantList sizes;
    for (const int size : splitter.sizes()) {
        sizes << size;
    }
    return sizes;
}

void Resize(QHeaderView& header, const QVariantList& sizes) {
    for (int section = 0; section < header.count(); ++section) {
        if (header.sectionResizeMode(section) == QHeaderView::Interactive) {
            header.resizeSection(section,
                                 std::max(header.minimumSectionSize(), sizes[section].toInt()));
        }
    }
}
void Resize(QSplitter& splitter, const QVariantList& sizes) {
    QList<int> given;
    for (const QVariant& size : sizes) {
        given << size.toInt();
    }
    splitter.setSizes(given);
}

}  // namespace

WindowPlaces::WindowPlaces(Remembered& memory) : memory_(memory) {
    qApp->installEventFilter(this);
    // Windows that show when the program ends are never hidden.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &WindowPlaces::KeepAll);
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event) {
    if (auto* const window = qobject_cast<QWidget*>(watched);
        window != nullptr && !event->spontaneous() && HasPlace(*window)) {
        if (event->type() == QEvent::Show) {
            Bring(*window);
        } else if (event->type() == QEvent::Hide) {
            Keep(*window);
        }
    }
    return QObject::eventFilter(watched, event);
}

void WindowPlaces::Bring(QWidget& window) const {
    const QString name = "places/" + NameOf(window);
    const QRect place = memory_.Value(name).toRect();
    if (place.isValid()) {
        const int bar = BarOf(window);
        QScreen* const screen = ScreenOf(place, bar);
        const QRect room = (screen != nullptr ? screen : window.screen())
                               ->availableGeometry()
                               .adjusted(0, bar, 0, 0);
        const QSize size = place.size().boundedTo(room.size());
        const QPoint at = screen != nullptr ? place.topLeft() : window.geometry().topLeft();
        window.resize(size);
        // A dialog that was never moved goes before the window that it belongs to.
        if (screen != nullptr || window.testAttribute(Qt::WA_Moved)) {
            const int x = std::clamp(at.x(), room.left(), room.right() + 1 - size.width());
            const int y = std::clamp(at.y(), room.top(), room.bottom() + 1 - size.height());
            window.setGeometry(QRect(QPoint(x, y), size));
        }
    }
    if (memory_.Value(name + "/maximized").toBool()) {
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    }
    ForEachPart(window, name, [this](const QString& part, auto& parts) {
        const QVariantList sizes = memory_.Value(part).toList();
        if (!sizes.isEmpty() && sizes.size() == parts.count()) {
            Resize(parts, sizes);
        }
    });
}

void WindowPlaces::Keep(const QWidget& window) const {
    const QString name = "places/" + NameOf(window);
    const bool large = window.isMaximized() || window.isFullScreen();
    memory_.Keep(name + "/maximized", large);
    if (!large) {
        memory_.Keep(name, window.geometry());
    }
    ForEachPart(window, name, [this](const QString& part, const auto& parts) {
        if (parts.count() > 0) {
            memory_.Keep(part, SizesOf(parts));
        }
    });
}

void WindowPlaces::KeepAll() const {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && HasPlace(*window)) {
            Keep(*window);
        }
    }
}

}  // namespace qfr
