#include "Program.h"

#include "bench/measurements/Measurements.h"
#include "bench/support/Child.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace kelutv::bench {

namespace {

// Many times what any of them takes.
constexpr unsigned int kMostSeconds = 600;

struct Measurement {
    const char* name;
    void (*run)(Extent);
};

constexpr std::array<Measurement, 8> kMeasurements{{{"calls", measureCalls},
                                                    {"threads", measureThreads},
                                                    {"clients", measureClients},
                                                    {"replies", measureReplies},
                                                    {"events", measureEvents},
                                                    {"idle", measureIdleClients},
                                                    {"first_answer", measureFirstAnswer},
                                                    {"recorded_calls", measureRecordedCalls}}};

/** A folder in which processes meet, removed with all that is in it. */
class Folder {
public:
    Folder() : mPath((std::filesystem::temp_directory_path() / "kelutv-bench-XXXXXX").string()) {
        if (::mkdtemp(mPath.data()) == nullptr) {
            std::perror(mPath.c_str());
            std::exit(EXIT_FAILURE);
        }
    }
    ~Folder() {
        std::error_code left;
        std::filesystem::remove_all(mPath, left);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

// The process group of the measurement under way, and whether a signal has ended it.
volatile std::sig_atomic_t underWay = 0;
volatile std::sig_atomic_t ended = 0;

void endMeasurement(int) {
    ended = 1;
    if (underWay > 0) {
        // It may not have a group of its own yet.
        ::kill(underWay, SIGKILL);
        ::kill(-underWay, SIGKILL);
    }
}

/** Has signals end the measurement, so that its folder is removed. */
void endOrderly() {
    struct sigaction action {};
    action.sa_handler = endMeasurement;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool run(const Measurement& measurement, Extent extent) {
    const Folder folder;
    Child process([&] {
        // A group of its own, which ends as a whole when something goes wrong.
        ::setpgid(0, 0);
        ::signal(SIGTERM, SIG_DFL);
        ::signal(SIGINT, SIG_DFL);
        ::alarm(kMostSeconds);
        ::setenv("KQDROID_RUNTIME_DIR", folder.path().c_str(), 1);
        ::setenv("KQDROID_SERVICE_WAIT_MS", "5000", 1);
        // Rather than what the system has: it says which bare exchange there is.
        ::setenv("KQDROID_TRANSPORT", "sockets", 0);
        ::unsetenv("KQDROID_BINDER_DEVICE");
        measurement.run(extent);
    });
    underWay = process.process();
    if (ended != 0) {
        endMeasurement(0);
    }
    const int status = process.wait();
    underWay = 0;
    if (status != 0) {
        std::fprintf(stderr, "kelutv-bench: %s has failed%s\n", measurement.name,
                     WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM ? ": it took too long" : "");
    }
    return status == 0;
}

} // namespace

std::vector<std::string> measurementNames() {
    std::vector<std::string> names;
    for (const Measurement& measurement : kMeasurements) {
        names.emplace_back(measurement.name);
    }
    return names;
}

bool measure(const std::vector<std::string>& names, Extent extent) {
    endOrderly();
    return std::all_of(names.begin(), names.end(), [extent](const std::string& name) {
        const auto* const found = std::find_if(kMeasurements.begin(), kMeasurements.end(),
                                               [&name](const Measurement& one) { return one.name == name; });
        return run(*found, extent);
    });
}

} // namespace kelutv::bench
