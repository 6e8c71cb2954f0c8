#include "simulator/text/Tokenizer.h"

#include "simulator/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstring>

namespace kelutv::simulator {

namespace {

constexpr char kBlanks[] = " \t\r";

/** The position after the quote that closes the one at `at`. */
std::size_t endOfQuotes(const std::string& text, std::size_t at) {
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return i + 1;
        }
    }
    throw BadLine("a quote is not closed");
}

/** Reads one character, maybe an escaped one, and moves past it. */
char characterAt(const std::string& text, std::size_t& at) {
    if (text[at] != '\\') {
        return text[at++];
    }
    if (const auto byte = text[at + 1] == 'x' ? wholeNumber<unsigned char>(text.substr(at + 2, 2), 16) : std::nullopt) {
        at += 4;
        return static_cast<char>(*byte);
    }
    at += 2;
    return text[at - 1];
}

/** Where the character stands outside quotes. */
std::size_t findOutsideQuotes(const std::string& text, char wanted) {
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == wanted) {
            return i;
        }
        i = text[i] == '"' ? endOfQuotes(text, i) : i + 1;
    }
    return std::string::npos;
}

} // namespace

std::string Token::text() const {
    std::string text;
    bool isInQuotes = false;
    for (std::size_t i = 0; i < raw.size();) {
        if (raw[i] == '"') {
            isInQuotes = !isInQuotes;
            ++i;
        } else {
            text += isInQuotes ? characterAt(raw, i) : raw[i++];
        }
    }
    return text;
}

Tokens tokensOf(const std::string& text, const char* separators) {
    Tokens tokens;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= text.size();) {
        if (i == text.size() || std::strchr(separators, text[i]) != nullptr) {
            if (i > begin) {
                tokens.push_back({text.substr(begin, i - begin)});
            }
            begin = ++i;
        } else {
            i = text[i] == '"' ? endOfQuotes(text, i) : i + 1;
        }
    }
    return tokens;
}

Assignment assignmentOf(const std::string& text) {
    Assignment assignment;
    const std::size_t equals = findOutsideQuotes(text, '=');
    std::string target = trimmed(text.substr(0, equals));
    if (equals != std::string::npos) {
        assignment.values = tokensOf(text.substr(equals + 1), ", \t\r");
    }
    const std::size_t bracket = findOutsideQuotes(target, '[');
    if (bracket != std::string::npos) {
        if (target.back() != ']') {
            throw BadLine("the keys of '" + wire::shown(target) + "' have no closing bracket");
        }
        assignment.indexes = tokensOf(target.substr(bracket + 1, target.size() - bracket - 2), ", \t\r");
        target = trimmed(target.substr(0, bracket));
    }
    assignment.name = target;
    return assignment;
}

std::string unwrapped(const std::string& text) {
    const Tokens tokens = tokensOf(text);
    return tokens.size() == 1 && tokens[0].raw[0] == '"' ? tokens[0].text() : text;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    for (std::size_t end = 0;;) {
        const std::size_t begin = line.find_first_not_of(kBlanks, end);
        if (begin == std::string::npos) {
            return words;
        }
        end = std::min(line.find_first_of(kBlanks, begin), line.size());
        words.push_back(line.substr(begin, end - begin));
    }
}

} // namespace kelutv::simulator
