#include "ControlValues.h"

#include "Nearest.h"
#include "Quote.h"
#include "SlotForm.h"

#include <charconv>

namespace simulator {

namespace {

std::vector<std::string> slotNames() {
    std::vector<std::string> names;
    for (const StateSlot& slot : allStates()) {
        names.emplace_back(slot.name);
    }
    return names;
}

std::vector<const StateSlot*> slotsWithLastPart(const std::string& part) {
    std::vector<const StateSlot*> slots;
    for (const StateSlot& slot : allStates()) {
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

Scalar integerFrom(const std::string& word, const EnumerationNames& names, const std::string& what) {
    if (const EnumeratorName* const enumerator = findEnumerator(word)) {
        return enumerator->value;
    }
    if (names.size() > 0) {
        return enumeratorOf(word, enumeratorsOf(names), what);
    }
    if (const auto number = int32Of(word)) {
        return *number;
    }
    throw BadLine(what + " is a number, not '" + word + "'");
}

Scalar realFrom(const std::string& word, const std::string& what) {
    if (const auto number = realOf(word)) {
        return *number;
    }
    throw BadLine(what + " is a number, not '" + word + "'");
}

/** What a word is where all kinds are allowed. */
Scalar anythingFrom(const ControlWord& word, const EnumerationNames& names, const std::string& what) {
    const std::string text = word.text();
    if (word.isQuoted()) {
        return text;
    }
    const bool isReal = !int32Of(text) && realOf(text);
    return isReal ? realFrom(text, what) : integerFrom(text, names, what);
}

Scalar scalarFrom(const ControlWord& word, Holds holds, const EnumerationNames& names, const std::string& what) {
    switch (holds) {
    case Holds::Integers:
        return integerFrom(word.text(), names, what);
    case Holds::Reals:
        return realFrom(word.text(), what);
    case Holds::Texts:
        return word.text();
    case Holds::Anything:
        break;
    }
    return anythingFrom(word, names, what);
}

std::string inWords(const Scalar& scalar) {
    if (const auto* const number = std::get_if<std::int32_t>(&scalar)) {
        return std::to_string(*number);
    }
    if (const auto* const real = std::get_if<double>(&scalar)) {
        return asReal(*real);
    }
    return inQuotes(std::get<std::string>(scalar));
}

std::string wrongCount(const StateSlot& slot, const std::string& part, std::size_t wanted, std::size_t given) {
    return std::string(slot.name) + " has " + std::to_string(wanted) + ' ' + part + (wanted == 1 ? "" : "s") +
           ", not " + std::to_string(given);
}

std::string whatOf(const StateSlot& slot, const std::string& part, std::size_t index) {
    return part + ' ' + std::to_string(index + 1) + " of " + slot.name;
}

} // namespace

const StateSlot& slotNamed(const std::string& name) {
    if (const StateSlot* const slot = findState(name)) {
        return *slot;
    }
    const std::vector<const StateSlot*> slots = slotsWithLastPart(name);
    if (slots.size() == 1) {
        return *slots.front();
    }
    if (slots.empty()) {
        throw BadLine("there is no state '" + name + "'" + nearestOf(name, slotNames()) + "; show lists them");
    }
    std::vector<std::string> candidates;
    for (const StateSlot* const slot : slots) {
        candidates.emplace_back(slot->name);
    }
    throw BadLine("'" + name + "' is more than one state: " + listed(candidates));
}

Scalars keysOf(const StateSlot& slot, const ControlWords& words) {
    const SlotForm form = formOf(slot);
    if (words.size() != form.keys.size()) {
        throw BadLine(wrongCount(slot, "key", form.keys.size(), words.size()));
    }
    Scalars keys;
    for (std::size_t i = 0; i < words.size(); ++i) {
        keys.push_back(scalarFrom(words[i], slot.keys[i], form.keys[i].names, whatOf(slot, "key", i)));
    }
    return keys;
}

Scalars valuesOf(const StateSlot& slot, const ControlWords& words) {
    const SlotForm form = formOf(slot);
    if (words.size() != form.values.size() && !(form.isOpen && words.size() > form.values.size())) {
        throw BadLine(wrongCount(slot, "value", form.values.size(), words.size()));
    }
    Scalars values;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const EnumerationNames names = i < form.values.size() ? form.values[i].names : EnumerationNames();
        values.push_back(scalarFrom(words[i], slot.holds, names, whatOf(slot, "value", i)));
    }
    return values;
}

std::string inWords(const Scalars& scalars, const char* separator) {
    std::string text;
    for (const Scalar& scalar : scalars) {
        text += (text.empty() ? "" : separator) + inWords(scalar);
    }
    return text;
}

std::string inWords(const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    const std::string brackets = keys.empty() ? "" : '[' + inWords(keys) + ']';
    return slot.name + brackets + " = " + inWords(completed(formOf(slot), values));
}

} // namespace simulator
