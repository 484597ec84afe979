#include "platform/qt/HelpViewer.h"

#include <optional>

#include "platform/qt/HelpWindow.h"

namespace qfr {

struct HelpViewer::Viewer {
    std::optional<HelpWindow> window;  // once the file could be read
};

HelpViewer::HelpViewer(std::filesystem::path file)
    : file_(std::move(file)), viewer_(std::make_unique<Viewer>()) {}

HelpViewer::~HelpViewer() = default;

bool HelpViewer::Open(int topic) {
    if (!viewer_->window) {
        std::unique_ptr<HelpFile> help = HelpFile::Open(file_);
        if (help == nullptr) {
            return false;
        }
        viewer_->window.emplace(std::move(help));
    }
    viewer_->window->ShowTopic(topic);
    return true;
}

std::string_view HelpViewer::Library() {
    return "libchm";
}

}  // namespace qfr
