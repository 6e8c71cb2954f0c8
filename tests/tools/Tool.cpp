#include "Tool.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

namespace kelutv::test {

ToolRun runTool(std::vector<std::string> arguments, const std::vector<std::string>& environment) {
    ChildProcess::Options options;
    options.environment = environment;
    options.captureOutput = true;
    options.captureError = true;
    arguments.insert(arguments.begin(), KELUTV_TOOL_PROGRAM);
    ChildProcess process(std::move(arguments), options);
    const auto exit = process.exitCode();
    EXPECT_TRUE(exit.has_value()) << "the tool was ended by a signal or did not end";
    return {exit.value_or(-1), process.output().text(), process.error().text()};
}

} // namespace kelutv::test
