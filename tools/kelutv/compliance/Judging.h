#pragma once

#include "tools/kelutv/compliance/ComplianceRun.h"
#include "tools/kelutv/compliance/reports/ReportFiles.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** How a run is to be made and told. */
struct JudgingOrder {
    /** What was chosen, as it was given. */
    std::vector<std::string> words;
    RunOrder order{{}, "kelutv-put-back.json"};
    ReportPaths reports;
    /** The file of known failures; empty without one. */
    std::string known;
    /** The file of what the television has; empty without one. */
    std::string capabilities;
    /** Lines for checks that passed, too. */
    bool tellsAll = false;
};

/** Tells where values to put back are kept, and, also where nothing else is told, why the file stays. */
Progress progressOn(const Output& output, const std::string& journal, Tell tell);

/**
 * Makes the checks, tells of them and writes the reports. This process must not have used the library yet.
 *
 * @return `Exit::Failure` when one of them failed and was not known to
 * @throws LinkError, UsageError, ToolError as `makeRun`; UsageError for a file that is wrong, before anything is asked
 */
Exit judge(const Checks& checks, const JudgingOrder& order, const Output& output);

} // namespace kelutv::tool::compliance
