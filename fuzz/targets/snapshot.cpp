#include "fuzz/support/Target.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/Snapshot.h"

#include <string>

/** Snapshot files of the tool: each is refused with its name, or says the same again when it is written. */
namespace kelutv::fuzz {
namespace {

using namespace tool;

void run(const std::string& text) {
    const Snapshot snapshot = snapshotOf(text, "snapshot");
    require(Json::parsed(text).at("readable").asReal() == static_cast<double>(snapshot.readable()),
            "a file that is not whole is refused");
    const std::string written = textOf(snapshot);
    require(textOf(snapshotOf(written, "snapshot")) == written, "what is written is read as the same");
    for (const HeldState& held : snapshot.held) {
        require(held.values.isArray() && held.reading.function != nullptr, "a state has values and what reads them");
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        kelutv::fuzz::run({data, data + size});
    } catch (const kelutv::tool::UsageError& error) {
        kelutv::fuzz::require(std::string(error.what()).find("snapshot") == 0, "a refusal names the file");
    }
    return 0;
}
