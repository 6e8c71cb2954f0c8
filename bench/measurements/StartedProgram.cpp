#include "StartedProgram.h"

#include "bench/support/Child.h"
#include "bench/support/Failure.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>

namespace kelutv::bench {

namespace {

[[noreturn]] void become(const char* program, const std::vector<std::string>& environment, int output) {
    for (const std::string& setting : environment) {
        const size_t end = setting.find('=');
        ::setenv(setting.substr(0, end).c_str(), setting.c_str() + end + 1, 1);
    }
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const std::string time = std::to_string(std::chrono::nanoseconds(now).count());
    ::execl(program, program, time.c_str(), nullptr);
    fail(program);
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> part;
    for (ssize_t length = 0; (length = ::read(descriptor, part.data(), part.size())) > 0;) {
        text.append(part.data(), static_cast<size_t>(length));
    }
    return text;
}

} // namespace

StartedProgram::StartedProgram(const char* program, const std::vector<std::string>& environment) {
    int ends[2];
    require(::pipe2(ends, O_CLOEXEC) == 0, "pipe");
    Child child([&] { become(program, environment, ends[1]); });
    ::close(ends[1]);
    mOutput = readAll(ends[0]);
    ::close(ends[0]);
    if (child.wait() != 0) {
        giveUp(("a program failed: " + mOutput).c_str());
    }
}

double StartedProgram::numberBehind(const std::string& words) const {
    const size_t at = mOutput.find(words);
    if (at == std::string::npos) {
        giveUp(("'" + words + "' is not in what a program printed:\n" + mOutput).c_str());
    }
    return std::strtod(mOutput.c_str() + at + words.size(), nullptr);
}

} // namespace kelutv::bench
