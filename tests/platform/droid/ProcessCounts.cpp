#include "ProcessCounts.h"

#include "support/Deadline.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace kelutv::test {

namespace {

constexpr int kEqualLooks = 20;

template <typename Counted> std::size_t entriesOf(const std::string& path, Counted counted) {
    std::error_code ignored;
    std::size_t entries = 0;
    std::filesystem::directory_iterator entry(path, ignored);
    for (; !ignored && entry != std::filesystem::directory_iterator(); entry.increment(ignored)) {
        entries += counted(entry->path()) ? 1 : 0;
    }
    return entries;
}

bool isNoServer(const std::filesystem::path& thread) {
    std::string name;
    std::getline(std::ifstream(thread / "comm"), name);
    return name != "kq:binder";
}

} // namespace

bool operator==(const ProcessCounts& a, const ProcessCounts& b) {
    return a.descriptors == b.descriptors && a.threads == b.threads;
}

std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts) {
    return out << counts.descriptors << " descriptors, " << counts.threads << " threads";
}

ProcessCounts countsOf(pid_t process) {
    const std::string path = "/proc/" + std::to_string(process);
    return {entriesOf(path + "/fd", [](const auto&) { return true; }), entriesOf(path + "/task", isNoServer)};
}

bool fallsTo(const ProcessCounts& limit, pid_t process) {
    return eventually([&] {
        const ProcessCounts now = countsOf(process);
        return now.descriptors <= limit.descriptors && now.threads <= limit.threads;
    });
}

ProcessCounts settledCountsOf(pid_t process) {
    ProcessCounts last = countsOf(process);
    int equal = 0;
    eventually([&] {
        const ProcessCounts now = countsOf(process);
        equal = now == last ? equal + 1 : 0;
        last = now;
        return equal == kEqualLooks;
    });
    return last;
}

} // namespace kelutv::test
