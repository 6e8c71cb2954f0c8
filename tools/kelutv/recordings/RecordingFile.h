#pragma once

#include "recording/Line.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kelutv::tool {

/** A recording that is written. Whole lines stand in the file at any moment, whatever happens to this process but in
 * the midst of a write. */
class RecordingFile {
public:
    /** @param most of the file, in bytes; 0 for no limit @throws ToolError when it cannot be opened */
    RecordingFile(std::string path, std::uint64_t most);
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;

    /** Not for a pipe or a device. */
    bool isRegular() const { return mIsRegular; }

    /** Open for as long as this lives. */
    int fd() const { return mFd; }

    /** Whether nobody else records into the file from now on; always for a pipe or a device. */
    bool lock();

    /** The first line that is written takes away what is there. */
    void replace();

    /** Goes on behind what is there, but for a last line that was cut off. @throws ToolError when that is no recording
     */
    void goOn();

    enum class Written { Whole, NoRoom, Failed };

    /** Writes a line; nothing when there is no room within the limit, and nothing but whole lines stay when it fails.
     */
    Written write(const recording::Line& line);

    /** Writes the last line, for which room is kept. */
    Written writeEnd(const recording::End& end);

private:
    void requireRecording() const;
    std::string read(std::uint64_t from, std::size_t length) const;
    std::uint64_t sizeOfWholeLines() const;
    bool cutBehind(std::uint64_t size);
    Written append(const std::string& text);

    std::string mPath;
    int mFd;
    bool mIsRegular = false;
    bool mIsReplaced = false;
    std::uint64_t mMost;
    /** Of the whole lines in the file. */
    std::uint64_t mSize = 0;
};

} // namespace kelutv::tool
