#include "tools/kelutv/events/FieldCondition.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

const wire::EventField& fieldNamed(const wire::Event& event, const std::string& name) {
    std::vector<std::string> names;
    for (const wire::EventField& field : event.fields) {
        if (field.name == name) {
            return field;
        }
        names.emplace_back(field.name);
    }
    throw UsageError(std::string(event.name) + " has no field '" + wire::shown(name) +
                     (names.empty() ? "'; it has none" : "'; it has " + joined(names, ", ")));
}

std::int32_t numberOf(const wire::EventField& field, const std::string& text) {
    if (const auto number = wire::int32Of(text)) {
        return *number;
    }
    if (field.names == nullptr) {
        throw UsageError(std::string(field.name) + " is compared with a whole number, not '" + wire::shown(text) +
                         '\'');
    }
    return valueNamed(*field.names, text, field.name);
}

wire::Value valueOf(const wire::EventField& field, const Comparison& comparison) {
    const bool isNumber = field.type != wire::FieldType::Text && field.type != wire::FieldType::Bytes;
    if (isNumber) {
        return numberOf(field, comparison.value);
    }
    if (isOfOrder(comparison.relation)) {
        throw UsageError(std::string(field.name) + " is compared by = or != only");
    }
    if (field.type == wire::FieldType::Text) {
        return comparison.value;
    }
    const Bytes bytes = bytesOfHex(comparison.value);
    return std::string(bytes.begin(), bytes.end());
}

} // namespace

FieldCondition::FieldCondition(const wire::Event& event, const Comparison& comparison)
    : mName(comparison.name), mRelation(comparison.relation),
      mValue(valueOf(fieldNamed(event, comparison.name), comparison)) {}

bool FieldCondition::isMetBy(const std::vector<wire::PayloadValue>& fields) const {
    return std::any_of(fields.begin(), fields.end(), [this](const wire::PayloadValue& field) {
        return field.name == mName && holds(field.value, mRelation, mValue);
    });
}

} // namespace kelutv::tool
