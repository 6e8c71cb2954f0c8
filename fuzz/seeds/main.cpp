#include "fuzz/seeds/Seed.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace kelutv::fuzz;

constexpr int kBadUsage = 2;

struct Row {
    const char* target;
    Seeds (*make)();
};

constexpr Row kRows[] = {
    {"command_calls", commandCallSeeds},
    {"control", controlSeeds},
    {"decode", decodeSeeds},
    {"driver", driverSeeds},
    {"eep", eepSeeds},
    {"functions", functionSeeds},
    {"parcel", parcelSeeds},
    {"requests", requestSeeds},
    {"service_manager", serviceManagerSeeds},
    {"state", stateSeeds},
    {"socket_client", socketClientSeeds},
    {"socket_server", socketServerSeeds},
    {"event_publisher", eventPublisherSeeds},
    {"event_subscriber", eventSubscriberSeeds},
};

void write(const fs::path& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

void writeSeeds(const fs::path& folder, const Seeds& seeds) {
    fs::create_directories(folder);
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        write(folder / ("seed-" + std::to_string(i)), seeds[i]);
    }
}

/** As the engine reads dictionaries. */
std::string entryOf(const Bytes& word) {
    std::string entry = "\"";
    for (const std::uint8_t byte : word) {
        char escaped[5];
        std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
        entry += escaped;
    }
    return entry + "\"\n";
}

void writeDictionaries(const fs::path& folder) {
    std::string binary;
    for (const Bytes& word : commandWords()) {
        binary += entryOf(word);
    }
    write(folder / "binary.dict", {binary.begin(), binary.end()});
    std::string text;
    for (const std::string& name : names()) {
        text += entryOf({name.begin(), name.end()});
    }
    write(folder / "text.dict", {text.begin(), text.end()});
}

void writeAll(const fs::path& folder) {
    for (const Row& row : kRows) {
        writeSeeds(folder / row.target, row.make());
    }
    writeDictionaries(folder);
}

} // namespace

/** Writes what the targets begin with: inputs in a folder for each of them, and dictionaries. */
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return kBadUsage;
    }
    try {
        writeAll(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "fuzz_seeds: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
