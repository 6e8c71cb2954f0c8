#include "tools/kelutv/compliance/reports/Markup.h"

#include "wire/text/Printable.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

std::string escapedCharacter(const std::string& character) {
    switch (character.front()) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return character;
    }
}

/** UTF-8 all the same. */
bool isNoCharacter(const std::string& character) { return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF"; }

} // namespace

std::string escaped(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::string character = text.substr(at, wire::lengthOfPrintable(text, at));
        if (character == "" || isNoCharacter(character)) {
            result += text[at] == '\n' ? "\n" : wire::escapedByte(text, at);
            ++at;
        } else {
            result += escapedCharacter(character);
            at += character.size();
        }
    }
    return result;
}

std::string openingTag(const std::string& name, const Attributes& attributes) {
    std::string tag = '<' + name;
    for (const auto& [attribute, value] : attributes) {
        tag += ' ' + attribute + "=\"" + escaped(value) + '"';
    }
    return tag + '>';
}

std::string element(const std::string& name, const Attributes& attributes, const std::string& markup) {
    return openingTag(name, attributes) + markup + "</" + name + '>';
}

std::string textElement(const std::string& name, const Attributes& attributes, const std::string& text) {
    return element(name, attributes, escaped(text));
}

} // namespace kelutv::tool::compliance
