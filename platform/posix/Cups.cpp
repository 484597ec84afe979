#include "platform/posix/Cups.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cups/cups.h>
#include <cups/pwg.h>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/FileReplace.h"
#include "platform/Text.h"

namespace qfr {

namespace {

struct Close {
    void operator()(http_t* server) const { httpClose(server); }
    void operator()(cups_dest_t* queue) const { cupsFreeDests(1, queue); }
};
using Server = std::unique_ptr<http_t, Close>;
using Queue = std::unique_ptr<cups_dest_t, Close>;

// Absent where no print service answers. One that is there and silent is given up after a while, so
// that it never stops the program for good.
Server Connect() {
    constexpr int kPatience = 10;  // seconds
    Server server(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                               kPatience * 1000, nullptr));
    if (!server) {
        return nullptr;
    }
    httpSetTimeout(
        server.get(), kPatience, [](http_t*, void*) { return 0; }, nullptr);
    // Otherwise a service that wants a password would ask for it on the terminal.
    cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*,
                          void*) -> const char* { return nullptr; },
                       nullptr);
    // Asked for its queues, the library is more patient than that, on a connection of its own.
    ipp_t* const answer = cupsDoRequest(server.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/");
    ippDelete(answer);
    return answer != nullptr ? std::move(server) : nullptr;
}

std::string LastError() {
    const char* const text = cupsLastErrorString();
    return text != nullptr && *text != '\0' ? text : "The printer refused the job.";
}

// Empty when the queue does not tell it.
std::string_view Value(const cups_dest_t& queue, const char* name) {
    const char* const value = cupsGetOption(name, queue.num_options, queue.options);
    return value != nullptr ? value : "";
}

constexpr char kUri[] = "printer-uri-supported";

// A title that CUPS takes: at most 255 bytes, and no control character.
std::string JobName(std::string_view title) {
    constexpr std::size_t kMaxCharacters = 60;  // of four bytes
    return Visible(FirstCharacters(title, kMaxCharacters));
}

// Removed when it is not needed any longer.
class TemporaryFile {
  public:
    TemporaryFile() {
        std::error_code failed;
        name_ = (std::filesystem::temp_directory_path(failed) / kTemporaryName).string();
        file_ = ::mkstemps(name_.data(), kTemporaryEnding);
    }
    ~TemporaryFile() {
        if (file_ >= 0) {
            ::close(file_);
            ::unlink(name_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Name() const { return name_; }
    // Writes the content; false where there is no room for it.
    bool Holds(std::string_view content) const {
        while (file_ >= 0 && !content.empty()) {
            const ssize_t written = ::write(file_, content.data(), content.size());
            if (written < 0 && errno != EINTR) {
                return false;
            }
            content.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
        }
        return file_ >= 0;
    }

  private:
    std::string name_;
    int file_ = -1;
};

// One request carries the job with its whole document, so that the queue never holds half of it.
ipp_t* RequestToPrint(const CupsDocument& document, std::string_view queueUri) {
    constexpr double kUnits = 2540;  // of an inch
    const pwg_media_t* const media =
        pwgMediaForSize(static_cast<int>(std::lround(document.paper.width * kUnits)),
                        static_cast<int>(std::lround(document.paper.height * kUnits)));
    ipp_t* const request = ippNewRequest(IPP_OP_PRINT_JOB);
    const auto add = [request](ipp_tag_t group, ipp_tag_t kind, const char* name,
                               const std::string& value) {
        ippAddString(request, group, kind, name, nullptr, value.c_str());
    };
    add(IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", std::string(queueUri));
    add(IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", cupsUser());
    add(IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", JobName(document.title));
    add(IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", CUPS_FORMAT_PDF);
    // Whatever the queue does with other jobs: the pages are as large as the paper and lie as it
    // lies in the printer, so nothing is to be fitted, moved or turned.
    add(IPP_TAG_JOB, IPP_TAG_KEYWORD, "media", media != nullptr ? media->pwg : CUPS_MEDIA_LETTER);
    add(IPP_TAG_JOB, IPP_TAG_KEYWORD, "print-scaling", "none");
    ippAddInteger(request, IPP_TAG_JOB, IPP_TAG_ENUM, "orientation-requested", IPP_ORIENT_PORTRAIT);
    return request;
}

}  // namespace

std::vector<std::string> CupsQueues() {
    std::vector<std::string> names;
    const Server server = Connect();
    if (!server) {
        return names;
    }
    cups_dest_t* queues = nullptr;
    const int count = cupsGetDests2(server.get(), &queues);
    for (int i = 0; i < count; ++i) {
        const cups_dest_t& queue = queues[i];
        if (queue.instance == nullptr) {
            names.insert(queue.is_default != 0 ? names.begin() : names.end(), queue.name);
        }
    }
    cupsFreeDests(count, queues);
    return names;
}

std::optional<std::string> PrintWithCups(const CupsDocument& document,
                                         const std::string& queueName) {
    const TemporaryFile file;
    if (!file.Holds(document.pdf)) {
        return "There is no room for the job on the disk.";
    }

    const Server server = Connect();
    if (!server) {
        return "The print service does not answer.";
    }
    const Queue queue(cupsGetNamedDest(server.get(), queueName.c_str(), nullptr));
    if (!queue) {
        return cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND
                   ? "The printer is not installed any more."
                   : LastError();
    }
    // CUPS would keep the job and print it at some later time.
    if (Value(*queue, "printer-state") == std::to_string(IPP_PSTATE_STOPPED)) {
        return "The printer is stopped.";
    }
    if (Value(*queue, "printer-is-accepting-jobs") == "false") {
        return "The printer takes no jobs.";
    }
    if (Value(*queue, kUri).empty()) {
        // A printer that was found on the network gets its queue when it is first asked.
        cupsFreeDestInfo(cupsCopyDestInfo(server.get(), queue.get()));
    }
    const std::string uri(Value(*queue, kUri));
    const std::size_t host = uri.find("://");
    if (host == std::string::npos) {
        return "The printer does not answer.";
    }
    const std::size_t path = std::min(uri.find('/', host + 3), uri.size());
    ippDelete(cupsDoFileRequest(server.get(), RequestToPrint(document, uri), uri.c_str() + path,
                                file.Name().c_str()));
    if (cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
        return LastError();
    }
    return std::nullopt;
}

std::string CupsVersion() {
    return "CUPS " + std::to_string(CUPS_VERSION_MAJOR) + "." + std::to_string(CUPS_VERSION_MINOR) +
           "." + std::to_string(CUPS_VERSION_PATCH);
}

}  // namespace qfr
