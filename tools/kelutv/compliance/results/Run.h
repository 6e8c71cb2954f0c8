#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What a run was made with. */
struct Circumstances {
    /** When it was begun: `2026-11-22T14:00:00Z`. */
    std::string started;
    /** The version of the tool. */
    std::string tool;
    /** The version of the catalogue that the checks come from. */
    std::string catalogue;
    /** How requests get to the service: `sockets`, `kernel`. */
    std::string platform;
    /** The name of the service's interface. */
    std::string service;
    /** The machine that the tool ran on: `Linux 6.1.0 x86_64`. */
    std::string machine;
    /** The words of the command line behind `compliance`. */
    std::vector<std::string> options;
};

/** A run and what came of all its checks, in the order in which they were made. */
struct Run {
    Circumstances circumstances;
    /** How long it took. */
    double seconds = 0;
    std::vector<CheckResult> results;
};

/** How many of the results have this verdict. */
std::size_t countOf(const std::vector<CheckResult>& results, Verdict verdict);

/** The modules of the results, each once, in their order. */
std::vector<std::string> modulesOf(const std::vector<CheckResult>& results);

/** The families likewise. */
std::vector<std::string> familiesOf(const std::vector<CheckResult>& results);

} // namespace kelutv::tool::compliance
