#include "simulator/control/ControlValues.h"

#include "wire/StateForm.h"
#include "wire/text/Nearest.h"
#include "wire/text/Quote.h"

#include <charconv>

namespace kelutv::simulator {

namespace {

std::vector<const wire::StateSlot*> slotsWithLastPart(const std::string& part) {
    std::vector<const wire::StateSlot*> slots;
    for (const wire::StateSlot& slot : wire::allStates()) {
        const std::string name = slot.name;
        if (name.compare(name.rfind('.') + 1, std::string::npos, part) == 0) {
            slots.push_back(&slot);
        }
    }
    return slots;
}

std::optional<double> realOf(const std::string& word) {
    double number = 0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::string asReal(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof(text), number).ptr};
}

wire::Value integerFrom(const std::string& word, const wire::Enumeration* names, const std::string& what) {
    if (const wire::Enumerator* const enumerator = wire::findEnumerator(word)) {
        return enumerator->value;
    }
    if (names != nullptr) {
        return integerOf(word, wire::namesOf(*names), what);
    }
    if (const auto number = int32Of(word)) {
        return *number;
    }
    throw BadLine(what + " is a number, not '" + word + "'");
}

wire::Value realFrom(const std::string& word, const std::string& what) {
    if (const auto number = realOf(word)) {
        return *number;
    }
    throw BadLine(what + " is a number, not '" + word + "'");
}

/** What a word is where all kinds are allowed. */
wire::Value anythingFrom(const ControlWord& word, const wire::Enumeration* names, const std::string& what) {
    const std::string text = word.text();
    if (word.isQuoted()) {
        return text;
    }
    const bool isReal = !int32Of(text) && realOf(text);
    return isReal ? realFrom(text, what) : integerFrom(text, names, what);
}

wire::Value scalarFrom(const ControlWord& word, wire::Holds holds, const wire::Enumeration* names,
                       const std::string& what) {
    switch (holds) {
    case wire::Holds::Integers:
        return integerFrom(word.text(), names, what);
    case wire::Holds::Reals:
        return realFrom(word.text(), what);
    case wire::Holds::Texts:
        return word.text();
    case wire::Holds::Anything:
        break;
    }
    return anythingFrom(word, names, what);
}

std::string inWords(const wire::Value& scalar) {
    if (const auto* const number = std::get_if<std::int32_t>(&scalar)) {
        return std::to_string(*number);
    }
    if (const auto* const real = std::get_if<double>(&scalar)) {
        return asReal(*real);
    }
    return wire::inQuotes(std::get<std::string>(scalar));
}

std::string wrongCount(const wire::StateSlot& slot, const std::string& part, std::size_t wanted, std::size_t given) {
    return std::string(slot.name) + " has " + std::to_string(wanted) + ' ' + part + (wanted == 1 ? "" : "s") +
           ", not " + std::to_string(given);
}

std::string whatOf(const wire::StateSlot& slot, const std::string& part, std::size_t index) {
    return part + ' ' + std::to_string(index + 1) + " of " + slot.name;
}

} // namespace

const wire::StateSlot& slotNamed(const std::string& name) {
    if (const wire::StateSlot* const slot = wire::findState(name)) {
        return *slot;
    }
    const std::vector<const wire::StateSlot*> slots = slotsWithLastPart(name);
    if (slots.size() == 1) {
        return *slots.front();
    }
    if (slots.empty()) {
        throw BadLine("there is no state '" + name + "'" + wire::nearestHint(name, wire::stateNames()) +
                      "; show lists them");
    }
    std::vector<std::string> candidates;
    for (const wire::StateSlot* const slot : slots) {
        candidates.emplace_back(slot->name);
    }
    throw BadLine("'" + name + "' is more than one state: " + listed(candidates));
}

wire::Values keysOf(const wire::StateSlot& slot, const ControlWords& words) {
    const wire::StateForm form = wire::formOf(slot);
    if (words.size() != form.keys.size()) {
        throw BadLine(wrongCount(slot, "key", form.keys.size(), words.size()));
    }
    wire::Values keys;
    for (std::size_t i = 0; i < words.size(); ++i) {
        keys.push_back(scalarFrom(words[i], slot.keys[i], form.keys[i].names, whatOf(slot, "key", i)));
    }
    return keys;
}

wire::Values valuesOf(const wire::StateSlot& slot, const ControlWords& words) {
    const wire::StateForm form = wire::formOf(slot);
    if (words.size() != form.values.size() && !(form.isOpen && words.size() > form.values.size())) {
        throw BadLine(wrongCount(slot, "value", form.values.size(), words.size()));
    }
    wire::Values values;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const wire::Enumeration* const names = i < form.values.size() ? form.values[i].names : nullptr;
        values.push_back(scalarFrom(words[i], slot.holds, names, whatOf(slot, "value", i)));
    }
    return values;
}

std::string inWords(const wire::Values& scalars, const char* separator) {
    std::string text;
    for (const wire::Value& scalar : scalars) {
        text += (text.empty() ? "" : separator) + inWords(scalar);
    }
    return text;
}

std::string inWords(const wire::StateSlot& slot, const wire::Values& keys, const wire::Values& values) {
    const std::string brackets = keys.empty() ? "" : '[' + inWords(keys) + ']';
    return slot.name + brackets + " = " + inWords(wire::completed(wire::formOf(slot), values));
}

} // namespace kelutv::simulator
