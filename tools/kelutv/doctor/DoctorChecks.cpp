#include "tools/kelutv/doctor/DoctorChecks.h"

namespace kelutv::tool {

std::vector<Check> allChecks(const DoctorOptions& options) {
    std::vector<Check> checks;
    addPlatformChecks(checks, options);
    addServiceChecks(checks, options);
    addEventChecks(checks, options);
    addReadChecks(checks, options);
    addLatencyCheck(checks, options);
    addDeathCheck(checks, options);
    return checks;
}

} // namespace kelutv::tool
