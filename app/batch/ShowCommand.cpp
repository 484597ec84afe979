#include <CLI/CLI.hpp>
#include <cstddef>
#include <iomanip>
#include <memory>
#include <span>

#include "app/batch/BatchCommand.h"
#include "data/EntryTables.h"
#include "data/HeaderFields.h"
#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {
namespace {

constexpr int kValueColumn = 27;

class BatchText {
  public:
    explicit BatchText(std::ostream& out) : out_(out) {}

    void Paragraph(const std::string& head) {
        out_ << (first_ ? "" : "\n") << Visible(head) << '\n';
        first_ = false;
    }
    void Value(std::string_view label, std::string_view value) {
        const std::string text = Visible(TrimRight(OneLine(PrintableDate(value))));
        out_ << "  " << std::left << std::setw(text.empty() ? 0 : kValueColumn)
             << std::string(label) + ":" << text << '\n';
    }
    template <typename List>
    void Values(const std::string& label, const List& values) {
        int number = 0;
        for (const auto& value : values) {
            Value(label + " " + std::to_string(++number), value);
        }
    }

  private:
    std::ostream& out_;
    bool first_ = true;
};

void ShowSamples(BatchText& text, const Batch& batch) {
    const std::span<const SampleRecord> samples = SamplesOf(batch);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const SampleRecord& record = samples[i];
        text.Paragraph("Sample " + std::to_string(i + 1) + " of " + std::to_string(samples.size()) +
                       (i < LabBlankRecords(batch) ? " (lab blank)" : ""));
        text.Value("Report", record.FileName);
        text.Value("Compounds", std::to_string(record.CompoundCount));
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            text.Value(HeaderHeading(HeaderFieldAt(number)), record.Header[HeaderFieldAt(number)]);
        }
        if (record.TicList) {
            std::vector<std::string> tics;
            for (const TicEntry& tic : *record.TicList) {
                std::string& line = tics.emplace_back();
                for (const std::string& cell : tic.cells) {
                    line += (line.empty() ? "" : "; ") + cell;
                }
            }
            text.Values("TIC", tics);
        }
    }
}

void ShowFiles(BatchText& text, const Batch& batch) {
    const FileSet& files = batch.Files;
    text.Paragraph("Files");
    text.Value("Library", files.LibFile);
    text.Value("Internal standard", files.SurrFile);
    text.Value("Calibration", files.CalFile);
    text.Value("Lab blank", files.LabBlank);
    text.Values("Quantitation", files.QFiles);
    text.Value("Calibration report", files.Calib);
    text.Value("Check report", files.CheckCal);
    std::string hits;
    for (std::size_t i = 0; i < batch.BlankHitFlags.size(); ++i) {
        if (batch.BlankHitFlags[i]) {
            hits += (hits.empty() ? "" : " ") + std::to_string(i + 1);
        }
    }
    text.Value("Blank rows", std::to_string(batch.BlankHitFlags.size()));
    text.Value("Blank hits, rows", hits);
}

void ShowEntries(BatchText& text, const Entries& entries) {
    for (const EntryTable& table : EntryTables()) {
        text.Paragraph(std::string(table.Caption));
        for (const EntryField& field : table.Fields) {
            for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
                text.Value(LabelOf(field, item), ShownText(field, entries, item));
            }
        }
    }
}

void Show(const std::vector<std::string>& names, Context& context) {
    BatchText text(context.out);
    for (const auto& [name, prefix, saved] : ReadBatches(context, names)) {
        if (names.size() > 1) {
            text.Paragraph("Batch file " + name);
        }
        ShowSamples(text, saved.Batch);
        ShowFiles(text, saved.Batch);
        ShowEntries(text, saved.Entries);
    }
}

}  // namespace

void AddShowCommand(CLI::App& program, Context& context) {
    CLI::App& command = *program.add_subcommand(
        "show",
        "Writes batches as readable text: their samples, their files and what was\n"
        "typed for their forms.");
    const auto names = std::make_shared<std::vector<std::string>>();
    AddNames(command, "BATCH.qff", *names, "...",
             "batch files; each of several is headed by its name");
    command.callback([names, &context] { Show(*names, context); });
}

}  // namespace qfr
