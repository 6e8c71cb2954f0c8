#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/process/SignalWatch.h"
#include "wire/events/Payload.h"
#include "wire/text/Describe.h"

#include <poll.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ctime>
#include <memory>
#include <optional>
#include <set>

namespace kelutv::tool {

namespace {

using Clock = std::chrono::steady_clock;

struct MonitorOptions {
    std::size_t count = 0;
    double seconds = 0;
    std::string eventFile;
    std::vector<std::string> events;
    std::vector<std::string> modules;
    bool all = false;
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

/** The payload as int words; empty when it is no row of them. */
std::vector<std::int32_t> int32sOf(const Bytes& payload) {
    if (payload.empty() || payload.size() % sizeof(std::int32_t) != 0) {
        return {};
    }
    std::vector<std::int32_t> words(payload.size() / sizeof(std::int32_t));
    std::memcpy(words.data(), payload.data(), payload.size());
    return words;
}

std::string clockText(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count() % 1000;
    std::tm local{};
    ::localtime_r(&seconds, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof(text), "%H:%M:%S", &local);
    std::snprintf(text + length, sizeof(text) - length, ".%03d", static_cast<int>(milliseconds));
    return text;
}

std::string idText(std::uint32_t id) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%X", id);
    return text;
}

/** An event with what the television's table says of it. */
struct KnownEvent {
    KnownEvent(const ReceivedEvent& what, const wire::EventTable& events)
        : received(what), known(events.find(what.id)), module(moduleName(wire::moduleOf(what.id))),
          fields(wire::readPayload(known, what.payload)) {}

    const ReceivedEvent& received;
    /** Null when the table does not have it. */
    const wire::Event* known;
    /** Empty for one that the event manager does not have. */
    std::string module;
    std::vector<wire::PayloadValue> fields;
};

std::string fieldsText(const KnownEvent& event) {
    std::string text;
    for (const wire::PayloadValue& field : event.fields) {
        text += (text.empty() ? "" : ", ") + (field.name != nullptr ? field.name + std::string("=") : "") +
                wire::describe({field.value}, field.encoding, field.names);
    }
    return text;
}

std::string lineOf(const KnownEvent& event, const Output& output) {
    const Bytes& payload = event.received.payload;
    const std::string fields = fieldsText(event);
    return output.styled(Style::Dim, clockText(event.received.time)) + ' ' +
           output.styled(Style::Number, idText(event.received.id)) + ' ' + event.module +
           (event.known != nullptr ? ' ' + output.styled(Style::Name, event.known->name) : "") + " (" +
           std::to_string(payload.size()) + " bytes" + (payload.empty() ? "" : ": " + spacedHexOf(payload)) + ')' +
           (fields.empty() ? "" : ": " + output.styled(Style::Value, fields));
}

Json documentOf(const KnownEvent& event) {
    Json document;
    document["time"] = std::chrono::duration<double>(event.received.time.time_since_epoch()).count();
    document["event"] = event.received.id;
    document["name"] = event.known != nullptr ? Json(event.known->name) : Json();
    document["module"] = !event.module.empty() ? Json(event.module) : Json();
    document["length"] = event.received.payload.size();
    document["payload"] = hexOf(event.received.payload);
    if (event.known == nullptr) {
        document["words"] = int32sOf(event.received.payload);
        return document;
    }
    document["fields"] = Json::array();
    for (const wire::PayloadValue& field : event.fields) {
        document["fields"].add(documentOf(NamedValue{field.name, field.encoding, field.names, {field.value}}));
    }
    return document;
}

class Monitor {
public:
    Monitor(const MonitorOptions& options, const Output& output)
        : mOptions(options), mOutput(output), mEvents(eventsOf(options.eventFile)),
          mFilter(filterOf(options, mEvents)) {
        if (options.seconds > 0) {
            mEnd = Clock::now() +
                   std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options.seconds));
        }
    }

    void run() {
        process::SignalWatch signals{SIGINT, SIGTERM};
        mQueue.take(); // What came to an earlier command.
        const EventSubscription subscription(modulesOf(mFilter));
        mOutput.message("kelutv: watching for events");
        while (!isEnough()) {
            if (!wait(signals)) {
                requireCount();
                return;
            }
            if (signals.take()) {
                return;
            }
            const bool isLost = mQueue.isLost();
            printNews();
            if (isReaderGone()) {
                return;
            }
            if (isLost && !isEnough()) {
                throw LinkError("the service is gone");
            }
        }
    }

private:
    bool isEnough() const { return mOptions.count != 0 && mPrinted == mOptions.count; }

    /** False when the time is over. */
    bool wait(const process::SignalWatch& signals) {
        pollfd watched[] = {{mQueue.fd(), POLLIN, 0}, {signals.fd(), POLLIN, 0}};
        if (!mEnd) {
            ::poll(watched, 2, -1);
            return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*mEnd - Clock::now()).count();
        const auto limited = std::clamp<decltype(left)>(left, 0, INT32_MAX);
        return ::poll(watched, 2, static_cast<int>(limited)) != 0 || Clock::now() < *mEnd;
    }

    void requireCount() const {
        if (mOptions.count != 0) {
            throw ToolError(Exit::TimeOver, "the time was over after " + std::to_string(mPrinted) + " of " +
                                                std::to_string(mOptions.count) + " events");
        }
    }

    void printNews() {
        for (const ReceivedEvent& event : mQueue.take()) {
            if (mFilter.includes(event.id) && !isEnough()) {
                const KnownEvent known(event, mEvents);
                mOutput.line(lineOf(known, mOutput));
                mOutput.document(documentOf(known));
                ++mPrinted;
            }
        }
    }

    const MonitorOptions& mOptions;
    const Output& mOutput;
    const wire::EventTable mEvents;
    const EventFilter mFilter;
    EventQueue& mQueue = EventQueue::instance();
    std::optional<Clock::time_point> mEnd;
    std::size_t mPrinted = 0;
};

} // namespace

void addMonitorCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<MonitorOptions>();
    const Subcommand command(
        program, "monitor",
        "Show the television's events as they come\n\n"
        "One line for each event, until SIGINT or SIGTERM. Without --event, --module and --all these are the\n"
        "events that every application of the library gets. Names of events and fields are those of the\n"
        "simulated television, or of the file of --events or of the variable KELUTV_EVENTS.\n\n"
        "Examples:\n"
        "kelutv monitor\n"
        "kelutv monitor --module volume --count 1 --timeout 10\n"
        "kelutv monitor --event 0x60001 --json\n"
        "kelutv monitor --events my-television.md --event volumeChanged");
    command.option("-n,--count", options->count, "N", "End after this many events");
    command.option("-t,--timeout", options->seconds, "SECONDS", "End after this many seconds");
    command.option("-e,--event", options->events, "EVENT",
                   "Only this event, by name or number; may be given several times");
    command.option("-m,--module", options->modules, "MODULE",
                   "Only the events of this module, by name or number; may be given several times");
    command.option("--events", options->eventFile, "FILE", "What events the television has, as a table");
    command.flag("-a,--all", options->all, "The events of all modules");
    command.action([options, &context] { Monitor(*options, context.output).run(); });
}

} // namespace kelutv::tool
