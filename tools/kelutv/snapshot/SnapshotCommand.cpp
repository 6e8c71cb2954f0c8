#include "tools/kelutv/snapshot/SnapshotCommand.h"

#include "tools/kelutv/output/DataOutput.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/snapshot/Choice.h"
#include "tools/kelutv/snapshot/Difference.h"
#include "tools/kelutv/snapshot/RestoreReport.h"
#include "tools/kelutv/snapshot/Restoring.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/snapshot/Taking.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Shown.h"

#include <memory>
#include <optional>

namespace kelutv::tool {

namespace {

constexpr Seconds kShortest{0.01};
constexpr Seconds kLongest{86400};
constexpr double kLimit = 5;

struct SnapshotOptions {
    std::string output;
    /** How many seconds an answer may take; else `kLimit`. */
    std::optional<double> limit;
    std::string first;
    std::string second;
    std::string file;
    std::vector<std::string> ignored;
    std::vector<std::string> only;
    std::vector<std::string> dangerous;
    bool settings = false;
    bool dryRun = false;
    /** A command below this one was carried out, and this one is not meant. */
    bool isDone = false;
};

using Options = std::shared_ptr<SnapshotOptions>;

void take(const SnapshotOptions& options, const Output& output) {
    const bool isFile = !options.output.empty() && options.output != "-";
    // A path that cannot be written is told before anything is read.
    DataOutput data(isFile ? options.output : "");
    const Snapshot snapshot = takeSnapshot(options.limit.value_or(kLimit));
    const std::string text = textOf(snapshot);
    data.write(output.json && !isFile ? Json::parsed(text).dump() + '\n' : text);
    data.finish();
    if (!isFile) {
        return;
    }
    output.message("kelutv: " + std::to_string(snapshot.held.size()) + " of " +
                   counted(snapshot.readable(), "readable state") + " in " +
                   wire::shown(options.output, wire::kMostOfPath) + "; it says why each other one is missing");
    output.document({{"file", options.output}, {"readable", snapshot.readable()}, {"held", snapshot.held.size()}});
}

/** The parser takes options of the command above, too. */
void refuseOutput(const SnapshotOptions& options, const std::string& command) {
    if (!options.output.empty()) {
        throw UsageError("-o goes with 'kelutv snapshot' alone, which takes one, not with '" + command + '\'');
    }
}

Exit showDifference(const SnapshotOptions& options, const Output& output) {
    refuseOutput(options, "diff");
    if (options.limit) {
        throw UsageError("--limit goes with 'kelutv snapshot' and its 'restore', not with 'diff', which asks nothing");
    }
    refuseEmpty("--ignore", options.ignored);
    const Snapshot first = snapshotIn(options.first);
    const Snapshot second = snapshotIn(options.second);
    const SnapshotComparison comparison = compare(first, second, [&options](const HeldState& held) {
        return !isMeant(held.state, options.ignored) && (!options.settings || !settersOf(held).empty());
    });
    for (const Difference& each : comparison.differences) {
        output.line(output.styled(Style::Name, each.state) + ": " + heldText(each.state, each.first) + " -> " +
                    heldText(each.state, each.second));
        output.document({{"state", each.state}, {"first", each.first}, {"second", each.second}});
    }
    output.message("kelutv: " + counted(comparison.differences.size(), "difference") + " in " +
                   counted(comparison.compared, "state"));
    output.document({{"differences", comparison.differences.size()}, {"compared", comparison.compared}});
    return comparison.differences.empty() ? Exit::Success : Exit::Failure;
}

Exit putBack(const SnapshotOptions& options, const Output& output) {
    refuseOutput(options, "restore");
    Chosen chosen = chosenFrom(snapshotIn(options.file), options.only, options.dangerous);
    const RestoreOrder order{std::move(chosen.states), options.dryRun, options.limit.value_or(kLimit)};
    const auto all = restore(order, [&](const Restored& each) { tellRestored(each, options.dryRun, output); });
    if (options.dryRun || !options.only.empty()) {
        tellLeftAlone(chosen.leftAlone, output);
    }
    return finishRestoring(all, chosen.leftAlone.size(), options.dryRun, output);
}

void addLimit(const Subcommand& command, const Options& options) {
    const auto read = [options](const std::string& text) {
        options->limit = secondsOf("--limit", text, kShortest, kLongest).count();
    };
    command.option("--limit", read, "SECONDS", "How long an answer may take; else 5");
}

void addDiff(const Subcommand& snapshot, const Options& options, Context& context) {
    const Subcommand command(snapshot, "diff",
                             "Show which states two snapshots do not have alike\n"
                             "Compares values only. Ends with 1 when there is a difference.\n\n"
                             "Examples:\n"
                             "kelutv snapshot diff golden.json unit.json\n"
                             "kelutv snapshot diff golden.json unit.json --ignore '*.temperature' --json");
    command.required("A", options->first, "The one snapshot, or - for standard input");
    command.required("B", options->second, "The other one");
    command.option("--ignore", options->ignored, "STATE",
                   "Leave out states with such names, a pattern; may be given again");
    command.flag("--settings", options->settings, "Only what the catalogue can put back, not what is only read");
    command.action([options, &context] {
        options->isDone = true;
        context.exit = showDifference(*options, context.output);
    });
}

void addRestore(const Subcommand& snapshot, const Options& options, Context& context) {
    const Subcommand command(
        snapshot, "restore",
        "Set what differs from a snapshot and can be put back\n"
        "Reads each state back. Ends with 1 when something did not take. May be broken off at any\n"
        "moment and given again. Dangerous states, identity among them, stay as they are unless named.\n\n"
        "Examples:\n"
        "kelutv snapshot restore golden.json --dry-run\n"
        "kelutv snapshot restore golden.json --only 'picture.*' --only audio.volume");
    command.required("FILE", options->file, "The snapshot, or - for standard input");
    command.option("--only", options->only, "STATE", "Only states with such names, a pattern; may be given again");
    command.option("--allow-dangerous", options->dangerous, "STATE",
                   "Dangerous states with such names, too, a pattern; may be given again");
    command.flag("--dry-run", options->dryRun, "Set nothing, and print the calls that would");
    addLimit(command, options);
    command.action([options, &context] {
        options->isDone = true;
        context.exit = putBack(*options, context.output);
    });
}

} // namespace

void addSnapshotCommand(const Command& program, Context& context) {
    const Options options = std::make_shared<SnapshotOptions>();
    const Subcommand snapshot(
        program, "snapshot",
        "Keep all that a television says of itself, compare it, and put it back\n"
        "Reads every state of the catalogue under all keys that it knows, and changes nothing. The file\n"
        "says how many states there are and why each one that it does not hold is missing.\n\n"
        "Examples:\n"
        "kelutv snapshot -o golden.json\n"
        "kelutv snapshot diff golden.json unit.json\n"
        "kelutv snapshot restore golden.json --dry-run");
    snapshot.option("-o,--output", options->output, "FILE", "The file; else standard output");
    addLimit(snapshot, options);
    addDiff(snapshot, options, context);
    addRestore(snapshot, options, context);
    snapshot.action([options, &context] {
        if (!options->isDone) {
            take(*options, context.output);
        }
    });
}

} // namespace kelutv::tool
