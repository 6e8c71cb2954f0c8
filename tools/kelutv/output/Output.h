#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Json.h"

#include <string>

namespace kelutv::tool {

/** Stands before the words of a line of a script; the word behind it is the place that complaints name. */
constexpr char kPlaceWord[] = "--place";

enum class Color { Automatic, Always, Never };

/** How a piece of text stands out where there is colour. */
enum class Style { Plain, Name, Value, Number, Dim, Good, Bad };

/**
 * What the commands print: data on standard output, messages on standard error. What a terminal would act on is escaped
 * in messages.
 */
class Output {
public:
    /** JSON instead of text, data as well as messages, one document a line. */
    bool json = false;
    /** Neither messages nor texts that only explain. */
    bool quiet = false;
    Color color = Color::Automatic;

    /** One line of text data. Does nothing with `json`. */
    void line(const std::string& text) const;

    /** One JSON document. Does nothing without `json`. */
    void document(const Json& value) const;

    /** A message to the person, on standard error; not with `quiet`. With `json` `{"message": ...}`. */
    void message(const std::string& text) const;

    /** Where complaints are from now on, as "line 3" of a script; empty for nowhere. */
    static void setPlace(const std::string& place);

    /**
     * What went wrong, on standard error: `kelutv: TEXT`, with the place before the text. With `json` `{"error":
     * {"message": ..., "exit": ...}}`, and `hint` where there is one.
     *
     * @param exit what the program ends with
     * @param hint the command line that tells more
     */
    void complain(const std::string& text, Exit exit, const std::string& hint = "") const;

    /** Whether what `warn` says is JSON from now on. */
    static void setWarningsAsJson(bool asJson);

    /** What the platform warns of, where no command's output is at hand: `kelutv: TEXT`, or `{"message": ...}`. */
    static void warn(const std::string& text);

    /** The text in its style if standard output is to have colour (NO_COLOR and TERM=dumb count). */
    std::string styled(Style style, const std::string& text) const;

private:
    bool hasColor() const;
};

} // namespace kelutv::tool
