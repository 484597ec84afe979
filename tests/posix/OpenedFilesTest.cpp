// How often a run opens its files, as the system sees it.
#include <cstring>
#include <map>
#include <sys/inotify.h>
#include <unistd.h>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

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
