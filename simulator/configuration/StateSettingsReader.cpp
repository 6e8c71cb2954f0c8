#include "simulator/configuration/StateSettingsReader.h"

#include "wire/StateForm.h"
#include "wire/events/EventTable.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

namespace kelutv::simulator {

namespace {

/** The value of an enumerator of any enumeration, by its full name, or of one of these names. */
std::int32_t valueNamed(const JsonNode& place, const std::string& name, const wire::Enumeration* names) {
    if (const wire::Enumerator* const found = wire::findEnumerator(name)) {
        return found->value;
    }
    if (names == nullptr) {
        place.fail("there is no enumerator '" + wire::shown(name) + "'" +
                   wire::nearestHint(name, namesOf(wire::allEnumerators())));
    }
    try {
        return wire::namesOf(*names).valueOf(name);
    } catch (const wire::UnknownName& error) {
        place.fail(error.what());
    }
}

/** A name of an enumerator, or a number. */
std::int32_t indexOf(const JsonNode& place, const std::string& name, const wire::Enumeration* names) {
    const auto number = wire::wholeNumber<std::int32_t>(name);
    return number ? *number : valueNamed(place, name, names);
}

wire::Value valueOf(const JsonNode& node, wire::Holds holds, const wire::Enumeration* names) {
    const bool isText = node.isText();
    switch (holds) {
    case wire::Holds::Integers:
        return isText ? valueNamed(node, node.text(), names) : node.number();
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
        node.fail("a range is [LOWEST, HIGHEST]; " + node.shown() + " is reversed");
    }
    return range;
}

bool isCarriedBy(wire::Holds holds, const wire::EventField& field) {
    return (holds == wire::Holds::Integers && field.type == wire::FieldType::Int32) ||
           (holds == wire::Holds::Texts && field.type == wire::FieldType::Text);
}

/** Whether the payload has a field for each index of the state and for what it holds. */
bool canCarry(const wire::Event& event, const wire::StateKey& key) {
    const auto& fields = event.fields;
    return fields.size() > key.indexes.size() &&
           std::equal(key.indexes.begin(), key.indexes.end(), fields.begin(), isCarriedBy) &&
           std::all_of(fields.begin() + key.indexes.size(), fields.end(),
                       [&key](const wire::EventField& field) { return isCarriedBy(key.holds, field); });
}

/** `1 key and integers`. */
std::string shapeOf(const wire::StateKey& key) {
    return std::to_string(key.indexes.size()) + (key.indexes.size() == 1 ? " key" : " keys") + " and " +
           nameOf(key.holds);
}

unsigned int eventOf(const JsonNode& node, const wire::StateKey& key) {
    const std::string name = node.text();
    const wire::EventTable events(wire::simulatedEvents());
    const wire::Event* const event = events.named(name);
    if (event == nullptr) {
        node.fail("there is no event '" + wire::shown(name) + "'" + wire::nearestHint(name, events.names()));
    }
    if (!canCarry(*event, key)) {
        node.fail("the payload of " + name + " cannot carry " + key.name + ", which has " + shapeOf(key));
    }
    return event->first;
}

void readInitial(const wire::StateKey& key, const JsonNode& node, StateSettings& settings) {
    if (!node.isObject()) {
        settings.initial = readValues(node, key);
        return;
    }
    if (key.indexes.size() == 0 || key.indexes[0] != wire::Holds::Integers) {
        node.fail(std::string(key.name) + " is not kept for each of several numbers");
    }
    const wire::Enumeration* const names = wire::formOf(key).indexes.front().names;
    for (const auto& [index, values] : node.members()) {
        settings.initialByIndex[indexOf(values, index, names)] = readValues(values, key);
    }
}

void readRole(const JsonNode& node, const wire::StateKey& key, StateSettings& settings) {
    const std::string role = node.text();
    if (role != "key" && role != "value") {
        node.fail("a source is the key or the value, not '" + wire::shown(role) + "'");
    }
    settings.indexIsSource = role == "key";
    settings.valueIsSource = role == "value";
    if (settings.indexIsSource ? key.indexes.size() == 0 || key.indexes[0] != wire::Holds::Integers
                               : key.holds != wire::Holds::Integers) {
        node.fail("the " + role + " of " + key.name + " is not an integer");
    }
}

void checkRange(const JsonNode& node, const StateSettings& settings) {
    for (const wire::Value& value : settings.initial) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        if (settings.range && number != nullptr && (*number < settings.range->low || *number > settings.range->high)) {
            node.fail("the initial value " + std::to_string(*number) + " is out of the range from " +
                      std::to_string(settings.range->low) + " to " + std::to_string(settings.range->high));
        }
    }
}

} // namespace

const wire::StateKey& readStateName(const JsonNode& place, const std::string& name) {
    const wire::StateKey* const key = wire::findState(name);
    if (key == nullptr) {
        place.fail("there is no state '" + wire::shown(name) + "'" + wire::nearestHint(name, wire::stateNames()));
    }
    return *key;
}

wire::Values readValues(const JsonNode& node, const wire::StateKey& key) {
    const wire::StateForm form = wire::formOf(key);
    wire::Values values;
    for (const JsonNode& entry : node.listed()) {
        const bool isNamed = values.size() < form.values.size();
        values.push_back(valueOf(entry, key.holds, isNamed ? form.values[values.size()].names : nullptr));
    }
    return values;
}

StateSettings readStateSettings(const JsonNode& node, const wire::StateKey& key) {
    StateSettings settings;
    for (const auto& [name, member] : node.membersOf({"initial", "range", "event", "source"})) {
        if (name == "initial") {
            readInitial(key, member, settings);
        } else if (name == "range") {
            settings.range = rangeOf(member);
        } else if (name == "event") {
            settings.event = eventOf(member, key);
        } else {
            readRole(member, key, settings);
        }
    }
    checkRange(node, settings);
    return settings;
}

} // namespace kelutv::simulator
