#include "tools/kelutv/compliance/framework/Identifiers.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/snapshot/StateRules.h"
#include "wire/Enumeration.h"
#include "wire/text/Names.h"

#include <map>

namespace kelutv::tool::compliance {

namespace {

std::string shortWord(const wire::Enumeration* names, const std::string& word) {
    const wire::Enumerator* const enumerator = names != nullptr ? wire::findEnumerator(word) : nullptr;
    const std::string name = enumerator != nullptr ? wire::namesOf(*names).shortNameOf(enumerator->value) : "";
    return name.empty() ? word : name;
}

std::string keysOf(const Reading& reading) {
    std::string keys;
    std::size_t index = 0;
    for (const wire::Parameter* const parameter : givenParameters(*reading.function)) {
        if (index < reading.arguments.size()) {
            keys += (keys.empty() ? "[" : ",") + std::string(parameter->name) + '=' +
                    shortWord(parameter->values.names, reading.arguments[index++]);
        }
    }
    return keys.empty() ? "" : keys + ']';
}

/** The name, which takes looking at all functions, and is asked for by every check. */
const std::string& knownName(const wire::Function& function) {
    static std::map<const wire::Function*, std::string> names;
    const auto found = names.find(&function);
    return found != names.end() ? found->second : names.emplace(&function, tool::nameOf(function)).first->second;
}

} // namespace

std::string identifierOf(const Reading& reading) { return knownName(*reading.function) + keysOf(reading); }

Subject subjectOf(const std::string& family, const Reading& reading, const std::string& aspect,
                  const std::string& sentence) {
    return {family + '.' + identifierOf(reading) + '.' + aspect, family, reading.function->module,
            reading.function->name, sentence};
}

Subject subjectOf(const std::string& family, const wire::Function& function, const std::string& aspect,
                  const std::string& sentence) {
    return subjectOf(family, Reading{&function, {}}, aspect, sentence);
}

} // namespace kelutv::tool::compliance
