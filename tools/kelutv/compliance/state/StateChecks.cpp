#include "tools/kelutv/compliance/state/StateChecks.h"

#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/SetPlans.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/snapshot/StateReader.h"
#include "tools/kelutv/snapshot/StateText.h"

#include <algorithm>
#include <map>
#include <set>

namespace kelutv::tool::compliance {

namespace {

constexpr char kFamily[] = "state";

void keep(Television& television, const SetPlan& plan) {
    Setting setting(television, *plan.setter, plan.reading);
    setting.setOther();
    setting.requireSet();
    setting.putBack();
}

void setTwice(Television& television, const SetPlan& plan) {
    Setting setting(television, *plan.setter, plan.reading);
    setting.setOther();
    setting.setAgain();
    setting.requireSet();
    setting.putBack();
}

/** What the state holds under other keys; what is refused is left out. */
std::map<std::string, Json> othersOf(const SetPlan& plan) {
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

void leaveOthers(Television& television, const SetPlan& plan) {
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
    void (*make)(Television& television, const SetPlan& plan);
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
    StateCheck(Subject subject, SetPlan plan, const Aspect& aspect)
        : Check(std::move(subject)), mPlan(std::move(plan)), mMake(aspect.make) {}

    bool changesState() const override { return true; }

    Outcome run(Television& television) const override {
        try {
            mMake(television, mPlan);
            return {};
        } catch (const Ended& ended) {
            return ended.outcome;
        }
    }

private:
    SetPlan mPlan;
    void (*mMake)(Television& television, const SetPlan& plan);
};

void add(Checks& checks, const SettableFunction& function) {
    for (const SetPlan& plan : function.plans) {
        for (const Aspect& aspect : kAspects) {
            if (!aspect.needsOthers || function.plans.size() > 1) {
                checks.push_back(
                    std::make_unique<StateCheck>(subjectOf(kFamily, plan, aspect.name, aspect.sentence), plan, aspect));
            }
        }
    }
}

} // namespace

void addStateChecks(Checks& checks, const Terms& terms) {
    for (const SettableFunction& function : settableFunctions(terms)) {
        add(checks, function);
        if (!function.whyLeftOut.empty()) {
            checks.push_back(std::make_unique<LeftOutCheck>(
                subjectOf(kFamily, *function.setter, kAspects[0].name, kAspects[0].sentence), function.whyLeftOut));
        }
    }
}

} // namespace kelutv::tool::compliance
