#include "simulator/Program.h"
#include "simulator/output/StandardDescriptors.h"
#include "simulator/text/Join.h"

#include "cli/OptionParser.h"
#include "wire/text/Shown.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

constexpr double kSlowest = 0.01;
constexpr double kFastest = 1000;

std::string shown(const std::string& complaint) { return kelutv::wire::shown(complaint, kelutv::wire::kMostOfPath); }

void describe(const kelutv::cli::Subcommand& program, kelutv::simulator::Options& options) {
    program.flag("--trace", options.trace, "Print every request with its answer, and every event, to standard output");
    program.flag("--ui", options.ui,
                 "Draw the television in the terminal; prints lines as --trace when standard output is not a terminal");
    program.excludes("--ui", "--trace");
    program.option("--config", options.config, "FILE",
                   "Configuration in JSON, over the one that comes with the program: "
                   "sources and signals, CEC devices, identity, initial settings");
    program.option("--state", options.state, "FILE",
                   "Keep settings, sources, CEC devices and the power state in this file, created if missing; "
                   "without it they are lost at exit");
    program.option("--eep", options.eep, "FILE",
                   "Keep the EEP and the flash EEP in this file, created if missing; "
                   "without it they are lost at exit");
    program.option("--control", options.control, "FILE",
                   "Carry out the lines of this file or named pipe, - for standard input; the line 'help' lists what "
                   "they can say, and kelutv sim sends them one by one");
    program.option("--fault", options.faults, "LINE",
                   "Let answers go wrong: COMMAND|ITEM|NUMBER|any [from PID] [nth N] [once|times N] and one of "
                   "error N, delay TIME, die before, die after, short BYTES, long BYTES, unterminated, count N; "
                   "may be given again");
    program.option("--scenario", options.scenario, "FILE|NAME",
                   "Play a test: a file of timed steps, or the name of one that comes with the simulator");
    program.option("--speed", options.speed, kSlowest, kFastest, "N",
                   "Play the scenario this many times faster, 0.01 to 1000");
    program.needs("--speed", "--scenario");
    program.flag("--exit-at-end", options.exitAtEnd,
                 "End with the scenario: with exit code 0, or 4 when one of its steps failed");
    program.needs("--exit-at-end", "--scenario");
    program.footer("Scenarios: " + kelutv::simulator::joinedWords(kelutv::simulator::scenarioNames()));
}

/** Says what is wrong, where paths may have in them what a terminal would act on. */
int complain(const std::exception& error, int exit) {
    const std::string text = error.what();
    std::fprintf(stderr, "kelutv-simulator: %s\n", kelutv::wire::shown(text, text.size()).c_str());
    return exit;
}

int start(int argc, char** argv) {
    kelutv::simulator::Options options;
    const kelutv::cli::OptionParser parser("kelutv-simulator",
                                           "Simulated television: serves TVBaseService, keeps settings and publishes "
                                           "events.\nEnds on SIGINT or SIGTERM.\n\nExample: kelutv-simulator --trace",
                                           "kelutv-simulator " KELUTV_VERSION);
    describe(parser.program(), options);
    if (const auto ended = parser.parse(argc, argv, shown)) {
        return *ended;
    }
    std::signal(SIGPIPE, SIG_IGN); // The television outlives a reader of its trace.
    return kelutv::simulator::Program(options).run();
}

} // namespace

int main(int argc, char** argv) {
    kelutv::simulator::openStandardDescriptors();
    try {
        return start(argc, argv);
    } catch (const kelutv::simulator::ConfigurationError& error) {
        return complain(error, kelutv::cli::kBadUsage);
    } catch (const kelutv::simulator::ScenarioError& error) {
        return complain(error, kelutv::cli::kBadUsage);
    } catch (const std::exception& error) {
        return complain(error, EXIT_FAILURE);
    }
}
