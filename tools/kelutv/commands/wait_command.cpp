#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/events/EventText.h"
#include "tools/kelutv/events/FieldCondition.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "tools/kelutv/settings/SettingCondition.h"
#include "tools/kelutv/settings/SettingValue.h"
#include "tools/process/Deadline.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <memory>
#include <optional>
#include <set>

namespace kelutv::tool {

namespace {

/** How often one looks for a service, and at a setting that may change without an event. */
constexpr std::chrono::milliseconds kPauseOfSearch{100};
constexpr std::chrono::milliseconds kPauseOfReading{500};

struct WaitOptions {
    std::string what;
    std::vector<std::string> fields;
    std::string eventFile;
};

void waitForService(const Output& output) {
    while (!isServiceThere()) {
        process::waitToRead({}, process::deadlineIn(kPauseOfSearch));
    }
    output.message("kelutv: the service is there");
    output.document({{"service", Json("there")}});
}

/** Subscribes for as long as it lives, and says so. */
class Waiting {
public:
    Waiting(const std::set<std::uint32_t>& modules, const std::string& what, const Output& output) {
        mQueue.take(); // What came to an earlier command.
        mSubscription.emplace(modules);
        output.message("kelutv: waiting for " + what);
    }

    /** The events that have come by the deadline; none when there were none. @throws LinkError */
    std::deque<ReceivedEvent> next(process::Deadline deadline) {
        if (!mQueue.isLost()) {
            process::waitToRead({mQueue.fd()}, deadline);
        }
        const bool isLost = mQueue.isLost();
        std::deque<ReceivedEvent> events = mQueue.take();
        if (isLost && events.empty()) {
            throw LinkError("the service is gone");
        }
        return events;
    }

private:
    EventQueue& mQueue = EventQueue::instance();
    std::optional<EventSubscription> mSubscription;
};

void waitForSetting(const Comparison& comparison, const std::string& text, const Output& output) {
    const SettingCondition condition(comparison);
    Waiting waiting({}, wire::shown(text), output);
    Json value = readSetting(condition.setting());
    while (!condition.isMetBy(value)) {
        waiting.next(process::deadlineIn(kPauseOfReading));
        value = readSetting(condition.setting());
    }
    output.line(shownText(condition.setting(), value));
    output.document(documentOf(condition.setting(), value));
}

std::vector<FieldCondition> conditionsOf(const WaitOptions& options, const wire::Event* event) {
    std::vector<FieldCondition> conditions;
    for (const std::string& text : options.fields) {
        const auto comparison = comparisonIn(text);
        if (!comparison) {
            throw UsageError("'" + wire::shown(text) + "' does not say what a field is to be, as volume=35 does");
        }
        if (event == nullptr) {
            throw UsageError("the fields of event " + wire::shown(options.what) + " are not known");
        }
        conditions.emplace_back(*event, *comparison);
    }
    return conditions;
}

/** The event and what its fields are to be. */
std::string textOf(const WaitOptions& options) {
    std::string text = wire::shown(options.what);
    for (const std::string& field : options.fields) {
        text += ' ' + wire::shown(field);
    }
    return text;
}

EventRange rangeOf(const wire::EventTable& events, const std::string& name) {
    const bool isNumber = std::isdigit(static_cast<unsigned char>(name.c_str()[0])) != 0;
    if (isNumber || events.named(name) != nullptr) {
        return eventNamed(events, name);
    }
    std::vector<std::string> names = settingNames(false);
    if (std::find(names.begin(), names.end(), name) != names.end()) {
        throw UsageError("say what " + name + " is to be, as in '" + name + "=VALUE'");
    }
    const std::vector<std::string> eventNames = events.names();
    names.insert(names.end(), eventNames.begin(), eventNames.end());
    names.emplace_back("service");
    throw UsageError("there is no event or setting '" + wire::shown(name) + "' to wait for" +
                     wire::nearestHint(name, names));
}

void waitForEvent(const WaitOptions& options, const Output& output) {
    const wire::EventTable events = eventsOf(options.eventFile);
    const EventRange range = rangeOf(events, options.what);
    const auto conditions = conditionsOf(options, events.find(range.first));
    Waiting waiting({wire::moduleOf(range.first)}, textOf(options), output);
    while (true) {
        for (const ReceivedEvent& received : waiting.next(std::nullopt)) {
            const KnownEvent event(received, events);
            const bool isMeant = range.first <= received.id && received.id <= range.last;
            if (isMeant && std::all_of(conditions.begin(), conditions.end(),
                                       [&event](const FieldCondition& each) { return each.isMetBy(event.fields); })) {
                print(event, output);
                return;
            }
        }
    }
}

void wait(const WaitOptions& options, const Output& output) {
    const auto comparison = comparisonIn(options.what);
    const bool isService = options.what == "service";
    if ((comparison || isService) && !options.fields.empty()) {
        throw UnexpectedWord(options.fields.front());
    }
    if (isService) {
        waitForService(output);
    } else if (comparison) {
        waitForSetting(*comparison, options.what, output);
    } else {
        waitForEvent(options, output);
    }
}

} // namespace

void addWaitCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<WaitOptions>();
    const Subcommand command(
        program, "wait",
        "Wait until the television is as it is to be\n\n"
        "WHAT is 'service', until there is one; an EVENT by name or number, until it comes with these fields; or a\n"
        "SETTING and what it is to be, by =, ==, !=, <, <=, > or >=, in quotes since a shell reads < and > itself.\n"
        "Without --timeout it waits for as long as it takes, but an event or a setting only as long as there is a "
        "service.\n\n"
        "Examples:\n"
        "kelutv wait service --timeout 30\n"
        "kelutv wait 'volume>=20'\n"
        "kelutv wait source=hdmi2 --timeout 10\n"
        "kelutv wait volumeChanged channel=speaker 'volume<20'");
    command.required("WHAT", options->what, "service, an event, or a setting and what it is to be");
    command.words("FIELD", options->fields,
                  "What a field of the event is to be: FIELD=VALUE, or another of these signs");
    command.option("--events", options->eventFile, "FILE", "What events the television has, as a table");
    command.action([options, &context] { wait(*options, context.output); });
}

} // namespace kelutv::tool
