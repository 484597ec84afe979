#include "platform/Messages.h"

#include "platform/Text.h"

namespace qfr {

Message CouldNotBeWritten(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be written.", kFileErrorTitle};
}

Message CouldNotBeRead(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be read.", kFileErrorTitle};
}

Message NameIsNotUnique(std::string_view fileName) {
    return {FileNameOnly(fileName) +
                " cannot be told from another file, whose name\ndiffers only in upper and lower "
                "case. Please rename one of them.",
            kFileErrorTitle};
}

std::string AsLine(const Message& message) {
    return (message.title.empty() ? "" : message.title + ": ") + OneLine(message.text);
}

}  // namespace qfr
