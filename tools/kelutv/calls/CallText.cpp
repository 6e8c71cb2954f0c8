#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/Scalars.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Names.h"
#include "wire/text/ResultNames.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

std::string numberText(const wire::ValueType& type, const Json& value) {
    if (type.names != nullptr && value.isInteger()) {
        const auto number = static_cast<std::int32_t>(value.asInteger());
        if (const std::string name = wire::namesOf(*type.names).shortNameOf(number); !name.empty()) {
            return value.dump() + " (" + name + ')';
        }
    }
    return value.dump();
}

std::string objectText(const wire::Record* record, const Json& value) {
    std::vector<std::string> fields;
    std::size_t index = 0;
    for (const auto& [name, field] : value.members()) {
        const wire::ValueType plain{wire::ValueKind::Single, wire::ScalarType::Int, nullptr, nullptr, nullptr};
        fields.push_back(name + '=' + textOf(record == nullptr ? plain : typeOf(record->fields[index]), field));
        ++index;
    }
    return joined(fields, " ");
}

const wire::Enumeration* namesOfField(const wire::Record& record, const std::string& name) {
    const auto* const field = std::find_if(record.fields.begin(), record.fields.end(),
                                           [&name](const wire::Field& each) { return name == each.name; });
    return field != record.fields.end() ? field->names : nullptr;
}

Json recordDocument(const wire::Record& record, const Json& value) {
    Json document = Json::object();
    for (const auto& [name, member] : value.members()) {
        document[name] = valueDocument(member, namesOfField(record, name));
    }
    return document;
}

Json listDocument(const wire::ValueType& type, const Json& value) {
    Json entries = Json::array();
    for (const Json& entry : value.entries()) {
        entries.add(valueDocument(type, entry));
    }
    return entries;
}

Json outputsDocument(const wire::Function& function, const CallResult& call) {
    Json outputs = Json::object();
    for (const wire::Parameter& parameter : function.parameters) {
        if (const Json* const found = call.outputs.find(parameter.name)) {
            outputs[parameter.name] = valueDocument(parameter.values, *found);
        }
    }
    return outputs;
}

} // namespace

std::string textOf(const wire::ValueType& type, const Json& value) {
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

Json valueDocument(const wire::ValueType& type, const Json& value) {
    if (type.record == nullptr || value.isNull()) {
        return valueDocument(value, type.names);
    }
    return value.isArray() ? listDocument(type, value) : recordDocument(*type.record, value);
}

Json documentOf(const wire::Function& function, const CallResult& call) {
    Json document{{"function", function.name},
                  {"result", valueDocument(function.result, call.result)},
                  {"outputs", outputsDocument(function, call)}};
    if (!call.failure.empty()) {
        document["failure"] = call.failure;
    }
    if (call.answer) {
        const std::string name = wire::nameOfResult(*call.answer);
        document["answer"] = {{"value", *call.answer}, {"name", name.empty() ? Json() : Json(name)}};
    }
    return document;
}

std::vector<std::string> linesOf(const wire::Function& function, const CallResult& call) {
    std::vector<std::string> lines;
    if (function.result.kind != wire::ValueKind::Nothing) {
        lines.push_back("result: " + textOf(function.result, call.result));
    }
    for (const wire::Parameter& parameter : function.parameters) {
        if (const Json* const found = call.outputs.find(parameter.name)) {
            lines.push_back(std::string(parameter.name) + ": " + textOf(parameter.values, *found));
        }
    }
    return lines;
}

} // namespace kelutv::tool
