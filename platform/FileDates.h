// When files were written, found out beside whoever asks: a share of the network that does not
// answer keeps nobody waiting.
#pragma once

#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace qfr {

// When the file, a full path in UTF-8, was written last, in seconds since 1970; absent: there is no
// such file. May take any time.
std::optional<std::time_t> FileDate(const std::string& file);

class FileDates {
  public:
    // What has become known. Comes on another thread, one call at a time.
    using Tell =
        std::function<void(const std::string& file, const std::optional<std::time_t>& written)>;
    using Find = decltype(FileDate);

    explicit FileDates(Tell tell, std::function<Find> find = FileDate);
    // Waits for no answer; none is told any more once it returns.
    ~FileDates();
    FileDates(const FileDates&) = delete;
    FileDates& operator=(const FileDates&) = delete;

    // Looks for the file anew, unless it is being looked for.
    void Look(const std::string& file);

  private:
    struct Shared;  // with the threads, which may outlive this
    const std::function<Find> find_;
    const std::shared_ptr<Shared> shared_;
};

}  // namespace qfr
