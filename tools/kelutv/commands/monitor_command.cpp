#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/process/SignalWatch.h"
#include "tools/kelutv/text/Words.h"

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
    std::vector<std::string> events;
    std::vector<std::string> modules;
    bool all = false;
};

/** The events that are shown: all that come when none are named. */
struct Wanted {
    std::set<std::uint32_t> events;
    std::set<std::uint32_t> modules;

    bool includes(std::uint32_t id) const {
        return (events.empty() && modules.empty()) || events.count(id) != 0 || modules.count(moduleOf(id)) != 0;
    }
};

Wanted wantedBy(const MonitorOptions& options) {
    Wanted wanted;
    for (const std::string& event : options.events) {
        wanted.events.insert(eventOf(event));
    }
    for (const std::string& module : options.modules) {
        wanted.modules.insert(moduleOf(module));
    }
    if (options.all) {
        for (const std::uint32_t module : allModules()) {
            wanted.modules.insert(module);
        }
    }
    return wanted;
}

std::set<std::uint32_t> modulesOf(const Wanted& wanted) {
    std::set<std::uint32_t> modules = wanted.modules;
    for (const std::uint32_t event : wanted.events) {
        modules.insert(moduleOf(event));
    }
    return modules;
}

/** The payload as int words; empty when it is no row of them. */
std::vector<std::int32_t> wordsOf(const Bytes& payload) {
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

std::string wordsText(const ReceivedEvent& event) {
    const std::optional<EventName> name = eventNamed(event.id);
    std::string text;
    std::size_t index = 0;
    for (const std::int32_t word : wordsOf(event.payload)) {
        const bool isNamed = name.has_value() && index < name->words.size();
        text +=
            (text.empty() ? "" : ", ") + (isNamed ? name->words[index] + std::string("=") : "") + std::to_string(word);
        ++index;
    }
    return text;
}

std::string lineOf(const ReceivedEvent& event, const Output& output) {
    const std::optional<EventName> name = eventNamed(event.id);
    const std::string words = wordsText(event);
    return output.styled(Style::Dim, clockText(event.time)) + ' ' + output.styled(Style::Number, idText(event.id)) +
           ' ' + moduleName(moduleOf(event.id)) +
           (name.has_value() ? ' ' + output.styled(Style::Name, name->name) : "") + " (" +
           std::to_string(event.payload.size()) + " bytes" +
           (event.payload.empty() ? "" : ": " + spacedHexOf(event.payload)) + ')' +
           (words.empty() ? "" : ": " + output.styled(Style::Value, words));
}

Json documentOf(const ReceivedEvent& event) {
    const std::optional<EventName> name = eventNamed(event.id);
    const std::string module = moduleName(moduleOf(event.id));
    Json document;
    document["time"] = std::chrono::duration<double>(event.time.time_since_epoch()).count();
    document["event"] = event.id;
    document["name"] = name.has_value() ? Json(name->name) : Json();
    document["module"] = !module.empty() ? Json(module) : Json();
    document["length"] = event.payload.size();
    document["payload"] = hexOf(event.payload);
    document["words"] = wordsOf(event.payload);
    return document;
}

class Monitor {
public:
    Monitor(const MonitorOptions& options, const Output& output)
        : mOptions(options), mOutput(output), mWanted(wantedBy(options)) {
        if (options.seconds > 0) {
            mEnd = Clock::now() +
                   std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options.seconds));
        }
    }

    void run() {
        SignalWatch signals{SIGINT, SIGTERM};
        mQueue.take(); // What came to an earlier command.
        const EventSubscription subscription(modulesOf(mWanted));
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
            if (isLost && !isEnough()) {
                throw LinkError("the service is gone");
            }
        }
    }

private:
    bool isEnough() const { return mOptions.count != 0 && mPrinted == mOptions.count; }

    /** False when the time is over. */
    bool wait(const SignalWatch& signals) {
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
            if (mWanted.includes(event.id) && !isEnough()) {
                mOutput.line(lineOf(event, mOutput));
                mOutput.document(documentOf(event));
                ++mPrinted;
            }
        }
    }

    const MonitorOptions& mOptions;
    const Output& mOutput;
    Wanted mWanted;
    EventQueue& mQueue = EventQueue::instance();
    std::optional<Clock::time_point> mEnd;
    std::size_t mPrinted = 0;
};

} // namespace

void addMonitorCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<MonitorOptions>();
    const Subcommand command(
        program, "monitor",
        "Tell of the television's events as they come\n\n"
        "One line for each event, until SIGINT or SIGTERM. Without --event, --module and --all these are the\n"
        "events that every application of the library gets. Names of events are those of the simulator.\n\n"
        "Examples:\n"
        "kelutv monitor\n"
        "kelutv monitor --module volume --count 1 --timeout 10\n"
        "kelutv monitor --event 0x60001 --json");
    command.option("-n,--count", options->count, "N", "End after this many events");
    command.option("-t,--timeout", options->seconds, "SECONDS", "End after this many seconds");
    command.option("-e,--event", options->events, "NUMBER|NAME", "Only this event; may be given several times");
    command.option("-m,--module", options->modules, "NUMBER|NAME",
                   "Only the events of this module; may be given several times");
    command.flag("-a,--all", options->all, "The events of all modules");
    command.action([options, &context] { Monitor(*options, context.output).run(); });
}

} // namespace kelutv::tool
