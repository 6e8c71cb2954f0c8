#include "tools/kelutv/parser/Parser.h"

#include "wire/text/Shown.h"

#include <utility>

namespace kelutv::tool {

UnexpectedWord::UnexpectedWord(const std::string& which)
    : UsageError("unexpected argument '" + wire::shown(which) + '\''), word(which) {}

void Parser::run(std::vector<std::string> words) {
    try {
        cli::CommandParser::run(std::move(words));
    } catch (const cli::UnexpectedWord& error) {
        throw UnexpectedWord(error.word);
    } catch (const cli::MissingCommand&) {
        throw UsageError("a command is missing");
    } catch (const cli::Refusal& error) {
        throw UsageError(wire::shown(error.what(), wire::kMostOfPath));
    }
}

} // namespace kelutv::tool
