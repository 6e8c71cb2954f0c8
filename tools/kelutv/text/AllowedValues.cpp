#include "tools/kelutv/text/AllowedValues.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Names.h"

namespace kelutv::tool {

std::int32_t valueNamed(const wire::Enumeration& names, const std::string& text) {
    try {
        return wire::namesOf(names).valueOf(text);
    } catch (const wire::UnknownName& error) {
        throw UsageError(error.what());
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

} // namespace kelutv::tool
