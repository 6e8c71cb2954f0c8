#pragma once

#include "wire/text/RequestPattern.h"

#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** A scenario that cannot be played; the text names file and line. */
class ScenarioError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** What a step waits for before its line is carried out. */
struct ScenarioStep {
    enum class Wait { None, At, After, On };

    int lineNumber = 0;
    Wait wait = Wait::None;
    /** At: since the start of the scenario. After: since the step before. On: the longest wait, if there is one. */
    std::optional<std::chrono::milliseconds> time;
    /** The request that is waited for. */
    std::optional<wire::RequestPattern> request;
    /** For the control channel; empty when the step only waits. */
    std::string line;
};

/** A file of timed steps, read and checked. */
struct Scenario {
    /** What is wrong with a line for the control channel as far as can be said beforehand. */
    using Check = std::function<std::optional<std::string>(const std::string& line)>;

    /** As messages show it. */
    std::string path;
    std::vector<ScenarioStep> steps;
};

/** @throws ScenarioError for a file that cannot be read or has a line that makes no sense */
Scenario readScenario(const std::string& path, const Scenario::Check& check);

/** Those that come with the simulator, in alphabetical order. */
std::vector<std::string> scenarioNames();

/**
 * The file that is meant: a path, or the name of a scenario that comes with the simulator.
 * @throws ScenarioError when there is none, with the names that there are
 */
std::string findScenario(const std::string& nameOrPath);

} // namespace kelutv::simulator
