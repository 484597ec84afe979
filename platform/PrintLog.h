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

class PrintLog {
  public:
    void Note(PrintedJobs jobs) {
        jobs_.push_back(std::move(jobs));
        if (OnNote) {
            OnNote(jobs_.back());
        }
    }
    const std::vector<PrintedJobs>& Jobs() const { return jobs_; }

    // Hears of each entry, after it has been made.
    std::function<void(const PrintedJobs& jobs)> OnNote;

  private:
    std::vector<PrintedJobs> jobs_;
};

}  // namespace qfr
