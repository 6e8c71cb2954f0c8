#include "tools/kelutv/text/InputFile.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

namespace kelutv::tool {

Bytes bytesOfFile(const std::string& path) {
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored)) {
        throw UsageError("cannot read '" + wire::shown(path, wire::kMostOfPath) +
                         "': it is a directory, and a file is needed");
    }
    std::ifstream file(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        throw UsageError("cannot read '" + wire::shown(path, wire::kMostOfPath) + "': " + std::strerror(errno));
    }
    return bytes;
}

Bytes bytesOfInput(const std::string& path) {
    return path == "-" ? Bytes{std::istreambuf_iterator<char>(std::cin), {}} : bytesOfFile(path);
}

std::string textOfArgument(const std::string& argument) {
    if (argument != "-" && argument.compare(0, 1, "@") != 0) {
        return argument;
    }
    const Bytes content = bytesOfInput(argument == "-" ? argument : argument.substr(1));
    return {content.begin(), content.end()};
}

} // namespace kelutv::tool
