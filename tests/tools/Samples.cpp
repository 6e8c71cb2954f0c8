#include "tools/Samples.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/Scalars.h"

namespace kelutv::test {

namespace {

std::string sampleValue(const wire::ValueType& type, std::size_t position) {
    if (type.names != nullptr) {
        const auto& names = type.names->values;
        return names[position % names.size()].name;
    }
    if (type.range != nullptr && type.range->isBounded()) {
        return std::to_string(*type.range->greatest);
    }
    switch (type.scalar) {
    case wire::ScalarType::Bool:
        return position % 2 == 0 ? "on" : "false";
    case wire::ScalarType::Double:
        return std::to_string(position + 1) + ".5";
    default:
        return std::to_string(position + 2);
    }
}

std::string sampleRecord(const wire::Record& record) {
    std::string text;
    for (const wire::Field& field : record.fields) {
        text += (text.empty() ? "" : ",") + std::string(field.name) + '=' +
                sampleValue(tool::typeOf(field), text.size() % 7);
    }
    return text;
}

std::string sample(const wire::Parameter& parameter, std::size_t position) {
    switch (parameter.values.kind) {
    case wire::ValueKind::Text:
        return "text" + std::to_string(position);
    case wire::ValueKind::Array:
        return parameter.values.scalar == wire::ScalarType::Byte ? "hex:020000000a0b" : "[5,6,7]";
    case wire::ValueKind::Record:
        return sampleRecord(*parameter.values.record);
    case wire::ValueKind::Callback:
        return "null";
    default:
        return sampleValue(parameter.values, position);
    }
}

} // namespace

std::vector<std::string> sampleArguments(const wire::Function& function) {
    std::vector<std::string> arguments;
    for (const wire::Parameter* parameter : tool::givenParameters(function)) {
        if (parameter->direction != wire::Direction::Length) {
            arguments.push_back(sample(*parameter, arguments.size()));
        }
    }
    return arguments;
}

} // namespace kelutv::test
