#pragma once

#include "recording/Line.h"
#include "support/TestFolder.h"
#include "support/Wire.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/** A recording in the making: what happened comes a millisecond after what happened before. */
class RecordingFile {
public:
    /** Of a little-endian machine and the platform of the tests. */
    RecordingFile();

    /** In whose name the following goes on. */
    RecordingFile& in(std::int32_t process, std::int32_t thread = 0);
    /** That it took so long, from the end of what happened before. */
    RecordingFile& call(const Bytes& request, const Bytes& reply,
                        std::chrono::nanoseconds duration = std::chrono::microseconds(100));
    /** That it failed at the link, by default since the service was gone. */
    RecordingFile& failed(const Bytes& request, std::int32_t status = -32,
                          std::chrono::nanoseconds duration = std::chrono::microseconds(1));
    RecordingFile& event(std::uint32_t identifier, const Bytes& payload);
    RecordingFile& loss();
    /** What follows happened so much later. */
    RecordingFile& pause(std::chrono::nanoseconds time);
    RecordingFile& add(const recording::Line& line);

    std::vector<recording::Line>& lines() { return mLines; }

    /** Its text, with the end of a recording that was ended in order. */
    std::string text() const;
    /** Writes it. @return where */
    const std::string& path() const;

private:
    recording::Moment next();

    std::vector<recording::Line> mLines;
    std::int32_t mProcess = 100;
    std::int32_t mThread = 100;
    std::int64_t mSequence = 0;
    std::int64_t mTime = 0;
    TestFolder mFolder;
    std::string mPath = mFolder.pathOf("recording.jsonl");
};

} // namespace kelutv::test
