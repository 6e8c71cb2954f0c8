#include "recording/Reader.h"

#include "wire/text/Shown.h"

#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

namespace kelutv::recording {

namespace {

constexpr std::size_t kBlock = 65536;
/** Many times what the longest request and its reply take. */
constexpr std::size_t kMostOfLine = 64 * 1024 * 1024;

} // namespace

Reader::Reader(std::istream& input, const std::string& name)
    : mInput(input), mName(wire::shown(name, wire::kMostOfPath)), mBlock(kBlock, '\0') {}

std::optional<Line> Reader::next() {
    const std::optional<std::string> text = nextText();
    if (!text) {
        return std::nullopt;
    }
    ++mNumber;
    try {
        if (text->size() > kMostOfLine) {
            throw LineError("it is longer than 64 MiB, and nothing behind it is read");
        }
        Line line = lineOf(*text);
        if (mNumber == 1 && !std::holds_alternative<Header>(line.content)) {
            throw LineError("a recording begins with its header");
        }
        return line;
    } catch (const LineError& error) {
        throw LineError(mName + ':' + std::to_string(mNumber) + ": " + error.what());
    }
}

/** Of a line that is too long as much as shows that. */
std::optional<std::string> Reader::nextText() {
    std::string text;
    while (!mIsCutOff) {
        mInput.getline(mBlock.data(), static_cast<std::streamsize>(mBlock.size()));
        const auto got = static_cast<std::size_t>(mInput.gcount());
        if (mInput.good()) {
            return text.append(mBlock, 0, got - 1);
        }
        text.append(mBlock, 0, got);
        const bool isOver = mInput.eof() || mInput.bad() || got == 0;
        mIsCutOff = text.size() > kMostOfLine || (isOver && !text.empty());
        if (isOver) {
            return std::nullopt;
        }
        if (mIsCutOff) {
            return text;
        }
        mInput.clear();
    }
    return std::nullopt;
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
