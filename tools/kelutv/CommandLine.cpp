#include "tools/kelutv/CommandLine.h"

#include "tools/kelutv/Program.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
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

Exit complainOfUsage(const Parser& parser, const Output& output, const std::string& complaint) {
    const std::string program = parser.program().name();
    const std::string rest = parser.named().path().substr(program.size());
    output.complain(complaint, Exit::Usage, program + " help" + (rest == " help" ? "" : rest));
    return Exit::Usage;
}

/** Known before the words are parsed, for what is wrong with them is said as JSON, too. */
bool asksForJson(const std::vector<std::string>& words) {
    const auto end = std::find(words.begin(), words.end(), "--");
    return std::find(words.begin(), end, "--json") != end;
}
/** Whether the command itself sees to its time: that of the repl is for each of its lines. */
bool keepsItsTime(const Command& command) { return command.name() == "monitor" || command.name() == "repl"; }

Exit run(Parser& parser, const Context& context, std::vector<std::string> words) {
    try {
        parser.run(std::move(words));
        return context.exit;
    } catch (const UnexpectedWord& error) {
        return complainOfUsage(parser, context.output, whatIsUnknown(parser.named(), error));
    } catch (const UsageError& error) {
        return complainOfUsage(parser, context.output, error.what());
    } catch (const LostError& error) {
        // A look may take longer than there is.
        context.output.complain(context.time ? error.what() : withReasonsOfLoss(error.what()), error.exit());
        return error.exit();
    } catch (const ToolError& error) {
        if (*error.what() != '\0') {
            context.output.complain(error.what(), error.exit());
        }
        return error.exit();
    } catch (const std::exception& error) {
        context.output.complain(error.what(), Exit::Failure);
        return Exit::Failure;
    }
}

/** Takes the place off the words. The parser has no such option, so that complaints about any other have their place.
 */
void takePlace(std::vector<std::string>& words) {
    const bool hasPlace = words.size() > 1 && words.front() == kPlaceWord;
    Output::setPlace(hasPlace ? words[1] : "");
    words.erase(words.begin(), words.begin() + (hasPlace ? 2 : 0));
}

} // namespace

Exit runCommandLine(std::vector<std::string> words, const LimitTime& limitTime) {
    takePlace(words);
    Context context{runCommandLine, makeProgram};
    context.output.json = asksForJson(words);
    Output::setWarningsAsJson(context.output.json);
    Parser parser = makeProgram(context, words);
    Subcommand(parser.program()).beforeAction([&] {
        if (!context.time) {
            context.time = timeOfEnvironment();
        }
        if (context.time && !keepsItsTime(parser.named())) {
            limitTime(*context.time);
        }
    });
    return run(parser, context, std::move(words));
}

} // namespace kelutv::tool
