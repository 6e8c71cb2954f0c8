#include "simulator/Program.h"
#include "simulator/output/StandardDescriptors.h"

#include "wire/text/Shown.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

constexpr int kBadUsage = 2;

int start(int argc, char** argv) {
    CLI::App app("Simulated television: serves TVBaseService, keeps settings and publishes events.\n"
                 "Ends on SIGINT or SIGTERM.\n\n"
                 "Example: kelutv-simulator --trace",
                 "kelutv-simulator");
    kelutv::simulator::Options options;
    CLI::Option* const trace = app.add_flag("--trace", options.trace,
                                            "Print every request with its answer, and every event, to standard output");
    app.add_flag("--ui", options.ui,
                 "Draw the television in the terminal; prints lines as --trace when standard output is not a terminal")
        ->excludes(trace);
    app.add_option("--config", options.config,
                   "Configuration in JSON, over the one that comes with the program: "
                   "sources and signals, CEC devices, identity, initial settings")
        ->option_text("FILE");
    app.add_option("--state", options.state,
                   "Keep settings, sources, CEC devices and the power state in this file, created if missing; "
                   "without it they are lost at exit")
        ->option_text("FILE");
    app.add_option("--eep", options.eep,
                   "Keep the EEP and the flash EEP in this file, created if missing; "
                   "without it they are lost at exit")
        ->option_text("FILE");
    app.add_option(
           "--control", options.control,
           "Carry out the lines of this file or named pipe, - for standard input; the line 'help' lists what they "
           "can say, and kelutv sim sends them one by one")
        ->option_text("FILE");
    app.add_option("--fault", options.faults,
                   "Let answers go wrong: COMMAND|ITEM|NUMBER|any [from PID] [nth N] [once|times N] and one of "
                   "error N, delay TIME, die before, die after, short BYTES, long BYTES, unterminated, count N; "
                   "may be given again")
        ->option_text("LINE")
        ->type_size(1)
        ->allow_extra_args(false);
    CLI::Option* const scenario =
        app.add_option("--scenario", options.scenario,
                       "Play a test: a file of timed steps, or the name of one that comes with the simulator")
            ->option_text("FILE|NAME");
    app.add_option("--speed", options.speed, "Play the scenario this many times faster, 0.01 to 1000")
        ->option_text("N")
        ->needs(scenario)
        ->check(CLI::Range(0.01, 1000.0));
    app.add_flag("--exit-at-end", options.exitAtEnd,
                 "End with the scenario: with exit code 0, or 4 when one of its steps failed")
        ->needs(scenario);
    app.set_version_flag("--version", "kelutv-simulator " KELUTV_VERSION);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return kelutv::wire::shown(error.what(), kelutv::wire::kMostOfPath) +
               "\nRun with --help for more information.\n";
    });
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : kBadUsage;
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
        std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
        return kBadUsage;
    } catch (const kelutv::simulator::ScenarioError& error) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
        return kBadUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
