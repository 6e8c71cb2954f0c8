#include "tools/kelutv/CommandLine.h"

#include "tools/kelutv/Program.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <cstdio>
#include <exception>

namespace kelutv::tool {

namespace {

std::string whatIsUnknown(const Command& command, const UnexpectedWord& error) {
    if (error.word.size() > 1 && error.word.front() == '-') {
        return "unknown option '" + wire::shown(error.word) + '\'' +
               wire::nearestHint(error.word, command.optionNames());
    }
    const std::vector<std::string> names = command.namesBelow();
    return names.empty() ? error.what()
                         : "unknown command '" + wire::shown(error.word) + '\'' + wire::nearestHint(error.word, names);
}

Exit complainOfUsage(const Parser& parser, const std::string& complaint) {
    Output::complain(complaint);
    const std::string program = parser.program().name();
    const std::string rest = parser.named().path().substr(program.size());
    std::fprintf(stderr, "Try '%s help%s'.\n", program.c_str(), rest == " help" ? "" : rest.c_str());
    return Exit::Usage;
}

Exit run(Parser& parser, const Context& context, std::vector<std::string> words) {
    try {
        parser.run(std::move(words));
        return context.exit;
    } catch (const UnexpectedWord& error) {
        return complainOfUsage(parser, whatIsUnknown(parser.named(), error));
    } catch (const UsageError& error) {
        return complainOfUsage(parser, error.what());
    } catch (const ToolError& error) {
        if (*error.what() != '\0') {
            Output::complain(error.what());
        }
        return error.exit();
    } catch (const std::exception& error) {
        Output::complain(error.what());
        return Exit::Failure;
    }
}

} // namespace

Exit runCommandLine(std::vector<std::string> words) {
    Context context{runCommandLine};
    Parser parser = makeProgram(context);
    return run(parser, context, std::move(words));
}

} // namespace kelutv::tool
