// Which jobs have reached a printer or a file in this run, in order.
#pragma once

#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qfr {

// Jobs that went to one place together.
struct PrintedJobs {
    std::vector<std::string> Titles;  // of the jobs: "Form 4 VBLK01"
    std::string Where;                // full path of the file (UTF-8), or the printer's name
    bool IsFile = false;
    std::time_t When = 0;
};

// "Form 4 VBLK01 saved as blank.pdf", "18 forms sent to Lab".
std::string PrintedNote(const PrintedJobs& jobs);

class PrintLog {
  public:
    void Note(PrintedJobs jobs) {
        jobs_.push_back(std::move(jobs));
        if (OnNote) {
            OnNote(jobs_.back());
        }
    }
    // That they went there just now; nothing of no jobs.
    void NoteNow(std::vector<std::string> titles, const std::string& where, bool isFile) {
        if (!titles.empty()) {
            Note({std::move(titles), where, isFile, std::time(nullptr)});
        }
    }
    const std::vector<PrintedJobs>& Jobs() const { return jobs_; }

    // Hears of each entry, after it has been made.
    std::function<void(const PrintedJobs& jobs)> OnNote;

  private:
    std::vector<PrintedJobs> jobs_;
};

}  // namespace qfr
