#pragma once

#include <string>

namespace kelutv::fuzz {

/** The place of a file in a folder of its own, removed with all that is there. It lies where `TMPDIR` says. */
class ScratchFile {
public:
    ScratchFile();
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    std::string path() const { return mFolder + "/file"; }
    void write(const std::string& content) const;

private:
    std::string mFolder;
};

} // namespace kelutv::fuzz
