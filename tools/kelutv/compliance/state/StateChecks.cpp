#include "tools/kelutv/compliance/state/StateChecks.h"

#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/Samples.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/snapshot/StateReader.h"
#include "tools/kelutv/snapshot/StateText.h"

#include <algorithm>
#include <map>
#include <set>

namespace kelutv::tool::compliance {

namespace {

constexpr char kFamily[] = "state";

using ReadingList = std::vector<Reading>;
/** By the names of the functions that read. */
using ReadingsByName = std::map<std::string, ReadingList>;

/** What is to be set, and what else is read beside it. */
struct Plan {
    const wire::Function* setter;
    Reading reading;
    const ReadingList* all;
};

void keep(Television& television, const Plan& plan) {
    Setting setting(television, *plan.setter, plan.reading);
    setting.setOther();
    setting.requireSet();
    setting.putBack();
}

void setTwice(Television& television, const Plan& plan) {
    Setting setting(television, *plan.setter, plan.reading);
    setting.setOther();
    setting.setAgain();
    setting.requireSet();
    setting.putBack();
}

/** What the state holds under other keys; what is refused is left out. */
std::map<std::string, Json> othersOf(const Plan& plan) {
    const std::string own = readState(plan.reading).state;
    std::map<std::string, Json> others;
    for (const Reading& reading : *plan.all) {
        const StateRead read = readState(reading);
        if (read.state != own && read.refusal.empty()) {
            others[read.state] = read.values;
        }
    }
    return others;
}

void leaveOthers(Television& television, const Plan& plan) {
    const auto before = othersOf(plan);
    Setting setting(television, *plan.setter, plan.reading);
    setting.setOther();
    const auto after = othersOf(plan);
    setting.putBack();
    for (const auto& [state, values] : before) {
        const auto found = after.find(state);
        const Json now = found != after.end() ? found->second : Json();
        if (now != values) {
            throw Ended{{Verdict::failed,
                         state + " became " + heldText(state, now) + " from " + heldText(state, values), std::nullopt}};
        }
    }
}

struct Aspect {
    const char* name;
    const char* sentence;
    bool needsOthers;
    void (*make)(Television& television, const Plan& plan);
};

constexpr Aspect kAspects[] = {
    {"kept", "What is set is read back, and so is what it was when that is put back: a set that is taken is kept.",
     false, keep},
    {"twice", "The same value may be set twice, since a client that repeats a request means nothing else by it.", false,
     setTwice},
    {"others", "Under its other keys the state stays as it is: a set changes what its keys name.", true, leaveOthers},
};

class StateCheck : public Check {
public:
    StateCheck(Subject subject, Plan plan, const Aspect& aspect)
        : Check(std::move(subject)), mPlan(std::move(plan)), mMake(aspect.make),
          mPatience(aspect.needsOthers ? 2 + static_cast<double>(mPlan.all->size()) / 10 : 2) {}

    bool changesState() const override { return true; }
    double patience() const override { return mPatience; }

    Outcome run(Television& television) const override {
        try {
            mMake(television, mPlan);
            return {};
        } catch (const Ended& ended) {
            return ended.outcome;
        }
    }

private:
    Plan mPlan;
    void (*mMake)(Television& television, const Plan& plan);
    double mPatience;
};

/** The identifier has the name of the function that sets, with the keys of the one that reads. */
Subject subjectOf(const Plan& plan, const Aspect& aspect) {
    const Reading named{plan.setter, {}};
    const std::string read = identifierOf(plan.reading);
    const std::size_t keys = read.find('[');
    Subject subject = compliance::subjectOf(kFamily, named, aspect.name, aspect.sentence);
    subject.id = std::string(kFamily) + '.' + identifierOf(named) +
                 (keys == std::string::npos ? "" : read.substr(keys)) + '.' + aspect.name;
    return subject;
}

ReadingsByName readingsByName() {
    ReadingsByName byName;
    const Readings readings = allReadings();
    for (const Reading& reading : readings.asked) {
        byName[reading.function->name].push_back(reading);
    }
    for (const Unasked& unasked : readings.unasked) {
        if (unasked.function->requests.size() > 0) {
            byName[unasked.function->name].push_back(sampleOf(*unasked.function));
        }
    }
    return byName;
}

/** Checks live as long as the program's end may need them, and so do the readings that they share. */
const ReadingsByName& sharedReadings() {
    static const ReadingsByName readings = readingsByName();
    return readings;
}

std::string whyLeftOut(const wire::Function& setter, const Terms& terms) {
    if (setter.effect.back == nullptr) {
        return "nothing reads what it sets, so that it could not be put back";
    }
    if (!mayCall(setter, terms)) {
        return whyNotCalled(setter);
    }
    return sharedReadings().count(setter.effect.back) == 0 ? "what reads it asks no television" : "";
}

void add(Checks& checks, const wire::Function& setter, const ReadingList& readings) {
    for (const Reading& reading : readings) {
        for (const Aspect& aspect : kAspects) {
            if (!aspect.needsOthers || readings.size() > 1) {
                const Plan plan{&setter, reading, &readings};
                checks.push_back(std::make_unique<StateCheck>(subjectOf(plan, aspect), plan, aspect));
            }
        }
    }
}

} // namespace

void addStateChecks(Checks& checks, const Terms& terms) {
    for (const wire::Function& function : wire::allFunctions()) {
        if (function.effect.kind != wire::EffectKind::Set || function.requests.size() == 0) {
            continue;
        }
        const std::string reason = whyLeftOut(function, terms);
        if (reason.empty()) {
            add(checks, function, sharedReadings().at(function.effect.back));
        } else {
            checks.push_back(std::make_unique<LeftOutCheck>(
                compliance::subjectOf(kFamily, function, kAspects[0].name, kAspects[0].sentence), reason));
        }
    }
}

} // namespace kelutv::tool::compliance
