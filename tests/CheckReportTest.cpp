#include <gtest/gtest.h>

#include "data/CheckReport.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(CheckReport, SixthLineNamesTheStandardsDataFile) {
    TempDir dir;
    dir.Write("GOOD.D", "anything\n05/18/2005 8:46\nC:\\RUN\\VSTD050.D\n");
    dir.Write("UNDATED.D", "DATA FILE\nMonday\nC:\\RUN\\VSTD100.D\n");
    const struct {
        const char* line;
        const char* taken;
    } cases[] = {{"Data File: C:\\RUN\\GOOD.D ", "05/18/2005 08:46 VSTD050.D"},
                 {"GOOD.D", "05/18/2005 08:46 VSTD050.D"},
                 {"Data File: UNDATED.D", "before VSTD100.D"},
                 {"Data File: GONE.D", "before id"},
                 {"", "before id"}};
    for (const auto& c : cases) {
        ContinuingCalibrationEntry entry;
        entry.AnalysisDateTime = "before";
        entry.LabFileId = "id";
        LineReader report("1:\n2\n3\n4\n5\n" + std::string(c.line));
        ReadCheckStandardInfo(report, dir.Path().string(), entry);
        EXPECT_EQ(entry.AnalysisDateTime + " " + entry.LabFileId, c.taken);
    }
}

TEST(CheckReport, RowsAreMatchedByPosition) {
    std::vector<CalibrationRecord> compounds(3);
    compounds[0].Type = 'S';
    compounds[1].Type = compounds[2].Type = 'A';
    LineReader report(
        "title\n  N;COMPOUND;...\n1;below the head;\n"
        " 1; Benzene ;12.5;x;50.00;x;x;11.4; -8.8;77.0;1.5 \n2;Toluene;13;y;100\n");
    const auto table = ReadCheckTable(report, compounds);
    std::string texts;
    for (const CalibrationRecord& record : table) {
        for (const std::string& text :
             {record.Name, record.RF[kCheckMeanRF], record.Amount[kCheckAmount],
              record.RF[kCheckRF], record.Amount[kCheckPercentD]}) {
            texts += text + "|";
        }
        texts += record.Type;
    }
    EXPECT_EQ(texts, "benzene|12.5|50.00|11.4| -8.8|Stoluene|13|100|||A|||||A");
    LineReader noHead("title\n1;Benzene;12.5\n");
    EXPECT_FALSE(FindCheckTable(noHead));
    EXPECT_EQ(ReadCheckTable(noHead, compounds)[0].Name, "");
}

}  // namespace
}  // namespace qfr::test
