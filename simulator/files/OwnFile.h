#pragma once

#include "simulator/files/File.h"

#include <memory>
#include <string>

namespace kelutv::simulator {

/**
 * A file that this process has to itself, however often it is replaced, until the object or the process ends.
 *
 * The lock is on the file: it goes from each one to that which takes its place before that has the name.
 */
class OwnFile {
public:
    /**
     * Takes the file, or just its name when there is none, and removes what a process that was killed left beside it.
     * @throws std::runtime_error when another process has it, or when it or its neighbour is of a kind that cannot be
     *         replaced
     */
    explicit OwnFile(const std::string& path);

    /** The file behind symbolic links. */
    const std::string& path() const { return mPath; }

    /** Null as long as there is none. */
    const File* file() const { return mFile.get(); }

    /**
     * Gives the file this content: it is written under another name, flushed to the disk if need be, and renamed.
     * @throws std::runtime_error when that fails; the file keeps its content
     */
    void replace(const std::string& content, Outlives outlives);

private:
    std::string mPath;
    std::unique_ptr<File> mFile;
};

} // namespace kelutv::simulator
