#include "app/batch/BatchCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <set>
#include <span>
#include <variant>

#include "platform/FileLookup.h"
#include "platform/Text.h"

namespace qfr {
namespace {

constexpr char kExitStatus[] = R"("qfrbatch COMMAND --help" explains a command.

Exit status:
  0  all was done
  1  something was left out, because a report was rejected, a form was refused, a file
     could not be written, or a new batch lacks a report that it cannot be restored
     without; the rest was done. Or a form was printed, and a message says what is
     wrong with it. Or check has found errors
  2  wrong usage, or a batch that cannot be restored; further batches were done
Messages go to standard error.)";

bool IsHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

// "; did you mean NAME?" where a name begins with the text, or is the same but for two letters in a
// row and most of the text.
template <typename List>
std::string Suggestion(std::string_view text, const List& known) {
    for (const auto* entry : known) {
        const std::string name = entry->get_name();
        const auto front = std::ranges::mismatch(text, name).in1 - text.begin();
        const auto back = std::mismatch(text.rbegin(), text.rend(), name.rbegin(), name.rend());
        const auto letters =
            std::max(std::ssize(text), std::ssize(name)) - front - (back.first - text.rbegin());
        if (name.starts_with(text) ? text.size() > 2 && name != text
                                   : letters <= 2 && letters * 2 < std::ssize(text)) {
            return "; did you mean " + name + "?";
        }
    }
    return "";
}

// The words in the order in which CLI11 takes them off the end: each option and its value apart,
// and the operands last. CLI11 by itself takes another option, or what follows "--forms=", for a
// value, knows no "-o=FILE" but "-oFILE", and not that further names may follow that of a sample.
std::vector<std::string> Arrange(const CLI::App& command, std::span<const std::string> words) {
    const auto find = [&](const std::string& name) {
        return IsHelp(name) ? nullptr : command.get_option_no_throw(name);
    };
    std::vector<std::string> arranged;
    std::vector<std::string> operands = {"--"};
    std::set<const CLI::Option*> given;
    const CLI::Option* last = nullptr;
    bool onlyOperands = false;
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (!onlyOperands && *word == "--") {
            onlyOperands = true;
        } else if (!onlyOperands && word->size() > 1 && word->front() == '-') {
            const std::size_t equals = word->find('=');
            const std::string name = word->substr(0, equals);
            last = find(name);
            if (!last) {
                throw WrongUsage("unknown option " + name +
                                 Suggestion(name, command.get_options()));
            }
            if (last->get_expected_max() == 1 && !given.insert(last).second) {
                throw WrongUsage("option " + name + " is given twice");
            }
            std::string value = equals == std::string::npos ? "" : word->substr(equals + 1);
            if (equals == std::string::npos && word + 1 != words.end() && !find(word[1])) {
                value = *++word;
            }
            if (value.empty()) {
                throw WrongUsage("option " + name + " needs a value");
            }
            arranged.insert(arranged.end(), {name, value});
        } else if (last && last->get_expected_max() > 1 && operands.size() > 1) {
            arranged.insert(arranged.end(), {last->get_name(), *word});
        } else {
            operands.push_back(*word);
        }
    }
    arranged.insert(arranged.end(), operands.begin(), operands.end());
    std::reverse(arranged.begin(), arranged.end());
    return arranged;
}

}  // namespace

void AddOption(CLI::App& command, const std::string& name, std::string& value,
               const std::string& text, const std::string& help) {
    command.add_option(name, value, help)->option_text(text);
}

void AddNames(CLI::App& command, const std::string& name, std::vector<std::string>& names,
              const std::string& text, const std::string& help) {
    // Bound to the names themselves, CLI11 would read "{}" as none, and extra arguments such as
    // "[a,b]" as several.
    const auto take = [&names](const CLI::results_t& results) {
        names = results;
        return true;
    };
    constexpr int kAny = CLI::detail::expected_max_vector_size;
    command.add_option(name, take, help)->take_all()->expected(kAny, kAny)->option_text(text);
}

std::optional<LineReader> OpenInput(Context& context, const std::string& name, bool onlyHead) {
    FileFinder finder;
    const auto path = finder.Find(name);
    std::optional<LineReader> content;
    if (path) {
        content = onlyHead ? LineReader::OpenHead(*path, 1) : LineReader::Open(*path);
    }
    if (finder.FoundSeveral()) {
        context.Complain() << OneLine(NameIsNotUnique(name).text) << '\n';
    } else if (!content && path && LineReader::IsTooLarge(*path)) {
        context.Complain() << name << " has more than " << LineReader::kMaxFileSizeText << '\n';
    } else if (!content) {
        context.Complain() << name << " could not be " << (path ? "read" : "found") << '\n';
    }
    return content;
}

std::vector<NamedBatch> ReadBatches(Context& context, const std::vector<std::string>& names) {
    if (names.empty()) {
        throw WrongUsage("at least one batch file is to be named");
    }
    std::vector<NamedBatch> batches;
    for (const std::string& name : names) {
        context.prefix = names.size() > 1 ? name + ": " : "";
        if (std::optional<LineReader> content = OpenInput(context, name)) {
            auto restored = RestoreBatch(*std::move(content), name);
            if (const auto* message = std::get_if<Message>(&restored)) {
                context.Show(*message);
            } else {
                auto& saved = std::get<SavedBatch>(restored);
                if (saved.TextsNote) {
                    context.Show(*saved.TextsNote);
                    context.Fail(kIncomplete);
                }
                batches.push_back({name, context.prefix, std::move(saved)});
            }
        }
    }
    context.prefix.clear();
    context.Fail(batches.size() == names.size() ? kDone : kUnusable);
    return batches;
}

bool IsReportName(std::string_view name) {
    return EndsWith(name, ".prn") || EndsWith(name, ".cal") || EndsWith(name, ".check");
}

int RunBatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                    BatchPlatform& platform) {
    Context context(out, err, platform);
    CLI::App program("Prepares and prints batches of QFR Forms without a display.", "qfrbatch");
    program.set_help_flag("-h,--help", "this text");
    program.allow_windows_style_options(false)->group("Commands");
    program.get_formatter()->column_width(22);
    AddLoadCommand(program, context);
    AddPrintCommand(program, context);
    AddShowCommand(program, context);
    AddCheckCommand(program, context);
    AddExportCommand(program, context);
    program.footer(kExitStatus);

    std::string name = "qfrbatch";
    try {
        if (arguments.empty()) {
            context.Fail(kUnusable);
            err << program.help();
        } else if (IsHelp(arguments.front())) {
            out << program.help();
        } else {
            const std::string& word = arguments.front();
            const std::vector<CLI::App*> commands = program.get_subcommands({});
            const auto command = std::ranges::find(commands, word, &CLI::App::get_name);
            if (command == commands.end()) {
                throw WrongUsage("unknown command " + word + Suggestion(word, commands));
            }
            if (std::ranges::any_of(arguments, IsHelp)) {
                out << (*command)->help(name);
            } else {
                name += " " + word;
                (*command)->parse(Arrange(**command, std::span(arguments).subspan(1)));
            }
        }
    } catch (const std::runtime_error& trouble) {  // ours, or one of CLI11's
        context.Fail(kUnusable);
        err << name << ": " << Visible(trouble.what()) << "\nTry \"" << name << " --help\".\n";
    }
    out.flush();
    if (!out) {
        context.Complain() << "standard output could not be written\n";
    }
    return context.exitCode;
}

}  // namespace qfr
