// The simulated television's settings say which event tells of which state.

#include "tools/kelutv/compliance/events/EventOfState.h"
#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/text/InputFile.h"
#include "wire/Interface.h"
#include "wire/events/EventTable.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {
namespace {

tool::Json defaults() {
    const tool::Bytes bytes = tool::bytesOfFile(KELUTV_DEFAULTS);
    return tool::Json::parsed({bytes.begin(), bytes.end()});
}

/** The event of a state of the settings; empty without one. */
std::string eventIn(const tool::Json& settings) {
    const tool::Json* const event = settings.isObject() ? settings.find("event") : nullptr;
    return event != nullptr ? event->asText() : "";
}

TEST(EventOfState, isThatOfTheSimulatedTelevision) {
    const wire::EventTable table(wire::simulatedEvents());
    std::size_t events = 0;
    const tool::Json document = defaults();
    for (const auto& [module, states] : document.members()) {
        if (!states.isObject()) {
            continue;
        }
        for (const auto& [name, settings] : states.members()) {
            const std::string state = module + '.' + name;
            if (wire::findState(state) == nullptr) {
                continue;
            }
            const wire::Event* const found = table.named(tool::compliance::eventNameOf(state));
            EXPECT_EQ(found != nullptr ? found->name : "", eventIn(settings)) << state;
            events += found != nullptr ? 1 : 0;
        }
    }
    EXPECT_GT(events, 100U);
}

} // namespace
} // namespace kelutv::test
