#include "simulator/control/ControlVerbs.h"

#include <algorithm>

namespace kelutv::simulator {

namespace {

constexpr ControlVerb kVerbs[] = {
    {"cec", "add FIELD=VALUE... | put FIELD=VALUE... | remove ADDRESS | keep [ADDRESS...] | play ADDRESS",
     "Adds a CEC device, or puts it in the place of the one with its address; removes one, or all but some, which then "
     "have this order; lets one play (0: the television). Fields: logAddr, hdmiDevPort, name, phyAddr, listText, "
     "plugged; the first two are needed.",
     "cec add logAddr=11 hdmiDevPort=2 name=\"Game console\""},
    {"event", "ID [HEX | @FILE | \"TEXT\"]",
     "Publishes an event with any payload. ID is a number, the name of an event, or a module with +N.",
     "event volume+1 0000000023000000"},
    {"fault", "TARGET EFFECT... | clear", "Adds a fault, or removes all.", "fault CMD_AUDIO_GETVOLUME error -5"},
    {"faults", "", "Lists the faults.", "faults"},
    {"get", "STATE[KEY...]", "Shows a state, or all that is known of one that has keys.", "get audio.volume[speaker]"},
    {"help", "[VERB]", "Shows this.", "help signal"},
    {"key", "KEYCODE [press | release]", "Presses and releases a key of the remote control, or does one of both.",
     "key volume_up"},
    {"plug", "SOURCE | cec ADDRESS | ADDRESS",
     "Plugs in a source, or a CEC device; a number alone is the logical address of a CEC device.", "plug hdmi1"},
    {"power", "STATE [lastPowerOffMode=N] [wakeupMode=N]",
     "Enters a power state: on, suspended, memory, normal, shallow, rebooting; and says what was before it.",
     "power suspended"},
    {"reset", "STATE[KEY...] | STATE [except [KEY...]...]",
     "Brings a state back to its initial value: under one key, or under all, or all but some.",
     "reset audio.volume except [speaker]"},
    {"set", "STATE[KEY...] = VALUE...",
     "Sets a state as a request would. The verb may be left out before a name with a dot.",
     "set audio.volume[speaker] = 35"},
    {"show", "[PATTERN]",
     "Shows what the television keeps, in lines that bring it back: sources, CEC devices, power and states. The "
     "pattern "
     "is a part of the names, or has * and ? in it.",
     "show audio.*"},
    {"signal", "SOURCE none | [PRESET] [STATE=VALUE,...]...", "Changes the signal that a source carries.",
     "signal hdmi1 sourcemanager.signalStatus=1 sourcemanager.timingInfo=1280,720,50,0,0,0,0,0,1"},
    {"signals", "", "Lists the signals that have a name.", "signals"},
    {"unplug", "SOURCE | cec ADDRESS | ADDRESS", "The opposite of plug.", "unplug cec 5"},
    {"vbi", "TYPE [HEX]", "Delivers a VBI block of this type, 1 to 65535, with these bytes, at most 65532.",
     "vbi 7 0102ff"},
};

std::string helpOf(const ControlVerb& verb) {
    const std::string form = *verb.form != '\0' ? std::string(" ") + verb.form : "";
    return verb.name + form + "\n    " + verb.meaning + "\n    Example: " + verb.example;
}

} // namespace

wire::Rows<ControlVerb> controlVerbs() { return kVerbs; }

const ControlVerb* findControlVerb(const std::string& name) {
    const auto* const found = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                           [&name](const ControlVerb& verb) { return verb.name == name; });
    return found != std::end(kVerbs) ? found : nullptr;
}

std::vector<std::string> controlVerbNames() {
    std::vector<std::string> names;
    for (const ControlVerb& verb : kVerbs) {
        names.emplace_back(verb.name);
    }
    return names;
}

std::string controlHelp(const std::string& name) {
    std::string text;
    for (const ControlVerb& verb : kVerbs) {
        if (name.empty() || verb.name == name) {
            text += (text.empty() ? "" : "\n") + helpOf(verb);
        }
    }
    return text;
}

} // namespace kelutv::simulator
