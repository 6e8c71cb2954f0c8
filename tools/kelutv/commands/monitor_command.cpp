#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventText.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/worker/EventFeed.h"
#include "tools/kelutv/worker/TimedCommand.h"
#include "tools/process/Deadline.h"
#include "tools/process/SignalWatch.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>

namespace kelutv::tool {

namespace {

struct MonitorOptions {
    std::size_t count = 0;
    std::string eventFile;
    std::vector<std::string> events;
    std::vector<std::string> modules;
    bool all = false;
    bool isOverWithService = false;
};

/** The events that are shown: all that come when none are named. */
struct EventFilter {
    std::vector<EventRange> events;
    std::set<std::uint32_t> modules;

    bool includes(std::uint32_t id) const {
        return (events.empty() && modules.empty()) || modules.count(wire::moduleOf(id)) != 0 ||
               std::any_of(events.begin(), events.end(),
                           [id](const EventRange& range) { return range.first <= id && id <= range.last; });
    }
};

EventFilter filterOf(const MonitorOptions& options, const wire::EventTable& events) {
    EventFilter filter;
    for (const std::string& event : options.events) {
        filter.events.push_back(eventNamed(events, event));
    }
    for (const std::string& module : options.modules) {
        filter.modules.insert(moduleNamed(module));
    }
    if (options.all) {
        for (const std::uint32_t module : allModules()) {
            filter.modules.insert(module);
        }
    }
    return filter;
}

std::set<std::uint32_t> modulesOf(const EventFilter& filter) {
    std::set<std::uint32_t> modules = filter.modules;
    for (const EventRange& range : filter.events) {
        modules.insert(wire::moduleOf(range.first));
    }
    return modules;
}

/** Watches until enough has been seen, over one connection after the other. */
class Monitor {
public:
    Monitor(const MonitorOptions& options, const Context& context)
        : mOptions(options), mOutput(context.output), mTime(context.time), mEnd(process::deadlineIn(context.time)),
          mEvents(eventsOf(options.eventFile)), mFilter(filterOf(options, mEvents)) {}

    void run() {
        process::SignalWatch signals{SIGINT, SIGTERM};
        mFeed = std::make_unique<EventFeed>(modulesOf(mFilter), EventFeed::First::MustBeThere);
        while (!isEnough()) {
            if (!process::waitToRead({mFeed->fd(), signals.fd()}, mEnd)) {
                endInTime();
                return;
            }
            if (signals.take()) {
                return;
            }
            takeNews();
            if (isReaderGone()) {
                return;
            }
        }
    }

private:
    bool isEnough() const { return mOptions.count != 0 && mPrinted == mOptions.count; }

    /** @throws ToolError unless there was something to watch and no number was to be reached */
    void endInTime() const {
        if (mOptions.count != 0) {
            throw ToolError(Exit::TimeOver, "the time was over after " + std::to_string(mPrinted) + " of " +
                                                std::to_string(mOptions.count) + " events");
        }
        if (!mHasWatched) {
            throw ToolError(Exit::TimeOver, timeOverText(*mTime));
        }
    }

    void takeNews() {
        while (const auto news = isEnough() ? std::nullopt : mFeed->take()) {
            switch (news->kind) {
            case EventFeed::News::Kind::Begin:
                begin();
                break;
            case EventFeed::News::Kind::Event:
                show(news->event);
                break;
            case EventFeed::News::Kind::End:
                goOn();
                return;
            }
        }
    }

    void show(const ReceivedEvent& event) {
        if (mFilter.includes(event.id)) {
            print(KnownEvent(event, mEvents), mOutput);
            ++mPrinted;
        }
    }

    void begin() {
        if (mHasWatched) {
            tell("back", "kelutv: the service is back");
        } else {
            mOutput.message("kelutv: watching for events");
        }
        mHasWatched = true;
    }

    /** What has lost its connection does not connect again: another one does, when there is a service. */
    void goOn() {
        if (mOptions.isOverWithService) {
            throw LinkError("the service is gone");
        }
        tell("gone", "kelutv: the service is gone; watching goes on when it is back");
        mFeed = std::make_unique<EventFeed>(modulesOf(mFilter), EventFeed::First::IsAwaited);
    }

    void tell(const char* what, const char* message) const {
        mOutput.message(message);
        mOutput.document({{"time", documentTime(std::chrono::system_clock::now())}, {"service", what}});
    }

    const MonitorOptions& mOptions;
    const Output& mOutput;
    const std::optional<Seconds> mTime;
    const process::Deadline mEnd;
    const wire::EventTable mEvents;
    const EventFilter mFilter;
    std::unique_ptr<EventFeed> mFeed;
    bool mHasWatched = false;
    std::size_t mPrinted = 0;
};

} // namespace

void addMonitorCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<MonitorOptions>();
    const Subcommand command(
        program, "monitor",
        "Show the television's events as they come\n\n"
        "One line for each event, until SIGINT or SIGTERM, or for as long as --timeout says; when the service goes\n"
        "away, a message says so, and watching goes on when it is back. Without --event, --module and --all these\n"
        "are the events that every application of the library gets. Names of events and fields are those of the\n"
        "simulated television, or of the file of --events or of the variable KELUTV_EVENTS.\n\n"
        "Examples:\n"
        "kelutv monitor\n"
        "kelutv monitor --module volume --count 1 --timeout 10\n"
        "kelutv monitor --event 0x60001 --json\n"
        "kelutv monitor --events my-television.md --event volumeChanged");
    command.option(
        "-n,--count", [options](const std::string& text) { options->count = countOf("--count", text); }, "N",
        "End after this many events");
    command.option("-e,--event", options->events, "EVENT",
                   "Only this event, by name or number; may be given several times");
    command.option("-m,--module", options->modules, "MODULE",
                   "Only the events of this module, by name or number; may be given several times");
    command.option("--events", options->eventFile, "FILE", "What events the television has, as a table");
    command.flag("-a,--all", options->all, "The events of all modules");
    command.flag("-x,--exit-on-loss", options->isOverWithService, "End with exit code 3 when the service is gone");
    command.action([options, &context] { Monitor(*options, context).run(); });
}

} // namespace kelutv::tool
