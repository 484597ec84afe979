// What the three kinds of Tallyworks report have in common: a title that tells kind and version,
// header lines that name the files which all reports of a batch must share, and a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "platform/Messages.h"

namespace qfr {

enum class ReportKind { kQuantitation, kCalibration, kCheck };

// A header line that decides whether the report may enter the batch.
struct HeaderStatement {
    // The file of the batch that it names; null: that another option than CRQL was used.
    std::string FileSet::*File = nullptr;
    std::string FileName;  // base name, lower case
};

struct ReportFrame {
    std::string Title;
    std::vector<HeaderStatement> Statements;  // up to the table's head, in report order
    bool HasTable = false;
};

// Takes the frame from a report's lines as they go by.
class FrameReader {
  public:
    FrameReader(ReportKind kind, ReportFrame& frame) : kind_(kind), frame_(frame) {}
    void Take(const std::string& line);

  private:
    ReportKind kind_;
    ReportFrame& frame_;
    bool atTitle_ = true;
    // Of a calibration report: the file whose name the next line gives.
    std::string FileSet::*announced_ = nullptr;
};

// Whether the title is that of a report of this kind, of any version.
bool HasTitleOf(ReportKind kind, const ReportFrame& frame);

// Why the report is not taken: it is of another kind or version, it was made with other files than
// the batch's, or it has no table. A file that `files` does not name yet takes the report's name,
// also when a later line rejects the report. `baseName`: of the report, for the message.
std::optional<Message> CheckReportFrame(ReportKind kind, const ReportFrame& frame,
                                        const std::string& baseName, FileSet& files);

// A message titled "File Error".
Message FileErrorMessage(std::string text);
// That the file holds more than a limit, as "2,000 compounds".
Message OverLimitMessage(const std::string& baseName, std::string_view limit);
// That the file is no report of this kind.
Message NotAReportMessage(ReportKind kind, const std::string& baseName);

}  // namespace qfr
