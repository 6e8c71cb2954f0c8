// PID 1 of the machine: loads the binder driver, runs the listed programs, prints a line for each and powers off.
//
// A line of /machine/tests: NAME SECONDS [VARIABLE=VALUE]... PROGRAM [ARGUMENT]...

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/reboot.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPause{5};

struct Test {
    std::string name;
    std::chrono::seconds time{};
    std::vector<std::string> environment{"PATH=/bin", "HOME=/tmp"};
    std::vector<std::string> command;
};

[[noreturn]] void powerOff() {
    ::sync();
    ::reboot(RB_POWER_OFF);
    for (;;) {
        ::pause();
    }
}

void require(bool done, const char* what) {
    if (!done) {
        std::printf("machine: %s: %s\n", what, std::strerror(errno));
        powerOff();
    }
}

void mountAt(const char* type, const char* place) {
    ::mkdir(place, 0755);
    require(::mount(type, place, type, 0, nullptr) == 0, place);
}

void loadModule(const char* path, const char* parameters) {
    const int module = ::open(path, O_RDONLY | O_CLOEXEC);
    require(module >= 0 && ::syscall(SYS_finit_module, module, parameters, 0) == 0, path);
    ::close(module);
}

Test testOf(const std::string& line) {
    std::istringstream words(line);
    Test test;
    long seconds = 0;
    words >> test.name >> seconds;
    test.time = std::chrono::seconds(seconds);
    for (std::string word; words >> word;) {
        const bool setting = test.command.empty() && word.find('=') != std::string::npos;
        (setting ? test.environment : test.command).push_back(word);
    }
    return test;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

pid_t start(Test& test) {
    const std::vector<char*> arguments = pointersTo(test.command);
    const std::vector<char*> environment = pointersTo(test.environment);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execve(arguments[0], arguments.data(), environment.data());
        std::printf("machine: %s: %s\n", arguments[0], std::strerror(errno));
        std::_Exit(127);
    }
    return child;
}

/** The child's status; -1 when its time is over. Orphans of the test are collected too. */
int statusOf(pid_t child, Clock::time_point deadline) {
    while (Clock::now() < deadline) {
        int status = 0;
        const pid_t ended = ::waitpid(-1, &status, WNOHANG);
        if (ended == child) {
            return status;
        }
        if (ended <= 0) {
            std::this_thread::sleep_for(kPause);
        }
    }
    return -1;
}

std::string endingOf(int status) {
    if (status < 0) {
        return "timed out";
    }
    return WIFEXITED(status) ? "exit " + std::to_string(WEXITSTATUS(status))
                             : "signal " + std::to_string(WTERMSIG(status));
}

void run(Test test) {
    std::printf("machine: start %s\n", test.name.c_str());
    const Clock::time_point begin = Clock::now();
    const int status = statusOf(start(test), begin + test.time);
    ::kill(-1, SIGKILL);
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
    const std::chrono::duration<double> seconds = Clock::now() - begin;
    std::printf("machine: end %s %s after %.1f s\n", test.name.c_str(), endingOf(status).c_str(), seconds.count());
}

void printMemory() {
    std::ifstream memory("/proc/meminfo");
    for (std::string line; std::getline(memory, line);) {
        if (line.rfind("MemTotal:", 0) == 0 || line.rfind("MemAvailable:", 0) == 0) {
            std::printf("machine: %s\n", line.c_str());
        }
    }
}

/** Warnings of the kernel, and what its driver had to say of its users. */
bool isComplaint(const char* text) {
    return std::strncmp(text, "binder", 6) == 0 || std::strstr(text, "WARNING:") != nullptr;
}

void printComplaints() {
    const int log = ::open("/dev/kmsg", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    char record[8192];
    ssize_t length = 0;
    // EPIPE: older records are gone, the next reading gives those that are left.
    while ((length = ::read(log, record, sizeof(record) - 1)) > 0 || (length < 0 && errno == EPIPE)) {
        record[std::max<ssize_t>(length, 0)] = '\0';
        const char* const text = std::strchr(record, ';');
        if (text != nullptr && isComplaint(text + 1)) {
            std::printf("machine kernel: %s", text + 1);
        }
    }
    ::close(log);
}

} // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    mountAt("devtmpfs", "/dev");
    mountAt("proc", "/proc");
    mountAt("sysfs", "/sys");
    ::mkdir("/tmp", 0755);
    ::chmod("/tmp", 01777);
    loadModule("/machine/binder_linux.ko", "devices=binder,binder-bench");
    require(::chmod("/dev/binder", 0666) == 0, "/dev/binder");
    printMemory();
    std::ifstream tests("/machine/tests");
    for (std::string line; std::getline(tests, line);) {
        run(testOf(line));
    }
    printMemory();
    printComplaints();
    std::puts("machine: done");
    powerOff();
}
