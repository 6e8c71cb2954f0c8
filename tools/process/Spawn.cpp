#include "tools/process/Spawn.h"

#include <spawn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <system_error>

namespace kelutv::process {

namespace {

std::string nameOf(const std::string& setting) { return setting.substr(0, setting.find('=') + 1); }

std::vector<std::string> environmentWith(const std::vector<std::string>& settings) {
    std::vector<std::string> all(settings);
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string inherited(*entry);
        if (std::none_of(settings.begin(), settings.end(),
                         [&inherited](const std::string& setting) { return nameOf(setting) == nameOf(inherited); })) {
            all.push_back(inherited);
        }
    }
    return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

class FileActions {
public:
    explicit FileActions(const std::vector<std::pair<int, int>>& descriptors) {
        ::posix_spawn_file_actions_init(&mActions);
        for (const auto& [fd, original] : descriptors) {
            ::posix_spawn_file_actions_adddup2(&mActions, original, fd);
        }
    }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&mActions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &mActions; }

private:
    posix_spawn_file_actions_t mActions{};
};

class Attributes {
public:
    explicit Attributes(const Program& program) {
        ::posix_spawnattr_init(&mAttributes);
        sigset_t defaults;
        ::sigemptyset(&defaults);
        for (const int signal : program.defaultSignals) {
            ::sigaddset(&defaults, signal);
        }
        ::posix_spawnattr_setsigdefault(&mAttributes, &defaults);
        if (program.blockedSignals) {
            ::posix_spawnattr_setsigmask(&mAttributes, &*program.blockedSignals);
        }
        const int flags = POSIX_SPAWN_SETSIGDEF | (program.blockedSignals ? POSIX_SPAWN_SETSIGMASK : 0);
        ::posix_spawnattr_setflags(&mAttributes, static_cast<short>(flags));
    }
    ~Attributes() { ::posix_spawnattr_destroy(&mAttributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    const posix_spawnattr_t* get() const { return &mAttributes; }

private:
    posix_spawnattr_t mAttributes{};
};

/** Where a shell looks without a PATH. */
constexpr char kUsualFolders[] = "/bin:/usr/bin";

std::error_code whyNotRunnableFile(const std::string& path) {
    struct stat file {};
    if (::stat(path.c_str(), &file) != 0) {
        return {errno, std::generic_category()};
    }
    const bool isProgram = S_ISREG(file.st_mode) && ::access(path.c_str(), X_OK) == 0;
    return {isProgram ? 0 : EACCES, std::generic_category()};
}

} // namespace

std::error_code whyNotRunnable(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        return whyNotRunnableFile(name);
    }
    const char* const folders = std::getenv("PATH");
    std::istringstream stream(folders != nullptr ? folders : kUsualFolders);
    std::error_code reason(ENOENT, std::generic_category());
    for (std::string folder; std::getline(stream, folder, ':');) {
        const std::error_code error = whyNotRunnableFile((folder.empty() ? "." : folder) + '/' + name);
        if (!error) {
            return error;
        }
        reason = error.value() == EACCES ? error : reason;
    }
    return reason;
}

pid_t spawn(const Program& program) {
    std::vector<std::string> words(program.words);
    std::vector<std::string> environment = environmentWith(program.settings);
    const std::string& file = program.file.empty() ? words.front() : program.file;
    pid_t process = -1;
    const int error =
        ::posix_spawnp(&process, file.c_str(), FileActions(program.descriptors).get(), Attributes(program).get(),
                       pointersTo(words).data(), pointersTo(environment).data());
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), "cannot start " + words.front());
    }
    return process;
}

} // namespace kelutv::process
