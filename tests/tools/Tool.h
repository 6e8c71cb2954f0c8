#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** What one run of the tool gave. */
struct ToolRun {
    int exit;
    std::string output;
    std::string error;
};

/**
 * Runs `kelutv` as a person would, with these arguments, until its end.
 *
 * An end that does not come in time fails the test; `exit` is -1 then.
 */
ToolRun runTool(std::vector<std::string> arguments, const std::vector<std::string>& environment = {});

} // namespace kelutv::test
