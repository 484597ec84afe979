#include "platform/qt/HelpViewer.h"

#include "platform/qt/HelpWindow.h"

namespace qfr {

bool HelpViewer::Open(int topic) {
    if (OpenSystemHelp(file_, topic)) {
        return true;
    }
    if (!window_) {
        std::unique_ptr<HelpFile> help = HelpFile::Open(file_);
        if (help == nullptr) {
            return false;
        }
        window_ = std::make_shared<HelpWindow>(std::move(help));
    }
    window_->ShowTopic(topic);
    return true;
}

std::string_view HelpViewer::Library() {
    return "libchm";
}

}  // namespace qfr
