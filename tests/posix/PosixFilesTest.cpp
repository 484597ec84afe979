// What only systems with permissions and pipes can show of the program's files, and how often a run
// opens them.
#include <chrono>
#include <csignal>
#include <cstring>
#include <future>
#include <map>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/Recovery.h"
#include "data/LoadFiles.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"
#include "platform/LineReader.h"
#include "platform/SettingsDir.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

// Gives up the rights of an administrator while the result lives, so that what may not be read or
// written cannot be. TempDir's directories stay readable.
[[nodiscard]] std::shared_ptr<void> OrdinaryUser() {
    constexpr uid_t kNobody = 65534;
    const uid_t before = ::geteuid();
    EXPECT_EQ(before == 0 ? ::seteuid(kNobody) : 0, 0);
    return {nullptr, [before](void*) { EXPECT_EQ(::seteuid(before), 0); }};
}

TEST(PosixFiles, AreNotReadWhenForbiddenOrEndless) {
    const TempDir dir;
    const fs::path secret = dir.Write("secret.txt", "a\n");
    fs::permissions(secret, fs::perms::none);
    const fs::path pipe = dir.Path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);

    const auto user = OrdinaryUser();
    for (const fs::path& file : {secret, pipe, fs::path("/dev/zero")}) {
        EXPECT_FALSE(LineReader::Open(file)) << file;
    }
}

TEST(PosixFiles, KeepTheirPermissionsWhenTheyAreReplaced) {
    const TempDir dir;
    const fs::path file = dir.Path() / std::string(255, 'n');
    const fs::perms usual = fs::status(dir.Write("usual", "")).permissions();
    EXPECT_EQ(ReplaceFile(file, "old"), std::nullopt);
    EXPECT_EQ(fs::status(file).permissions(), usual);
    fs::permissions(file, fs::perms(0640));
    // Whose owner can be kept only by an administrator, but whose group by its members.
    EXPECT_TRUE(::chown(file.c_str(), 1234, 4321) == 0 || ::geteuid() != 0);
    struct stat states[2]{};
    for (struct stat& state : states) {
        ::stat(file.c_str(), &state);
        EXPECT_EQ(ReplaceFile(file, "new"), std::nullopt);
    }
    EXPECT_EQ(states[1].st_mode & 0777U, 0640U);
    EXPECT_TRUE(states[1].st_uid == states[0].st_uid && states[1].st_gid == states[0].st_gid);
    EXPECT_NE(states[1].st_ino, states[0].st_ino) << "overwritten";
}

TEST(PosixFiles, ThatAreReadOnlyAreReplacedWhenTheUserAgrees) {
    const TempDir dir;
    const fs::path file = dir.Write("batch.qff", "old");
    MessageLog log;
    EXPECT_TRUE(AgreesToReplace(file, log)) << "without a question";
    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(ReplaceFile(file, "new"), "The file is read-only.");
    EXPECT_EQ(ReadAll(file), "old");
    log.answers = {false};
    EXPECT_FALSE(AgreesToReplace(file, log));
    EXPECT_TRUE(log.noByDefault);
    EXPECT_EQ(log.shown.at(0).text, "batch.qff is read-only.\nReplace it?");
    EXPECT_EQ(ReplaceFile(file, "new", ReadOnlyFile::kIsReplaced), std::nullopt);
    EXPECT_EQ(ReadAll(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0444));
    fs::permissions(file, fs::perms(0644));
    fs::permissions(dir.Path(), fs::perms(0777));
    const auto user = OrdinaryUser();
    EXPECT_TRUE(ReplaceFile(file, "new").has_value() || ::getuid() != 0) << "another user's";
}

TEST(PosixFiles, ThatAreOpenAndDevicesAreWrittenThrough) {
    const TempDir dir;
    const fs::path file = dir.Write("out", "");
    std::FILE* const out = std::fopen(file.c_str(), "a");
    std::fputs("before ", out);
    std::fflush(out);
    const fs::path open = "/dev/fd/" + std::to_string(::fileno(out));
    fs::create_symlink(open, dir.Path() / "link");
    EXPECT_EQ(ReplaceFile(open, "one "), std::nullopt);
    EXPECT_EQ(ReplaceFile(dir.Path() / "link", "two"), std::nullopt);
    std::fclose(out);
    EXPECT_EQ(ReadAll(file), "before one two");
    EXPECT_TRUE(ReplaceFile(open, "closed").has_value());

    fs::create_symlink("/dev/null", dir.Path() / "null");
    for (const fs::path& device : {fs::path("/dev/null"), dir.Path() / "null"}) {
        EXPECT_EQ(ReplaceFile(device, "x"), std::nullopt);
        EXPECT_TRUE(fs::is_character_file(device) && fs::is_symlink(dir.Path() / "null"));
    }
    EXPECT_TRUE(ReplaceFile("/dev/full", "x").has_value());
}

TEST(PosixFiles, BehindALinkOfAnotherOwnerInASharedFolderStay) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "needs somebody else";
    }
    const TempDir dir;
    const fs::path file = dir.Write("victim", "old");
    const fs::path link = dir.Path() / "tmp" / "x.qff";
    fs::create_directory(link.parent_path());
    fs::create_symlink(file, link);
    for (const auto& [mode, owner, followed] :
         {std::tuple(01777, 0U, true), {01777, 1234U, false}, {0777, 1234U, true}}) {
        fs::permissions(link.parent_path(), fs::perms(mode));
        ASSERT_EQ(::lchown(link.c_str(), owner, 0), 0);
        EXPECT_EQ(ReplaceFile(link, "new").has_value(), !followed);
        EXPECT_EQ(ReadAll(file), followed ? "new" : "old");
        dir.Write("victim", "old");
    }
}

// A save that fails leaves the old file whole and nothing beside it.
void ExpectOldFileKept(const fs::path& file, std::string_view content) {
    EXPECT_NE(ReplaceFile(file, content).value_or(""), "");
    EXPECT_EQ(ReadAll(file), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 1);
}

TEST(PosixFiles, StayWhenNotAllOfTheNewCanBeWritten) {
    const TempDir dir;
    const std::string file = dir.Write("batch.qff", "old");
    struct rlimit usual {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 10'000, usual.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    ExpectOldFileKept(file, std::string(1'000'000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);

    fs::permissions(file, fs::perms(0666));
    fs::permissions(dir.Path(), fs::perms(0555));
    const auto user = OrdinaryUser();
    ExpectOldFileKept(file, "new");
}

TEST(PosixFiles, OfAKilledRunAreRemovedAfterADay) {
    const TempDir dir;
    const auto age = [&dir](const std::string& name, std::chrono::minutes minutes) {
        fs::last_write_time(dir.Path() / name, fs::file_time_type::clock::now() - minutes);
    };
    const std::string removed[] = {".qfr-0.tmp", ".qfr-folder.tmp"};
    const std::string kept[] = {".qfr-1.tmp", "x.tmp", ".qfr-2", ".qfr-link.tmp", ".qfr-other.tmp"};
    dir.Write(".qfr-folder.tmp/file", "");
    for (const std::string name :
         {".qfr-0.tmp", ".qfr-1.tmp", "x.tmp", ".qfr-2", ".qfr-other.tmp"}) {
        age(FileNameOnly(dir.Write(name, "")), std::chrono::minutes(name == kept[0] ? 1438 : 1442));
    }
    age(removed[1], std::chrono::minutes(1442));
    fs::create_symlink("x.tmp", dir.Path() / kept[3]);
    const bool isOthers = ::chown((dir.Path() / kept[4]).c_str(), 1234, 1234) == 0;
    RemoveLeftovers(dir.Path());
    for (const std::string& name : removed) {
        EXPECT_FALSE(fs::exists(dir.Path() / name)) << name;
    }
    for (const std::string& name : kept) {
        EXPECT_EQ(fs::exists(dir.Path() / name), isOthers || name != kept[4]) << name;
    }
}

TEST(PosixProgram, IsToldThatItIsToEnd) {
    std::promise<void> asked;
    const EndRequests requests([&asked] { asked.set_value(); });
    ::kill(::getpid(), SIGTERM);
    EXPECT_EQ(asked.get_future().wait_for(std::chrono::seconds(10)), std::future_status::ready);
}

// A chemist loads two reports, by each of the three ways. What is told, and whether they are taken.
struct Loading : BatchOwner {
    void ResetEntryDialogs() override {}
    std::string operator()(const std::string& file) {
        std::string told;
        for (TakeReports* const take :
             {TakeLabBlank, AddQuantReports, TakeCalReport, TakeCheckReport}) {
            Batch batch;
            MessageLog log;
            Reports reports(log);
            const bool taken = take(batch, {file}, reports, log, *this);
            told += (taken ? "+" : "-") + (log.shown.empty() ? "" : log.shown.front().text);
        }
        return told;
    }
};

TEST(PosixFiles, ThatABatchCouldNotFindAgainAreNotLoaded) {
    const TempDir dir;
    Loading loading;
    for (const auto& [folder, fault] : {std::pair("a\\b", "a \"\\\" in a name"),
                                        {"a;b", "a \";\" or a line break in a name"},
                                        {"a\nb", "a \";\" or a line break in a name"},
                                        {"a\xFF", "a name that is no valid UTF-8"},
                                        {"a\uFFFD", "a name that is no valid UTF-8"}}) {
        const std::string told = "-x has a path that no batch file can hold,\nwith " +
                                 std::string(fault) + ". The file will not be processed.";
        EXPECT_EQ(loading(TextOf(dir.Path()) + "/" + folder + "/x"), told + told + told + told);
    }
    const std::string twins =
        "X.PRN cannot be told from another file, whose name\ndiffers only in "
        "upper and lower case. Please rename one of them.";
    const std::string upper = dir.Write("X.PRN", ReportText().Text());
    EXPECT_THAT(loading(upper), testing::StartsWith("++-")) << "alone";
    const std::string lower = dir.Write("x.prn", ReportText().Text());
    EXPECT_THAT(loading(upper), testing::StartsWith("-" + twins + "-" + twins + "-" + twins + "-"));
    EXPECT_THAT(loading(lower), testing::StartsWith("++-")) << "found exactly";
    fs::rename(lower, dir.Path() / "x.Prn");
    EXPECT_THAT(loading(upper), testing::StartsWith("-" + twins));

    dir.Write("here/x.prn", "");
    FileFinder finder;
    const std::string root = TextOf(dir.Path());
    EXPECT_FALSE(finder.FindBeside(root + "/x.prn", root + "/here"));
    EXPECT_TRUE(finder.FoundSeveral());
    EXPECT_TRUE(finder.Find(root + "/HERE/X.PRN") && !finder.FoundSeveral());
}

TEST(PosixFiles, OfAProgramThatMayNotWriteThemAreTheUsersOwnCopies) {
    const TempDir dir;
    const fs::path program = fs::path(dir.Write("program/p.txt", "shipped")).parent_path();
    const fs::path home = dir.Path() / "home";
    dir.Write("home/.qfr/p.txt", "user's");
    fs::permissions(program, fs::perms(0555));
    fs::permissions(home, fs::perms(0777));
    const auto user = OrdinaryUser();
    EXPECT_EQ(ReadAll(SettingsDir(program, home / ".qfr").ForReading("p.txt")), "user's");
    const SettingsDir fresh(program / "", home / ".config" / "qfr");
    EXPECT_EQ(fresh.ProgramDir(), TextOf(program) + "/");
    EXPECT_EQ(ReadAll(fresh.ForReading("p.txt")), "shipped");
    EXPECT_EQ(fresh.ForWriting("p.txt"), home / ".config" / "qfr" / "p.txt");
    EXPECT_TRUE(fs::is_directory(home / ".config" / "qfr"));
}

TEST(PosixFiles, KeptForRecoveryAreNobodyElsesToRead) {
    const TempDir dir;
    const fs::path file = dir.Path() / "new" / "recovery" / "a.recovery";
    for (int write = 0; write < 2; ++write) {
        EXPECT_EQ(WriteRecovery(file, {}, "QFRForms\n"), std::nullopt);
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600));
        EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms(0700));
    }
}

// Counts how often each file of a directory is opened while this lives; the directory itself, for
// its names, under "".
class Openings {
  public:
    explicit Openings(const std::filesystem::path& directory)
        : queue_(::inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(::inotify_add_watch(queue_, directory.c_str(), IN_OPEN), 0);
    }
    ~Openings() { ::close(queue_); }
    Openings(const Openings&) = delete;
    Openings& operator=(const Openings&) = delete;

    std::map<std::string, int> Take() const {
        std::map<std::string, int> counts;
        alignas(inotify_event) char events[4096];
        for (ssize_t size = 0; (size = ::read(queue_, events, sizeof(events))) > 0;) {
            for (ssize_t at = 0; at < size;) {
                inotify_event event{};
                std::memcpy(&event, events + at, sizeof(event));
                const char* const name = events + at + sizeof(event);
                ++counts[event.len > 0 ? name : ""];
                at += static_cast<ssize_t>(sizeof(event) + event.len);
            }
        }
        return counts;
    }

  private:
    int queue_;
};

// 500 samples whose names are in lower case, as batches keep them, and whose files are not.
TEST(OpenedFiles, AreReadOnceInARunAndTheirFolderIsListedOnce) {
    CalibratedRun run(3, 2, 500);
    ScriptedHost& host = run.host;
    for (SampleRecord& sample : *host.batch.SampleList) {
        run.dir.Write(FileNameOnly(sample.FileName), ReportText().Text() +
                                                         "Volatile\nheads\n1;d8;99\n\n" +
                                                         ReadAll(PathOf(sample.FileName)));
        sample.FileName = LowerCase(sample.FileName);
        sample.CompoundCount = 2;
    }
    host.entries.Ranges.FileName = run.dir.Write("RANGES.TXT", "recovery ranges\n1\nd8;1;2\n");
    host.entries.ContinuingCalibration.InstrumentId = "GC 2";
    host.entries.ContinuingCalibration.SampleNo = host.entries.StandardSummary.SampleNo = "VSTD010";
    host.entries.StandardSummary.LabFileId = "CHK.D";
    host.entries.StandardSummary.AnalysisDateTime = "05/18/2005 08:46";

    JobLog sink;
    const Openings openings(run.dir.Path());
    EXPECT_EQ(run.PrintAll(sink), "");
    EXPECT_EQ(sink.jobs.size(), 500U + 6U);
    std::map<std::string, int> counts = openings.Take();
    // The samples, the two reports, four standards, ranges, criteria, and the directory.
    EXPECT_EQ(counts.size(), 500U + 2U + 4U + 2U + 1U);
    for (const auto& [name, count] : counts) {
        EXPECT_EQ(count, 1) << name;
    }
}

// The report of the first job is replaced while the run goes on.
TEST(OpenedFiles, AreReadAnewByTheNextJobOnceTheyHaveChanged) {
    CalibratedRun run(1, 1, 2);
    SampleListType& samples = *run.host.batch.SampleList;
    samples[1] = samples[0];
    for (SampleRecord& sample : samples) {
        sample.CompoundCount = 1;
        run.dir.Write("S1.PRN", "Compound#\n1;before;\n");
    }
    JobLog sink;
    sink.onTake = [&run] { run.dir.Write("S1.PRN", "Compound#\n1;after;\n"); };
    run.PrintAll(sink);
    EXPECT_TRUE(HasText(sink.jobs.at(0).pages.at(0), "before"));
    EXPECT_TRUE(HasText(sink.jobs.at(1).pages.at(0), "after"));
}

// Each form that cannot tell them apart says so.
TEST(OpenedFiles, AreNoneOfTwoThatDifferOnlyInCase) {
    CalibratedRun run(1, 1, 2);
    SampleListType& samples = *run.host.batch.SampleList;
    run.dir.Write("s1.Prn", ReadAll(PathOf(samples[0].FileName)));
    samples[0].FileName = LowerCase(samples[0].FileName);
    samples[1] = samples[0];
    JobLog sink;
    const std::string notes = run.PrintAll(sink);
    const std::string told = "1: File Error: s1.prn cannot be told from another file";
    EXPECT_TRUE(Contains(notes, told) && notes.find(told) != notes.rfind(told)) << notes;
}

}  // namespace
}  // namespace qfr::test
