#include "data/FolderSort.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>

#include "data/LoadFiles.h"
#include "data/ReportFrame.h"
#include "data/Reports.h"
#include "data/SampleIds.h"
#include "platform/FileChooser.h"
#include "platform/FileLookup.h"
#include "platform/HostSystem.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

constexpr std::array kKinds = {std::pair(ReportKind::kQuantitation, FileKind::kQuantReport),
                               std::pair(ReportKind::kCalibration, FileKind::kCalibration),
                               std::pair(ReportKind::kCheck, FileKind::kCheckReport)};

struct FoundFile {
    std::string Path;
    bool Named = false;  // by the user himself, and not by way of its folder
};

// What is there to sort, by name and each file once.
class FoundFiles {
  public:
    explicit FoundFiles(std::vector<ToldFile>& told) : told_(told) {}

    std::vector<FoundFile> Find(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            std::error_code error;
            if (fs::is_directory(PathOf(name), error)) {
                List(name);
            } else {
                files_.push_back({name, true});
            }
        }
        std::ranges::sort(files_, {}, [](const FoundFile& file) {
            return std::pair(std::string_view(file.Path), !file.Named);
        });
        const auto same = [](const FoundFile& one, const FoundFile& other) {
            return one.Path == other.Path;
        };
        files_.erase(std::unique(files_.begin(), files_.end(), same), files_.end());
        if (files_.size() > kMaxSortedFiles) {
            told_.push_back({FolderOnly(files_[kMaxSortedFiles].Path),
                             "There are more than 10,000 files. This one and those behind it are "
                             "not looked at: " +
                                 FileNameOnly(files_[kMaxSortedFiles].Path)});
            files_.resize(kMaxSortedFiles);
        }
        return std::move(files_);
    }

  private:
    void List(const std::string& folder) {
        std::error_code error;
        for (fs::directory_iterator entry(FullPathOf(PathOf(folder)), error);
             !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::error_code unknown;
            const std::string path = TextOf(entry->path());
            if (!FileNameOnly(path).starts_with('.') && !entry->is_directory(unknown)) {
                files_.push_back({path, false});
            }
        }
        if (error) {
            told_.push_back({folder, CouldNotBeRead(folder).text});
        }
    }

    std::vector<ToldFile>& told_;
    std::vector<FoundFile> files_;
};

bool HasTitle(ReportKind kind, const std::string& title) {
    ReportFrame frame;
    frame.Title = title;
    return HasTitleOf(kind, frame);
}

std::optional<ReportKind> KindByContent(const std::string& title) {
    const std::string text = LowerCase(title);
    for (const auto& [kind, fileKind] : kKinds) {
        // Other texts may begin with a date, too.
        if (HasTitle(kind, title) && Contains(text, "version")) {
            return kind;
        }
    }
    return std::nullopt;
}

std::optional<ReportKind> KindByName(const std::string& file) {
    for (const auto& [kind, fileKind] : kKinds) {
        if (EndsWith(file, RowOf(fileKind).filter.Patterns().substr(1))) {
            return kind;
        }
    }
    return std::nullopt;
}

template <typename Report>
struct Candidate {
    std::string File;
    FileContent<Report> Content;
};

using Samples = std::vector<Candidate<QuantReport>>;

// The refusals of the dialog's rules, told instead of shown one by one.
class Refusals : public BatchOwner {
  public:
    explicit Refusals(BatchProposal& proposal) : proposal_(proposal) {}
    void ResetEntryDialogs() override {}
    bool ClearsForTooManyRows(const std::string& /*fileName*/) override { return false; }
    void Refuse(const std::string& fileName, const Message& why, Messages& /*messages*/) override {
        proposal_.Told.push_back({fileName, OneLine(why.text)});
        refused_ = true;
    }
    // Since it was last asked.
    bool HaveCome() { return std::exchange(refused_, false); }

  private:
    BatchProposal& proposal_;
    bool refused_ = false;
};

class FolderSort {
  public:
    explicit FolderSort(const Batch& batch) : names_(batch.Files) {
        proposal_.Batch = batch;
        for (const auto role : {&FileSet::LabBlank, &FileSet::Calib, &FileSet::CheckCal}) {
            AddLoaded(batch.Files.*role, role);
        }
        for (const std::string& file : batch.Files.QFiles) {
            AddLoaded(file, nullptr);
        }
    }

    std::optional<BatchProposal> Run(const std::vector<std::string>& names,
                                     const SortProgress& progress) {
        const std::vector<FoundFile> files = FoundFiles(proposal_.Told).Find(names);
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (!progress(i, files.size())) {
                return std::nullopt;
            }
            Look(files[i]);
        }
        DecideNames();
        PutStandardsAside();
        ChooseBlank();
        // The first one that is taken decides the names of the files that all must share.
        std::stable_partition(samples_.begin(), samples_.end(),
                              [this](const auto& sample) { return Fits(sample); });
        for (const auto& sample : samples_) {
            proposal_.QFiles.push_back(sample.File);
        }
        const auto isNamed = [this](const auto& report) {
            return names_.CalFile.empty() ||
                   LowerCase(FileNameOnly(report.File)) == LowerCase(Trim(names_.CalFile));
        };
        const auto fits = [this](const auto& report) {
            return Fits(ReportKind::kCheck, report.Content->Frame);
        };
        Choose(calibrations_, kept_.Calib, proposal_.Calib, isNamed);
        Choose(checks_, kept_.CheckCal, proposal_.CheckCal, fits);
        TakeAll();
        return progress(files.size(), files.size()) ? std::optional(std::move(proposal_))
                                                    : std::nullopt;
    }

  private:
    void Tell(const std::string& file, const std::string& what) {
        proposal_.Told.push_back({file, OneLine(what)});
    }

    // A file of the batch, as it is named and, where it has moved with the batch, as it is.
    void AddLoaded(const std::string& name, std::string FileSet::*role) {
        loaded_.emplace(LowerCase(name), role);
        if (const auto found = finder_.FindBeside(name, proposal_.Batch.Folder)) {
            loaded_.emplace(LowerCase(TextOf(*found)), role);
        }
    }

    void Look(const FoundFile& file) {
        const auto loaded = loaded_.find(LowerCase(file.Path));
        if (loaded != loaded_.end()) {
            ++proposal_.Loaded;
            if (loaded->second != nullptr) {
                kept_.*loaded->second = FileNameOnly(file.Path);
            }
            return;
        }
        auto head = LineReader::OpenHead(PathOf(file.Path), 1);
        const std::string title = head ? head->NextOrEmpty() : "";
        const std::optional<ReportKind> byContent = KindByContent(title);
        const std::optional<ReportKind> kind = byContent ? byContent : KindByName(file.Path);
        if (!kind) {
            if (file.Named) {
                Tell(file.Path, FileNameOnly(file.Path) + " does not appear to be a report.");
            } else {
                ++proposal_.Others;
            }
            return;
        }
        if (!byContent && head && !HasTitle(*kind, title)) {
            Tell(file.Path, NotAReportMessage(*kind, FileNameOnly(file.Path)).text);
            return;
        }
        switch (*kind) {
            case ReportKind::kQuantitation:
                Read(file.Path, samples_);
                break;
            case ReportKind::kCalibration:
                Read(file.Path, calibrations_);
                break;
            case ReportKind::kCheck:
                Read(file.Path, checks_);
                break;
        }
    }

    template <typename Report>
    void Read(const std::string& file, std::vector<Candidate<Report>>& candidates) {
        if (auto content = reports_.Read<Report>(file, "")) {
            candidates.push_back({file, std::move(content)});
        } else if (LineReader::IsTooLarge(PathOf(file))) {
            Tell(file, OverLimitMessage(FileNameOnly(file), LineReader::kMaxFileSizeText).text);
        } else {
            Tell(file, CouldNotBeRead(file).text);
        }
    }

    bool Fits(const Candidate<QuantReport>& sample) const {
        return Fits(ReportKind::kQuantitation, sample.Content->Frame);
    }
    bool Fits(ReportKind kind, const ReportFrame& frame) const {
        FileSet names = names_;
        return !CheckReportFrame(kind, frame, "", names);
    }

    // The names of the files that the most reports share.
    void DecideNames() {
        std::map<std::tuple<std::string, std::string, std::string>, std::size_t> votes;
        std::size_t most = 0;
        const FileSet given = names_;
        for (const auto& sample : samples_) {
            FileSet names = given;
            if (CheckReportFrame(ReportKind::kQuantitation, sample.Content->Frame, "", names)) {
                continue;
            }
            const std::size_t count = ++votes[{names.CalFile, names.LibFile, names.SurrFile}];
            if (count > most) {
                most = count;
                names_ = names;
            }
        }
    }

    // Reports of standards are made as those of samples are.
    void PutStandardsAside() {
        std::erase_if(samples_, [this](const auto& sample) {
            const std::string& id = sample.Content->SampleId;
            const bool standard = IsStandardId(IsBlank(id) ? FileNameOnly(sample.File) : id);
            if (standard) {
                Tell(sample.File,
                     "It looks like a standard's report. Where it is a sample's, Add "
                     "Files takes it.");
            }
            return standard;
        });
    }

    // Places of the reports that look like a lab blank's, by the text that tells most.
    std::vector<std::size_t> Blanks() const {
        using Text = std::string (*)(const Candidate<QuantReport>&);
        constexpr Text kTexts[] = {[](const auto& sample) { return sample.Content->SampleId; },
                                   [](const auto& sample) { return sample.Content->ClientSample; },
                                   [](const auto& sample) { return FileNameOnly(sample.File); }};
        std::vector<std::size_t> blanks;
        for (const Text text : kTexts) {
            for (std::size_t i = 0; i < samples_.size(); ++i) {
                if (IsBlankId(text(samples_[i])) && Fits(samples_[i])) {
                    blanks.push_back(i);
                }
            }
            if (!blanks.empty()) {
                break;
            }
        }
        return blanks;
    }

    void ChooseBlank() {
        const std::vector<std::size_t> blanks = Blanks();
        if (blanks.empty()) {
            return;
        }
        const bool kept = !kept_.LabBlank.empty();
        const std::string& blank = samples_[blanks.front()].File;
        for (std::size_t i = kept ? 0 : 1; i < blanks.size(); ++i) {
            Tell(samples_[blanks[i]].File,
                 "It looks like a lab blank, too, and is proposed as a sample: the lab blank is " +
                     (kept ? kept_.LabBlank : FileNameOnly(blank)) + ".");
        }
        if (!kept) {
            proposal_.LabBlank = blank;
            samples_.erase(samples_.begin() + static_cast<std::ptrdiff_t>(blanks.front()));
        }
    }

    // The first that fits, else the first, which is refused with a reason. `kept`: of its kind, the
    // one that the batch has from among these files; empty: none.
    template <typename Report, typename Fits>
    void Choose(const std::vector<Candidate<Report>>& candidates, const std::string& kept,
                std::string& chosen, const Fits& fits) {
        auto best = std::ranges::find_if(candidates, fits);
        if (kept.empty() && !candidates.empty()) {
            best = best != candidates.end() ? best : candidates.begin();
            chosen = best->File;
        }
        for (const auto& other : candidates) {
            if (other.File != chosen) {
                Tell(other.File, "A batch has one of its kind: " +
                                     (kept.empty() ? FileNameOnly(chosen) : kept) + ".");
            }
        }
    }

    void TakeAll() {
        KeptMessages notes;
        Refusals refusals(proposal_);
        Batch& batch = proposal_.Batch;
        const auto take = [&](TakeReports& takeReports, std::string& file) {
            if (!file.empty()) {
                takeReports(batch, {file}, reports_, notes, refusals);
                if (refusals.HaveCome()) {
                    file.clear();
                }
            }
        };
        take(TakeLabBlank, proposal_.LabBlank);
        if (!proposal_.QFiles.empty()) {
            AddQuantReports(batch, proposal_.QFiles, reports_, notes, refusals);
            std::erase_if(proposal_.QFiles, [&](const std::string& file) {
                return !std::ranges::binary_search(batch.Files.QFiles, LowerCase(file));
            });
            refusals.HaveCome();
        }
        take(TakeCalReport, proposal_.Calib);
        take(TakeCheckReport, proposal_.CheckCal);
        if (!batch.SampleList) {
            BuildSampleList(batch, reports_);
        }
        proposal_.Notes = notes.Take();
    }

    BatchProposal proposal_;
    Reports reports_;
    FileSet names_;  // of the files that all reports of the batch share
    // What the batch has, by lower-case path; null: a sample. Of those that have been found, the
    // base names.
    std::map<std::string, std::string FileSet::*> loaded_;
    FileSet kept_;
    FileFinder finder_;
    Samples samples_;
    std::vector<Candidate<CalibrationReport>> calibrations_;
    std::vector<Candidate<CheckReport>> checks_;
};

}  // namespace

std::optional<BatchProposal> ProposeBatch(const Batch& batch, const std::vector<std::string>& names,
                                          const SortProgress& progress) {
    return FolderSort(batch).Run(names, progress);
}

}  // namespace qfr
