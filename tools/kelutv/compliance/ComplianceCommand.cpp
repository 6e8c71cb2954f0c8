#include "tools/kelutv/compliance/ComplianceCommand.h"

#include "tools/kelutv/compliance/ComplianceRun.h"
#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/results/Run.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/snapshot/RestoreReport.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <unistd.h>

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
    bool dryRun = false;
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

void tell(const CheckResult& result, const Output& output) {
    if (result.verdict == compliance::Verdict::passed) {
        return;
    }
    output.line(wordsOf(result.verdict) + ": " + output.styled(Style::Name, result.id) + ": " +
                wire::shown(result.reason, wire::kMostOfPath));
}

Exit summarise(const std::vector<CheckResult>& results, const Output& output) {
    std::string text;
    for (const compliance::Verdict verdict : compliance::allVerdicts()) {
        if (const std::size_t count = compliance::countOf(results, verdict); count != 0) {
            text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + wordsOf(verdict);
        }
    }
    output.line(counted(results.size(), "check") + ": " + text);
    return compliance::countOf(results, compliance::Verdict::failed) == 0 ? Exit::Success : Exit::Failure;
}

Exit judge(const ComplianceOptions& options, const Output& output) {
    const Checks checks = compliance::chosenChecks(options.words, options.order.terms);
    if (options.dryRun) {
        return rehearse(checks, output);
    }
    const compliance::Progress progress{[&](std::size_t values) {
                                            output.message("kelutv: " + counted(values, "value") + " to put back in " +
                                                           wire::shown(options.order.journal, wire::kMostOfPath) +
                                                           " until the end");
                                        },
                                        [&output](const CheckResult& result) { tell(result, output); }};
    return summarise(compliance::makeRun(checks, options.order, progress), output);
}

void addOptions(const Subcommand& command, const Options& options) {
    command.words("MODULE|PATTERN", options->words,
                  "Modules, families, functions, patterns of identifiers; else everything");
    command.flag("--dry-run", options->dryRun, "Ask nothing, and print which checks would be made");
    command.option("--allow", options->order.terms.allowed, "FUNCTION",
                   "A dangerous function that may be called; may be given again");
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
    command.action([options, &context] {
        context.exit = options->putBack.empty() ? judge(*options, context.output) : putBack(*options, context.output);
    });
}

} // namespace kelutv::tool
