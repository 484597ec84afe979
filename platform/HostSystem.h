// What POSIX systems and Windows do differently; platform/posix and platform/windows implement it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace qfr {

// The arguments that main got, as UTF-8 and without the program's name. Patterns are files: where
// prompts leave them to programs ("*.PRN"), those that they match stand there, sorted.
std::vector<std::string> ProgramArguments(int argc, const char* const* argv);

// While this lives, what is written to standard output and standard error arrives as it is: a
// terminal takes it for UTF-8, and line ends stay.
class PlainOutput {
  public:
    PlainOutput();
    ~PlainOutput();  // NOLINT(performance-trivially-destructible) not on every system
    PlainOutput(const PlainOutput&) = delete;
    PlainOutput& operator=(const PlainOutput&) = delete;

  private:
    [[maybe_unused]] unsigned before_ = 0;  // what the terminal took it for
};

// The function of a module: a part of the program in a file of its own, beside the program, that is
// loaded with the first function that is asked for and stays. The name has no extension; the caller
// knows the function's type. Null when it cannot be loaded, with the system's reason in `reason`.
using ModuleFunction = void (*)();
ModuleFunction FindInModule(const std::string& module, const char* function, std::string& reason);

// The file's full path, without "." and ".."; it need not exist. Empty when the system knows none.
std::filesystem::path FullPathOf(const std::filesystem::path& file);

// What stands before the folders of a path: a drive, or the server and its share.
std::filesystem::path RootOf(const std::filesystem::path& path);

// Whether the folder exists and files can be made in it.
bool IsWritable(const std::filesystem::path& folder);

// Whether the file or folder, not what a link stands for, belongs to the user.
bool IsUsersOwn(const std::filesystem::path& file);

// Whether the file is there and its owner, or the user, is not to write it.
bool IsReadOnly(const std::filesystem::path& file);

// Whether the user's files may be put where the link leads: not where it is somebody else's and
// lies in a folder to which others may write, but where they may not remove what is not theirs.
bool MayFollow(const std::filesystem::path& link);

// What a file is to hold, piece by piece. Both return what has failed; after a failure no piece
// follows.
using PutPiece = std::function<std::error_code(std::string_view piece)>;
using ContentPieces = std::function<std::error_code(const PutPiece& put)>;

// Writes to a device, or to one of the program's own open files by its name, as "/dev/stdout", or a
// link to it. Absent when the name is that of neither; a link to a device is none.
std::optional<std::error_code> WriteThrough(const std::filesystem::path& device,
                                            const ContentPieces& content);

// Writes a file that is not there yet and brings it to the disk. Where files have owners and
// permissions, owner, group and permissions of the file that it is to replace (it need not exist)
// are taken over, each as far as the user may set it. After a failure the caller removes what there
// is of the file.
std::error_code WriteNewFile(const std::filesystem::path& file,
                             const std::filesystem::path& replaced, const ContentPieces& content);

// Gives the file the other one's name and place, at once. Where somebody who has the other one open
// holds it there, as a virus scanner does, it is tried for a while.
std::error_code MoveOver(const std::filesystem::path& file, const std::filesystem::path& other);

// Makes a rename in the folder last. The files are whole either way, so a file system that cannot
// do it is no failure.
void FlushFolder(const std::filesystem::path& folder);

// Puts the file into the desktop's list of those that the user has worked on, where the system
// keeps one for programs, as behind the task bar's buttons.
void NoteRecentFile(const std::filesystem::path& file);

// While this lives, the system's wish that the program ends (SIGTERM; where there is none, Ctrl+C,
// or that the prompt closes) does not end it, but is passed on, on a thread of its own. Made before
// the program starts any other thread, and only once at a time.
class EndRequests {
  public:
    explicit EndRequests(std::function<void()> onRequest);
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

  private:
    struct Listener;
    std::unique_ptr<Listener> listener_;
};

}  // namespace qfr
