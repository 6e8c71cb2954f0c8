#include "tools/kelutv/compliance/ComplianceCommand.h"

#include "tools/kelutv/compliance/ComplianceRun.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/Surroundings.h"
#include "tools/kelutv/compliance/reports/ReportCommands.h"
#include "tools/kelutv/compliance/reports/ReportFiles.h"
#include "tools/kelutv/compliance/reports/TextReport.h"
#include "tools/kelutv/compliance/results/Run.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/snapshot/RestoreReport.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <chrono>
#include <memory>

namespace kelutv::tool {

namespace {

using compliance::CheckResult;
using compliance::Checks;

constexpr Seconds kShortest{0.01};
constexpr Seconds kLongest{86400};
constexpr char kJournal[] = "kelutv-put-back.json";

struct ComplianceOptions {
    std::vector<std::string> words;
    compliance::RunOrder order{{}, kJournal};
    std::string putBack;
    compliance::ReportPaths reports;
    bool dryRun = false;
    /** Lines for checks that passed, too. */
    bool tellsAll = false;
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
    const auto all = restore({snapshotIn(options.putBack).held, false, options.order.limit},
                             [&output](const Restored& each) { tellRestored(each, false, output); });
    const Exit exit = finishRestoring(all, 0, false, output);
    if (exit == Exit::Success && options.putBack != "-") {
        ::unlink(options.putBack.c_str());
    }
    return exit;
}

/** The words of the command line that choose what is checked. */
std::vector<std::string> choiceIn(const ComplianceOptions& options) {
    std::vector<std::string> words = options.words;
    for (const std::string& name : options.order.terms.allowed) {
        words.insert(words.end(), {"--allow", name});
    }
    return words;
}

Exit judge(const ComplianceOptions& options, const Output& output) {
    const Checks checks = compliance::chosenChecks(options.words, options.order.terms);
    if (options.dryRun) {
        return rehearse(checks, output);
    }
    compliance::ReportFiles files(options.reports);
    compliance::Run run;
    run.circumstances = compliance::circumstancesNow(choiceIn(options), options.order.limit);
    const auto start = std::chrono::steady_clock::now();
    compliance::TextReport report(output, checks.size(), options.tellsAll);
    const compliance::Progress progress{[&](std::size_t values) {
                                            output.message("kelutv: " + counted(values, "value") + " to put back in " +
                                                           wire::shown(options.order.journal, wire::kMostOfPath) +
                                                           " until the end");
                                        },
                                        [&report](const CheckResult& result) { report.add(result); }};
    run.results = compliance::makeRun(checks, options.order, progress);
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    report.finish(run);
    files.write(run);
    return countOf(run.results, compliance::Verdict::failed) == 0 ? Exit::Success : Exit::Failure;
}

void addOptions(const Subcommand& command, const Options& options) {
    command.words("MODULE|PATTERN", options->words,
                  "Modules, families, functions, patterns of identifiers; else everything");
    command.flag("--dry-run", options->dryRun, "Ask nothing, and print which checks would be made");
    command.option("--allow", options->order.terms.allowed, "FUNCTION",
                   "A dangerous function that may be called; may be given again");
    command.flag("--all", options->tellsAll, "A line for each check, not only for those that failed");
    addReportOptions(command, options->reports);
    const auto readLimit = [options](const std::string& text) {
        options->order.limit = secondsOf("--limit", text, kShortest, kLongest).count();
    };
    command.option("--limit", readLimit, "SECONDS", "How long an answer may take; else 5");
    command.option("--keep", options->order.journal, "FILE",
                   "Where the values to put back are until the end; else kelutv-put-back.json");
    command.option("--put-back", options->putBack, "FILE", "Put back what such a file has, after an interruption");
}

} // namespace

void addComplianceCommand(const Command& program, Context& context) {
    const Options options = std::make_shared<ComplianceOptions>();
    const Subcommand command(
        program, "compliance",
        "Judge the service that answers by all that the catalogue says\n"
        "Makes thousands of checks of what is read, set and refused. Calls no dangerous function unless\n"
        "told, and puts back what it sets. Ends with 0 when nothing failed, 1 when something did.\n\n"
        "Examples:\n"
        "kelutv compliance\n"
        "kelutv compliance audio --dry-run\n"
        "kelutv compliance form 'state.picture.*'\n"
        "kelutv compliance --put-back kelutv-put-back.json");
    addOptions(command, options);
    compliance::addReportCommands(command, context, [options] { options->isDone = true; });
    command.action([options, &context] {
        if (options->isDone) {
            return;
        }
        context.exit = options->putBack.empty() ? judge(*options, context.output) : putBack(*options, context.output);
    });
}

} // namespace kelutv::tool
