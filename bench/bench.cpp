// Speed of loading reports and of printing Form I, beside that of two libraries that paint the same
// pages. Run it in a release build; the README shows the numbers as ratios and counts.
#include <benchmark/benchmark.h>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <vector>

#include <QGuiApplication>

#include "app/HeadlessHost.h"
#include "bench/CairoPdf.h"
#include "bench/QtPdf.h"
#include "data/LoadFiles.h"
#include "data/QuantReport.h"
#include "forms/Form1VoaContent.h"
#include "platform/FileLookup.h"
#include "platform/pdf/PdfFile.h"
#include "platform/pdf/Typeface.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;

constexpr int kRowsPerReport = 60;

class NoMessages : public Messages {
  public:
    void Show(const Message& message) override { ::fprintf(stderr, "%s\n", message.text.c_str()); }
    bool AskYesNo(const Message& /*question*/) override { return false; }
};

class NoOwner : public BatchOwner {
  public:
    void ResetEntryDialogs() override {}
};

// A directory of reports as the quantitation program writes them.
class ReportFiles {
  public:
    explicit ReportFiles(int count) {
        std::string name = (fs::temp_directory_path() / "qfr-bench-XXXXXX").string();
        dir_ = ::mkdtemp(name.data());
        for (int i = 0; i < count; ++i) {
            std::string number = std::to_string(i);
            number.insert(0, 4 - number.size(), '0');
            const fs::path file = dir_ / ("s" + number + ".prn");
            std::ofstream out(file);
            out << "Quantitation Report  Tallyworks Version 4.2\n"
                << "Acquisition Date: 05/12/2005 09:14\nSample Size: 5.0\n"
                << "Client Sample: LS-" << number << "\nSample ID: MW-" << number << "\n"
                << "Lab File ID: S" << number << ".D; Instrument: GCMS2\n"
                << "Calibration File: C:\\DATA\\VOA.CAL\nCompound Library: C:\\DATA\\VOA.LIB\n"
                << "Internal Standard File: C:\\DATA\\VOA.IST\n\nCompound#;Name;Conc\n";
            for (int row = 1; row <= kRowsPerReport; ++row) {
                out << row << ";1,2-dibromo-3-chloropropane;" << row << ".04;ug/L;0;J;96-12-8\n";
            }
            out << "\n";
            names_.push_back(TextOf(file));
        }
    }
    ~ReportFiles() { fs::remove_all(dir_); }
    ReportFiles(const ReportFiles&) = delete;
    ReportFiles& operator=(const ReportFiles&) = delete;
    const std::vector<std::string>& Names() const { return names_; }

  private:
    fs::path dir_;
    std::vector<std::string> names_;
};

void Load(Batch& batch, const std::vector<std::string>& names) {
    NoMessages messages;
    NoOwner owner;
    Reports reports;
    AddQuantReports(batch, names, reports, messages, owner);
    if (!batch.SampleList) {
        BuildSampleList(batch, reports);
    }
}

void LoadReports(benchmark::State& state) {
    const ReportFiles reports(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Batch batch;
        Load(batch, reports.Names());
        benchmark::DoNotOptimize(batch);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LoadReports)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

// Half of the reports are there; the other half comes between them.
void AddReportsToBatch(benchmark::State& state) {
    const ReportFiles reports(static_cast<int>(state.range(0)));
    std::vector<std::string> even;
    std::vector<std::string> odd;
    for (std::size_t i = 0; i < reports.Names().size(); ++i) {
        (i % 2 == 0 ? even : odd).push_back(reports.Names()[i]);
    }
    for (auto _ : state) {
        state.PauseTiming();
        Batch batch;
        Load(batch, even);
        state.ResumeTiming();
        Load(batch, odd);
        benchmark::DoNotOptimize(batch);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(odd.size()));
}
BENCHMARK(AddReportsToBatch)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

constexpr int kSheets = 20;

struct FormIJobs {
    FormIJobs() : reports(1) {
        Load(host.Batch(), reports.Names());
        for (int i = 1; i <= SampleHeader::kCount; ++i) {
            (*host.Batch().SampleList)[0].Header[HeaderFieldAt(i)] = "value " + std::to_string(i);
        }
    }
    std::vector<PrintJob> Record() {
        std::vector<PrintJob> jobs;
        for (int i = 0; i < kSheets; ++i) {
            PrintFormIVoa(host, 0);
            jobs.push_back(*host.CollectJob());
        }
        return jobs;
    }
    ReportFiles reports;
    std::unique_ptr<Typeface> typeface = Typeface::Load();
    NoMessages messages;
    HeadlessHost host{{}, *typeface, messages};
};

// Records the form again and again and makes one document of all its sheets each time.
template <typename Make>
void Print(benchmark::State& state, FormIJobs& forms, const Make& makeDocument) {
    std::int64_t pages = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::vector<PrintJob> jobs = forms.Record();
        const auto document = makeDocument(jobs);
        bytes += static_cast<std::size_t>(document.size());
        for (const PrintJob& job : jobs) {
            pages += static_cast<std::int64_t>(job.pages.size());
        }
    }
    state.SetItemsProcessed(pages);
    state.counters["bytes_a_page"] = static_cast<double>(bytes) / static_cast<double>(pages);
}

void RecordFormI(benchmark::State& state) {
    FormIJobs forms;
    Print(state, forms, [](const std::vector<PrintJob>& /*jobs*/) { return std::string_view(); });
}
BENCHMARK(RecordFormI)->Unit(benchmark::kMillisecond);

void RecordFormIAndWritePdf(benchmark::State& state) {
    FormIJobs forms;
    Print(state, forms, [&](const std::vector<PrintJob>& jobs) {
        PdfFile pdf(*forms.typeface);
        for (const PrintJob& job : jobs) {
            pdf.Add(job);
        }
        std::string reason;
        return pdf.Content("bench", reason);
    });
}
BENCHMARK(RecordFormIAndWritePdf)->Unit(benchmark::kMillisecond);

void RecordFormIAndPaintWithCairo(benchmark::State& state) {
    FormIJobs forms;
    CairoPdf cairo(*forms.typeface);
    Print(state, forms, [&](const std::vector<PrintJob>& jobs) { return cairo.Document(jobs); });
}
BENCHMARK(RecordFormIAndPaintWithCairo)->Unit(benchmark::kMillisecond);

void RecordFormIAndPaintOnQPdfWriter(benchmark::State& state) {
    FormIJobs forms;
    QtPdf qt(*forms.typeface);
    Print(state, forms, [&](const std::vector<PrintJob>& jobs) { return qt.Document(jobs); });
}
BENCHMARK(RecordFormIAndPaintOnQPdfWriter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qfr

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
