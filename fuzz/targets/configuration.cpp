#include "fuzz/support/MemoryFile.h"
#include "fuzz/support/Target.h"

#include "simulator/files/JsonNode.h"
#include "simulator/television/Television.h"

/** Configuration files: each is refused with its name, or makes a television. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv::simulator;
    const kelutv::fuzz::MemoryFile file(data, size);
    try {
        const Television television(Configuration::fromFile(file.path()));
    } catch (const ConfigurationError& error) {
        kelutv::fuzz::require(std::string(error.what()).find(file.path()) != std::string::npos,
                              "a refusal names the file");
    }
    return 0;
}
