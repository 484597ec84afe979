#include "platform/Messages.h"

#include "platform/Text.h"

namespace qfr {

Message CouldNotBeWritten(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be written.", kFileErrorTitle};
}

Message CouldNotBeRead(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be read.", kFileErrorTitle};
}

}  // namespace qfr
