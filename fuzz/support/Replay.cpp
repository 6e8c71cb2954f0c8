#include "fuzz/support/ScratchFile.h"
#include "fuzz/support/Target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kBadUsage = 2;

std::vector<fs::path> inputsOf(int argc, char** argv) {
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const fs::path given = fs::absolute(argv[i]);
        if (fs::is_directory(given)) {
            std::copy(fs::directory_iterator(given), fs::directory_iterator(), std::back_inserter(inputs));
        } else {
            inputs.push_back(given);
        }
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

/** False when the file cannot be read. */
bool replay(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad()) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        return false;
    }
    // A crash names its input by the last of these lines.
    std::fprintf(stderr, "%s\n", path.filename().c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

/** Runs the target once for each input, without the engine that makes new ones. */
int main(int argc, char** argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    const std::vector<fs::path> inputs = inputsOf(argc, argv);
    if (inputs.empty()) {
        std::fprintf(stderr, "usage: %s INPUT|FOLDER...: files, or folders with some\n", argv[0]);
        return kBadUsage;
    }
    // Where inputs that name files write them.
    const kelutv::fuzz::ScratchFile scratch;
    fs::current_path(fs::path(scratch.path()).parent_path());
    const bool allRead = std::all_of(inputs.begin(), inputs.end(), replay);
    std::fprintf(stderr, "%zu inputs\n", inputs.size());
    return allRead ? EXIT_SUCCESS : EXIT_FAILURE;
}
