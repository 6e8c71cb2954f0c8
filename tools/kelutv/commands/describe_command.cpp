#include "tools/kelutv/calls/Scalars.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/names/Directory.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "tools/kelutv/text/Effects.h"
#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Lists.h"
#include "tools/kelutv/text/Ranges.h"
#include "wire/text/FunctionNames.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <cstdio>
#include <memory>

namespace kelutv::tool {

namespace {

std::string hexadecimal(std::int32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", static_cast<unsigned int>(number));
    return text;
}

const char* wordFor(wire::Direction direction) {
    switch (direction) {
    case wire::Direction::Out:
        return "out";
    case wire::Direction::InOut:
        return "in and out";
    case wire::Direction::Length:
        return "in, may be left out";
    case wire::Direction::In:
        break;
    }
    return "in";
}

/** What may be written for a parameter, or what it shows. */
std::string formOf(const wire::Parameter& parameter) {
    switch (parameter.values.kind) {
    case wire::ValueKind::Text:
        return "text";
    case wire::ValueKind::Record: {
        std::vector<std::string> fields;
        for (const wire::Field& field : parameter.values.record->fields) {
            fields.emplace_back(field.name);
        }
        return "record of " + joined(fields, ", ");
    }
    case wire::ValueKind::Array: {
        const std::string length = parameter.length;
        const std::string entry =
            parameter.values.record != nullptr ? "records" : "each " + allowedText(parameter.values);
        return "list" + (length.empty() ? "" : " of " + length) + ", " + entry;
    }
    case wire::ValueKind::List:
        return "list";
    case wire::ValueKind::Callback:
        return "print or null";
    default:
        return allowedText(parameter.values);
    }
}

Json documentOf(const wire::Field& field) {
    Json document{{"name", field.name}};
    if (field.names != nullptr) {
        document["enumeration"] = field.names->name;
    }
    if (const wire::Range* const range = rangeOf(typeOf(field), wire::Direction::In)) {
        addRange(document, *range);
    }
    return document;
}

Json documentOf(const wire::Parameter& parameter, const char* meaning) {
    Json document{
        {"name", parameter.name}, {"type", parameter.type},    {"direction", wordFor(parameter.direction)},
        {"meaning", meaning},     {"form", formOf(parameter)}, {"null", parameter.isPointer && parameter.allowsNull}};
    if (parameter.values.names != nullptr) {
        document["enumeration"] = parameter.values.names->name;
        document["values"] = valuesDocument(*parameter.values.names);
    }
    if (const wire::Range* const range = rangeOf(parameter.values, parameter.direction)) {
        addRange(document, *range);
    }
    if (parameter.values.record != nullptr) {
        document["fields"] = Json::array();
        for (const wire::Field& field : parameter.values.record->fields) {
            document["fields"].add(documentOf(field));
        }
    }
    return document;
}

Json documentOf(const wire::SentRequest& request) {
    Json document{{"command", request.command}, {"number", request.commandValue}};
    if (request.item != nullptr) {
        document["item"] = request.item;
        document["itemNumber"] = request.itemValue;
    }
    document["arguments"] = request.arguments;
    document["reply"] = request.reply;
    return document;
}

Json documentOf(const wire::Function& function) {
    const wire::FunctionTexts& texts = *function.texts;
    Json document{{"kind", "function"},        {"function", function.name},       {"short", function.shortName},
                  {"module", function.module}, {"signature", function.signature}, {"brief", texts.brief},
                  {"details", texts.details},  {"returns", texts.returns},        {"parameters", Json::array()},
                  {"calls", function.calls},   {"requests", Json::array()}};
    for (std::size_t i = 0; i < function.parameters.size(); ++i) {
        document["parameters"].add(documentOf(function.parameters[i], texts.parameters[i]));
    }
    for (const wire::SentRequest& request : function.requests) {
        document["requests"].add(documentOf(request));
    }
    if (function.result.names != nullptr) {
        document["resultEnumeration"] = function.result.names->name;
        document["resultValues"] = valuesDocument(*function.result.names);
    }
    if (const wire::Range* const range = rangeOf(function.result, wire::Direction::Out)) {
        document["result"] = Json::object();
        addRange(document["result"], *range);
    }
    document["effect"] = effectDocument(function.effect);
    document["nullRule"] = texts.nullRule;
    document["note"] = texts.note;
    return document;
}

class Description {
public:
    Description(const Output& output, const wire::Function& function)
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
        if (const wire::Range* const range = rangeOf(mFunction.result, wire::Direction::Out)) {
            printForm(allowedText(mFunction.result), range);
        }
        paragraph("Effect", effectText(mFunction.effect));
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

    void printNames(const wire::Enumeration& enumeration) const {
        for (const wire::Enumerator& each : enumeration.values) {
            if (!each.isEndMarker) {
                const std::string name = wire::namesOf(enumeration).shortNameOf(each.value);
                mOutput.line("    " + std::to_string(each.value) + ' ' + mOutput.styled(Style::Value, name) + ' ' +
                             each.name);
            }
        }
    }

    /** One line of what is allowed, and what is known of it. */
    void printForm(const std::string& form, const wire::Range* range) const {
        mOutput.line("    " + form + (range != nullptr ? "; " + rangeText(*range) : ""));
    }

    void printFields(const wire::Record& record) const {
        for (const wire::Field& field : record.fields) {
            if (field.range != nullptr) {
                printForm(std::string(field.name) + ": " + allowedText(typeOf(field)), field.range);
            }
        }
    }

    void printParameter(const wire::Parameter& parameter, const std::string& meaning) const {
        paragraph(std::string("Parameter ") + parameter.name,
                  std::string(parameter.type) + ", " + wordFor(parameter.direction) + ". " + meaning);
        if (parameter.values.names != nullptr) {
            printNames(*parameter.values.names);
        } else {
            printForm(formOf(parameter), rangeOf(parameter.values, parameter.direction));
        }
        if (parameter.values.record != nullptr) {
            printFields(*parameter.values.record);
        }
    }

    void printRequests() const {
        if (mFunction.requests.size() == 0) {
            paragraph("Sends", "nothing");
        }
        for (const wire::SentRequest& request : mFunction.requests) {
            const std::string item = request.item == nullptr ? ""
                                                             : std::string(", item ") + request.item + ' ' +
                                                                   std::to_string(request.itemValue);
            paragraph("Sends", std::string(request.command) + ' ' + hexadecimal(request.commandValue) + item);
            paragraph("    in order", *request.arguments == '\0' ? "nothing more" : request.arguments);
            paragraph("    reply", request.reply);
        }
    }

    const Output& mOutput;
    const wire::Function& mFunction;
    const wire::FunctionTexts& mTexts;
};

void describe(const Output& output, const Entry& entry) {
    const std::string brief = entry.brief();
    output.line(output.styled(Style::Name, entry.name()) + " (" + entry.kind() + ')' +
                (brief.empty() ? "" : ": " + brief));
    for (const std::string& line : entry.lines()) {
        output.line(line);
    }
    Json document{{"kind", entry.kind()}, {"name", entry.name()}};
    entry.addTo(document);
    output.document(document);
}

[[noreturn]] void refuse(const std::string& name, const Directory& directory) {
    std::vector<std::string> names = wire::functionNames();
    const std::vector<std::string> others = directory.names();
    names.insert(names.end(), others.begin(), others.end());
    throw UsageError("there is no function, command, item, type or event '" + wire::shown(name) + '\'' +
                     wire::nearestHint(name, names));
}

/** A function, or else whatever else has this name. */
void describe(const Output& output, const std::string& name) {
    if (!wire::functionsNamed(name).empty()) {
        const wire::Function& function = functionNamed(name);
        Description(output, function).print();
        output.document(documentOf(function));
        return;
    }
    const Directory directory;
    const Entry* const entry = directory.named(name);
    if (entry == nullptr) {
        refuse(name, directory);
    }
    describe(output, *entry);
}

} // namespace

void addDescribeCommand(const Command& program, Context& context) {
    const auto name = std::make_shared<std::string>();
    const Subcommand command(program, "describe",
                             "Describe a function, command, item, type or event\n"
                             "Of a function parameters, values, wire and result; of an enumeration its values; of a "
                             "record its fields; of an event its payload.\n\n"
                             "Examples:\n"
                             "kelutv describe audio.setVolume\n"
                             "kelutv describe linux_tv_Picture_setPictureMode\n"
                             "kelutv describe KELU_TV_SRC_E\n"
                             "kelutv describe volumeChanged");
    command.required("NAME", *name, "Full or short name of a function, or any other name of the interface");
    command.action([name, &context] { describe(context.output, *name); });
}

} // namespace kelutv::tool
