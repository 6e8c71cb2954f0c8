#include "simulator/configuration/SlotReader.h"

#include "wire/Events.h"
#include "wire/text/Nearest.h"

#include <nlohmann/json.hpp>

#include <charconv>

namespace kelutv::simulator {

namespace {

std::int32_t enumeratorOf(const JsonNode& place, const std::string& name) {
    const wire::Enumerator* const found = wire::findEnumerator(name);
    if (found == nullptr) {
        place.fail("there is no enumerator '" + name + "'" + wire::nearestOf(name, namesOf(wire::allEnumerators())));
    }
    return found->value;
}

/** A name of an enumerator, or a number. */
std::int32_t keyOf(const JsonNode& place, const std::string& name) {
    std::int32_t number = 0;
    const char* const end = name.data() + name.size();
    const auto read = std::from_chars(name.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? number : enumeratorOf(place, name);
}

wire::Value scalarOf(const JsonNode& node, wire::Holds holds) {
    const bool isText = node.value().is_string();
    switch (holds) {
    case wire::Holds::Integers:
        return isText ? enumeratorOf(node, node.text()) : node.number();
    case wire::Holds::Reals:
        return node.real();
    case wire::Holds::Texts:
        return node.text();
    case wire::Holds::Anything:
        break;
    }
    return isText ? wire::Value(node.text()) : wire::Value(node.number());
}

Range rangeOf(const JsonNode& node) {
    const auto bounds = node.elements();
    if (bounds.size() != 2) {
        node.fail("a range is [LOWEST, HIGHEST], not " + node.shown());
    }
    const Range range{bounds[0].number(), bounds[1].number()};
    if (range.low > range.high) {
        node.fail("a range is [LOWEST, HIGHEST]; " + node.shown() + " is the wrong way round");
    }
    return range;
}

unsigned int eventOf(const JsonNode& node, const wire::StateSlot& slot) {
    const std::string name = node.text();
    const bool ofIntegers = slot.holds == wire::Holds::Integers &&
                            std::all_of(slot.keys.begin(), slot.keys.end(),
                                        [](wire::Holds holds) { return holds == wire::Holds::Integers; });
    if (!ofIntegers) {
        node.fail("only a state of integers can have an event");
    }
    const auto events = wire::allEvents();
    const auto* const found = std::find_if(events.begin(), events.end(),
                                           [&name](const wire::EventName& event) { return event.name == name; });
    if (found == events.end()) {
        node.fail("there is no event '" + name + "'" + wire::nearestOf(name, namesOf(events)));
    }
    return found->event;
}

void readInitial(const wire::StateSlot& slot, const JsonNode& node, SlotSettings& settings) {
    if (!node.value().is_object()) {
        settings.initial = readValues(node, slot);
        return;
    }
    if (slot.keys.size() == 0 || slot.keys[0] != wire::Holds::Integers) {
        node.fail(std::string(slot.name) + " is not kept for each of several numbers");
    }
    for (const auto& [key, values] : node.members()) {
        settings.initialByKey[keyOf(values, key)] = readValues(values, slot);
    }
}

void readRole(const JsonNode& node, const wire::StateSlot& slot, SlotSettings& settings) {
    const std::string role = node.text();
    if (role != "key" && role != "value") {
        node.fail("a source is the key or the value, not '" + role + "'");
    }
    settings.keyIsSource = role == "key";
    settings.valueIsSource = role == "value";
    if (settings.keyIsSource ? slot.keys.size() == 0 || slot.keys[0] != wire::Holds::Integers
                             : slot.holds != wire::Holds::Integers) {
        node.fail("the " + role + " of " + slot.name + " is no integer");
    }
}

void checkRange(const JsonNode& node, const SlotSettings& settings) {
    for (const wire::Value& value : settings.initial) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        if (settings.range && number != nullptr && (*number < settings.range->low || *number > settings.range->high)) {
            node.fail("the initial value " + std::to_string(*number) + " is out of the range from " +
                      std::to_string(settings.range->low) + " to " + std::to_string(settings.range->high));
        }
    }
}

} // namespace

const wire::StateSlot& readStateName(const JsonNode& place, const std::string& name) {
    const wire::StateSlot* const slot = wire::findState(name);
    if (slot == nullptr) {
        place.fail("there is no state '" + name + "'" + wire::nearestOf(name, namesOf(wire::allStates())));
    }
    return *slot;
}

wire::Values readValues(const JsonNode& node, const wire::StateSlot& slot) {
    wire::Values values;
    for (const JsonNode& entry : node.listed()) {
        values.push_back(scalarOf(entry, slot.holds));
    }
    return values;
}

SlotSettings readSlot(const JsonNode& node, const wire::StateSlot& slot) {
    SlotSettings settings;
    for (const auto& [name, member] : node.membersOf({"initial", "range", "event", "source"})) {
        if (name == "initial") {
            readInitial(slot, member, settings);
        } else if (name == "range") {
            settings.range = rangeOf(member);
        } else if (name == "event") {
            settings.event = eventOf(member, slot);
        } else {
            readRole(member, slot, settings);
        }
    }
    checkRange(node, settings);
    return settings;
}

} // namespace kelutv::simulator
