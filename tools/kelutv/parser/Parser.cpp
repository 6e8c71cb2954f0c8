#include "tools/kelutv/parser/Parser.h"

#include "tools/kelutv/output/StandardOutput.h"
#include "wire/text/Shown.h"

#include <sstream>
#include <utility>

namespace kelutv::tool {

namespace {

/** The parser's complaints quote words of the command line as they are. */
std::string withWordsShown(const std::string& complaint) {
    std::istringstream words(complaint);
    std::string result;
    for (std::string word; std::getline(words, word, ' ');) {
        result += (result.empty() ? "" : " ") + wire::shown(word);
    }
    return result;
}

} // namespace

UnexpectedWord::UnexpectedWord(const std::string& which)
    : UsageError("unexpected argument '" + wire::shown(which) + '\''), word(which) {}

void Parser::run(std::vector<std::string> words) {
    try {
        writeData(cli::CommandParser::run(std::move(words)));
    } catch (const cli::UnexpectedWord& error) {
        throw UnexpectedWord(error.word);
    } catch (const cli::MissingCommand&) {
        throw UsageError("a command is missing");
    } catch (const cli::Refusal& error) {
        throw UsageError(withWordsShown(error.what()));
    }
}

} // namespace kelutv::tool
