#include "tools/kelutv/compliance/events/EventChecks.h"

#include "tools/kelutv/compliance/events/EventOfState.h"
#include "tools/kelutv/compliance/events/Hearing.h"
#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/SetPlans.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/snapshot/StateReader.h"
#include "tools/kelutv/snapshot/StateRules.h"
#include "tools/process/Deadline.h"
#include "wire/events/Payload.h"

#include <algorithm>
#include <set>

namespace kelutv::tool::compliance {

namespace {

constexpr char kEventFamily[] = "events";
/** An event that has not come by then does not come, unless answers take long, too. */
constexpr std::chrono::milliseconds kTimeOfEvent{500};
/** On a busy machine an event may take as long as so many answers. */
constexpr int kAnswersOfEvent = 20;
/** Of a television on which so many did not come, others are waited for so long: there may be none at all. */
constexpr std::size_t kManyMissed = 10;
constexpr std::chrono::milliseconds kTimeAfterMany{100};

/** What is set, and the event that tells of it. */
struct EventPlan {
    SetPlan set;
    const wire::Event* event;
};

[[noreturn]] void endWith(Verdict verdict, const std::string& reason) { throw Ended{{verdict, reason, std::nullopt}}; }

/** The events that did not come once; they are not waited for again. */
std::set<std::string>& missedEvents() {
    static std::set<std::string> missed;
    return missed;
}

/** The payload of the event; nothing when it does not come. */
std::optional<Bytes> awaited(Television& television, const EventPlan& plan) {
    const auto time = missedEvents().size() < kManyMissed ? kTimeOfEvent : kTimeAfterMany;
    if (auto payload = Hearing::instance().next(*plan.event, time)) {
        return payload;
    }
    answerTo(television, requestsFor(plan.set.reading).front());
    const auto busy = kAnswersOfEvent * television.slowestAnswer();
    return Hearing::instance().next(*plan.event, std::chrono::duration_cast<std::chrono::milliseconds>(busy));
}

/** @throws Ended when the event does not come */
Bytes require(Television& television, const EventPlan& plan, const std::string& when) {
    if (const auto payload = awaited(television, plan)) {
        return *payload;
    }
    const std::string name = plan.event->name;
    missedEvents().insert(name);
    endWith(Verdict::failed, missedText(name) + " when it was " + when);
}

void requireHeard(const EventPlan& plan) {
    if (missedEvents().count(plan.event->name) != 0) {
        endWith(Verdict::inconclusive, "not waited for: " + missedText(plan.event->name) + " another time");
    }
    Hearing::instance().clear();
}

/** The keys and what the state holds, as an event has them. */
Bytes payloadNow(Television& television, const EventPlan& plan) {
    const Answer answer = answerTo(television, requestsFor(plan.set.reading).front());
    wire::Values values = wire::valuesOf(answer.operation->rule.indexes, answer.request.arguments);
    const StateRead read = readState(plan.set.reading);
    for (const Json& value : read.values.entries()) {
        if (value.isText()) {
            values.emplace_back(value.asText());
        } else if (value.isInteger()) {
            values.emplace_back(static_cast<std::int32_t>(value.asInteger()));
        } else {
            endWith(Verdict::inconclusive, "it holds what is neither a number nor a text");
        }
    }
    const std::string payload = wire::payloadOf(values);
    return {payload.begin(), payload.end()};
}

/**
 * The payload of the one event that tells of putting back, behind the one of the change. Events come in their order, so
 * that another payload is the last one's; an event that has the same for both must not come a third time.
 *
 * @throws Ended with this text when there are more
 */
Bytes requireOneOfPutBack(Television& television, const EventPlan& plan, const Bytes& changed,
                          const std::string& complaint) {
    Bytes back = require(television, plan, "put back");
    if (back == changed && Hearing::instance().next(*plan.event, kTimeOfEvent)) {
        endWith(Verdict::failed, plan.event->name + complaint);
    }
    return back;
}

/** What tells twice of putting back tells the second time before the next change. */
void tellOnce(Television& television, const EventPlan& plan) {
    const std::string complaint = " came twice for one change";
    Setting setting(television, *plan.set.setter, plan.set.reading);
    setting.setOther();
    const Bytes changed = require(television, plan, "changed");
    setting.putBack();
    const Bytes back = requireOneOfPutBack(television, plan, changed, complaint);
    setting.setOther();
    const Bytes next = require(television, plan, "changed again");
    setting.putBack();
    require(television, plan, "put back again");
    if (next == back && back != changed) {
        endWith(Verdict::failed, plan.event->name + complaint);
    }
}

void tellNothing(Television& television, const EventPlan& plan) {
    Setting setting(television, *plan.set.setter, plan.set.reading);
    setting.setOther();
    const Bytes changed = require(television, plan, "changed");
    setting.setAgain();
    setting.putBack();
    requireOneOfPutBack(television, plan, changed, " came although the same value was set");
}

void requirePayload(const Bytes& payload, const Bytes& wanted, const EventPlan& plan) {
    if (payload != wanted) {
        endWith(Verdict::failed, std::string(plan.event->name) + " has the payload " + spacedHexOf(payload) + ", not " +
                                     spacedHexOf(wanted));
    }
}

void tellWhatIsSo(Television& television, const EventPlan& plan) {
    Setting setting(television, *plan.set.setter, plan.set.reading);
    const Bytes before = payloadNow(television, plan);
    setting.setOther();
    const Bytes changed = payloadNow(television, plan);
    requirePayload(require(television, plan, "changed"), changed, plan);
    setting.putBack();
    requirePayload(require(television, plan, "put back"), before, plan);
}

struct EventAspect {
    const char* name;
    const char* sentence;
    void (*make)(Television& television, const EventPlan& plan);
};

constexpr EventAspect kEventAspects[] = {
    {"once", "A change is told by its event once, and so is putting it back: who shows the state follows it by that.",
     tellOnce},
    {"same", "Setting what is there already tells nothing, since nothing has changed.", tellNothing},
    {"payload", "The event has the keys of the state and then what it holds now.", tellWhatIsSo},
};

class EventCheck : public Check {
public:
    EventCheck(Subject subject, EventPlan plan, const EventAspect& aspect)
        : Check(std::move(subject)), mPlan(std::move(plan)), mMake(aspect.make) {}

    bool changesState() const override { return true; }
    std::string event() const override { return mPlan.event->name; }
    std::chrono::duration<double> pause() const override { return kTimeOfEvent; }

    Outcome run(Television& television) const override {
        try {
            requireHeard(mPlan);
            mMake(television, mPlan);
            return {};
        } catch (const Ended& ended) {
            return ended.outcome;
        }
    }

private:
    EventPlan mPlan;
    void (*mMake)(Television& television, const EventPlan& plan);
};

/** Lives as long as the program, since checks hold its rows. */
const wire::EventTable& tableOfEvents() {
    static const wire::EventTable table = eventsOf("");
    return table;
}

/** Whether a payload of it can be made of numbers and texts. */
bool isOfWordsAndTexts(const wire::Event& event) {
    return std::all_of(event.fields.begin(), event.fields.end(), [](const wire::EventField& field) {
        return field.type == wire::FieldType::Int32 || field.type == wire::FieldType::Text;
    });
}

/** The event that tells of what the plan sets; null when the table has none. */
const wire::Event* eventOf(const SetPlan& plan, const wire::EventTable& table) {
    const wire::StateRule* const rule = ruleOf(*plan.reading.function);
    const bool isKept = rule != nullptr && rule->access == wire::StateRule::Access::Get;
    return isKept ? table.named(eventNameOf(rule->key->name)) : nullptr;
}

} // namespace

std::unique_ptr<const Check> checkOfOneEvent(const Terms& terms) {
    Checks checks;
    addEventChecks(checks, terms);
    const auto ofVolume = std::find_if(checks.begin(), checks.end(), [](const auto& check) {
        return check->subject().id.rfind("events.audio.setVolume[", 0) == 0;
    });
    if (checks.empty()) {
        return nullptr;
    }
    return std::move(ofVolume != checks.end() ? *ofVolume : checks.front());
}

std::string whyNoEvent(const Terms& terms) {
    return checkOfOneEvent(terms) == nullptr ? "no event of the table tells of anything that is set" : "";
}

void listenToEvents() { Hearing::instance(); }

std::vector<Bytes> payloadsHeard(const std::string& event, std::size_t count, std::chrono::milliseconds time) {
    const wire::Event* const row = tableOfEvents().named(event);
    std::vector<Bytes> payloads;
    while (row != nullptr && payloads.size() < count) {
        std::optional<Bytes> payload = Hearing::instance().next(*row, time);
        if (!payload) {
            break;
        }
        payloads.push_back(std::move(*payload));
    }
    return payloads;
}

bool hasHeard(const std::string& event, const std::vector<std::int32_t>& words) {
    const std::string beginning = wire::payloadOf({words.begin(), words.end()});
    for (;;) {
        const std::vector<Bytes> payloads = payloadsHeard(event, 1, kTimeOfEvent);
        if (payloads.empty()) {
            return false;
        }
        const std::string payload(payloads.front().begin(), payloads.front().end());
        if (payload.compare(0, beginning.size(), beginning) == 0) {
            return true;
        }
    }
}

bool hearsOfTheEnd(std::chrono::seconds time) {
    const process::Deadline deadline = process::deadlineIn(time);
    EventQueue& queue = EventQueue::instance();
    while (!queue.isLost() && process::waitToRead({queue.fd()}, deadline)) {
        queue.take();
    }
    return queue.isLost();
}

void addEventChecks(Checks& checks, const Terms& terms) {
    for (const SettableFunction& function : settableFunctions(terms)) {
        for (const SetPlan& plan : function.plans) {
            const wire::Event* const event = eventOf(plan, tableOfEvents());
            for (const EventAspect& aspect : kEventAspects) {
                if (event != nullptr && (aspect.make != tellWhatIsSo || isOfWordsAndTexts(*event))) {
                    checks.push_back(std::make_unique<EventCheck>(
                        subjectOf(kEventFamily, plan, aspect.name, aspect.sentence), EventPlan{plan, event}, aspect));
                }
            }
        }
    }
}

} // namespace kelutv::tool::compliance
