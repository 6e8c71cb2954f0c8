#include "ControlReader.h"
#include "Service.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <CLI/CLI.hpp>

#include <pthread.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <optional>
#include <string>

namespace {

constexpr char kServiceName[] = "TVBaseService";
constexpr int kBadUsage = 2;

/** SIGINT and SIGTERM, which every thread leaves to the main one. */
sigset_t blockEndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

bool serve(const android::sp<android::IBinder>& service) {
    const android::status_t status =
        android::defaultServiceManager()->addService(android::String16(kServiceName), service);
    if (status == android::ALREADY_EXISTS) {
        std::fprintf(stderr, "kelutv-simulator: another process already serves %s\n", kServiceName);
    } else if (status != android::NO_ERROR) {
        std::fprintf(stderr, "kelutv-simulator: cannot serve %s: %s\n", kServiceName, std::strerror(-status));
    }
    return status == android::NO_ERROR;
}

struct Options {
    bool trace = false;
    std::string eep;
    std::string control;
};

simulator::EepStore eepOf(const Options& options) {
    return options.eep.empty() ? simulator::EepStore() : simulator::EepStore(options.eep);
}

int run(const Options& options) {
    const sigset_t endSignals = blockEndSignals();
    std::signal(SIGPIPE, SIG_IGN); // The television outlives a reader of its trace.
    const android::sp<simulator::Service> service =
        new simulator::Service(options.trace ? stdout : nullptr, eepOf(options));
    if (!serve(service)) {
        return EXIT_FAILURE;
    }
    std::optional<simulator::ControlReader> control;
    if (!options.control.empty()) {
        control.emplace(options.control, [service](const std::string& line) { service->control(line); });
    }
    android::ProcessState::self()->startThreadPool();
    std::printf("kelutv-simulator: ready (%s)\n", kServiceName);
    std::fflush(stdout);
    int received = 0;
    sigwait(&endSignals, &received);
    return EXIT_SUCCESS;
}

int start(int argc, char** argv) {
    CLI::App app("Simulated television: serves TVBaseService, keeps what it is told and publishes events.\n"
                 "Ends on SIGINT or SIGTERM.\n\n"
                 "Example: kelutv-simulator --trace",
                 "kelutv-simulator");
    Options options;
    app.add_flag("--trace", options.trace, "Print every request with its answer, and every event, to standard output");
    app.add_option("--eep", options.eep,
                   "Keep the EEP and the flash EEP in this file, made when there is none; "
                   "without it they are forgotten at the end")
        ->option_text("FILE");
    app.add_option("--control", options.control,
                   "Read commands from this file or named pipe, - for standard input: "
                   "plug ADDRESS, unplug ADDRESS, vbi TYPE [HEX]")
        ->option_text("FILE");
    app.set_version_flag("--version", "kelutv-simulator " KELUTV_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : kBadUsage;
    }
    return run(options);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return start(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
