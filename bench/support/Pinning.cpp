#include "Pinning.h"

#include <sched.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace kelutv::bench {

namespace {

void allow(pid_t process, const cpu_set_t& cores) {
    std::error_code gone;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks, gone)) {
        ::sched_setaffinity(std::atoi(task.path().filename().c_str()), sizeof(cores), &cores);
    }
}

cpu_set_t onlyCore(int core) {
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(core, &cores);
    return cores;
}

} // namespace

void pinCaller(Pinning) { allow(::getpid(), onlyCore(0)); }

void pinAnswerer(pid_t process, Pinning pinning) { allow(process, onlyCore(pinning == Pinning::SameCore ? 0 : 1)); }

} // namespace kelutv::bench
