#include "simulator/control/ControlValues.h"

#include "simulator/text/Join.h"
#include "simulator/text/Numbers.h"
#include "wire/StateForm.h"
#include "wire/text/Nearest.h"
#include "wire/text/Quote.h"
#include "wire/text/Shown.h"

#include <charconv>

namespace kelutv::simulator {

namespace {

std::vector<const wire::StateKey*> statesWithLastPart(const std::string& part) {
    std::vector<const wire::StateKey*> keys;
    for (const wire::StateKey& key : wire::allStates()) {
        const std::string name = key.name;
        if (name.compare(name.rfind('.') + 1, std::string::npos, part) == 0) {
            keys.push_back(&key);
        }
    }
    return keys;
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
    throw BadLine(what + " is a number, not '" + wire::shown(word) + "'");
}

wire::Value realFrom(const std::string& word, const std::string& what) {
    if (const auto number = realOf(word)) {
        return *number;
    }
    throw BadLine(what + " is a number, not '" + wire::shown(word) + "'");
}

/** The value of a token where any kind is allowed. */
wire::Value anythingFrom(const Token& token, const wire::Enumeration* names, const std::string& what) {
    const std::string text = token.text();
    if (token.isQuoted()) {
        return text;
    }
    const bool isReal = !int32Of(text) && realOf(text);
    return isReal ? realFrom(text, what) : integerFrom(text, names, what);
}

wire::Value valueFrom(const Token& token, wire::Holds holds, const wire::Enumeration* names, const std::string& what) {
    switch (holds) {
    case wire::Holds::Integers:
        return integerFrom(token.text(), names, what);
    case wire::Holds::Reals:
        return realFrom(token.text(), what);
    case wire::Holds::Texts:
        return token.text();
    case wire::Holds::Anything:
        break;
    }
    return anythingFrom(token, names, what);
}

std::string textOf(const wire::Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return std::to_string(*number);
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return asReal(*real);
    }
    return wire::inQuotes(std::get<std::string>(value));
}

std::string wrongCount(const wire::StateKey& key, const std::string& part, std::size_t wanted, std::size_t given) {
    return std::string(key.name) + " has " + std::to_string(wanted) + ' ' + part + (wanted == 1 ? "" : "s") + ", not " +
           std::to_string(given);
}

std::string whatOf(const wire::StateKey& key, const std::string& part, std::size_t index) {
    return part + ' ' + std::to_string(index + 1) + " of " + key.name;
}

} // namespace

const wire::StateKey& stateNamed(const std::string& name) {
    if (const wire::StateKey* const key = wire::findState(name)) {
        return *key;
    }
    const std::vector<const wire::StateKey*> keys = statesWithLastPart(name);
    if (keys.size() == 1) {
        return *keys.front();
    }
    if (keys.empty()) {
        throw BadLine("there is no state '" + wire::shown(name) + "'" + wire::nearestHint(name, wire::stateNames()) +
                      "; show lists them");
    }
    std::vector<std::string> candidates;
    for (const wire::StateKey* const key : keys) {
        candidates.emplace_back(key->name);
    }
    throw BadLine("'" + wire::shown(name) + "' is more than one state: " + listed(candidates));
}

wire::Values indexesOf(const wire::StateKey& key, const Tokens& tokens) {
    const wire::StateForm form = wire::formOf(key);
    if (tokens.size() != form.indexes.size()) {
        throw BadLine(wrongCount(key, "key", form.indexes.size(), tokens.size()));
    }
    wire::Values indexes;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        indexes.push_back(valueFrom(tokens[i], key.indexes[i], form.indexes[i].names, whatOf(key, "key", i)));
    }
    return indexes;
}

wire::Values valuesOf(const wire::StateKey& key, const Tokens& tokens) {
    const wire::StateForm form = wire::formOf(key);
    if (tokens.size() != form.values.size() && !(form.isOpen && tokens.size() > form.values.size())) {
        throw BadLine(wrongCount(key, "value", form.values.size(), tokens.size()));
    }
    wire::Values values;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const wire::Enumeration* const names = i < form.values.size() ? form.values[i].names : nullptr;
        values.push_back(valueFrom(tokens[i], key.holds, names, whatOf(key, "value", i)));
    }
    return values;
}

std::string textOf(const wire::Values& values, const char* separator) {
    std::string text;
    for (const wire::Value& value : values) {
        text += (text.empty() ? "" : separator) + textOf(value);
    }
    return text;
}

std::string textOf(const wire::StateKey& key, const wire::Values& indexes, const wire::Values& values) {
    const std::string brackets = indexes.empty() ? "" : '[' + textOf(indexes) + ']';
    return key.name + brackets + " = " + textOf(wire::completed(wire::formOf(key), values));
}

} // namespace kelutv::simulator
