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

void describe(const kelutv::cli::Subcommand& program, kelutv::simulator::Options& options, double& speed) {
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
    program.option("--replay", options.replay, "FILE",
                   "Answer as in this recording of kelutv record, request by request, and tell of what is asked "
                   "otherwise; at the end with exit code 0 when nothing was, else 1");
    program.excludes("--replay", "--scenario");
    program.option("--match", options.replayOptions.match, "HOW",
                   "How a recorded request is found: strictly, in the order of its thread, or loosely, by command and "
                   "arguments alone");
    program.needs("--match", "--replay");
    program.option("--unrecorded", options.replayOptions.unrecorded, "BY",
                   "What answers a request that was not recorded: the simulated television, an error or silence");
    program.needs("--unrecorded", "--replay");
    program.option("--speed", speed, kSlowest, kFastest, "N",
                   "Play the scenario, or what was recorded with its delays, this many times faster, 0.01 to 1000");
    program.flag("--exit-at-end", options.exitAtEnd,
                 "End with the scenario, with exit code 4 when one of its steps failed, or when all that was recorded "
                 "has been asked for");
    program.footer("Scenarios: " + kelutv::simulator::joinedWords(kelutv::simulator::scenarioNames()));
}

/** An option that says how something is played where nothing is; null for none. */
const char* optionWithoutPlay(const kelutv::cli::Subcommand& program, const kelutv::simulator::Options& options) {
    if (!options.scenario.empty() || !options.replay.empty()) {
        return nullptr;
    }
    return program.isGiven("--speed") ? "--speed" : options.exitAtEnd ? "--exit-at-end" : nullptr;
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
    double speed = 1;
    describe(parser.program(), options, speed);
    if (const auto ended = parser.parse(argc, argv, shown)) {
        return *ended;
    }
    if (const char* const option = optionWithoutPlay(parser.program(), options)) {
        std::fprintf(stderr, "kelutv-simulator: %s requires --scenario or --replay\nTry 'kelutv-simulator --help'.\n",
                     option);
        return kelutv::cli::kBadUsage;
    }
    if (parser.program().isGiven("--speed")) {
        options.speed = options.replayOptions.speed = speed;
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
    } catch (const kelutv::simulator::ReplayError& error) {
        return complain(error, kelutv::cli::kBadUsage);
    } catch (const std::exception& error) {
        return complain(error, EXIT_FAILURE);
    }
}
