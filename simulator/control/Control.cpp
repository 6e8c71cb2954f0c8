#include "simulator/control/Control.h"

#include "simulator/control/ControlActions.h"
#include "simulator/control/ControlVerbs.h"
#include "simulator/text/Join.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace kelutv::simulator {

namespace {

FaultRule faultIn(const std::string& line) {
    try {
        return readFault(line);
    } catch (const std::invalid_argument& error) {
        throw BadLine(error.what());
    }
}

Deed takeFault(const Configuration&, const std::string& rest) {
    if (rest == "clear") {
        return [](Equipment& equipment) {
            equipment.faults.clear();
            return "";
        };
    }
    return [rule = faultIn(rest)](Equipment& equipment) {
        if (!equipment.faults.add(rule)) {
            throw BadLine("there are " + std::to_string(Faults::kMost) + " faults already; fault clear forgets them");
        }
        return "";
    };
}

Deed listFaults(const Configuration&, const std::string& rest) {
    if (!rest.empty()) {
        throw BadLine("faults takes no arguments");
    }
    return [](Equipment& equipment) { return joinedLines(equipment.faults.list()); };
}

std::string unknownVerb(const std::string& verb) {
    return "there is no control command '" + wire::shown(verb) + "'" + wire::nearestHint(verb, controlVerbNames()) +
           "; allowed: " + listed(controlVerbNames());
}

Deed help(const Configuration&, const std::string& verb) {
    const std::string text = controlHelp(verb);
    if (text.empty()) {
        throw BadLine(unknownVerb(verb));
    }
    return [text](Equipment&) { return text; };
}

struct Action {
    const char* verb;
    Deed (*read)(const Configuration& configuration, const std::string& rest);
};

constexpr Action kActions[] = {
    {"cec", changeCecDevices},
    {"event", sendEvent},
    {"fault", takeFault},
    {"faults", listFaults},
    {"get", get},
    {"help", help},
    {"key", useKey},
    {"plug", plug},
    {"power", enterPowerState},
    {"reset", reset},
    {"set", set},
    {"show", show},
    {"signal", changeSignal},
    {"signals", listSignals},
    {"unplug", unplug},
    {"vbi", sendVbi},
};

const Action* findAction(const std::string& verb) {
    const auto* const found = std::find_if(std::begin(kActions), std::end(kActions),
                                           [&verb](const Action& action) { return verb == action.verb; });
    return found != std::end(kActions) ? found : nullptr;
}

std::string verbOf(const std::string& line) { return line.substr(0, line.find_first_of(" \t")); }

/** A state that is set without the verb `set`. */
bool isState(const std::string& verb) { return verb.find('.') != std::string::npos; }

Deed read(const Configuration& configuration, const std::string& line) {
    const std::string verb = verbOf(line);
    if (const Action* const action = findAction(verb)) {
        return action->read(configuration, trimmed(line.substr(verb.size())));
    }
    if (isState(verb)) {
        return set(configuration, line);
    }
    throw BadLine(unknownVerb(verb));
}

} // namespace

Answer obey(const Configuration& configuration, const std::string& line, const Operate& operate) {
    const std::string said = trimmed(line);
    if (said.empty() || said[0] == '#') {
        return {};
    }
    try {
        return {true, operate(read(configuration, said))};
    } catch (const BadLine& complaint) {
        return {false, complaint.what()};
    }
}

std::optional<std::string> objectionToLine(const std::string& line) {
    const std::string verb = verbOf(trimmed(line));
    return findAction(verb) != nullptr || isState(verb) ? std::nullopt : std::optional<std::string>(unknownVerb(verb));
}

} // namespace kelutv::simulator
