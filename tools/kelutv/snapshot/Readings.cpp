#include "tools/kelutv/snapshot/Readings.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/checks/Reads.h"
#include "tools/kelutv/snapshot/StateRules.h"
#include "tools/kelutv/text/Lists.h"

#include <cstdint>
#include <set>

namespace kelutv::tool {

namespace {

using Words = std::vector<std::string>;

/** Beyond this many a range is that of a number and no set of keys. */
constexpr std::int64_t kMostKeys = 65536;

Words keyNamesOf(const wire::Enumeration& enumeration) {
    Words names;
    std::set<std::int32_t> values;
    for (const wire::Enumerator& each : enumeration.values) {
        if (!each.isEndMarker && values.insert(each.value).second) {
            names.emplace_back(each.name);
        }
    }
    return names;
}

Words numbersOf(const wire::Range& range) {
    Words numbers;
    for (std::int64_t number = *range.least; number <= *range.greatest; ++number) {
        numbers.push_back(std::to_string(number));
    }
    return numbers;
}

/** All that a key can be; nothing where the catalogue does not say. */
Words keysOf(const wire::ValueType& type) {
    if (type.kind != wire::ValueKind::Single) {
        return {};
    }
    if (type.names != nullptr) {
        return keyNamesOf(*type.names);
    }
    if (type.scalar == wire::ScalarType::Bool) {
        return {"false", "true"};
    }
    const wire::Range* const range = type.range;
    const bool isSet = range != nullptr && range->isBounded() &&
                       std::int64_t{*range->greatest} - std::int64_t{*range->least} < kMostKeys;
    return isSet ? numbersOf(*range) : Words();
}

/** Every way to take one of each. */
std::vector<Words> combined(const std::vector<Words>& sets) {
    std::vector<Words> all{{}};
    for (const Words& set : sets) {
        std::vector<Words> longer;
        for (const Words& each : all) {
            for (const std::string& word : set) {
                longer.push_back(each);
                longer.back().push_back(word);
            }
        }
        all = std::move(longer);
    }
    return all;
}

std::string whyUnasked(const wire::Function& function) {
    if (function.requests.size() == 0) {
        return "the library answers it and asks no television";
    }
    return takesAnyItem(function)
               ? "hands on any item; each that the catalogue knows is read by an operation of its own"
               : "";
}

std::string unaskedState(const wire::Function& function) {
    const wire::StateRule* const rule = ruleOf(function);
    if (rule == nullptr) {
        return nameOf(function);
    }
    return std::string(rule->key->name) + (rule->key->indexes.size() == 0 ? "" : "[?]");
}

void add(const wire::Function& function, Readings& readings) {
    std::string reason = whyUnasked(function);
    std::vector<Words> sets;
    for (const wire::Parameter* const parameter : givenParameters(function)) {
        sets.push_back(keysOf(parameter->values));
        if (reason.empty() && sets.back().empty()) {
            reason = std::string("the catalogue does not say which values ") + parameter->name + " can have";
        }
    }
    if (!reason.empty()) {
        readings.unasked.push_back({&function, unaskedState(function), reason});
        return;
    }
    for (Words& arguments : combined(sets)) {
        readings.asked.push_back({&function, std::move(arguments)});
    }
}

} // namespace

Readings allReadings() {
    Readings readings;
    for (const wire::Function& function : wire::allFunctions()) {
        if (function.effect.kind == wire::EffectKind::Read) {
            add(function, readings);
        }
    }
    return readings;
}

std::string readingText(const Reading& reading) {
    const std::string name = nameOf(*reading.function);
    return reading.arguments.empty() ? name : name + '[' + joined(reading.arguments, ",") + ']';
}

} // namespace kelutv::tool
