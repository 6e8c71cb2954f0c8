#include "tools/kelutv/output/Output.h"

#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/output/Streams.h"
#include "wire/text/Shown.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace kelutv::tool {

namespace {

bool isWanted(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isDumb() {
    const char* const terminal = std::getenv("TERM");
    return terminal == nullptr || std::strcmp(terminal, "dumb") == 0;
}

/** With what stands between it and the text. */
std::string& placeOfComplaints() {
    static std::string place;
    return place;
}

const char* codeOf(Style style) {
    switch (style) {
    case Style::Name:
        return "1";
    case Style::Value:
        return "36";
    case Style::Number:
        return "33";
    case Style::Dim:
        return "2";
    case Style::Good:
        return "32";
    case Style::Bad:
        return "31";
    case Style::Plain:
        break;
    }
    return "";
}

bool warningsAsJson = false;

constexpr char kProgram[] = "kelutv: ";

/** Line by line, since a message may have several. */
std::string printable(const std::string& text) {
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        result += (result.empty() ? "" : "\n") + wire::shown(line, line.size());
    }
    return result;
}

std::string withoutProgram(const std::string& text) {
    return text.compare(0, std::strlen(kProgram), kProgram) == 0 ? text.substr(std::strlen(kProgram)) : text;
}

void printMessage(const std::string& line) { std::fprintf(ownError(), "%s\n", line.c_str()); }

} // namespace

void Output::line(const std::string& text) const {
    if (!json) {
        writeData(text + '\n');
    }
}

void Output::document(const Json& value) const {
    if (json) {
        writeData(value.dump() + '\n');
    }
}

void Output::message(const std::string& text) const {
    if (!quiet) {
        printMessage(json ? Json{{"message", withoutProgram(printable(text))}}.dump() : printable(text));
    }
}

void Output::setPlace(const std::string& place) { placeOfComplaints() = place.empty() ? "" : place + ": "; }

void Output::complain(const std::string& text, Exit exit, const std::string& hint) const {
    const std::string message = printable(placeOfComplaints() + text);
    if (!json) {
        printMessage(kProgram + message + (hint.empty() ? "" : "\nTry '" + hint + "'."));
        return;
    }
    Json error{{"message", message}, {"exit", static_cast<int>(exit)}};
    if (!hint.empty()) {
        error["hint"] = hint;
    }
    printMessage(Json{{"error", error}}.dump());
}

void Output::setWarningsAsJson(bool asJson) { warningsAsJson = asJson; }

void Output::warn(const std::string& text) {
    printMessage(warningsAsJson ? Json{{"message", printable(text)}}.dump() : kProgram + printable(text));
}

std::string Output::styled(Style style, const std::string& text) const {
    return style != Style::Plain && hasColor() ? std::string("\033[") + codeOf(style) + 'm' + text + "\033[0m" : text;
}

bool Output::hasColor() const {
    if (json || color == Color::Never) {
        return false;
    }
    return color == Color::Always || (::isatty(::fileno(ownOutput())) == 1 && !isWanted("NO_COLOR") && !isDumb());
}

} // namespace kelutv::tool
