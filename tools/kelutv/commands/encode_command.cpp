#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Hex.h"

#include <memory>

namespace kelutv::tool {

namespace {

struct Options {
    std::string function;
    std::vector<std::string> arguments;
    bool raw = false;
};

using Requests = std::vector<std::vector<std::uint8_t>>;

Json documentOf(const wire::Function& function, const Requests& requests) {
    Json document{{"function", function.name}, {"requests", Json::array()}};
    for (const auto& request : requests) {
        document["requests"].add(hexOf(request));
    }
    return document;
}

void print(const Requests& requests, bool raw, const Output& output) {
    for (const auto& request : requests) {
        if (raw) {
            writeData({request.begin(), request.end()});
        } else {
            output.line(hexOf(request));
        }
    }
}

void run(const Options& options, const Output& output) {
    const wire::Function& function = functionNamed(options.function);
    const Requests requests = requestsOf(function, options.arguments);
    print(requests, options.raw, output);
    if (!options.raw) {
        output.document(documentOf(function, requests));
    }
    if (requests.empty()) {
        output.message(std::string(function.shortName) + " sends nothing");
    }
}

} // namespace

void addEncodeCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<Options>();
    const Subcommand command(program, "encode",
                             "Print the bytes that a call sends, without a service\n\n"
                             "Examples:\n"
                             "kelutv encode audio.setVolume speaker 35\n"
                             "kelutv encode audio.setVolume speaker 35 | kelutv decode -");
    command.flag("--raw", options->raw, "Write the bytes themselves");
    command.required("FUNCTION", options->function, "Full or short name");
    command.words("ARG", options->arguments, "What goes in, as for call");
    command.action([options, &context] { run(*options, context.output); });
}

} // namespace kelutv::tool
