#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <nlohmann/json.hpp>
#include <variant>

#include "app/BatchReview.h"
#include "app/batch/BatchCommand.h"
#include "platform/Text.h"

namespace qfr {
namespace {

struct Arguments {
    std::vector<std::string> Batches;
    std::string Format;
    std::string Limits;
};

using Json = nlohmann::ordered_json;

void WriteText(std::ostream& out, const NamedBatch& batch, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        out << Visible(batch.prefix + OneLine(FindingLine(finding, batch.saved.Batch))) << '\n';
    }
    out << Visible(batch.name) << ": " << CountText(findings, Severity::kError) << ", "
        << CountText(findings, Severity::kWarning) << ", " << CountText(findings, Severity::kNote)
        << '\n';
}

Json JsonOf(const Finding& finding, const Batch& batch) {
    Json samples = Json::array();
    for (const std::size_t record : finding.Records) {
        samples.push_back(SampleName((*batch.SampleList)[record]));
    }
    return {{"rule", finding.Rule->Id},
            {"severity", SeverityName(finding.Rule->Severity)},
            {"form", finding.Form},
            {"samples", samples},
            {"subject", finding.Subject},
            {"sentence", finding.Sentence},
            {"why", finding.Rule->Why},
            {"mend",
             {{"where", finding.Mend.Control.empty() ? "" : MendText(finding.Mend)},
              {"control", finding.Mend.Control},
              {"row", finding.Mend.Row}}}};
}

Json JsonOf(const NamedBatch& batch, const std::vector<Finding>& findings) {
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back(JsonOf(finding, batch.saved.Batch));
    }
    return {{"batch", batch.name},
            {"errors", CountFindings(findings, Severity::kError)},
            {"warnings", CountFindings(findings, Severity::kWarning)},
            {"notes", CountFindings(findings, Severity::kNote)},
            {"findings", list}};
}

// Absent after the message that says why the file cannot be used.
std::optional<ReviewLimits> ReadLimits(Context& context, const std::string& name) {
    if (name.empty()) {
        return ReviewLimits();
    }
    std::optional<LineReader> content = OpenInput(context, name);
    if (!content) {
        return std::nullopt;
    }
    const auto limits = ReadReviewLimits(*std::move(content), name);
    if (const auto* message = std::get_if<Message>(&limits)) {
        context.Show(*message);
        return std::nullopt;
    }
    return std::get<ReviewLimits>(limits);
}

void Check(const Arguments& arguments, Context& context) {
    if (arguments.Format != "text" && arguments.Format != "json" && !arguments.Format.empty()) {
        throw WrongUsage("there is no format \"" + arguments.Format + "\"; text or json");
    }
    const bool asJson = arguments.Format == "json";
    const std::vector<NamedBatch> batches = ReadBatches(context, arguments.Batches);
    const std::optional<ReviewLimits> limits = ReadLimits(context, arguments.Limits);
    if (batches.empty() || !limits) {
        context.Fail(kUnusable);
        return;
    }
    if (const auto reason = context.platform.Start()) {
        context.Complain(kUnusable) << *reason << '\n';
        return;
    }
    Json document = {{"batches", Json::array()}};
    for (const NamedBatch& batch : batches) {
        if (context.IsEnding()) {
            break;
        }
        const std::vector<Finding> findings =
            ReviewAsPrinted(batch.saved, 0, context.platform.Metrics(), *limits);
        context.Fail(CountFindings(findings, Severity::kError) > 0 ? kIncomplete : kDone);
        if (asJson) {
            document["batches"].push_back(JsonOf(batch, findings));
        } else {
            WriteText(context.out, batch, findings);
        }
    }
    if (asJson) {
        context.out << document.dump(2, ' ', true, Json::error_handler_t::replace) << '\n';
    }
}

std::string RuleList() {
    std::string text = "Rules:";
    for (const Rule& rule : ReviewRules()) {
        constexpr std::size_t kColumn = 32;
        std::string line = "  " + std::string(rule.Id);
        line.resize(std::max(line.size() + 1, kColumn), ' ');
        text += "\n" + line + std::string(rule.Title);
    }
    return text;
}

}  // namespace

void AddCheckCommand(CLI::App& program, Context& context) {
    CLI::App& command = *program.add_subcommand(
        "check",
        "Says what a reviewer would flag on the forms of batches. Exit status 1 says\n"
        "that there are errors.");
    const auto arguments = std::make_shared<Arguments>();
    AddNames(command, "BATCH.qff", arguments->Batches, "...", "batch files");
    AddOption(command, "--format", arguments->Format, "FORMAT",
              "text: one line a finding, by form and sample; or json");
    AddOption(command, "--limits", arguments->Limits, "FILE",
              "limits of the laboratory, as lines \"max-rsd = 20\"");
    command.footer(RuleList());
    command.callback([arguments, &context] { Check(*arguments, context); });
}

}  // namespace qfr
