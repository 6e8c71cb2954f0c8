#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace kelutv::tool {

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
};

/** Help with the examples first. */
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter();
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
    std::string make_subcommand(const CLI::App* command) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
};

} // namespace kelutv::tool
