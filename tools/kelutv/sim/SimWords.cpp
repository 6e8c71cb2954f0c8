#include "tools/kelutv/sim/SimWords.h"

#include "simulator/control/ControlClient.h"
#include "simulator/control/ControlVerbs.h"
#include "wire/StateForm.h"
#include "wire/events/Event.h"
#include "wire/events/EventTable.h"
#include "wire/text/Names.h"
#include "wire/text/RequestPattern.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace kelutv::tool {

namespace {

using Names = std::vector<std::string>;

/** A person waits for it at the keyboard. */
constexpr int kPatienceMs = 500;

void append(Names& names, const Names& more) { names.insert(names.end(), more.begin(), more.end()); }

/** The lines of the answer; none without a simulator that answers at once. */
Names answerTo(const std::string& line) {
    Names lines;
    try {
        const simulator::Answer answer = simulator::ControlClient(kPatienceMs).ask(line);
        std::istringstream text(answer.ok ? answer.text : "");
        for (std::string each; std::getline(text, each);) {
            lines.push_back(each);
        }
    } catch (const simulator::NoSimulator&) {
        return {};
    }
    return lines;
}

/** The short names, and full ones once one is begun. */
Names namesOf(const wire::Enumeration* enumeration, const std::string& begun) {
    if (enumeration == nullptr) {
        return {};
    }
    Names names = wire::namesOf(*enumeration).shortNames();
    for (const wire::Enumerator& enumerator : enumeration->values) {
        if (!begun.empty() && !enumerator.isEndMarker) {
            names.emplace_back(enumerator.name);
        }
    }
    return names;
}

Names sourceNames(const std::string& begun) {
    const wire::Enumeration& enumeration = *wire::findEnumeration("KELU_TV_SRC_E");
    Names names;
    for (const std::string& line : answerTo("show source*")) {
        const std::string full = line.substr(line.find(' ') + 1);
        if (line.rfind("signal ", 0) != 0) {
            const wire::Enumerator* const source = wire::findEnumerator(full);
            names.push_back(source != nullptr ? wire::namesOf(enumeration).shortNameOf(source->value) : full);
            names.push_back(full);
        }
    }
    return names.empty() ? namesOf(&enumeration, begun) : names;
}

Names deviceAddresses() {
    const std::string begin = "cec keep";
    Names addresses;
    for (const std::string& line : answerTo("show cec*")) {
        if (line.rfind(begin, 0) == 0) {
            std::istringstream text(line.substr(begin.size()));
            for (std::string address; text >> address;) {
                addresses.push_back(address);
            }
        }
    }
    return addresses;
}

/** Those of a state's key, once its bracket is open, or the names of all states. */
Names stateWords(const std::string& begun) {
    const std::size_t bracket = begun.find('[');
    if (bracket == std::string::npos) {
        return wire::stateNames();
    }
    const wire::StateKey* const key = wire::findState(begun.substr(0, bracket));
    if (key == nullptr || key->indexes.size() != 1) {
        return {};
    }
    Names words;
    for (const std::string& name : namesOf(wire::formOf(*key).indexes.front().names, begun.substr(bracket + 1))) {
        words.push_back(begun.substr(0, bracket + 1) + name + ']');
    }
    return words;
}

/** The value at this place of a state that is set. */
Names valueWords(const std::string& target, std::size_t place, const std::string& begun) {
    const wire::StateKey* const key = wire::findState(target.substr(0, target.find('[')));
    if (key == nullptr) {
        return {};
    }
    const wire::StateForm form = wire::formOf(*key);
    return place < form.values.size() ? namesOf(form.values[place].names, begun) : Names();
}

Names setWords(const Names& words, const std::string& begun) {
    switch (words.size()) {
    case 1:
        return stateWords(begun);
    case 2:
        return {"="};
    default:
        return valueWords(words[1], words.size() - 3, begun);
    }
}

Names plugWords(const Names& words, const std::string& begun) {
    if (words.size() == 2 && words[1] == "cec") {
        return deviceAddresses();
    }
    Names names = words.size() == 1 ? sourceNames(begun) : Names();
    if (words.size() == 1) {
        names.emplace_back("cec");
    }
    return names;
}

Names signalWords(const Names& words, const std::string& begun) {
    if (words.size() == 1) {
        return sourceNames(begun);
    }
    Names names = answerTo("signals");
    names.emplace_back("none");
    return names;
}

Names cecWords(const Names& words, const std::string&) {
    if (words.size() == 1) {
        return {"add", "keep", "play", "put", "remove"};
    }
    if (words[1] == "add" || words[1] == "put") {
        return {"hdmiDevPort=", "listText=", "logAddr=", "name=", "phyAddr=", "plugged="};
    }
    return words[1] == "keep" || words.size() == 2 ? deviceAddresses() : Names();
}

Names keyWords(const Names& words, const std::string& begun) {
    const wire::StateForm form = wire::formOf(*wire::findState("systemsetting.keyEvent"));
    switch (words.size()) {
    case 1:
        return namesOf(form.indexes[0].names, begun);
    case 2:
        return namesOf(form.values[0].names, begun);
    default:
        return {};
    }
}

Names powerWords(const Names& words, const std::string& begun) {
    if (words.size() > 1) {
        return {"lastPowerOffMode=", "wakeupMode="};
    }
    const wire::EventTable events(wire::simulatedEvents());
    return namesOf(events.named("powerStateChanged")->fields[0].names, begun);
}

Names eventWords(const Names& words, const std::string& begun) {
    if (words.size() > 1) {
        return {};
    }
    Names names = wire::EventTable(wire::simulatedEvents()).names();
    append(names, namesOf(&wire::eventModules(), begun));
    return names;
}

Names faultWords(const Names& words, const std::string&) {
    if (words.back() == "die") {
        return {"after", "before"};
    }
    if (words.size() > 1) {
        return {"count", "delay", "die", "error", "from", "long", "nth", "once", "short", "times", "unterminated"};
    }
    Names names = wire::RequestPattern::names();
    append(names, {"any", "clear"});
    return names;
}

Names showWords(const Names& words, const std::string&) {
    Names names = words.size() == 1 ? wire::stateNames() : Names();
    if (words.size() == 1) {
        append(names, {"cec*", "power", "source*"});
    }
    return names;
}

Names resetWords(const Names& words, const std::string& begun) {
    return words.size() == 1 ? stateWords(begun) : Names{"except"};
}

Names getWords(const Names& words, const std::string& begun) { return words.size() == 1 ? stateWords(begun) : Names(); }

Names helpWords(const Names& words, const std::string&) {
    return words.size() == 1 ? simulator::controlVerbNames() : Names();
}

using WordsBehind = Names (*)(const Names& words, const std::string& begun);

const std::map<std::string, WordsBehind>& verbs() {
    static const std::map<std::string, WordsBehind> all{
        {"cec", cecWords},   {"event", eventWords},   {"fault", faultWords}, {"get", getWords},     {"help", helpWords},
        {"key", keyWords},   {"plug", plugWords},     {"power", powerWords}, {"reset", resetWords}, {"set", setWords},
        {"show", showWords}, {"signal", signalWords}, {"unplug", plugWords},
    };
    return all;
}

} // namespace

std::vector<std::string> simWords(const std::vector<std::string>& words, const std::string& begun) {
    if (words.empty()) {
        Names names = begun.find('.') != std::string::npos ? stateWords(begun) : Names();
        append(names, simulator::controlVerbNames());
        return names;
    }
    const auto verb = verbs().find(words.front());
    return verb != verbs().end() ? verb->second(words, begun) : Names();
}

} // namespace kelutv::tool
