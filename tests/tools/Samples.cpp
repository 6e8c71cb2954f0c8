#include "tools/Samples.h"

#include "tools/kelutv/calls/Call.h"

namespace kelutv::test {

namespace {

using tool::Field;
using tool::Kind;
using tool::Scalar;
using tool::ValueType;

std::string sampleValue(const ValueType& type, std::size_t position) {
    if (type.names != nullptr) {
        const auto& names = type.names->values;
        return names[position % names.size()].name;
    }
    if (type.bounded) {
        return std::to_string(type.high);
    }
    switch (type.scalar) {
    case Scalar::Bool:
        return position % 2 == 0 ? "on" : "false";
    case Scalar::Double:
        return std::to_string(position + 1) + ".5";
    default:
        return std::to_string(position + 2);
    }
}

std::string sampleRecord(const tool::Record& record) {
    std::string text;
    for (const Field& field : record.fields) {
        const ValueType type{Kind::Value, field.scalar, field.names, nullptr, false, 0, 0};
        text += (text.empty() ? "" : ",") + std::string(field.name) + '=' + sampleValue(type, text.size() % 7);
    }
    return text;
}

std::string sample(const tool::Parameter& parameter, std::size_t position) {
    switch (parameter.values.kind) {
    case Kind::Text:
        return "text" + std::to_string(position);
    case Kind::Array:
        return parameter.values.scalar == Scalar::Byte ? "hex:020000000a0b" : "[5,6,7]";
    case Kind::Record:
        return sampleRecord(*parameter.values.record);
    case Kind::Callback:
        return "null";
    default:
        return sampleValue(parameter.values, position);
    }
}

} // namespace

std::vector<std::string> sampleArguments(const tool::Function& function) {
    std::vector<std::string> arguments;
    for (const tool::Parameter* parameter : tool::givenParameters(function)) {
        if (parameter->direction != tool::Direction::Length) {
            arguments.push_back(sample(*parameter, arguments.size()));
        }
    }
    return arguments;
}

} // namespace kelutv::test
