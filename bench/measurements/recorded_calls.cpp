#include "Measurements.h"
#include "StartedProgram.h"

#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Samples.h"
#include "bench/support/Service.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace kelutv::bench {

namespace {

double callOf(const std::vector<std::string>& environment) {
    return StartedProgram(KELUTV_RECORDED_CALLS, environment).numberBehind("a call in microseconds:");
}

} // namespace

void measureRecordedCalls(Extent extent) {
    const Service service;
    const std::string folder = std::getenv("KQDROID_RUNTIME_DIR");
    const std::string file = folder + "/calls.jsonl";
    const std::vector<std::string> recording{"LD_PRELOAD=" KELUTV_TRACE_LIBRARY, "KELUTV_RECORD=" + file,
                                             "TMPDIR=" + folder};
    Samples plain;
    Samples recorded;
    for (int turn = 0; turn < amount(extent, 1, 21); ++turn) {
        plain.add(callOf({}));
        recorded.add(callOf(recording));
    }
    require(std::filesystem::file_size(file) > 0, "recording calls");
    printFigure("recorded_calls/call_us", plain.median());
    printFigure("recorded_calls/recorded_call_us", recorded.median());
    printFigure("recorded_calls/ratio", recorded.median() / plain.median());
}

} // namespace kelutv::bench
