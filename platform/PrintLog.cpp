#include "platform/PrintLog.h"

#include "platform/Text.h"

namespace qfr {

std::string PrintedNote(const PrintedJobs& jobs) {
    const std::string what = jobs.Titles.size() == 1
                                 ? jobs.Titles.front()
                                 : std::to_string(jobs.Titles.size()) + " forms";
    return Visible(jobs.IsFile ? what + " saved as " + FileNameOnly(jobs.Where)
                               : what + " sent to " + jobs.Where);
}

}  // namespace qfr
