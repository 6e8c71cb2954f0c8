#include "Program.h"

#include "cli/OptionParser.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace kelutv::bench;

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

int start(int argc, char** argv) {
    const std::vector<std::string> all = measurementNames();
    std::vector<std::string> names;
    bool quick = false;
    const kelutv::cli::OptionParser parser(
        "kelutv-bench",
        "Measures the library and what it is held against, in turn, and prints a line for each figure: its path and "
        "its "
        "value. scripts/bench makes tables and a picture of them.\n"
        "Measurements: " +
            joined(all) + ". All of them are made when none is named.\n\nExample: kelutv-bench --quick calls threads",
        "kelutv-bench " KELUTV_VERSION);
    const kelutv::cli::Subcommand program = parser.program();
    program.flag("--quick", quick, "Measure so little that it takes seconds: to see that it works");
    program.words("MEASUREMENT", names, "What to measure");
    if (const auto ended = parser.parse(argc, argv, [](const std::string& text) { return text; })) {
        return *ended;
    }
    for (const std::string& name : names) {
        if (std::find(all.begin(), all.end(), name) == all.end()) {
            std::fprintf(stderr, "kelutv-bench: '%s' is no measurement; they are %s\n", name.c_str(),
                         joined(all).c_str());
            return kelutv::cli::kBadUsage;
        }
    }
    return measure(names.empty() ? all : names, quick ? Extent::Quick : Extent::Full) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return start(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelutv-bench: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
