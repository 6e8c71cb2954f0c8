#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/HexDump.h"
#include "tools/kelutv/text/InputFile.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Numbers.h"
#include "wire/text/ResultNames.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace kelutv::tool {

namespace {

struct DecodeOptions {
    std::vector<std::string> words;
    std::string command;
    std::string item;
    std::string reply;
    std::string offset;
    bool raw = false;
};

std::string hexNumber(std::int32_t number) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%X", static_cast<unsigned int>(number));
    return text;
}

Bytes bytesOf(const std::string& argument, const DecodeOptions& options) {
    const std::string text = textOfArgument(argument);
    const bool isRaw = options.raw && (argument == "-" || argument.compare(0, 1, "@") == 0);
    return isRaw ? Bytes(text.begin(), text.end()) : bytesOfDump(text);
}

Bytes requestBytes(const DecodeOptions& options) {
    Bytes bytes;
    for (const std::string& word : options.words) {
        const Bytes more = bytesOf(word, options);
        bytes.insert(bytes.end(), more.begin(), more.end());
    }
    return bytes;
}

std::vector<std::string> senderNames(const wire::Request& request) {
    const std::vector<const wire::Function*> functions = sendersOf(request);
    std::vector<std::string> names;
    std::transform(functions.begin(), functions.end(), std::back_inserter(names),
                   [](const wire::Function* function) { return function->name; });
    return names;
}

/** A number, or the value that a name means. */
std::int32_t numberOf(const char* option, const wire::Enumeration& names, const std::string& text) {
    if (const auto number = wire::int32Of(text)) {
        return *number;
    }
    return valueNamed(names, text, option);
}

const wire::Command& commandNamed(const std::string& text) {
    const wire::Enumeration& names = *wire::findEnumeration("ATV_CMD_ID_E");
    const wire::Command* const command = wire::findCommand(numberOf("--command", names, text));
    if (command == nullptr) {
        throw UsageError("--command: no command " + wire::shown(text));
    }
    return *command;
}

/** The arguments that a reply needs to be read: the item of an item command. */
wire::Arguments itemArguments(const wire::Command& command, const std::string& text) {
    if (!command.hasItems) {
        throw UsageError(std::string("--item: ") + command.name + " carries no items");
    }
    return {{numberOf("--item", *command.operation.request[0].names, text)}};
}

/** What `--command` and `--item` say of the request. */
wire::Request namedRequest(const DecodeOptions& options) {
    wire::Request request;
    request.command = &commandNamed(options.command);
    request.operation = &request.command->operation;
    if (!options.item.empty()) {
        request.operation = wire::operationOf(*request.command, itemArguments(*request.command, options.item));
    }
    if (request.operation == nullptr) {
        throw UsageError("--item: " + std::string(request.command->name) + " has no item " + wire::shown(options.item));
    }
    return request;
}

void check(const DecodeOptions& options) {
    if (options.words.empty() && options.reply.empty()) {
        throw UsageError("nothing to decode: give the bytes of a request, --reply with those of a reply, or both");
    }
    if (options.words.empty() && options.command.empty()) {
        throw UsageError("--reply needs the request before it, or --command to name what it answers");
    }
    if (!options.words.empty() && !options.command.empty()) {
        throw UsageError("--command: the request names its command itself; leave one of them out");
    }
    if (!options.item.empty() && options.command.empty()) {
        throw UsageError("--item needs --command");
    }
    if (!options.offset.empty() && options.words.empty()) {
        throw UsageError("--offset needs the bytes of a request");
    }
}

/** Where the command begins; nothing where that is to be found out. */
std::optional<std::size_t> commandAt(const std::string& offset, std::size_t size) {
    if (offset.empty()) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> number = wire::int32Of(offset);
    if (!number || *number < 0 || static_cast<std::size_t>(*number) > size) {
        throw UsageError("--offset takes a number of bytes from 0 to " + std::to_string(size) +
                         ", the size of the request, not '" + wire::shown(offset) + '\'');
    }
    return static_cast<std::size_t>(*number);
}

void printLines(const DecodedRequest& decoded, bool hasToken, const Output& output) {
    const wire::Request& request = decoded.request;
    if (decoded.request.number) {
        if (hasToken) {
            output.line("interface: android.ITVBaseService");
        }
        const std::string name = request.command != nullptr ? std::string(request.command->name) + ' ' : "";
        output.line("command: " + output.styled(Style::Name, name) + hexNumber(*request.number));
    }
    for (const NamedValue& argument : argumentsOf(request)) {
        output.line("  " + lineOf(argument));
    }
    if (const auto senders = senderNames(request); !senders.empty()) {
        output.line("sent by: " + joined(senders, ", "));
    }
}

std::string printRequest(const DecodeOptions& options, const Output& output, Json& document, wire::Request& request) {
    const Bytes bytes = requestBytes(options);
    const std::optional<std::size_t> at = commandAt(options.offset, bytes.size());
    const DecodedRequest decoded = decodeRequest(bytes, at);
    printLines(decoded, !at, output);
    document["request"] = documentOf(decoded);
    document["functions"] = senderNames(decoded.request);
    request = decoded.request;
    return decoded.flaw ? "request: " + textOf(*decoded.flaw) : "";
}

std::string printReply(const DecodeOptions& options, const Output& output, Json& document,
                       const wire::Request& request) {
    const wire::Operation& operation = operationFor(request);
    const wire::ReplyReading reading = decodeReply(operation, bytesOf(options.reply, options));
    if (reading.hasResult) {
        output.line("result: " + wire::resultText(reading.reply.result));
    }
    for (const NamedValue& field : fieldsOf(operation, reading.reply)) {
        output.line("  " + lineOf(field));
    }
    document["reply"] = documentOf(operation, reading);
    return reading.flaw ? "reply: " + textOf(*reading.flaw) : "";
}

void decode(const DecodeOptions& options, const Output& output) {
    check(options);
    Json document;
    wire::Request request;
    std::string flaw;
    if (options.words.empty()) {
        request = namedRequest(options);
    } else {
        flaw = printRequest(options, output, document, request);
    }
    if (!options.reply.empty()) {
        const std::string more = printReply(options, output, document, request);
        flaw += (flaw.empty() || more.empty() ? "" : "; ") + more;
    }
    output.document(document);
    if (!flaw.empty()) {
        throw ToolError(Exit::Usage, flaw);
    }
}

} // namespace

void addDecodeCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<DecodeOptions>();
    const Subcommand command(
        program, "decode",
        "Show what the bytes of a request or a reply mean\n\n"
        "The bytes are hex digits, with or without spaces and 0x, or the lines of a hex dump. What is wrong with\n"
        "them follows what could be read, with the position of the byte. A request begins with the interface's\n"
        "name in any of the forms in which platforms write it; of another form, --offset says where it ends.\n\n"
        "Examples:\n"
        "kelutv encode audio.setVolume speaker 35 | kelutv decode -\n"
        "kelutv decode --command CMD_AUDIO_GETVOLUME --reply '00000000 23000000'\n"
        "kelutv decode --raw @request.bin --reply @reply.bin");
    command.words("HEX", options->words,
                  "The request: hex digits, a hex dump, @FILE with them, or - for standard input");
    command.option("--reply", options->reply, "HEX", "The reply, given in the same ways");
    command.option("--command", options->command, "NAME|NUMBER", "What the reply answers, when there is no request");
    command.option("--item", options->item, "NAME|NUMBER", "The item of that command");
    command.option("--offset", options->offset, "N", "The byte of the request at which its command begins");
    command.flag("--raw", options->raw, "@FILE and - hold the bytes themselves");
    command.action([options, &context] { decode(*options, context.output); });
}

} // namespace kelutv::tool
