#include "foreign/ForeignService.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <stdexcept>

namespace kelutv::test {

ForeignService::ForeignService(const std::vector<std::string>& options) : mOptions(options) { startAgain(); }

void ForeignService::end() {
    mProcess->kill(SIGKILL);
    EXPECT_TRUE(mProcess->wait().has_value());
}

void ForeignService::startAgain() {
    std::vector<std::string> arguments{KELUTV_FOREIGN_SERVICE};
    arguments.insert(arguments.end(), mOptions.begin(), mOptions.end());
    ChildProcess::Options capture;
    capture.captureOutput = true;
    capture.environment = environment();
    mProcess = std::make_unique<ChildProcess>(arguments, capture);
    if (!mProcess->output().waitFor("ready\n")) {
        throw std::runtime_error("the service of the foreign platform did not come up");
    }
}

std::string ForeignService::output(std::vector<std::string> arguments) const {
    const ToolRun result = run(std::move(arguments));
    EXPECT_EQ(result.exit, 0) << result.error;
    EXPECT_EQ(result.error, "");
    return result.output;
}

std::vector<std::string> ForeignService::requests() {
    const std::string word = "request ";
    std::istringstream lines(mProcess->output().text());
    std::vector<std::string> requests;
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, word.size(), word) == 0) {
            requests.push_back(line.substr(word.size()));
        }
    }
    return requests;
}

} // namespace kelutv::test
