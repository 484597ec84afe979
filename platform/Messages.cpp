#include "platform/Messages.h"

#include "platform/Text.h"

namespace qfr {

Message CouldNotBeWritten(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be written.", kFileErrorTitle};
}

Message CouldNotBeRead(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be read.", kFileErrorTitle};
}

Message NotOfThisKind(const std::string& fileName, const std::string& kind) {
    return {fileName + " is not a " + kind + " file.\nPlease select another file.",
            kIncorrectFileTypeTitle};
}

}  // namespace qfr
