// Files and folders that are dragged onto a window from the system's file manager.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QMimeData>
#include <QObject>
#include <QWidget>

namespace qfr {

// Full paths (UTF-8) of what is dragged; what is not of this machine is left out.
std::vector<std::string> DraggedFiles(const QMimeData& dragged);

// Lets a widget take them, all at once; they are copied, not moved. The widget owns the object.
class FileDrops : public QObject {
  public:
    // `take` comes when the drag is over: a message must not keep the program waiting from which
    // the files came.
    FileDrops(QWidget& target, std::function<void(const std::vector<std::string>&)> take);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void(const std::vector<std::string>&)> take_;
};

}  // namespace qfr
