#include "tools/kelutv/comparison/HappeningReader.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/recordings/RecordingInput.h"

#include <utility>

namespace kelutv::tool {

namespace {

/** Tells what the lines of a recording say, of which each section has a header. */
class HappeningReader {
public:
    explicit HappeningReader(const std::function<void(const RecordedHappening&)>& take) : mTake(take) {}

    void read(const recording::Line& line, std::size_t number) {
        if (const auto* const header = std::get_if<recording::Header>(&line.content)) {
            mToken = header->token;
            ++mSection;
        } else if (const auto* const gap = std::get_if<recording::Gap>(&line.content)) {
            mLeftOut += gap->count;
        } else if (auto happening = happeningOf(line, mToken)) {
            const auto* const transaction = std::get_if<recording::Transaction>(&line.content);
            mTake({number, mSection, *recording::momentOf(line), transaction != nullptr ? transaction->duration : 0,
                   std::move(*happening)});
        }
    }

    std::int64_t leftOut() const { return mLeftOut; }

private:
    const std::function<void(const RecordedHappening&)>& mTake;
    recording::Bytes mToken;
    std::size_t mSection = 0;
    std::int64_t mLeftOut = 0;
};

} // namespace

std::int64_t readHappenings(const std::string& path, const std::function<void(const RecordedHappening&)>& take) {
    try {
        RecordingInput input(path);
        HappeningReader reader(take);
        while (const auto line = input.next()) {
            reader.read(*line, input.reader().number());
        }
        return reader.leftOut();
    } catch (const ToolError& error) {
        throw UsageError(error.what());
    }
}

} // namespace kelutv::tool
