#include "tools/kelutv/Function.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/text/Words.h"

#include <cstdio>
#include <memory>

namespace kelutv::tool {

namespace {

std::string hexadecimal(std::int32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned int>(number));
    return text;
}

const char* wordFor(Direction direction) {
    switch (direction) {
    case Direction::Out:
        return "out";
    case Direction::InOut:
        return "in and out";
    case Direction::Length:
        return "in, may be left out";
    case Direction::In:
        break;
    }
    return "in";
}

/** What may be written for a parameter, or what it shows. */
std::string formOf(const Parameter& parameter) {
    switch (parameter.values.kind) {
    case Kind::Text:
        return "text";
    case Kind::Record: {
        std::vector<std::string> fields;
        for (const Field& field : parameter.values.record->fields) {
            fields.emplace_back(field.name);
        }
        return "record of " + joined(fields, ", ");
    }
    case Kind::Array: {
        const std::string length = parameter.length;
        const std::string entry =
            parameter.values.record != nullptr ? "records" : "each " + allowedText(parameter.values);
        return "list" + (length.empty() ? "" : " of " + length) + ", " + entry;
    }
    case Kind::List:
        return "list";
    case Kind::Callback:
        return "print or null";
    default:
        return allowedText(parameter.values);
    }
}

Json namesOf(const Enumeration& enumeration) {
    Json names = Json::object();
    for (const Enumerator& each : enumeration.values) {
        names[each.name] = each.value;
    }
    return names;
}

Json documentOf(const Parameter& parameter, const char* meaning) {
    Json document{
        {"name", parameter.name}, {"type", parameter.type},    {"direction", wordFor(parameter.direction)},
        {"meaning", meaning},     {"form", formOf(parameter)}, {"null", parameter.pointer && parameter.allowsNull}};
    if (parameter.values.names != nullptr) {
        document["enumeration"] = parameter.values.names->name;
        document["values"] = namesOf(*parameter.values.names);
    }
    if (parameter.values.bounded) {
        document["range"] = Json::array({parameter.values.low, parameter.values.high});
    }
    return document;
}

Json documentOf(const Request& request) {
    Json document{{"command", request.command}, {"number", request.commandValue}};
    if (request.item != nullptr) {
        document["item"] = request.item;
        document["itemNumber"] = request.itemValue;
    }
    document["arguments"] = request.arguments;
    document["reply"] = request.reply;
    return document;
}

Json documentOf(const Function& function) {
    const FunctionTexts& texts = *function.texts;
    Json document{{"function", function.name},       {"short", function.shortName}, {"module", function.module},
                  {"signature", function.signature}, {"brief", texts.brief},        {"details", texts.details},
                  {"returns", texts.returns},        {"parameters", Json::array()}, {"calls", function.calls},
                  {"requests", Json::array()}};
    for (std::size_t i = 0; i < function.parameters.size(); ++i) {
        document["parameters"].add(documentOf(function.parameters[i], texts.parameters[i]));
    }
    for (const Request& request : function.requests) {
        document["requests"].add(documentOf(request));
    }
    if (function.result.names != nullptr) {
        document["resultEnumeration"] = function.result.names->name;
        document["resultValues"] = namesOf(*function.result.names);
    }
    document["nullRule"] = texts.nullRule;
    document["note"] = texts.note;
    return document;
}

class Description {
public:
    Description(const Output& output, const Function& function)
        : mOutput(output), mFunction(function), mTexts(*function.texts) {}

    void print() const {
        mOutput.line(mOutput.styled(Style::Name, mFunction.signature));
        paragraph("", std::string(mFunction.shortName) + ": " + mTexts.brief);
        paragraph("", mTexts.details);
        for (std::size_t i = 0; i < mFunction.parameters.size(); ++i) {
            printParameter(mFunction.parameters[i], mTexts.parameters[i]);
        }
        paragraph("Returns", mTexts.returns);
        if (mFunction.result.names != nullptr) {
            printNames(*mFunction.result.names);
        }
        paragraph("Calls", mFunction.calls);
        printRequests();
        paragraph("Null", mTexts.nullRule);
        paragraph("Note", mTexts.note);
    }

private:
    void paragraph(const std::string& title, const std::string& text) const {
        if (!text.empty()) {
            mOutput.line(title.empty() ? text : mOutput.styled(Style::Name, title) + ": " + text);
        }
    }

    void printNames(const Enumeration& enumeration) const {
        for (const Enumerator& each : enumeration.values) {
            mOutput.line("    " + std::to_string(each.value) + ' ' +
                         mOutput.styled(Style::Value, shortNameOf(enumeration, each)) + ' ' + each.name);
        }
    }

    void printParameter(const Parameter& parameter, const std::string& meaning) const {
        paragraph(std::string("Parameter ") + parameter.name,
                  std::string(parameter.type) + ", " + wordFor(parameter.direction) + ". " + meaning);
        if (parameter.values.names != nullptr) {
            printNames(*parameter.values.names);
        } else {
            mOutput.line("    " + formOf(parameter));
        }
    }

    void printRequests() const {
        if (mFunction.requests.size() == 0) {
            paragraph("Sends", "nothing");
        }
        for (const Request& request : mFunction.requests) {
            const std::string item = request.item == nullptr ? ""
                                                             : std::string(", item ") + request.item + ' ' +
                                                                   std::to_string(request.itemValue);
            paragraph("Sends", std::string(request.command) + ' ' + hexadecimal(request.commandValue) + item);
            paragraph("    in order", *request.arguments == '\0' ? "nothing more" : request.arguments);
            paragraph("    reply", request.reply);
        }
    }

    const Output& mOutput;
    const Function& mFunction;
    const FunctionTexts& mTexts;
};

} // namespace

void addDescribeCommand(const Command& program, Context& context) {
    const auto name = std::make_shared<std::string>();
    const Subcommand command(program, "describe",
                             "Describe a function: parameters, values, wire, result\n\n"
                             "Examples:\n"
                             "kelutv describe audio.setVolume\n"
                             "kelutv describe linux_tv_Picture_setPictureMode");
    command.required("FUNCTION", *name, "Full or short name");
    command.action([name, &context] {
        const Function& function = functionNamed(*name);
        Description(context.output, function).print();
        context.output.document(documentOf(function));
    });
}

} // namespace kelutv::tool
