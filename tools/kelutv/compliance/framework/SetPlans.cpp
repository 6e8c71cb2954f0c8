#include "tools/kelutv/compliance/framework/SetPlans.h"

#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/Samples.h"

#include <map>
#include <set>

namespace kelutv::tool::compliance {

namespace {

/** By the names of the functions that read. */
using ReadingsByName = std::map<std::string, std::vector<Reading>>;

ReadingsByName readingsByName() {
    ReadingsByName byName;
    const Readings readings = readingsOfPlans();
    for (const Reading& reading : readings.asked) {
        byName[reading.function->name].push_back(reading);
    }
    return byName;
}

/** Checks live as long as the program's end may need them, and so do the readings that they share. */
const ReadingsByName& sharedReadings() {
    static const ReadingsByName readings = readingsByName();
    return readings;
}

std::string whyNotSet(const wire::Function& setter, const Terms& terms) {
    if (setter.effect.back == nullptr) {
        return "nothing reads what it sets, so that it could not be put back";
    }
    if (!mayCall(setter, terms)) {
        return whyNotCalled(setter);
    }
    return sharedReadings().count(setter.effect.back) == 0 ? "what reads it asks no television" : "";
}

} // namespace

std::vector<SettableFunction> settableFunctions(const Terms& terms) {
    std::vector<SettableFunction> functions;
    for (const wire::Function& function : wire::allFunctions()) {
        if (function.effect.kind != wire::EffectKind::Set || function.requests.size() == 0) {
            continue;
        }
        functions.push_back({&function, {}, whyNotSet(function, terms)});
        if (functions.back().whyLeftOut.empty()) {
            const std::vector<Reading>& all = sharedReadings().at(function.effect.back);
            for (const Reading& reading : all) {
                functions.back().plans.push_back({&function, reading, &all});
            }
        }
    }
    return functions;
}

Readings readingsOfPlans() {
    std::set<std::string> readBack;
    for (const wire::Function& function : wire::allFunctions()) {
        readBack.insert(function.effect.back != nullptr ? function.effect.back : "");
    }
    Readings readings = allReadings();
    for (const Unasked& unasked : readings.unasked) {
        if (unasked.function->requests.size() > 0 && readBack.count(unasked.function->name) != 0) {
            readings.asked.push_back(sampleOf(*unasked.function));
        }
    }
    return readings;
}

Subject subjectOf(const std::string& family, const SetPlan& plan, const std::string& aspect,
                  const std::string& sentence) {
    const std::string read = identifierOf(plan.reading);
    const std::size_t keys = read.find('[');
    Subject subject = subjectOf(family, *plan.setter, aspect, sentence);
    subject.id = family + '.' + identifierOf(Reading{plan.setter, {}}) +
                 (keys == std::string::npos ? "" : read.substr(keys)) + '.' + aspect;
    return subject;
}

} // namespace kelutv::tool::compliance
