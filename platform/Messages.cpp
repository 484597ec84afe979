#include "platform/Messages.h"

#include "platform/Text.h"

namespace qfr {

Message CouldNotBeWritten(std::string_view fileName) {
    return {.text = FileNameOnly(fileName) + " could not be written.", .title = "File Error"};
}

}  // namespace qfr
