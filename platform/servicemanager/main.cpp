#include "Manager.h"

#include "cli/OptionParser.h"
#include "droid/kernel/KernelBinder.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr uid_t kRoot = 0;
constexpr uid_t kSystem = 1000;
// A service manager that has just ended keeps its place until the driver has cleaned up after it.
constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kPause{5};

struct Options {
    std::string device = "/dev/binder";
    std::vector<uid_t> registrars;
};

/** What a terminal would act on, or cannot show, is `\x1f`. */
std::string printable(const std::string& text) {
    std::string shown;
    for (const char letter : text) {
        char escaped[8];
        std::snprintf(escaped, sizeof(escaped), "\\x%02x", static_cast<unsigned int>(letter) & 0xFFU);
        shown += letter >= ' ' && letter <= '~' ? std::string(1, letter) : std::string(escaped);
    }
    return shown;
}

int takeThePlace(android::KernelBinder& binder, const android::sp<android::BBinder>& registry) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    int error = binder.becomeContextManager(registry);
    while (error == -EBUSY && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(kPause);
        error = binder.becomeContextManager(registry);
    }
    return error;
}

int run(const Options& options) {
    std::string problem;
    std::unique_ptr<android::BinderDevice> device = android::BinderDevice::open(options.device, &problem);
    if (device == nullptr) {
        std::fprintf(stderr, "kqservicemanager: %s\n", printable(problem).c_str());
        return EXIT_FAILURE;
    }
    // Served to the end of the process.
    auto* const binder = new android::KernelBinder(std::move(device));
    std::set<uid_t> registrars{kRoot, kSystem};
    registrars.insert(options.registrars.begin(), options.registrars.end());
    const int error = takeThePlace(*binder, new servicemanager::Manager(*binder, registrars));
    if (error != 0) {
        std::fprintf(stderr, "kqservicemanager: %s: %s\n", printable(options.device).c_str(),
                     error == -EBUSY ? "another service manager runs" : std::strerror(-error));
        return EXIT_FAILURE;
    }
    if (!binder->startServing()) {
        return EXIT_FAILURE;
    }
    std::printf("kqservicemanager: ready (%s)\n", options.device.c_str());
    std::fflush(stdout);
    for (;;) {
        ::pause();
    }
}

int start(int argc, char** argv) {
    Options options;
    const kelutv::cli::OptionParser parser(
        "kqservicemanager",
        "Service manager for the kernel's binder driver, where none runs: services are added and found by name.\n"
        "Root and the system user (1000) may add services.\n\n"
        "Example: kqservicemanager --allow-uid 2000",
        "kqservicemanager " KELUTV_VERSION);
    const kelutv::cli::Subcommand program = parser.program();
    program.option("--device", options.device, "PATH", "The driver's device");
    program.environment("--device", "KQDROID_BINDER_DEVICE");
    program.option("--allow-uid", options.registrars, std::numeric_limits<uid_t>::max() - 1, "UID",
                   "Let this user add services too; may be given again");
    if (const auto ended = parser.parse(argc, argv, printable)) {
        return *ended;
    }
    return run(options);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return start(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kqservicemanager: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
