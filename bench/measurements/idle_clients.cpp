#include "Measurements.h"

#include "bench/support/Child.h"
#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Service.h"

#include <kelutv/kelutv.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::bench {

namespace {

constexpr std::chrono::seconds kPatience{5};
constexpr std::chrono::milliseconds kPause{20};
// A service keeps a thread for 200 ms for the next call.
constexpr std::chrono::milliseconds kCalm{500};

/** What a process takes, as the kernel says. */
struct Footprint {
    double privateKib = 0;
    double pageTableKib = 0;
    double threads = 0;
    double descriptors = 0;
};

/** The number behind a name in a file of /proc. */
double numberIn(const std::string& path, const std::string& name) {
    std::ifstream file(path);
    double sum = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind(name + ":", 0) == 0) {
            sum += std::strtod(line.c_str() + name.size() + 1, nullptr);
        }
    }
    return sum;
}

Footprint footprintOf(pid_t process) {
    const std::string folder = "/proc/" + std::to_string(process);
    const std::filesystem::directory_iterator descriptors(folder + "/fd");
    Footprint footprint;
    footprint.privateKib = numberIn(folder + "/smaps_rollup", "Private_Dirty");
    footprint.pageTableKib = numberIn(folder + "/status", "VmPTE");
    footprint.threads = numberIn(folder + "/status", "Threads");
    footprint.descriptors = static_cast<double>(std::distance(begin(descriptors), end(descriptors)));
    return footprint;
}

/** What is left when threads that have nothing to do any more have ended: as soon as their number stays the same. */
Footprint settled(pid_t process) {
    using Clock = std::chrono::steady_clock;
    Footprint footprint = footprintOf(process);
    const auto deadline = Clock::now() + kPatience;
    for (auto calm = Clock::now() + kCalm; Clock::now() < std::min(calm, deadline);) {
        std::this_thread::sleep_for(kPause);
        const double before = footprint.threads;
        footprint = footprintOf(process);
        if (footprint.threads != before) {
            calm = Clock::now() + kCalm;
        }
    }
    return footprint;
}

/** Processes that have made one call each and go on being there. */
class IdleClients {
public:
    explicit IdleClients(size_t count) {
        const int ready = ::eventfd(0, EFD_CLOEXEC | EFD_SEMAPHORE);
        for (size_t client = 0; client < count; ++client) {
            mProcesses.emplace_back([ready] {
                if (linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20) != 0) {
                    giveUp("a call failed");
                }
                ::eventfd_write(ready, 1);
                for (;;) {
                    ::pause();
                }
            });
        }
        for (size_t client = 0; client < count; ++client) {
            eventfd_t value = 0;
            require(::eventfd_read(ready, &value) == 0, "eventfd");
        }
        ::close(ready);
    }

private:
    std::vector<Child> mProcesses;
};

} // namespace

void measureIdleClients(Extent extent) {
    const Service service;
    const size_t count = amount<size_t>(extent, 20, 200);
    // What the first calls take, whoever makes them, is no matter of the clients.
    const IdleClients before(1);
    const Footprint few = settled(service.process());
    const IdleClients clients(count);
    const Footprint many = settled(service.process());

    const auto each = [count](double sum) { return sum / static_cast<double>(count); };
    printFigure("idle/clients", static_cast<double>(count));
    printFigure("idle/memory_kib_per_client",
                each(many.privateKib + many.pageTableKib - few.privateKib - few.pageTableKib));
    printFigure("idle/threads_per_client", each(many.threads - few.threads));
    printFigure("idle/descriptors_per_client", each(many.descriptors - few.descriptors));
}

} // namespace kelutv::bench
