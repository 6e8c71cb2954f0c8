#include "simulator/scenarios/Scenario.h"

#include "simulator/files/File.h"
#include "simulator/text/Join.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace kelutv::simulator {

namespace {

namespace fs = std::filesystem;

constexpr char kSuffix[] = ".scenario";

constexpr char kBlanks[] = " \t\r";

/** What follows the first words of a line, unchanged. */
std::string behind(const std::string& line, std::size_t words) {
    std::size_t at = line.find_first_not_of(kBlanks);
    for (; words > 0 && at != std::string::npos; --words) {
        at = line.find_first_not_of(kBlanks, line.find_first_of(kBlanks, at));
    }
    return at == std::string::npos ? "" : line.substr(at, line.find_last_not_of(kBlanks) + 1 - at);
}

/** Reads one line; throws std::invalid_argument. */
class StepReader {
public:
    StepReader(const std::string& line, int lineNumber) : mLine(line), mWords(wordsOf(line)) {
        mStep.lineNumber = lineNumber;
    }

    ScenarioStep read(const Scenario::Check& check) {
        readWait();
        mStep.line = behind(mLine, mNext);
        if (mStep.line.empty() && mStep.wait != ScenarioStep::Wait::On) {
            throw std::invalid_argument("'" + wire::shown(mWords[0]) + "' has no command after its time");
        }
        if (const auto complaint = mStep.line.empty() ? std::nullopt : check(mStep.line)) {
            throw std::invalid_argument(*complaint);
        }
        return std::move(mStep);
    }

private:
    void readWait() {
        if (mWords[0] == "at") {
            readTime(ScenarioStep::Wait::At);
        } else if (mWords[0] == "after") {
            readTime(ScenarioStep::Wait::After);
        } else if (mWords[0] == "on") {
            readRequest();
        }
    }

    void readTime(ScenarioStep::Wait wait) {
        mStep.wait = wait;
        mStep.time = time(1);
        mNext = 2;
    }

    void readRequest() {
        if (mWords.size() < 2) {
            throw std::invalid_argument("on takes a command, an item or any");
        }
        mStep.wait = ScenarioStep::Wait::On;
        mStep.request.emplace(mWords[1]);
        mNext = 2;
        if (mWords.size() > 2 && mWords[2] == "within") {
            mStep.time = time(3);
            mNext = 4;
        }
    }

    std::chrono::milliseconds time(std::size_t index) const {
        const auto milliseconds = index < mWords.size() ? millisecondsOf(mWords[index]) : std::nullopt;
        if (!milliseconds) {
            throw std::invalid_argument(mWords[index - 1] + " takes a time from 0ms to 3600s, like 200ms or 1.5s");
        }
        return std::chrono::milliseconds(*milliseconds);
    }

    const std::string& mLine;
    const std::vector<std::string> mWords;
    std::size_t mNext = 0;
    ScenarioStep mStep;
};

bool saysNothing(const std::string& line) {
    const std::size_t first = line.find_first_not_of(kBlanks);
    return first == std::string::npos || line[first] == '#';
}

fs::path programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/** Where scenarios are: beside a program that was built, or in the share folder of one that was installed. */
std::vector<fs::path> scenarioFolders() {
    const fs::path folder = programFolder();
    return {folder / "scenarios", folder.parent_path() / KELUTV_SCENARIO_DIR};
}

std::string contentOf(const std::string& path) {
    try {
        return readRegularFile(path);
    } catch (const std::runtime_error& error) {
        throw ScenarioError(error.what());
    }
}

} // namespace

Scenario readScenario(const std::string& path, const Scenario::Check& check) {
    std::istringstream file(contentOf(path));
    Scenario scenario{wire::shown(path, wire::kMostOfPath), {}};
    int lineNumber = 0;
    for (std::string line; std::getline(file, line);) {
        ++lineNumber;
        if (saysNothing(line)) {
            continue;
        }
        try {
            scenario.steps.push_back(StepReader(line, lineNumber).read(check));
        } catch (const std::invalid_argument& complaint) {
            throw ScenarioError(scenario.path + ":" + std::to_string(lineNumber) + ": " + complaint.what());
        }
    }
    return scenario;
}

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names;
    for (const fs::path& folder : scenarioFolders()) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
            if (entry.path().extension() == kSuffix) {
                names.push_back(entry.path().stem());
            }
        }
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::string findScenario(const std::string& nameOrPath) {
    std::error_code error;
    if (nameOrPath.find('/') != std::string::npos || fs::exists(nameOrPath, error)) {
        return nameOrPath;
    }
    for (const fs::path& folder : scenarioFolders()) {
        fs::path path = folder / (nameOrPath + kSuffix);
        if (fs::exists(path, error)) {
            return path;
        }
    }
    const std::vector<std::string> names = scenarioNames();
    throw ScenarioError("there is no scenario '" + wire::shown(nameOrPath) +
                        "', neither a file nor one of: " + listed(names) + wire::nearestHint(nameOrPath, names));
}

} // namespace kelutv::simulator
