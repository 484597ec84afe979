#include "data/CalibrationReports.h"
#include "tests/Support.h"

namespace qfr {
namespace {

using Validator = bool (*)(const std::string&, FileSet&, Messages&);

const FileSet kDay1Files = test::NamedFiles("voa.lib", "voa.ist", "day1.cal");

const std::string kCal =
    "Date: 05/16/2005 Calibration Version 4.2\n"
    "Library File:\n"
    "C:\\lib\\VOA.LIB\n"
    "Surrogate Recovery:\n"
    "none\n"
    "Surrogate/Internal Standard File:\n"
    "C:\\lib\\VOA.IST\n"
    "Calibration Data: name\n";
const std::string kCheck =
    "Check Calibration Version 4.2 \n"
    "Calibration File: C:\\cal\\DAY1.CAL\n"
    "Compound Library: C:\\lib\\VOA.LIB\n"
    "Surrogate File: C:\\lib\\VOA.IST\n"
    "N;Comp;RF\n";

const std::string kNoCal =
    "Day1.Cal does not appear to be a calibration file.\nThe file will not be processed.";
const std::string kNoCheck =
    "S.Check does not appear to be a check calibration file.\nThe file will not be processed.";

// The message of a rejection; empty when the report is accepted.
std::string Check(Validator validate, const std::string& fileName, FileSet& files) {
    test::MessageLog log;
    const bool accepted = validate(fileName, files, log);
    EXPECT_EQ(accepted, log.shown.empty());
    if (accepted) {
        return "";
    }
    EXPECT_EQ(log.shown.size(), 1u);
    EXPECT_EQ(log.shown[0].title, "File Error");
    EXPECT_EQ(log.shown[0].icon, MessageIcon::kInformation);
    return log.shown[0].text;
}

// `text` with the first `from` replaced.
std::string With(std::string text, std::string_view from, std::string_view to) {
    return text.replace(text.find(from), from.size(), to);
}

TEST(CalibrationReports, LearnTheFilesOfAnEmptyBatch) {
    const test::TempDir dir;
    FileSet fromCal;
    EXPECT_EQ(Check(ValidateCalReport, dir.Write("Day1.Cal", kCal), fromCal), "");
    EXPECT_EQ(fromCal, kDay1Files);
    FileSet fromCheck;
    EXPECT_EQ(Check(ValidateCheckReport, dir.Write("S.Check", kCheck), fromCheck), "");
    EXPECT_EQ(fromCheck, kDay1Files);
}

TEST(CalibrationReports, RejectForeignReportsWithTheirReason) {
    const std::string noFile = "The file will not be processed.";
    const std::string wrong =
        "The calibration file name must match the 'Calibration File'\n"
        "shown on the form. Please select the proper calibration\nfile, or select new files.";
    struct Case {
        std::string name, content, message;
    };
    for (const auto& [name, content, message] : {
             Case{"Day1.Cal", "  " + test::WithCrLf(kCal), ""},
             Case{"Day1.Cal", With(kCal, "4.2", "4.3"),
                  "The version # must be 4.2 for Day1.Cal.\n" + noFile},
             Case{"Day1.Cal", With(kCal, "Date", "Check"), kNoCal},
             Case{"Day1.Cal", "", kNoCal},
             Case{"Day1.Cal", With(kCal, "VOA.LIB", "NEW.LIB"),
                  "The library file listed in Day1.Cal\n"
                  "must be voa.lib. Day1.Cal will not be processed."},
             Case{"Day1.Cal", With(kCal, "VOA.IST", "NEW.IST"),
                  "The internal standard file listed in Day1.Cal\n"
                  "must be voa.ist. Day1.Cal will not be processed."},
             Case{"Day2.cal", kCal, wrong},
             Case{"Day2.cal", kCheck,
                  "Day2.cal does not appear to be a calibration file.\n" + noFile},
             Case{"S.Check", test::WithCrLf(kCheck), ""},
             Case{"S.Check", With(kCheck, "N;Comp", "n;COMPOUND"), ""},
             Case{"S.Check", With(kCheck, "4.2", "4.20"),
                  "The version # must be 4.2 for S.Check.\n" + noFile},
             Case{"S.Check", " " + kCheck, kNoCheck},
             Case{"S.Check", "Check " + test::EndlessLine(),
                  "The version # must be 4.2 for S.Check.\n" + noFile},
             Case{"S.Check", With(kCheck, "DAY1", "DAY2"),
                  "The calibration file listed in S.Check\n"
                  "must be day1.cal. S.Check will not be processed."},
             Case{"S.Check", With(kCheck, "VOA.LIB", "NEW.LIB"),
                  "The library file listed in S.Check\n"
                  "must be voa.lib. S.Check will not be processed."},
             Case{"S.Check", With(kCheck, "VOA.IST", "NEW.IST"),
                  "The internal standard file listed in S.Check\n"
                  "must be voa.ist. S.Check will not be processed."},
         }) {
        const test::TempDir dir;
        FileSet files = kDay1Files;
        const Validator validate = name == "S.Check" ? ValidateCheckReport : ValidateCalReport;
        EXPECT_EQ(Check(validate, dir.Write(name, content), files), message);
        EXPECT_EQ(files, kDay1Files);
    }
}

TEST(CalibrationReports, RejectAReportThatIsCutBeforeItsTable) {
    struct Case {
        Validator validate;
        std::string name, content, head, message;
    };
    for (const auto& [validate, name, content, head, message] :
         {Case{ValidateCalReport, "Day1.Cal", kCal, "Calibration Data", kNoCal},
          Case{ValidateCheckReport, "S.Check", kCheck, "N;Comp", kNoCheck}}) {
        for (std::size_t end = content.find('\n'); end < content.size(); ++end) {
            const test::TempDir dir;
            FileSet files;
            const std::string cut = content.substr(0, end);
            ASSERT_EQ(Check(validate, dir.Write(name, cut), files),
                      end < content.find(head) + head.size() ? message : "")
                << cut;
        }
    }
}

TEST(CalibrationReports, KeepTheNamesThatARejectedReportBrought) {
    const test::TempDir dir;
    FileSet files = test::NamedFiles("", "other.ist", "");
    EXPECT_NE(Check(ValidateCalReport, dir.Write("Day1.Cal", kCal), files), "");
    EXPECT_EQ(files, test::NamedFiles("voa.lib", "other.ist", ""));
}

TEST(CalibrationReports, AcceptWhatCannotBeOpenedUnderTheRightName) {
    FileSet files = kDay1Files;
    EXPECT_EQ(Check(ValidateCalReport, "/missing/Day1.Cal", files), "");
    EXPECT_EQ(Check(ValidateCheckReport, "/missing/S.Check", files), "");
    EXPECT_NE(Check(ValidateCalReport, "/missing/Day2.Cal", files), "");
    EXPECT_EQ(files, kDay1Files);
}

}  // namespace
}  // namespace qfr
