#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/Callbacks.h"
#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "tools/kelutv/text/Hex.h"

#include <memory>

namespace kelutv::tool {

namespace {

struct Options {
    std::string function;
    std::vector<std::string> arguments;
    bool wire = false;
};

Json documentOf(const interposition::Transaction& transaction) {
    return {{"request", hexOf(transaction.request)},
            {"reply", hexOf(transaction.reply)},
            {"status", transaction.status},
            {"microseconds", std::chrono::duration_cast<std::chrono::microseconds>(transaction.duration).count()}};
}

void printWire(const Output& output, const CallResult& call) {
    for (const interposition::Transaction& transaction : call.transactions) {
        output.line("-> " + hexOf(transaction.request));
        output.line("<- " + hexOf(transaction.reply));
    }
}

Json wireDocument(const CallResult& call) {
    Json transactions = Json::array();
    for (const interposition::Transaction& transaction : call.transactions) {
        transactions.add(documentOf(transaction));
    }
    return transactions;
}

void run(const Options& options, const Output& output) {
    const wire::Function& function = functionNamed(options.function);
    printCallbacksAsJson(output.json);
    const CallResult call = tryFunction(function, options.arguments);
    Json document = documentOf(function, call);
    if (options.wire) {
        printWire(output, call);
        document["transactions"] = wireDocument(call);
    }
    for (const std::string& line : linesOf(function, call)) {
        output.line(line);
    }
    output.document(document);
    if (!call.failure.empty()) {
        throw ServiceError(std::string(function.shortName) + ": " + call.failure);
    }
}

} // namespace

void addCallCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<Options>();
    const Subcommand command(program, "call",
                             "Call a function and print what it gives\n\n"
                             "Examples:\n"
                             "kelutv call audio.setVolume speaker 35\n"
                             "kelutv call audio.getVolume speaker --json\n"
                             "kelutv call picture.setColorTemp warm --wire");
    command.flag("-w,--wire", options->wire, "Print the bytes of each request and reply, too");
    command.required("FUNCTION", options->function, "Full or short name");
    command.words("ARG", options->arguments, "What goes in, in the function's order; see kelutv describe FUNCTION");
    command.action([options, &context] { run(*options, context.output); });
}

} // namespace kelutv::tool
