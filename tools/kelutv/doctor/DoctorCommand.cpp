#include "tools/kelutv/doctor/DoctorCommand.h"

#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/doctor/Report.h"
#include "tools/kelutv/parser/Amounts.h"

#include <memory>

namespace kelutv::tool {

namespace {

constexpr Seconds kLongest{86400};

/** An option that takes a time. */
void addTime(const Subcommand& command, const char* name, double& seconds, double least, const char* help) {
    const auto read = [name, &seconds, least](const std::string& text) {
        seconds = secondsOf(name, text, Seconds(least), kLongest).count();
    };
    command.option(name, read, "SECONDS", help);
}

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
    addTime(command, "--limit", options->limit, 0.01, "How long an answer may take; else 5");
    addTime(command, "--slow", options->slow, 0.0001, "What takes longer is a warning; else 0.1");
    addTime(command, "--event", options->events, 0, "How long to wait for an event, 0 for not at all; else 2");
    command.flag("--change", options->mayChange, "Change the volume and put it back, to see an event");
    addTime(command, "--death", options->death, 0.01,
            "At the end, ask for the service to be ended and wait for the notice");
    command.action([options, &context] { context.exit = examine(*options, context.output); });
}

} // namespace kelutv::tool
