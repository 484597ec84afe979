#include "platform/Messages.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/Text.h"

namespace qfr {

Message RiskyQuestion(std::string text, std::string title) {
    Message question{std::move(text), std::move(title), MessageIcon::kWarning};
    question.noByDefault = true;
    return question;
}

Message CouldNotBeWritten(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be written.", kFileErrorTitle};
}

Message CouldNotBeRead(std::string_view fileName) {
    return {FileNameOnly(fileName) + " could not be read.", kFileErrorTitle};
}

Message TextsWereCut(std::string_view fileName) {
    return {FileNameOnly(fileName) +
                " holds a text of more than 400 characters.\nOf such a text the first 400 are "
                "taken.",
            "Warning", MessageIcon::kWarning};
}

Message ListMessage(const std::string& head, const std::vector<std::string>& lines,
                    std::size_t most) {
    std::string text = head;
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) {
        text += "\n" + lines[i];
    }
    if (lines.size() > most) {
        text += "\nand " + std::to_string(lines.size() - most) + " more";
    }
    return {text, "Warning", MessageIcon::kWarning};
}

std::vector<ToldFile> OncePerFile(const std::vector<ToldFile>& told) {
    std::vector<ToldFile> files;
    std::map<std::string, std::size_t> places;
    std::set<std::pair<std::string, std::string>> said;
    for (const auto& [file, what] : told) {
        const auto [place, isNew] = places.emplace(file, files.size());
        if (isNew) {
            files.push_back({file, ""});
        }
        if (said.emplace(file, what).second) {
            files[place->second].What += (isNew ? "" : " ") + what;
        }
    }
    return files;
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
