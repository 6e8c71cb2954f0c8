#include "recording/Reader.h"

#include "wire/text/Shown.h"

#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

namespace kelutv::recording {

Reader::Reader(std::istream& input, const std::string& name)
    : mInput(input), mName(wire::shown(name, wire::kMostOfPath)) {}

std::optional<Line> Reader::next() {
    std::string text;
    if (!std::getline(mInput, text)) {
        return std::nullopt;
    }
    if (mInput.eof()) {
        mIsCutOff = true;
        return std::nullopt;
    }
    ++mNumber;
    try {
        Line line = lineOf(text);
        if (mNumber == 1 && !std::holds_alternative<Header>(line.content)) {
            throw LineError("a recording begins with its header");
        }
        return line;
    } catch (const LineError& error) {
        throw LineError(mName + ':' + std::to_string(mNumber) + ": " + error.what());
    }
}

std::vector<Line> linesOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        throw std::system_error(errno, std::generic_category(), "cannot read " + wire::shown(path, wire::kMostOfPath));
    }
    Reader reader(file, path);
    std::vector<Line> lines;
    while (auto line = reader.next()) {
        lines.push_back(std::move(*line));
    }
    return lines;
}

} // namespace kelutv::recording
