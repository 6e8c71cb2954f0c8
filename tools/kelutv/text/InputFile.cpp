#include "tools/kelutv/text/InputFile.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace kelutv::tool {

namespace {

/** More than anything that is sent to the television has, and a bound for devices and pipes without end. */
constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;

Bytes bytesOf(std::istream& input, const std::string& name) {
    Bytes bytes;
    char piece[65536];
    while (input.read(piece, sizeof(piece)), input.gcount() > 0) {
        bytes.insert(bytes.end(), piece, piece + input.gcount());
        if (bytes.size() > kMostBytes) {
            throw UsageError("cannot read '" + wire::shown(name, wire::kMostOfPath) + "': it has more than " +
                             std::to_string(kMostBytes) + " bytes");
        }
    }
    return bytes;
}

} // namespace

Bytes bytesOfFile(const std::string& path) {
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored)) {
        throw UsageError("cannot read '" + wire::shown(path, wire::kMostOfPath) +
                         "': it is a directory, and a file is needed");
    }
    std::ifstream file(path, std::ios::binary);
    Bytes bytes = bytesOf(file, path);
    if (!file.is_open() || file.bad()) {
        throw UsageError("cannot read '" + wire::shown(path, wire::kMostOfPath) + "': " + std::strerror(errno));
    }
    return bytes;
}

Bytes bytesOfInput(const std::string& path) {
    return path == "-" ? bytesOf(std::cin, "standard input") : bytesOfFile(path);
}

std::string textOfArgument(const std::string& argument) {
    if (argument != "-" && argument.compare(0, 1, "@") != 0) {
        return argument;
    }
    const Bytes content = bytesOfInput(argument == "-" ? argument : argument.substr(1));
    return {content.begin(), content.end()};
}

} // namespace kelutv::tool
