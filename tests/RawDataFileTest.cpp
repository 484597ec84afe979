#include <gtest/gtest.h>

#include "data/RawDataFile.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(RawDataFile, GivesTitleDateAndLabFileId) {
    const struct {
        const char* content;
        const char* taken;  // title, date, lab file ID, whole
    } cases[] = {
        {"DATA FILE\r\n5/16/2005 10:45\r\nC:\\RUN\\STD.D\r\nx", "1 05/16/2005 10:45 STD.D 1"},
        {"data files\n05/16/05 1:05 PM\nSTD.D\n", "1 05/16/2005 13:05 STD.D 1"},
        {" DATA FILE\n02/30/2005 10:45\n\n", "0   1"},
        {"DATA FILE\n05/16/2005 10:45\n", "1 05/16/2005 10:45  0"},
        {"", "0   0"},
        {"DATA FILE\nx\nC:\\RUN\\A\\23456789 beyond", "1  23456789 1"},
    };
    TempDir dir;
    for (const auto& c : cases) {
        const std::string folder = dir.Path().string();
        dir.Write("STD.D", c.content);
        const auto data = ReadRawDataFile("C:\\RUN\\std.d", folder, 17).value();
        EXPECT_EQ(std::to_string(data.HasTitle()) + " " +
                      (data.Acquired ? FormatDateTime(*data.Acquired) : "") + " " + data.LabFileId +
                      " " + std::to_string(data.Whole),
                  c.taken);
        EXPECT_FALSE(ReadRawDataFile("C:\\RUN\\gone.d", folder));
        EXPECT_FALSE(ReadRawDataFile(folder, "")) << "a folder";
    }
}

}  // namespace
}  // namespace qfr::test
