#include "tools/kelutv/text/Ranges.h"

#include "tools/kelutv/text/AllowedValues.h"

namespace kelutv::tool {

namespace {

constexpr const char* kUnknown = "?";

/** Nothing is known of a number without a range. */
constexpr wire::Range kUnknownRange{{}, {}, {}, {}, nullptr};

template <typename Number> Json knownOr(const std::optional<Number>& number) { return number ? Json(*number) : Json(); }

template <typename Number> std::string shown(const std::optional<Number>& number) {
    return number ? knownOr(number).dump() : kUnknown;
}

} // namespace

const wire::Range* rangeOf(const wire::ValueType& values, wire::Direction direction) {
    using wire::ScalarType;
    using wire::ValueKind;
    if (values.range != nullptr) {
        return values.range;
    }
    const bool isPlain = values.kind == ValueKind::Single && values.names == nullptr;
    const bool isNumber = values.scalar == ScalarType::Int || values.scalar == ScalarType::Unsigned ||
                          values.scalar == ScalarType::Double;
    const bool goesIn = direction == wire::Direction::In || direction == wire::Direction::InOut;
    return isPlain && isNumber && goesIn ? &kUnknownRange : nullptr;
}

std::string rangeText(const wire::Range& range) {
    const std::string ends =
        range.isBounded() ? "" : "values " + shown(range.least) + " to " + shown(range.greatest) + ", ";
    return ends + "step " + shown(range.step) + ", unit " + (range.unit != nullptr ? range.unit : kUnknown) +
           ", default " + shown(range.initial);
}

void addRange(Json& document, const wire::Range& range) {
    document["range"] = rangeDocument(knownOr(range.least), knownOr(range.greatest), knownOr(range.step));
    document["unit"] = range.unit != nullptr ? Json(range.unit) : Json();
    document["default"] = knownOr(range.initial);
}

} // namespace kelutv::tool
