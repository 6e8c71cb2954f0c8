#include "simulator/text/ControlWords.h"

#include "simulator/text/Words.h"
#include "wire/text/Nearest.h"

#include <fnmatch.h>
#include <strings.h>

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

/** Lower case, without underscores and hyphens. */
std::string folded(const std::string& name) {
    std::string result;
    for (const char character : name) {
        if (character != '_' && character != '-') {
            result += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        }
    }
    return result;
}

/** How many characters all names have in common, in whole words. */
std::size_t commonLength(const Enumerators& names) {
    const std::string_view first = names[0].name;
    std::size_t common = first.size();
    for (const wire::Enumerator& row : names) {
        const std::string_view name = row.name;
        common = static_cast<std::size_t>(
            std::mismatch(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(std::min(common, name.size())),
                          name.begin())
                .first -
            first.begin());
    }
    const std::size_t underscore = first.substr(0, common).rfind('_');
    return underscore == std::string_view::npos ? 0 : underscore + 1;
}

/** The short names, in the order of the enumerators. */
std::vector<std::string> shortNames(const Enumerators& names) {
    const std::size_t common = names.empty() ? 0 : commonLength(names);
    std::vector<std::string> result;
    for (const wire::Enumerator& row : names) {
        std::string name = row.name + common;
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
        result.push_back(std::move(name));
    }
    return result;
}

bool beginsWord(const std::string& name, std::size_t at) {
    return at == 0 || std::isalnum(static_cast<unsigned char>(name[at - 1])) == 0 ||
           (std::isupper(static_cast<unsigned char>(name[at])) != 0 &&
            std::isupper(static_cast<unsigned char>(name[at - 1])) == 0);
}

std::string unknownName(const std::string& word, const std::vector<std::string>& names, const std::string& what) {
    return '\'' + word + "' is no " + what + wire::nearestOf(word, names) + "; allowed: " + listed(names);
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
        assignment.keys = wordsIn(target.substr(bracket + 1, target.size() - bracket - 2), ", \t\r");
        target = trimmed(target.substr(0, bracket));
    }
    assignment.name = target;
    return assignment;
}

std::optional<std::int32_t> int32Of(const std::string& word) {
    if (!isHexadecimal(word)) {
        return numberOf<std::int32_t>(word);
    }
    const auto number = numberOf<std::uint32_t>(word.substr(2), 16);
    return number ? std::optional(static_cast<std::int32_t>(*number)) : std::nullopt;
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

Enumerators enumeratorsOf(const wire::Enumeration& enumeration) {
    constexpr std::string_view kEnd = "_BUTT";
    Enumerators enumerators;
    for (const wire::Enumerator& row : enumeration.values) {
        const std::string_view name = row.name;
        if (name.size() < kEnd.size() || name.substr(name.size() - kEnd.size()) != kEnd) {
            enumerators.push_back(row);
        }
    }
    return enumerators;
}

std::int32_t enumeratorOf(const std::string& word, const Enumerators& names, const std::string& what) {
    if (const auto number = int32Of(word)) {
        return *number;
    }
    const std::vector<std::string> shorts = shortNames(names);
    const std::string wanted = folded(word);
    std::vector<std::size_t> begun;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string name = folded(shorts[i]);
        if (wanted == name || wanted == folded(names[i].name)) {
            return names[i].value;
        }
        if (!wanted.empty() && name.rfind(wanted, 0) == 0) {
            begun.push_back(i);
        }
    }
    if (begun.empty()) {
        throw BadLine(unknownName(word, shorts, what));
    }
    if (begun.size() > 1) {
        std::vector<std::string> candidates;
        for (const std::size_t index : begun) {
            candidates.push_back(shorts[index]);
        }
        throw BadLine("'" + word + "' is the beginning of more than one " + what + ": " + listed(candidates));
    }
    return names[begun.front()].value;
}

std::string shortNameOf(std::int32_t value, const Enumerators& names) {
    const std::vector<std::string> shorts = shortNames(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].value == value) {
            return shorts[i];
        }
    }
    return "";
}

bool matches(const std::string& name, const std::string& pattern) {
    if (pattern.find_first_of("*?") != std::string::npos) {
        return ::fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD | FNM_NOESCAPE) == 0;
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (beginsWord(name, i) && ::strncasecmp(name.c_str() + i, pattern.c_str(), pattern.size()) == 0) {
            return true;
        }
    }
    return false;
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
