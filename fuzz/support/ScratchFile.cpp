#include "fuzz/support/ScratchFile.h"

#include "fuzz/support/Target.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kelutv::fuzz {

ScratchFile::ScratchFile() : mFolder(std::filesystem::temp_directory_path() / "fuzz-XXXXXX") {
    require(::mkdtemp(mFolder.data()) != nullptr, "there is a folder for the input's file");
}

ScratchFile::~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
}

void ScratchFile::write(const std::string& content) const {
    std::ofstream file(path(), std::ios::binary);
    file << content;
    require(static_cast<bool>(file.flush()), "there is room for the input's file");
}

} // namespace kelutv::fuzz
