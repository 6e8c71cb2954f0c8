#include "tools/kelutv/replay/ReplayCommand.h"

#include "tools/kelutv/replay/Guarded.h"
#include "tools/kelutv/replay/ReplayReport.h"
#include "tools/kelutv/snapshot/RestoreReport.h"
#include "tools/kelutv/snapshot/Restoring.h"
#include "tools/kelutv/text/Lists.h"

#include <csignal>
#include <cstring>
#include <functional>
#include <memory>
#include <set>

namespace kelutv::tool {

namespace {

/** How many seconds reading or setting a state may take. */
constexpr double kLimit = 5;

struct ReplayOptions {
    std::string file;
    ReplayChoice choice;
    std::vector<std::string> ignored;
    bool putsBack = false;
};

using Options = std::shared_ptr<ReplayOptions>;

Exit sendAll(const ReplayPlan& plan, const Ignored& ignored, const Output& output) {
    const ReplaySum sum =
        replay(plan.calls, ignored, [&output](const RecordedCall& call, const std::vector<ValueDifference>& values) {
            tellDifference(call, values, output);
        });
    return finishReplay(plan, sum, output);
}

/** What the work ends with, or what ended it, having said so. */
Exit complaining(const Output& output, const std::function<Exit()>& work) {
    try {
        return work();
    } catch (const ToolError& error) {
        output.complain(error.what(), error.exit());
        return error.exit();
    }
}

std::string notPutBackText(const StatesToSet& states, const std::set<std::string>& done) {
    std::vector<std::string> names;
    for (const HeldState& held : states.held) {
        if (done.count(held.state) == 0) {
            names.push_back(held.state);
        }
    }
    return joined(names);
}

/** Tells of what it did only when all is done, so that nobody who stops reading breaks it off. */
Exit putBack(const StatesToSet& states, const Output& output) {
    std::set<std::string> done;
    std::vector<Restored> news;
    const auto tellNews = [&] {
        for (const Restored& each : news) {
            tellRestored(each, false, output);
        }
    };
    std::vector<Restored> all;
    try {
        all = restore({states.held, false, kLimit}, [&](const Restored& each) {
            if (each.isAsWanted()) {
                done.insert(each.state);
            }
            news.push_back(each);
        });
    } catch (const ToolError& error) {
        output.complain(std::string(error.what()) + "; not known to be as before: " + notPutBackText(states, done),
                        error.exit());
        tellNews();
        return error.exit();
    }
    tellNews();
    return finishRestoring(all, 0, false, output);
}

Exit worse(Exit one, Exit other) {
    return one == Exit::Success || (one == Exit::Failure && other != Exit::Success) ? other : one;
}

Exit sendAndPutBack(const ReplayPlan& plan, const Ignored& ignored, const Output& output) {
    const StatesToSet states = statesSetBy(plan.calls, kLimit);
    tellLost(states, output);
    Exit exit = Exit::Success;
    const GuardedEnd end =
        doGuarded([&] { return complaining(output, [&] { return sendAll(plan, ignored, output); }); },
                  [&](const GuardedEnd& broken) {
                      if (broken.signal != 0) {
                          output.message(std::string("kelutv: not all was sent: ") + ::strsignal(broken.signal));
                      }
                      exit = complaining(output, [&] { return putBack(states, output); });
                  });
    if (end.signal != 0) {
        std::signal(end.signal, SIG_DFL);
        std::raise(end.signal);
    }
    return worse(end.exit, exit);
}

} // namespace

void addRecordingReplay(const Subcommand& recording, Context& context) {
    const Options options = std::make_shared<ReplayOptions>();
    const Subcommand command(recording, "replay",
                             "Send what was recorded to the television, and compare the answers\n"
                             "Sends the requests of all threads one after the other, as they were recorded, without\n"
                             "waiting between them. Ends with 1 when an answer is another one.\n\n"
                             "Examples:\n"
                             "kelutv recording replay field.jsonl --restore\n"
                             "kelutv recording replay field.jsonl --only 'CMD_AUDIO_*' --ignore any:value");
    command.required("FILE", options->file, "The recording, or - for standard input");
    command.option("--only", options->choice.only, "REQUEST",
                   "Send only requests with such a name or number; may be given again");
    command.option("--allow-dangerous", options->choice.dangerous, "REQUEST",
                   "Send requests with such a name, too, although they are dangerous; may be given again");
    command.option("--ignore", options->ignored, "REQUEST|EVENT",
                   "Do not compare answers to such requests, or with :NAME behind it not their values of that name; "
                   "may be given again");
    command.flag("--restore", options->putsBack, "Put back at the end what is set, as far as the catalogue can");
    command.action([options, &context] {
        const ReplayPlan plan = planOf(options->file, options->choice);
        const Ignored ignored("--ignore", options->ignored);
        const auto send = options->putsBack ? sendAndPutBack : sendAll;
        context.exit = send(plan, ignored, context.output);
    });
}

} // namespace kelutv::tool
