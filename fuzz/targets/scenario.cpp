#include "fuzz/support/MemoryFile.h"
#include "fuzz/support/Target.h"

#include "simulator/control/Control.h"
#include "simulator/scenarios/Scenario.h"

/** Scenario files: each is refused with its line, or has steps in the order of its lines. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::simulator;
    const kelutv::fuzz::MemoryFile file(data, size);
    try {
        int before = 0;
        for (const ScenarioStep& step : readScenario(file.path(), objectionToLine).steps) {
            kelutv::fuzz::require(step.lineNumber > before, "steps stand in the order of their lines");
            before = step.lineNumber;
        }
    } catch (const ScenarioError& error) {
        kelutv::fuzz::require(std::string(error.what()).find(file.path() + ':') != std::string::npos,
                              "a refusal names the file and the line");
    }
    return 0;
}
