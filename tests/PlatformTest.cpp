// Files as the host system has them, and what texts hold: fields, paths, numbers, dates.
#include <atomic>
#include <chrono>
#include <cmath>
#include <future>
#include <map>

#include "app/PathsFile.h"
#include "platform/DateTime.h"
#include "platform/FileDates.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Numbers.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using namespace ::testing;

TEST(LineReader, SplitsLinesOfEveryOrigin) {
    const TempDir dir;
    const auto lines = [&dir](const std::string& content) {
        LineReader reader = LineReader::Open(dir.Write("lines.txt", content)).value();
        std::string text;
        while (const auto line = reader.Next()) {
            text += *line + "$";
        }
        return text;
    };
    EXPECT_EQ(Joined({"", "\n", "a\nb", "a\r\nb\r\n", "a\n\n\nb\n", "a\r", "a\rb\n"}, lines),
              "|$|a$b$|a$b$|a$$$b$|a$|a\rb$");
    EXPECT_EQ(lines("\xEF\xBB\xBFM\xC3\xBCller\n"), "Müller$");
    EXPECT_EQ(lines("M\xFCller\n\x80\n"), "Müller$€$");
    EXPECT_EQ(lines(std::string("a\0b\n\0", 5)), "a b$ $");
}

TEST(LineReader, RefusesWhatIsNoReadableFile) {
    const TempDir dir;
    const fs::path large = dir.Write("large.txt", "");
    fs::resize_file(large, LineReader::kMaxFileSize + 1);
    for (const fs::path& file : {dir.Path(), dir.Path() / "missing", large}) {
        EXPECT_FALSE(LineReader::Open(file)) << file;
    }
    fs::resize_file(large, LineReader::kMaxFileSize);
    EXPECT_TRUE(LineReader::Open(large));
}

TEST(FileLookup, FindsNamesInAnyCaseAndWithEitherSeparator) {
    const TempDir dir;
    for (const std::string_view file :
         {"Lab Data/VBLK01.PRN", "Lab Data/Mixed.Prn", "Lab Data/MÜLLER.prn", "odd\\name.prn",
          "both/other.txt", "Both/Only.txt", "here/vblk01.prn"}) {
        dir.Write(file, file);
    }
    const std::string root = TextOf(dir.Path()) + "/";
    const auto find = [&](const std::string& name, const std::string& folder) {
        const auto path = FileFinder().FindBeside(name, folder);
        return path ? ReadAll(*path) : "-";
    };
    const auto below = [&](const std::string& name) { return find(root + name, ""); };
    EXPECT_EQ(Joined({"lab data/vblk01.prn", "LAB DATA\\MIXED.PRN", "lab data\\müller.prn"}, below),
              "Lab Data/VBLK01.PRN|Lab Data/Mixed.Prn|Lab Data/MÜLLER.prn");
    EXPECT_EQ(Joined({"odd\\name.prn", "both/only.txt"}, below), "odd\\name.prn|Both/Only.txt");
    EXPECT_EQ(below("./lab data/../lab data/vblk01.prn"), "Lab Data/VBLK01.PRN");
    EXPECT_EQ(Joined({"lab data/vblk01.prn/more", "lab data/vblk0"}, below), "-|-");
    EXPECT_EQ(below(std::string("Lab Data/VBLK01.PRN\0", 20)), "-");

    const auto moved = [&](const std::string& name) { return find(name, root + "Lab Data"); };
    EXPECT_EQ(Joined({"c:\\gone\\vblk01.prn", "/gone/vblk01.prn", "c:\\gone\\", ""}, moved),
              "Lab Data/VBLK01.PRN|Lab Data/VBLK01.PRN|-|-");
    EXPECT_EQ(moved(root + "here/vblk01.prn"), "here/vblk01.prn");
    EXPECT_EQ(find("c:\\gone\\vblk01.prn", ""), "-");
}

TEST(FileDates, AreFoundOutWhileAShareDoesNotAnswer) {
    const TempDir dir;
    const std::string kept = dir.Write("kept.qff", "");
    const std::chrono::sys_seconds saved(std::chrono::seconds(1'116'412'680));
    fs::last_write_time(PathOf(kept), std::chrono::file_clock::from_sys(saved));
    std::promise<void> answer;
    std::promise<void> isDone;
    std::promise<void> bothTold;
    std::atomic<int> looks = 0;
    std::map<std::string, std::time_t> told;
    {
        FileDates dates(
            [&](const std::string& file, const std::optional<std::time_t>& written) {
                told[file] = written.value_or(-1);
                if (told.size() == 2) {
                    bothTold.set_value();
                }
            },
            [&](const std::string& file) {
                ++looks;
                if (file == "share") {
                    answer.get_future().wait();
                    isDone.set_value_at_thread_exit();
                }
                return FileDate(file);
            });
        for (const std::string& file :
             {std::string("share"), kept, std::string("share"), TextOf(dir.Path())}) {
            dates.Look(file);
        }
        bothTold.get_future().wait();
    }
    answer.set_value();
    isDone.get_future().wait();
    EXPECT_EQ(looks, 3) << "the share is looked at once";
    EXPECT_THAT(told,
                testing::UnorderedElementsAre(testing::Pair(kept, saved.time_since_epoch().count()),
                                              testing::Pair(TextOf(dir.Path()), -1)));
}

TEST(FileLookup, NamesFilesForTitlesAsEverySystemTakesThem) {
    EXPECT_EQ(
        Joined({"Form 1 ZA101", " a:b*c/d ", "x. .", "..", "nul", "Com1.x", "Aux .1", "console"},
               FileNameForTitle),
        "Form 1 ZA101|a-b-c-d|x|Form|Form nul|Form Com1.x|Form Aux .1|console");
}

TEST(FileReplace, WritesNewFilesAndReplacesOldOnes) {
    const TempDir dir;
    const fs::path file = dir.Path() / PathOf(std::string(190, 'n') + "Größe");
    for (const std::string& content :
         {std::string("old"), std::string(3'000'000, '\n'), std::string()}) {
        EXPECT_EQ(ReplaceFile(file, content), std::nullopt);
        EXPECT_EQ(ReadAll(file), content);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), {}), 1);
}

TEST(FileReplace, LeavesEverythingAsItWasWhenTheContentFailsHalfWay) {
    const TempDir dir;
    const fs::path file = dir.Write("old", "old");
    for (const fs::path& target : {file, dir.Path() / "new"}) {
        const auto reason = ReplaceFile(target, [](const PutPiece& put) {
            return put("half") ? std::error_code() : make_error_code(std::errc::io_error);
        });
        EXPECT_EQ(reason, make_error_code(std::errc::io_error).message());
    }
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), {}), 1);
}

class Paths : public testing::Test {
  protected:
    void Write(const std::string& content) { dir_.Write("QFRpaths.txt", content); }

    TempDir dir_;
    SettingsDir settings_{dir_.Path(), dir_.Path() / "user"};
    MessageLog messages_;
    PathsFile paths_{settings_, messages_};
};

TEST_F(Paths, AreFourLines) {
    const std::string full(99, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {" a \r\nb\nc\nd\ne\n", "a|b|c|d"},
        {full + "yz\nb\nc\n", full + "|yz|b|c"},
        {"a\nb\n", "a|b|b|b"},
    };
    for (const auto& [content, lines] : cases) {
        Write(content);
        messages_.shown.clear();
        EXPECT_EQ(Joined({FileKind::kQuantReport, FileKind::kCalibration, FileKind::kText,
                          FileKind::kBatch},
                         [&](FileKind kind) { return paths_.ReadPath(kind); }),
                  lines);
    }
    EXPECT_THAT(messages_.TakeTexts(), SizeIs(8)) << "two lines miss each time";
    Write("installPath\ninstallPath\ninstallPath\ninstallPath\n");
    EXPECT_EQ(PathOf(paths_.ReadPath(FileKind::kText)), dir_.Path() / "example" / "");
    EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Paths, OfCalibrationsAndBatchesAreThoseOfTheReportsAtFirst) {
    const std::string program = settings_.ProgramDir();
    const std::string example = TextOf(PathOf(program) / "example" / "");
    const std::pair<std::string, std::string> cases[] = {
        {"/r\ninstallPath\n/t\n" + program + "\n", "/r|/r|/t|/r"},
        {"/r\n/c\ninstallPath\n/b\n", "/r|/c|" + example + "|/b"},
        {program + "\n/c\n/t\n" + program + "\n", program + "|/c|/t|" + program}};
    for (const auto& [content, lines] : cases) {
        Write(content);
        EXPECT_EQ(Joined({FileKind::kQuantReport, FileKind::kCalibration, FileKind::kText,
                          FileKind::kBatch},
                         [&](FileKind kind) { return paths_.StartFolder(kind); }),
                  lines);
    }
}

TEST_F(Paths, AreCreatedAfterAMessageWhenTheyAreMissing) {
    EXPECT_EQ(paths_.ReadPath(FileKind::kQuantReport), settings_.ProgramDir());
    EXPECT_THAT(messages_.TakeTexts(), ElementsAre("Pathfile missing.  Creating new pathfile."));
}

TEST_F(Paths, AreRememberedByTheKindOfFile) {
    std::string longest = "/";
    for (int letters = 1; letters < 99; ++letters) {
        longest += "ä";
    }
    const std::tuple<FileKind, std::string, std::string> cases[] = {
        {FileKind::kQuantReport, "/new/x.prn", "/new\nb\ninstallPath\nd\n"},
        {FileKind::kCalibration, "/new/x.cal", "a\n/new\ninstallPath\nd\n"},
        {FileKind::kCheckReport, "c:\\new\\x.check", "c:\\new\nb\ninstallPath\nd\n"},
        {FileKind::kBatch, "/new/x.qff", "a\nb\ninstallPath\n/new\n"},
        {FileKind::kText, "/new/x.txt", "a\nb\n/new\nd\n"},
        {FileKind::kAny, "/new/x", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/100%/50%% off/%5.2lfx/%d%/x.txt", "a\nb\n/10050% off/x/\nd\n"},
        {FileKind::kText, "/tail%/x.txt", "a\nb\n/tail\nd\n"},
        {FileKind::kText, longest + "/x.txt", "a\nb\n" + longest + "\nd\n"},
        {FileKind::kText, longest + "ü/x.txt", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/a\xFF/x.txt", "a\nb\ninstallPath\nd\n"},
        {FileKind::kText, "/a\nb/x.txt", "a\nb\ninstallPath\nd\n"},
    };
    for (const auto& [kind, file, content] : cases) {
        // The file is read before it is written, whatever has been chosen before.
        Write("a\nb\ninstallPath\nd\n");
        paths_.RememberDir(file, kind);
        EXPECT_EQ(ReadAll(dir_.Path() / "QFRpaths.txt"), content) << file;
    }
    EXPECT_THAT(messages_.shown, IsEmpty());
}

TEST_F(Paths, AreToldToBeMissingOnceWhenReportsAreDropped) {
    for (int drop = 0; drop < 2; ++drop) {
        fs::remove(dir_.Path() / "QFRpaths.txt");
        paths_.RememberDir("/new/x.prn", FileKind::kQuantReport);
        const std::string& own = settings_.ProgramDir();
        EXPECT_EQ(paths_.ReadPath(FileKind::kQuantReport) + paths_.ReadPath(FileKind::kBatch),
                  "/new" + own);
        EXPECT_THAT(messages_.TakeTexts(), SizeIs(drop == 0 ? 1 : 0));
    }
}

TEST(Text, IsTrimmedCutAndSplit) {
    // A no-break blank belongs to the text.
    EXPECT_EQ(Joined({"\t \x01 a b\x1F\r\n", " \x01 ", "\u00A0a"}, Trim), "a b||\u00A0a");
    EXPECT_EQ(TrimRight(" a \t"), " a");
    EXPECT_EQ(FirstCharacters("äöü", 2), "äö");
    EXPECT_EQ(FirstCharacters("a😀b", 2), "a😀");
    EXPECT_EQ(CharacterRange("05/12/2005 14:05", 12, 16), "14:05");
    EXPECT_EQ(CharacterRange("ä1ö2", 2, 3), "1ö");
    EXPECT_EQ(CharacterRange("abc", 3, 9), "c");
    EXPECT_EQ(CharacterRange("abc", 4, 9) + CharacterRange("abc", 0, 2), "");
    const auto fieldOf = [](const char* row) { return [row](int k) { return GetField(row, k); }; };
    EXPECT_EQ(Joined({1, 2, 3, 9}, fieldOf("a; b ;c")), "a|b|c|c") << "a short row's last field";
    EXPECT_EQ(Joined({2, 3}, fieldOf("a;b;")), "b|");
    std::string_view row = "a ;;c";
    EXPECT_EQ(Joined({1, 2, 3, 4}, [&row](int) { return TakeField(row); }), "a ||c|");
    EXPECT_EQ(Joined({"a\nb\r\nc\rd", "a\n"}, OneLine), "a b c d|a ");
    EXPECT_EQ(EnteredText("a;\r\nb\n") + EnteredField("a;\r\nb\n"), "a; ba, b");
    EXPECT_EQ(Enumerated({"1"}) + Enumerated({"1", "2", "3"}), "11, 2 and 3");
    EXPECT_EQ(Counted(1, "form") + Counted(0, "form"), "1 form0 forms");
    EXPECT_EQ(Joined({"\x1F ~\x7F", "\u0080\u009F\u00A0é😀", "\u061C\u200D\u200E\u200F\u2010",
                      "\u2029\u202A\u202E\u202F", "\u2065\u2066\u2069\u206A", "a\x9B\xE4z"},
                     Visible),
              "? ~?|??\u00A0é😀|?\u200D??\u2010|\u2029??\u202F|\u2065??\u206A|a??z");
    EXPECT_TRUE(BeginsWith("COMPound#;x", "compound#") && EndsWith("VERSION 4.2", "version 4.2"));
    EXPECT_FALSE(BeginsWith("compound", "compound#") || EndsWith("Version 4.21", "version 4.2"));
}

TEST(Text, ReadsEverythingThatIsNoUtf8AsWindows1252) {
    EXPECT_EQ(ToUtf8("Müller 😀"), "Müller 😀");
    EXPECT_EQ(ToUtf8("M\xFCller \x80 \x93 \x9F \x81"), "Müller € “ Ÿ \u0081");
    for (const std::string_view broken :
         {"\xC3", "\x80", "\xC0\xAF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82"}) {
        EXPECT_FALSE(IsUtf8(broken));
        EXPECT_TRUE(IsUtf8(ToUtf8(std::string(broken))));
    }
}

TEST(Numbers, AreDecimalsOnly) {
    const std::pair<std::string_view, double> good[] = {
        {"12.5", 12.5}, {" -3 ", -3}, {"+.5", 0.5}, {"5.", 5}, {"1e3", 1000}, {"1.5E-2", 0.015}};
    for (const auto& [text, value] : good) {
        EXPECT_EQ(ParseNumber(text), value) << text;
    }
    for (const std::string_view bad : {"", " ", ".", "-", "+-5", "--5", "1,5", "1.2.3", "5 6",
                                       "U5.0", "0x10", "inf", "nan", "1e", "1e999", "12.5J"}) {
        EXPECT_EQ(ParseNumber(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(ParseInteger(" +2147483647"), 2147483647);
    EXPECT_EQ(ParseInteger("-2147483648"), -2147483647 - 1);
    for (const std::string_view bad : {"", "2147483648", "99999999999", "x1", "1x", "1.0", "+-1"}) {
        EXPECT_EQ(ParseInteger(bad), std::nullopt) << bad;
    }
}

TEST(Numbers, AreWrittenInFourWays) {
    EXPECT_EQ(Joined({0.0, 1e5, 0.1 + 0.2, -2.0 / 3, 123456789012345.0, 1e15}, FormatGeneral),
              "0|100000|0.3|-0.666666666666667|123456789012345|1E15");
    EXPECT_EQ(Joined({1e-5, 1.5e-6, 9.9999999999999999}, FormatGeneral), "0.00001|1.5E-6|10");
    EXPECT_EQ(Joined({0.0, 82.5, -2.0 / 3, 1e15, 1.5e-6}, FormatShortest),
              "0|82.5|-0.6666666666666666|1000000000000000|0.0000015");
    EXPECT_EQ(FormatShortest(-1e308).size(), 310u);
    EXPECT_EQ(
        Joined({13.608276, -0.004, 5.0, double{NAN}}, [](double x) { return FormatFixed(x, 2); }),
        "13.61|-0.00|5.00|nan");
    EXPECT_EQ(FormatFixed(5, 0), "5");
    EXPECT_EQ(FormatFixed(1e308, 3).size(), 313u);
    EXPECT_EQ(Joined({"12.5", "12.49", "-3.7", "-0.4", " 7 ", "1e3", " x ", ""}, RoundToWhole),
              "13|12|-3|0|7|1000| x |");
}

TEST(DateTime, ReadsWhatReportsAndMasksHold) {
    const std::pair<std::string_view, std::string_view> good[] = {
        {"05/12/2005 14:23", "05/12/2005 14:23"}, {"5/2/05 9:05", "05/02/2005 09:05"},
        {" 1/ 2/2005  9:05", "01/02/2005 09:05"}, {"12/31/49", "12/31/2049 00:00"},
        {"2/29/04 23:59:59", "02/29/2004 23:59"}, {"1/1/50", "01/01/1950 00:00"},
        {"5/12/05 12:10 am", "05/12/2005 00:10"}, {"5/2/05 2:05 Pm", "05/02/2005 14:05"},
        {"5/2/05 12:1:30PM", "05/02/2005 12:01"}, {"14:23", "12/30/1899 14:23"},
        {"12/29/1899 23:59", "12/29/1899 23:59"}, {"01/02/0002", "01/02/0002 00:00"}};
    for (const auto& [text, formatted] : good) {
        const auto when = ParseDateTime(text);
        EXPECT_EQ(when ? FormatDateTime(*when) : "", formatted) << text;
        EXPECT_TRUE(IsDateTimeText(text));
    }
    std::vector<std::string_view> bad = {"02/29/2005",  "02/29/1900",  "13/01/2005", "00/01/2005",
                                         "01/00/2005",  "01/32/2005",  "01/02/0000", "01/02/205",
                                         "01/02/20055", "001/02/2005", "2005-05-12", "12.05.2005"};
    bad.insert(bad.end(), {"24:00", "14:60", "1:02:60", "13:00 PM", "0:30 AM", "14", "1/2", "12:"});
    bad.insert(bad.end(), {"1 /2 /05    : 0:00", "01/02/200514:23", "05/12/2005   :  ", "",
                           "  /  /       :  ", "  /  /      9:05", "05/12/2005 14:23 x",
                           "99999999999/1/2005"});
    for (const std::string_view text : bad) {
        EXPECT_FALSE(ParseDateTime(text) || IsDateTimeText(text)) << text;
    }
    const std::pair<std::string_view, std::string_view> noSuch[] = {
        {"2/30/2005 10:10", "02/30/2005 does not exist: February 2005 has 28 days."},
        {"02/29/05", "02/29/2005 does not exist: February 2005 has 28 days."},
        {"13/01/2005", "13/01/2005 does not exist: a year has the months 1 to 12."},
        {"01/02/0000", "01/02/0000 does not exist."}};
    for (const auto& [text, told] : noSuch) {
        EXPECT_EQ(NoSuchDate(text), told);
    }
    for (const std::string_view text : {"02/28/2005", "02/30", "24:00", "soon", ""}) {
        EXPECT_EQ(NoSuchDate(text), std::nullopt) << text;
    }
    EXPECT_TRUE(ParseDateTime("12/31/1899")->HasDate() && !ParseDateTime("23:59")->HasDate());
    EXPECT_EQ(ParseDateTime("1/2/2000 11:00")->seconds - ParseDateTime("1/1/2000 23:00")->seconds,
              kTwelveHours);
    for (const std::string_view mask : {kEmptyDateTimeMask, kEmptyDateMask, kEmptyTimeMask}) {
        EXPECT_EQ(PrintableDate(mask), "");
        EXPECT_TRUE(IsEmptyMask(" " + std::string(mask)) && !IsEmptyMask(""));
    }
    EXPECT_EQ(PrintableDate("05/12/2005   :  "), "05/12/2005   :  ");
    EXPECT_EQ(Joined({"05/12/2005   :  ", "05/12/2005 :", "05/12/2005  8:  ", "  /  /       :  ",
                      "02/30/2005   :  ", "05/12/2005 08:30"},
                     WithoutUnfilledTime),
              "05/12/2005|05/12/2005|05/12/2005  8:  |  /  /       :  |02/30/2005   :  |"
              "05/12/2005 08:30");
}

}  // namespace
}  // namespace qfr::test
