#include "tools/kelutv/replay/ReplayPlan.h"

#include "tools/kelutv/checks/Reads.h"
#include "tools/kelutv/comparison/HappeningReader.h"
#include "tools/kelutv/text/Patterns.h"
#include "wire/text/Describe.h"

#include <algorithm>
#include <utility>

namespace kelutv::tool {

namespace {

/** Whether it may lose what nothing puts back, as far as the catalogue knows. */
bool mayDoHarm(const wire::Request& request) {
    const std::vector<wire::Effect> effects = effectsOf(request);
    return effects.empty() ||
           std::any_of(effects.begin(), effects.end(), [](const wire::Effect& effect) { return effect.isDangerous; });
}

class Planner {
public:
    explicit Planner(const ReplayChoice& choice)
        : mOnly(patternsOf("--only", choice.only)), mDangerous(patternsOf("--allow-dangerous", choice.dangerous)) {}

    void add(RecordedCall call) {
        const wire::Request request = requestOf(call.happening).request;
        if (!mOnly.empty() && !matchesAny(mOnly, request)) {
            ++plan.notMeant;
        } else if (call.happening.number != 0) {
            ++plan.unanswered;
        } else if (mayDoHarm(request) && !matchesAny(mDangerous, request)) {
            ++plan.dangerous[requestNameOf(request)];
        } else {
            plan.calls.push_back(std::move(call));
        }
    }

    ReplayPlan plan;

private:
    std::vector<wire::RequestPattern> mOnly;
    std::vector<wire::RequestPattern> mDangerous;
};

} // namespace

std::string requestNameOf(const wire::Request& request) {
    const std::string item = wire::itemNameOf(request);
    return !item.empty() ? item : request.command != nullptr ? request.command->name : wire::describe(request);
}

std::vector<wire::Effect> effectsOf(const wire::Request& request) {
    std::vector<wire::Effect> effects;
    for (const wire::Function* const sender : sendersOf(request)) {
        if (!takesAnyItem(*sender)) {
            effects.push_back(sender->effect);
        }
    }
    return effects;
}

ReplayPlan planOf(const std::string& path, const ReplayChoice& choice) {
    Planner planner(choice);
    planner.plan.missing = readHappenings(path, [&planner](const RecordedHappening& recorded) {
        if (recorded.happening.kind == Happening::Kind::Call) {
            planner.add({recorded.number, recorded.moment.process, recorded.moment.thread, recorded.happening});
        }
    });
    return std::move(planner.plan);
}

} // namespace kelutv::tool
