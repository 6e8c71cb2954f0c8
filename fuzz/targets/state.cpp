#include "fuzz/support/Target.h"
#include "fuzz/support/Televisions.h"

#include "simulator/files/JsonNode.h"
#include "simulator/television/Equipment.h"
#include "simulator/television/Snapshot.h"

/** State files: each is refused, or makes a television whose own state file says the same again. */
namespace kelutv::fuzz {
namespace {

using namespace simulator;

void restore(Equipment& equipment, const std::string& text) {
    restoreSnapshot(equipment, JsonFile(text, "state").root());
}

/** False when the text is refused. */
bool isRestored(Equipment& equipment, const std::string& text) {
    try {
        restore(equipment, text);
        return true;
    } catch (const ConfigurationError& error) {
        require(std::string(error.what()).compare(0, 5, "state") == 0, "a refusal names the file");
        return false;
    }
}

void run(const std::string& text) {
    Equipment first(standardConfiguration(), EepStore());
    if (isRestored(first, text)) {
        const std::string kept = snapshotOf(first);
        Equipment second(standardConfiguration(), EepStore());
        require(isRestored(second, kept) && snapshotOf(second) == kept, "what was kept is restored");
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::run({data, data + size});
    return 0;
}
