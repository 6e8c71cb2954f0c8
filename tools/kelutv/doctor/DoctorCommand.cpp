#include "tools/kelutv/doctor/DoctorCommand.h"

#include "tools/kelutv/doctor/Report.h"
#include "tools/kelutv/doctor/Visit.h"

#include <memory>

namespace kelutv::tool {

namespace {

constexpr double kLongest = 86400;

Exit examine(const DoctorOptions& options, const Output& output) {
    const std::vector<Check> checks = allChecks(options);
    DoctorReport report(output);
    const Listener listener{[&output](const Check& check) {
                                if (check.name == "death") {
                                    output.message("kelutv: end the service now");
                                }
                            },
                            [&report](const Check& check, const Finding& finding) { report.add(check, finding); }};
    const std::size_t made = makeChecks(checks, listener);
    return report.finish(checks.size() - made);
}

} // namespace

void addDoctorCommand(const Command& program, Context& context) {
    const Subcommand command(
        program, "doctor",
        "Look at everything between an application and the television\n"
        "A verdict a line: the platform's libraries, the way to the service, what it answers to wrong requests,\n"
        "events, every operation that only reads, and how long answers take. A refused or slow operation is a\n"
        "warning; a malformed answer, none in time, or a service that ends is a failure. Only reads, unless told.\n\n"
        "Examples:\n"
        "kelutv doctor\n"
        "kelutv doctor --change --death 30\n"
        "kelutv doctor --json | jq 'select(.verdict != \"ok\")'");
    const auto options = std::make_shared<DoctorOptions>();
    command.option("--limit", options->limit, 0.01, kLongest, "SECONDS", "How long an answer may take; else 5");
    command.option("--slow", options->slow, 0.0001, kLongest, "SECONDS", "What takes longer is a warning; else 0.1");
    command.option("--event", options->events, 0, kLongest, "SECONDS",
                   "How long to wait for an event, 0 for not at all; else 2");
    command.flag("--change", options->mayChange, "Change the volume and put it back, to see an event");
    command.option("--death", options->death, 0.01, kLongest, "SECONDS",
                   "At the end, ask for the service to be ended and wait for the notice");
    command.action([options, &context] { context.exit = examine(*options, context.output); });
}

} // namespace kelutv::tool
