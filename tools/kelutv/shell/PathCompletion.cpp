#include "tools/kelutv/shell/PathCompletion.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kelutv::tool {

namespace fs = std::filesystem;

std::vector<std::string> pathsBeginningWith(const std::string& begun) {
    const std::string folder = begun.substr(0, begun.rfind('/') + 1);
    const std::string name = begun.substr(folder.size());
    std::vector<std::string> files;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.empty() ? "." : folder, ignored)) {
        const std::string file = entry.path().filename().string();
        if (file.compare(0, name.size(), name) == 0 && (file.front() != '.' || !name.empty())) {
            files.push_back(folder + file + (entry.is_directory(ignored) ? "/" : ""));
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace kelutv::tool
