#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/settings/Equipment.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

void show(const Output& output, const Input& input) {
    constexpr std::size_t kNameWidth = 10;
    std::string name = sourceName(input.source);
    name.resize(std::max(name.size() + 1, kNameWidth), ' ');
    output.line(output.styled(Style::Name, name) +
                output.styled(input.hasSignal ? Style::Good : Style::Dim, textOf(input)));
    output.document(documentOf(input));
}

} // namespace

void addSourcesCommand(const Command& program, Context& context) {
    const Subcommand command(program, "sources",
                             "List the inputs: what is plugged in, has a signal, is shown\n"
                             "Plugged in is what the television lists among the sources that can be chosen now. "
                             "'kelutv set source INPUT' chooses one.\n\n"
                             "Examples:\n"
                             "kelutv sources\n"
                             "kelutv sources --json");
    command.action([&context] {
        const std::vector<Input> inputs = readInputs();
        for (const Input& input : inputs) {
            show(context.output, input);
        }
        if (inputs.empty()) {
            context.output.message("kelutv: the television lists no inputs");
        }
    });
}

} // namespace kelutv::tool
