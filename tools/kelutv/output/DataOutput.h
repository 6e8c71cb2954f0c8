#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace kelutv::tool {

/**
 * Where a command writes what it makes: a file that is replaced when all is written, what is there and is no file, such
 * as a pipe, or standard output.
 */
class DataOutput {
public:
    /** @param path empty for standard output @throws ToolError when the file cannot be made */
    explicit DataOutput(std::string path);
    /** Takes away what was not finished. */
    ~DataOutput();
    DataOutput(const DataOutput&) = delete;
    DataOutput& operator=(const DataOutput&) = delete;

    /** @throws ToolError when it cannot be written */
    void write(const std::string& text);

    /** Puts the file in its place. @throws ToolError */
    void finish();

private:
    [[noreturn]] void fail() const;

    std::string mPath;
    /** The file itself, where links lead to it. */
    std::string mTarget;
    /** Beside the file, so that whoever reads that sees the old one or all of the new one; empty for what is no file.
     */
    std::string mTemporary;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> mFile;
};

} // namespace kelutv::tool
