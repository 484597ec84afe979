#include "platform/qt/HelpViewer.h"

namespace qfr {

bool OpenSystemHelp(const std::filesystem::path& /*file*/, int /*topic*/) {
    return false;
}

}  // namespace qfr
