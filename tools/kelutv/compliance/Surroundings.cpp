#include "tools/kelutv/compliance/Surroundings.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/ServiceLooks.h"
#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/text/Clock.h"
#include "wire/Fingerprint.h"

#include <sys/utsname.h>

#include <utility>

namespace kelutv::tool::compliance {

namespace {

/** `Linux 6.1.0 x86_64`. */
std::string machineText() {
    utsname name{};
    ::uname(&name);
    return std::string(name.sysname) + ' ' + name.release + ' ' + name.machine;
}

} // namespace

Circumstances circumstancesNow(std::vector<std::string> options, double limit) {
    Circumstances with;
    with.started = textOfNow();
    with.tool = KELUTV_VERSION;
    with.catalogue = wire::interfaceFingerprint();
    with.machine = machineText();
    with.options = std::move(options);
    const std::vector<tool::Check> looks{
        {"transport", "service", limit, [] { return askingFinds(lookForTransport); }},
        {"descriptor", "service", limit, [] { return askingFinds(lookAtDescriptor); }}};
    makeChecks(looks, {nullptr, [&with](const tool::Check& look, const Finding& finding) {
                           (look.name == "transport" ? with.platform : with.service) = finding.text;
                       }});
    return with;
}

} // namespace kelutv::tool::compliance
