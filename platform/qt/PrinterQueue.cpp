#include "platform/qt/PrinterQueue.h"

namespace qfr {

Message CouldNotBePrinted(const std::string& title, const std::string& printer,
                          const std::string& reason) {
    return {.text = title + " could not be printed on " + printer + ".\n" + reason,
            .title = "Printer Error",
            .icon = MessageIcon::kWarning};
}

}  // namespace qfr
