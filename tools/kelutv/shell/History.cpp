#include "tools/kelutv/shell/History.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace kelutv::tool {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostLines = 1000;
constexpr mode_t kOwnFile = 0600;
constexpr mode_t kOwnFolder = 0700;

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

void makeFolder(const fs::path& folder) {
    std::error_code ignored;
    if (!folder.empty() && !fs::exists(folder, ignored)) {
        makeFolder(folder.parent_path());
        ::mkdir(folder.c_str(), kOwnFolder);
    }
}

void writeTo(const std::string& path, int flags, const std::string& text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | flags, kOwnFile);
    if (file >= 0) {
        const bool isOwn = ::fchmod(file, kOwnFile) == 0;
        [[maybe_unused]] const auto written = isOwn ? ::write(file, text.data(), text.size()) : 0;
        ::close(file);
    }
}

} // namespace

History::History(std::string path) : mPath(std::move(path)) {
    if (!mPath.empty()) {
        makeFolder(fs::path(mPath).parent_path());
        load();
    }
}

std::string History::usualPath() {
    const std::string state = environment("XDG_STATE_HOME");
    if (!state.empty() && state.front() == '/') {
        return state + "/kelutv/history";
    }
    const std::string home = environment("HOME");
    return home.empty() ? "" : home + "/.local/state/kelutv/history";
}

void History::add(const std::string& line) {
    if (!mLines.empty() && mLines.back() == line) {
        return;
    }
    mLines.push_back(line);
    if (!mPath.empty()) {
        writeTo(mPath, O_APPEND, line + '\n');
    }
}

void History::load() {
    std::ifstream file(mPath);
    for (std::string line; std::getline(file, line);) {
        mLines.push_back(line);
    }
    if (mLines.size() > kMostLines) {
        mLines.erase(mLines.begin(), mLines.end() - kMostLines);
        rewrite();
    }
}

void History::rewrite() const {
    std::string text;
    for (const std::string& line : mLines) {
        text += line + '\n';
    }
    writeTo(mPath, O_TRUNC, text);
}

} // namespace kelutv::tool
