#pragma once

#include "cli/Command.h"

#include <memory>
#include <optional>
#include <string>

namespace kelutv::cli {

/** The exit code of a program whose command line is refused. */
constexpr int kBadUsage = 2;

/** The parser of a program that takes options alone. */
class OptionParser {
public:
    OptionParser(const char* name, const std::string& description, const std::string& version);
    ~OptionParser();

    /** The program, for its options to be described. */
    Subcommand program() const;

    /**
     * Reads the arguments of `main` into the values of the options. Prints the help or the version that they ask for,
     * and to standard error what is wrong with them.
     *
     * @param shown makes a complaint, which quotes arguments, fit to be printed
     * @return the exit code when the program ends with this
     */
    std::optional<int> parse(int argc, const char* const* argv,
                             const std::function<std::string(const std::string&)>& shown) const;

private:
    std::unique_ptr<CLI::App> mApp;
    std::string mVersion;
};

} // namespace kelutv::cli
