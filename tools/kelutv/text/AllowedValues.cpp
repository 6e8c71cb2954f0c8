#include "tools/kelutv/text/AllowedValues.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "wire/text/Names.h"

#include <limits>

namespace kelutv::tool {

namespace {

template <typename Number> Json limitsDocument(const Json& step) {
    return rangeDocument(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max(), step);
}

/** Null where it is not known. */
Json stepOf(const wire::Range* range) {
    if (range == nullptr || !range->step) {
        return nullptr;
    }
    return *range->step;
}

/** The range that a number is known to have, else all that its type can hold. */
Json numbersDocument(const wire::ValueType& values) {
    const wire::Range* const range = values.range;
    const Json step = stepOf(range);
    if (range != nullptr && range->isBounded()) {
        return rangeDocument(*range->least, *range->greatest, step);
    }
    switch (values.scalar) {
    case wire::ScalarType::Double:
        return rangeDocument(nullptr, nullptr, step);
    case wire::ScalarType::Unsigned:
        return limitsDocument<std::uint32_t>(step);
    case wire::ScalarType::Byte:
        return limitsDocument<std::uint8_t>(step);
    default:
        return limitsDocument<std::int32_t>(step);
    }
}

} // namespace

std::int32_t valueNamed(const wire::Enumeration& names, const std::string& text, const std::string& what) {
    try {
        return wire::namesOf(names).valueOf(text);
    } catch (const wire::UnknownName& error) {
        throw UsageError((what.empty() ? "" : what + ": ") + error.what());
    }
}

std::string allowedText(const wire::ValueType& values) {
    if (values.names != nullptr) {
        return "one of " + wire::namesOf(*values.names).listed();
    }
    if (values.range != nullptr && values.range->isBounded()) {
        return std::to_string(*values.range->least) + " to " + std::to_string(*values.range->greatest);
    }
    switch (values.scalar) {
    case wire::ScalarType::Bool:
        return "true or false";
    case wire::ScalarType::Double:
        return "a number";
    case wire::ScalarType::Unsigned:
        return "a whole number, 0 to 4294967295";
    case wire::ScalarType::Byte:
        return "a byte, 0 to 255";
    case wire::ScalarType::Int:
    case wire::ScalarType::Char:
        break;
    }
    return "a whole number, -2147483648 to 2147483647";
}

Json rangeDocument(const Json& least, const Json& greatest, const Json& step) {
    return {{"min", least}, {"max", greatest}, {"step", step}};
}

Json allowedDocument(const wire::ValueType& values) {
    const bool isNumber = values.kind == wire::ValueKind::Single || values.kind == wire::ValueKind::Array;
    if (!isNumber) {
        return nullptr;
    }
    if (values.names != nullptr) {
        return valuesDocument(*values.names);
    }
    return values.scalar == wire::ScalarType::Bool ? Json::array({false, true}) : numbersDocument(values);
}

} // namespace kelutv::tool
