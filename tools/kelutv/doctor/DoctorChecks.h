#pragma once

#include "tools/kelutv/checks/Check.h"

#include <vector>

namespace kelutv::tool {

struct DoctorOptions {
    /** How long one answer may take, and how long it may take without a remark. */
    double limit = 5;
    double slow = 0.1;
    /** How long an event is waited for; 0 for not at all. */
    double events = 2;
    /** How long the end of the service is waited for; 0 for not at all. */
    double death = 0;
    /** Whether the volume may be changed, and put back, to see an event of it. */
    bool mayChange = false;
};

/** Everything that is looked at, in order: what needs no service first. The same for the same options. */
std::vector<Check> allChecks(const DoctorOptions& options);

/** @name The checks of each part, appended in order @{ */
void addPlatformChecks(std::vector<Check>& checks, const DoctorOptions& options);
void addServiceChecks(std::vector<Check>& checks, const DoctorOptions& options);
void addEventChecks(std::vector<Check>& checks, const DoctorOptions& options);
void addReadChecks(std::vector<Check>& checks, const DoctorOptions& options);
void addLatencyCheck(std::vector<Check>& checks, const DoctorOptions& options);
void addDeathCheck(std::vector<Check>& checks, const DoctorOptions& options);
/** @} */

/** The topic of the checks of reading a module: its name. Those checks are told in one line. */
bool isReadCheck(const Check& check);

} // namespace kelutv::tool
