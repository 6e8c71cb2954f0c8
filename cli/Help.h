#pragma once

#include <string>

namespace kelutv::cli {

/**
 * The parts of a command's description: its first line is the brief one that stands in lists, and what follows an
 * empty line and "Example:" or "Examples:" are the examples, one a line.
 */
struct Description {
    explicit Description(const std::string& text);

    std::string brief;
    /** The lines between the brief one and the examples; may be empty. */
    std::string details;
    std::string examples;

    /** What the help of the command begins with: its examples. */
    std::string beginning() const;
    /** What stands behind the usage. */
    std::string explanation() const;
};

} // namespace kelutv::cli
