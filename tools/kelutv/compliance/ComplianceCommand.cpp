#include "tools/kelutv/compliance/ComplianceCommand.h"

#include "tools/kelutv/compliance/Discovering.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/Journal.h"
#include "tools/kelutv/compliance/Judging.h"
#include "tools/kelutv/compliance/knowledge/Capabilities.h"
#include "tools/kelutv/compliance/reports/ReportCommands.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/snapshot/RestoreReport.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <system_error>
#include <utility>

namespace kelutv::tool {

namespace {

using compliance::Checks;

constexpr Seconds kShortest{0.01};
constexpr Seconds kLongest{86400};
constexpr Seconds kLeastLatency{0.000001};

struct ComplianceOptions {
    compliance::JudgingOrder judging;
    std::string putBack;
    std::string discovered;
    bool dryRun = false;
    /** Answers of a person need not come from a terminal. */
    bool isPiped = false;
    /** A command below this one was carried out, and this one is not meant. */
    bool isDone = false;
};

using Options = std::shared_ptr<ComplianceOptions>;

/** Prints what would be checked. */
Exit rehearse(const Checks& checks, const Output& output) {
    std::size_t changing = 0;
    std::size_t leftOut = 0;
    for (const auto& check : checks) {
        const compliance::Subject& subject = check->subject();
        const std::string reason = check->whyLeftOut();
        const bool changes = check->changesState() && reason.empty();
        leftOut += reason.empty() ? 0 : 1;
        changing += changes ? 1 : 0;
        output.line(output.styled(Style::Name, subject.id) + ": " + subject.sentence +
                    (changes ? " (sets and puts back)" : "") + (reason.empty() ? "" : " (left out: " + reason + ')'));
        output.document({{"id", subject.id},
                         {"sentence", subject.sentence},
                         {"function", subject.function},
                         {"changes", changes},
                         {"leftOut", reason}});
    }
    output.message("kelutv: " + counted(checks.size(), "check") + ", " + std::to_string(changing) +
                   " of them set something and put it back, " + std::to_string(leftOut) + " left out");
    return Exit::Success;
}

Exit putBack(const ComplianceOptions& options, const Output& output) {
    if (!options.judging.words.empty()) {
        throw UsageError("--put-back makes no checks, so that it takes no '" +
                         wire::shown(options.judging.words.front()) + '\'');
    }
    const auto all = restore({compliance::journalIn(options.putBack).held, options.dryRun, options.judging.order.limit},
                             [&](const Restored& each) { tellRestored(each, options.dryRun, output); });
    const Exit exit = finishRestoring(all, 0, options.dryRun, output);
    if (exit == Exit::Success && !options.dryRun && options.putBack != "-") {
        ::unlink(options.putBack.c_str());
    }
    return exit;
}

/** Whether the path is that of a file, or of nothing; what is written to a pipe or a device replaces nothing. */
bool canBeReplaced(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    return !path.empty() && (!std::filesystem::exists(status) || std::filesystem::is_regular_file(status));
}

bool isSameFile(const std::string& left, const std::string& right) {
    namespace fs = std::filesystem;
    std::error_code error;
    return fs::equivalent(left, right, error) ||
           fs::weakly_canonical(fs::absolute(left), error) == fs::weakly_canonical(fs::absolute(right), error);
}

/** @throws UsageError when two things would be written into one file */
void requireFilesApart(const ComplianceOptions& options) {
    const compliance::ReportPaths& reports = options.judging.reports;
    const std::pair<const char*, std::string> files[] = {{"--keep", options.judging.order.journal},
                                                         {"-o", reports.json},
                                                         {"--junit", reports.junit},
                                                         {"--html", reports.html},
                                                         {"--discover", options.discovered}};
    for (const auto* left = std::begin(files); left != std::end(files); ++left) {
        for (const auto* right = left + 1; right != std::end(files); ++right) {
            if (canBeReplaced(left->second) && canBeReplaced(right->second) &&
                isSameFile(left->second, right->second)) {
                throw UsageError(std::string(left->first) + " and " + right->first + " name the same file, " +
                                 wire::shown(right->second, wire::kMostOfPath) + "; each needs one of its own");
            }
        }
    }
}

Exit discover(const ComplianceOptions& options, const Output& output) {
    if (!options.judging.words.empty()) {
        throw UsageError("--discover chooses its checks itself, so that it takes no '" +
                         wire::shown(options.judging.words.front()) + '\'');
    }
    return compliance::discover(options.discovered, options.judging, output);
}

/** @throws UsageError where nobody could answer */
void requirePerson(const ComplianceOptions& options) {
    if (options.judging.order.terms.isInteractive && !options.isPiped && ::isatty(STDIN_FILENO) != 1) {
        throw UsageError(
            "--interactive asks a person, and standard input is no terminal; --piped takes answers from it");
    }
}

Exit judge(const ComplianceOptions& options, const Output& output) {
    const Checks checks = withoutLacking(compliance::capabilitiesIn(options.judging.capabilities),
                                         compliance::chosenChecks(options.judging.words, options.judging.order.terms));
    if (options.dryRun) {
        return rehearse(checks, output);
    }
    requirePerson(options);
    return compliance::judge(checks, options.judging, output);
}

void addOptions(const Subcommand& command, const Options& options) {
    command.words("MODULE|PATTERN", options->judging.words,
                  "Modules, families, functions, patterns of identifiers; else everything");
    command.flag("--dry-run", options->dryRun,
                 "Print which checks would be made, or what would be put back, and set nothing");
    command.option("--allow", options->judging.order.terms.allowed, "FUNCTION",
                   "A dangerous function that may be called; may be given again");
    command.flag("--all", options->judging.tellsAll, "A line for each check, not only for those that failed");
    addReportOptions(command, options->judging.reports);
    const auto addTime = [&command](const char* name, std::optional<std::chrono::nanoseconds>& time, const char* help) {
        const auto read = [name, &time](const std::string& text) {
            time = std::chrono::duration_cast<std::chrono::nanoseconds>(secondsOf(name, text, kLeastLatency, kLongest));
        };
        command.option(name, read, "SECONDS", help);
    };
    addTime("--median", options->judging.order.terms.p50,
            "What half of the answers under load may take; else no limit");
    addTime("--tail", options->judging.order.terms.p99, "What 99 of a hundred of them may take; else no limit");
    command.option("--restart", options->judging.order.terms.restart, "COMMAND",
                   "A line of the shell that restarts the service, to see it found again");
    command.flag("--interactive", options->judging.order.terms.isInteractive,
                 "Ask a person at the terminal what is to be seen and done, too");
    command.flag("--piped", options->isPiped, "With --interactive, take the answers from a pipe");
    command.needs("--piped", "--interactive");
    command.option("--capabilities", options->judging.capabilities, "FILE",
                   "What the television has; checks of what it lacks are left out");
    command.option("--discover", options->discovered, "FILE", "Find out what the television has, and write that");
    command.option("--expect", options->judging.known, "FILE",
                   "Checks that are known to fail, which are expected failures then");
    const auto readLimit = [options](const std::string& text) {
        options->judging.order.limit = secondsOf("--limit", text, kShortest, kLongest).count();
    };
    command.option("--limit", readLimit, "SECONDS", "How long an answer may take; else 5");
    command.option("--keep", options->judging.order.journal, "FILE",
                   "Where the values to put back are until the end; else kelutv-put-back.json");
    command.option("--put-back", options->putBack, "FILE", "Put back what such a file has, after an interruption");
    for (const char* const other : {"--dry-run", "--all", "--output", "--junit", "--html", "--median", "--tail",
                                    "--restart", "--interactive", "--capabilities", "--expect", "--put-back"}) {
        command.excludes("--discover", other);
    }
}

} // namespace

void addComplianceCommand(const Command& program, Context& context) {
    const Options options = std::make_shared<ComplianceOptions>();
    const Subcommand command(
        program, "compliance",
        "Judge the service that answers by all that the catalogue says\n"
        "Makes thousands of checks of what is read, set, refused and told, of calls at once, and of what its\n"
        "clients may do to it. Calls no dangerous function unless told, and puts back what it sets.\n"
        "Ends with 0 when nothing failed, 1 when something did.\n\n"
        "Examples:\n"
        "kelutv compliance\n"
        "kelutv compliance audio --dry-run\n"
        "kelutv compliance form 'state.picture.*'\n"
        "kelutv compliance -o today.json --html today.html\n"
        "kelutv compliance --put-back kelutv-put-back.json");
    addOptions(command, options);
    compliance::addReportCommands(command, context, [options] { options->isDone = true; });
    command.action([options, &context] {
        if (options->isDone) {
            return;
        }
        requireFilesApart(*options);
        context.exit = !options->putBack.empty()      ? putBack(*options, context.output)
                       : !options->discovered.empty() ? discover(*options, context.output)
                                                      : judge(*options, context.output);
    });
}

} // namespace kelutv::tool
