#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/text/Words.h"

namespace kelutv::tool {

namespace {

ValueType typeOf(const Field& field) {
    return {field.scalar == Scalar::Char ? Kind::Text : Kind::Value, field.scalar, field.names, nullptr, false, 0, 0};
}

std::string numberText(const ValueType& type, const Json& value) {
    if (type.names != nullptr && value.isInteger()) {
        if (const Enumerator* const name = enumeratorOf(*type.names, static_cast<std::int32_t>(value.asInteger()))) {
            return value.dump() + " (" + shortNameOf(*type.names, *name) + ')';
        }
    }
    return value.dump();
}

std::string objectText(const Record* record, const Json& value) {
    std::vector<std::string> fields;
    std::size_t index = 0;
    for (const auto& [name, field] : value.members()) {
        const ValueType plain{Kind::Value, Scalar::Int, nullptr, nullptr, false, 0, 0};
        fields.push_back(name + '=' + textOf(record == nullptr ? plain : typeOf(record->fields[index]), field));
        ++index;
    }
    return joined(fields, " ");
}

} // namespace

std::string textOf(const ValueType& type, const Json& value) {
    if (value.isNull()) {
        return "(untouched)";
    }
    if (value.isText()) {
        return value.dump();
    }
    if (value.isObject()) {
        return objectText(type.record, value);
    }
    if (value.isArray()) {
        std::vector<std::string> entries;
        for (const Json& entry : value.entries()) {
            entries.push_back(textOf(type, entry));
        }
        return '[' + joined(entries, ", ") + ']';
    }
    return numberText(type, value);
}

Json documentOf(const Function& function, const CallResult& call) {
    Json document{{"function", function.name}, {"result", call.result}, {"outputs", call.outputs}};
    if (!call.failure.empty()) {
        document["failure"] = call.failure;
    }
    return document;
}

std::vector<std::string> linesOf(const Function& function, const CallResult& call) {
    std::vector<std::string> lines;
    if (function.result.kind != Kind::Nothing) {
        lines.push_back("result: " + textOf(function.result, call.result));
    }
    for (const Parameter& parameter : function.parameters) {
        if (const Json* const found = call.outputs.find(parameter.name)) {
            lines.push_back(std::string(parameter.name) + ": " + textOf(parameter.values, *found));
        }
    }
    return lines;
}

} // namespace kelutv::tool
