#pragma once

#include "tools/kelutv/output/Json.h"

#include <string>

namespace kelutv::tool {

enum class Color { Automatic, Always, Never };

/** How a piece of text stands out where there is colour. */
enum class Style { Plain, Name, Value, Number, Dim, Good, Bad };

/** What the commands print: data on standard output, messages on standard error. */
class Output {
public:
    /** Data as JSON, one document a line, instead of text. */
    bool json = false;
    /** Neither messages nor texts that only explain. */
    bool quiet = false;
    Color color = Color::Automatic;

    /** One line of text data. Does nothing with `json`. */
    void line(const std::string& text) const;

    /** One JSON document. Does nothing without `json`. */
    void document(const Json& value) const;

    /** A message to the person, on standard error; not with `quiet`. */
    void message(const std::string& text) const;

    /** What went wrong, on standard error: "kelutv: TEXT". */
    static void complain(const std::string& text);

    /** The text in its style if standard output is to have colour (NO_COLOR and TERM=dumb count). */
    std::string styled(Style style, const std::string& text) const;

private:
    bool hasColor() const;
};

} // namespace kelutv::tool
