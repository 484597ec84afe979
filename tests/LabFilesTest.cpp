#include "data/LabFiles.h"
#include "tests/Support.h"

namespace qfr {
namespace {

using Values = std::vector<std::string>;

TEST(LabFiles, ReadsDefaultsInPiecesOf29Characters) {
    const test::TempDir dir;
    const std::string full(29, 'x');
    const std::pair<std::string, Values> cases[] = {
        {"", {}},
        {" Lab \r\n\nXXX", {"Lab", "", "XXX"}},
        {full + "\nContract\n", {full, "Contract"}},
        {full + "yz\nContract\n", {full, "yz", "Contract"}},
        {"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n",
         {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13"}},
        {"M\xFCller", {"Müller"}},
    };
    for (const auto& [content, values] : cases) {
        EXPECT_EQ(ReadDefaultsFile(dir.Write("DefaultInfo.txt", content)), values) << content;
    }
    const auto endless = ReadDefaultsFile(dir.Write("long", test::EndlessLine()));
    EXPECT_EQ(endless, Values(13, full));
    EXPECT_FALSE(ReadDefaultsFile(dir.Path()));
    EXPECT_FALSE(ReadDefaultsFile(dir.Path() / "missing"));
}

TEST(LabFiles, ReadsALaboratoryFileAsItStands) {
    const test::TempDir dir;
    const std::string file = dir.Write("lab.txt", " Lab \r\nCode\n\n" + std::string(99, 'x'));
    EXPECT_EQ(ReadLaboratoryFile(file), (Values{" Lab ", "Code", "", std::string(99, 'x')}));
    EXPECT_EQ(ReadLaboratoryFile(dir.Write("more.txt", "1\n2\n3\n4\n5\n6\n7\n8\n"))->size(), 7u);
    EXPECT_FALSE(ReadLaboratoryFile(dir.Path()));
}

TEST(LabFiles, WritesWhatItReads) {
    const test::TempDir dir;
    const Values values = {"Müller & Co.", "", " blanks ", "100%d", "5", "6", "7"};
    EXPECT_EQ(WriteValueLines(dir.Path() / "lab.txt", values), std::nullopt);
    EXPECT_EQ(test::ReadAll(dir.Path() / "lab.txt"), "Müller & Co.\n\n blanks \n100%d\n5\n6\n7\n");
    EXPECT_EQ(ReadLaboratoryFile(dir.Path() / "lab.txt"), values);
    EXPECT_TRUE(WriteValueLines(dir.Path(), values));
}

TEST(LabFiles, FollowsTheMatrix) {
    struct Case {
        std::string matrix, before;
        Values after;  // % moisture, aliquot volume, extract volume
    };
    for (const auto& [matrix, before, after] : {
             Case{"WATER", "12", {"N/A", "N/A", "N/A"}},
             Case{"SOIL", "N/A", {"0", "0", "0"}},
             Case{"SOIL", "12", {"12", "12", "12"}},
             Case{"SOIL", "", {"", "", ""}},
             Case{"SED", "N/A", {"0", "N/A", "N/A"}},
             Case{"SED", "12", {"12", "N/A", "N/A"}},
             Case{"water", "12", {"12", "12", "12"}},
             Case{"", "N/A", {"N/A", "N/A", "N/A"}},
         }) {
        SampleHeader header;
        header[HeaderField::kMatrix] = matrix;
        for (const HeaderField field :
             {HeaderField::kPercentMoisture, HeaderField::kSoilAliquotVolume,
              HeaderField::kSoilExtractVolume}) {
            header[field] = before;
        }
        ApplyMatrixRules(header);
        EXPECT_EQ(
            (Values{header[HeaderField::kPercentMoisture], header[HeaderField::kSoilAliquotVolume],
                    header[HeaderField::kSoilExtractVolume]}),
            after)
            << matrix << " " << before;
    }
}

}  // namespace
}  // namespace qfr
