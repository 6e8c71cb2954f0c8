#include "fuzz/support/Target.h"
#include "fuzz/support/Televisions.h"

#include "simulator/control/Control.h"
#include "simulator/control/ControlMessage.h"
#include "simulator/files/JsonNode.h"
#include "simulator/television/Snapshot.h"

#include <sstream>
#include <string>

/** Lines of the control channel to one television, each as it travels: what is refused changes nothing. */
namespace kelutv::fuzz {
namespace {

using namespace simulator;

void checkPackets(const std::string& line) {
    ControlMessage message(kLongestLine);
    for (const std::string& packet : packetsOf(kLine, line)) {
        require(!message.isWhole() && message.add(packet.data(), packet.size()), "a line's own packets are taken");
    }
    require(message.isWhole() && message.mark() == kLine && message.text() == line, "a line comes as it was sent");
}

/** Nothing is done for a comment. */
bool saysNothing(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    return first == std::string::npos || line[first] == '#';
}

void obeyLine(Equipment& equipment, const std::string& line) {
    checkPackets(line);
    const std::uint64_t before = equipment.revision.number();
    const Answer answer = fuzz::obey(equipment, line);
    require(answer.ok || !answer.text.empty(), "a refusal says why");
    require(answer.ok || equipment.revision.number() == before, "what is refused changes nothing");
    require(!objectionToLine(line) || !answer.ok || saysNothing(line), "what is objected to beforehand is refused");
}

/** Whatever lines have brought, it can be kept. */
void checkSnapshot(const Equipment& equipment) {
    const std::string kept = snapshotOf(equipment);
    Equipment restored(standardConfiguration(), EepStore());
    restoreSnapshot(restored, JsonFile(kept, "state").root());
    require(snapshotOf(restored) == kept, "what is kept is restored");
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::simulator::Equipment equipment(kelutv::fuzz::standardConfiguration(), kelutv::simulator::EepStore());
    std::istringstream lines(std::string(data, data + size));
    for (std::string line; std::getline(lines, line);) {
        kelutv::fuzz::obeyLine(equipment, line);
    }
    kelutv::fuzz::checkSnapshot(equipment);
    // The packets of a client that keeps to no rule.
    kelutv::simulator::ControlMessage message(size);
    if (message.add(reinterpret_cast<const char*>(data), size) && message.isWhole()) {
        message.clear();
    }
    return 0;
}
