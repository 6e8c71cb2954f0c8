#include "simulator/text/ControlWords.h"

#include "simulator/text/Words.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace kelutv::simulator {

namespace {

constexpr char kBlanks[] = " \t\r";

bool isHexadecimal(const std::string& word) { return word.rfind("0x", 0) == 0 || word.rfind("0X", 0) == 0; }

/** The end of what is in the quotes that open at `at`: one behind the closing one. */
std::size_t endOfQuotes(const std::string& text, std::size_t at) {
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            return i + 1;
        }
    }
    throw BadLine("a quote has no end");
}

/** Reads one character, maybe an escaped one, and moves behind it. */
char characterAt(const std::string& text, std::size_t& at) {
    if (text[at] != '\\') {
        return text[at++];
    }
    if (const auto byte = text[at + 1] == 'x' ? numberOf<unsigned int>(text.substr(at + 2, 2), 16) : std::nullopt) {
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

std::string ControlWord::text() const {
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

ControlWords wordsIn(const std::string& text, const char* separators) {
    ControlWords words;
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= text.size();) {
        if (i == text.size() || std::strchr(separators, text[i]) != nullptr) {
            if (i > begin) {
                words.push_back({text.substr(begin, i - begin)});
            }
            begin = ++i;
        } else {
            i = text[i] == '"' ? endOfQuotes(text, i) : i + 1;
        }
    }
    return words;
}

Assignment assignmentOf(const std::string& text) {
    Assignment assignment;
    const std::size_t equals = findOutsideQuotes(text, '=');
    std::string target = trimmed(text.substr(0, equals));
    if (equals != std::string::npos) {
        assignment.values = wordsIn(text.substr(equals + 1), ", \t\r");
    }
    const std::size_t bracket = findOutsideQuotes(target, '[');
    if (bracket != std::string::npos) {
        if (target.back() != ']') {
            throw BadLine("the keys of '" + target + "' have no closing bracket");
        }
        assignment.indexes = wordsIn(target.substr(bracket + 1, target.size() - bracket - 2), ", \t\r");
        target = trimmed(target.substr(0, bracket));
    }
    assignment.name = target;
    return assignment;
}

std::optional<std::string> bytesOf(const std::string& hex) {
    std::string digits = isHexadecimal(hex) ? hex.substr(2) : hex;
    digits.erase(std::remove(digits.begin(), digits.end(), ':'), digits.end());
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const auto byte = numberOf<unsigned int>(digits.substr(i, 2), 16);
        if (!byte || i + 1 == digits.size()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

std::int32_t integerOf(const std::string& word, const wire::Names& names, const std::string& what) {
    if (const auto number = wire::int32Of(word)) {
        return *number;
    }
    try {
        return names.valueOf(word);
    } catch (const wire::UnknownName& error) {
        throw BadLine(what + ": " + error.what());
    }
}

std::string unwrapped(const std::string& text) {
    const ControlWords words = wordsIn(text);
    return words.size() == 1 && words[0].raw[0] == '"' ? words[0].text() : text;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string joinedLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

std::string listed(const std::vector<std::string>& names) {
    std::string result;
    for (std::size_t i = 0; i < names.size(); ++i) {
        result += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return result;
}

} // namespace kelutv::simulator
