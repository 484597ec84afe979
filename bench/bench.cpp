// Speed of loading reports and of printing Form I. Run it in a release build; the README shows the
// numbers as ratios and counts.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <stdlib.h>
#include <string>
#include <vector>

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include "data/LoadFiles.h"
#include "data/QuantReport.h"
#include "forms/Form1VoaContent.h"
#include "forms/FormHost.h"
#include "platform/FileLookup.h"
#include "platform/qt/PdfFile.h"
#include "platform/qt/QtTextMetrics.h"

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

class KeepJob : public JobSink {
  public:
    bool BeginJob(int /*printerIndex*/, const std::string& /*title*/) override { return true; }
    void TakeJob(int /*printerIndex*/, PrintJob job) override { last = std::move(job); }
    PrintJob last;
};

class BenchHost : public FormHost {
  public:
    explicit BenchHost(FormFonts& fonts) : metrics_(fonts) { page_.testPrinter(); }
    qfr::Page& Page() override { return page_; }
    qfr::Batch& Batch() override { return batch_; }
    qfr::Entries& Entries() override { return entries_; }
    BatchFlags& Flags() override { return flags_; }
    bool ShowEntryDialog(EntryDialog /*dialog*/, std::size_t /*headerRecord*/) override {
        return true;
    }
    void SetPendingFocus(HeaderField /*field*/) override {}
    void Show(const Message& /*message*/) override {}
    bool AskYesNo(const Message& /*question*/) override { return false; }
    PrintJob& LastJob() { return sink_.last; }

  private:
    QtTextMetrics metrics_;
    KeepJob sink_;
    TPrinter printer_{metrics_, sink_};
    qfr::Page page_{printer_, [] { return true; }};
    qfr::Batch batch_;
    qfr::Entries entries_;
    BatchFlags flags_;
};

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
            jobs.push_back(std::move(host.LastJob()));
        }
        return jobs;
    }
    ReportFiles reports;
    FormFonts fonts;
    BenchHost host{fonts};
};

std::int64_t PagesOf(const std::vector<PrintJob>& jobs) {
    std::int64_t pages = 0;
    for (const PrintJob& job : jobs) {
        pages += static_cast<std::int64_t>(job.pages.size());
    }
    return pages;
}

void RecordFormI(benchmark::State& state) {
    FormIJobs forms;
    std::int64_t pages = 0;
    for (auto _ : state) {
        pages += PagesOf(forms.Record());
    }
    state.SetItemsProcessed(pages);
}
BENCHMARK(RecordFormI)->Unit(benchmark::kMillisecond);

void RecordFormIAndWritePdf(benchmark::State& state) {
    FormIJobs forms;
    std::int64_t pages = 0;
    for (auto _ : state) {
        const std::vector<PrintJob> jobs = forms.Record();
        benchmark::DoNotOptimize(RenderPdf(jobs, "bench", forms.fonts));
        pages += PagesOf(jobs);
    }
    state.SetItemsProcessed(pages);
}
BENCHMARK(RecordFormIAndWritePdf)->Unit(benchmark::kMillisecond);

// The yardstick: the same texts and rules, painted by hand.
void PaintStraightOnPdfWriter(benchmark::State& state) {
    FormIJobs forms;
    const std::vector<PrintJob> jobs = forms.Record();
    std::int64_t pages = 0;
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(kResolution);
        writer.setPageLayout(
            QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()));
        QPainter painter(&writer);
        bool first = true;
        for (const PrintJob& job : jobs) {
            for (const JobPage& page : job.pages) {
                if (!first) {
                    writer.newPage();
                }
                first = false;
                for (const PageItem& item : page.items) {
                    if (const auto* text = std::get_if<TextItem>(&item)) {
                        painter.setFont(QFont("Liberation Serif", text->size));
                        painter.drawText(text->x, text->y + text->height * 8 / 10,
                                         QString::fromStdString(text->text));
                    } else {
                        const auto& rule = std::get<RuleItem>(item);
                        painter.setPen(QPen(Qt::black, rule.penWidth));
                        painter.drawLine(rule.x1, rule.y1, rule.x2, rule.y2);
                    }
                }
            }
        }
        painter.end();
        benchmark::DoNotOptimize(bytes);
        pages += PagesOf(jobs);
    }
    state.SetItemsProcessed(pages);
}
BENCHMARK(PaintStraightOnPdfWriter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qfr

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
