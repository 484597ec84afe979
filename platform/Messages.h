// How the program speaks to its user: message boxes on the desktop, lines on standard error without
// a display, a log in tests.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qfr {

// Titles that several messages share.
inline constexpr char kFileErrorTitle[] = "File Error";
inline constexpr char kFileNotFoundTitle[] = "File Not Found";
inline constexpr char kIncorrectFileTypeTitle[] = "Incorrect File Type";

enum class MessageIcon { kNone, kInformation, kWarning };

struct Message {
    std::string text;   // UTF-8, line breaks as "\n"
    std::string title;  // empty: a box without a title of its own
    MessageIcon icon = MessageIcon::kNone;
    bool offerCancel = false;  // a Cancel button beside OK; the answer is not used
    // Of a question: Enter answers No, and so do Escape and the close box, which otherwise are no
    // answer.
    bool noByDefault = false;
};

// A question whose Yes gives up what cannot be had back: a warning, with No by default.
Message RiskyQuestion(std::string text, std::string title = "Warning");

// That the user's file, given by its path, could not be written, or not read.
Message CouldNotBeWritten(std::string_view fileName);
Message CouldNotBeRead(std::string_view fileName);

// What became of texts of the file that are longer than kMaxPrintedText.
Message TextsWereCut(std::string_view fileName);

// A warning: `head`, then these lines; of more than `most`, usually what a message box has room
// for, only the first ones.
Message ListMessage(const std::string& head, const std::vector<std::string>& lines,
                    std::size_t most = 20);

// A file that the user should know something about, most often why it is not taken.
struct ToldFile {
    std::string File;  // full path
    std::string What;  // one line
    bool operator==(const ToldFile&) const = default;
};

// One for each file, in the order of their first ones, that says all that is told of the file, and
// nothing twice.
std::vector<ToldFile> OncePerFile(const std::vector<ToldFile>& told);

// That the name, in lower case as the batch keeps it, does not tell one of the user's files from
// another.
Message NameIsNotUnique(std::string_view fileName);

// "TITLE: text" as one line; a message without a title is its text alone.
std::string AsLine(const Message& message);

class Messages {
  public:
    virtual ~Messages() = default;
    // Shows the message with an OK button and returns when it was read.
    virtual void Show(const Message& message) = 0;
    // Asks with Yes and No buttons; true for Yes.
    virtual bool AskYesNo(const Message& question) = 0;
};

// Keeps what is said until somebody asks for it. Nobody answers a question: No.
class KeptMessages : public Messages {
  public:
    void Show(const Message& message) override { kept_.push_back(message); }
    bool AskYesNo(const Message& question) override {
        Show(question);
        return false;
    }
    std::vector<Message> Take() { return std::exchange(kept_, {}); }

  private:
    std::vector<Message> kept_;
};

}  // namespace qfr
