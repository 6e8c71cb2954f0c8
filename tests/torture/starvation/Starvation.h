#pragma once

#include <sys/types.h>

#include <array>
#include <atomic>

namespace kelutv::starvation {

/** What a process can be refused. */
enum Resource : int { kAllocation, kDescriptor, kThread, kMapping, kSend, kReceive, kIoctl, kResources };

constexpr std::array<const char*, kResources> kResourceNames = {"allocation", "descriptor", "thread", "mapping",
                                                                "send",       "receive",    "ioctl"};

/** Which request for a resource fails, shared by the processes concerned. */
struct Page {
    /** Requests are counted, and refused, while it is set. */
    std::atomic<bool> armed{false};
    /** The process concerned; 0 for each that uses the page. */
    std::atomic<pid_t> process{0};
    /** The thread concerned; 0 for each of those processes. */
    std::atomic<pid_t> thread{0};
    std::atomic<int> resource{kAllocation};
    /** The request that fails, counted from 1; 0 for none. */
    std::atomic<long> nth{0};
    /** Whether all that follow fail, too. Of descriptors, one can be had for each that the process closes. */
    std::atomic<bool> lasting{false};
    /** How many requests for the resource there were. */
    std::atomic<long> seen{0};
};

/** The environment variable by which a program that this is preloaded into is told the file of its page. */
constexpr char kPageVariable[] = "KELUTV_STARVATION_PAGE";

/** Makes this process, and those that it forks, take heed of the page, which must outlive them. */
void usePage(Page* page);

} // namespace kelutv::starvation
