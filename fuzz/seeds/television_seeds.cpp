#include "fuzz/seeds/Seed.h"

#include "fuzz/support/Televisions.h"
#include "simulator/control/ControlVerbs.h"
#include "simulator/television/Equipment.h"
#include "simulator/television/Snapshot.h"

namespace kelutv::fuzz {

namespace {

/** A television whose state a line has changed, as it is kept. */
Bytes keptAfter(const std::string& line) {
    simulator::Equipment equipment(standardConfiguration(), simulator::EepStore());
    obey(equipment, line);
    const std::string text = simulator::snapshotOf(equipment);
    return {text.begin(), text.end()};
}

/** What can be said of each state, right or wrong. */
std::vector<std::string> stateLines() {
    std::vector<std::string> lines;
    for (const wire::StateKey& state : wire::allStates()) {
        const std::string name = state.name;
        for (const char* const rest : {" = 1", "[1] = 1", "[0, 0] = 1", " = inf", "[1] = nan", " = \"text\"",
                                       "[1] = \"\\xff\"", " =", "[0] ="}) {
            lines.push_back(name + rest);
        }
    }
    return lines;
}

} // namespace

Seeds stateSeeds() {
    Seeds seeds;
    for (const simulator::ControlVerb& verb : simulator::controlVerbs()) {
        seeds.push_back(keptAfter(verb.example));
    }
    for (const std::string& line : stateLines()) {
        seeds.push_back(keptAfter(line));
    }
    return seeds;
}

Seeds controlSeeds() {
    Seeds seeds;
    for (const simulator::ControlVerb& verb : simulator::controlVerbs()) {
        const std::string line = verb.example;
        seeds.emplace_back(line.begin(), line.end());
    }
    for (const std::string& line : stateLines()) {
        seeds.emplace_back(line.begin(), line.end());
    }
    return seeds;
}

std::vector<std::string> names() {
    std::vector<std::string> names = wire::stateNames();
    for (const simulator::ControlVerb& verb : simulator::controlVerbs()) {
        names.emplace_back(verb.name);
    }
    for (const wire::Command& command : wire::allCommands()) {
        names.emplace_back(command.name);
    }
    for (const wire::Enumeration& enumeration : wire::allEnumerations()) {
        names.emplace_back(enumeration.name);
    }
    return names;
}

} // namespace kelutv::fuzz
