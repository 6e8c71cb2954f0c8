#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"
#include "tools/Samples.h"

#include "tools/kelutv/calls/Call.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

/** What the library sends is taken on the other side of the transport, in the service's process. */
TEST(Encoded, isWhatAServiceReceives) {
    const RuntimeDir directory;
    ScriptedService service;
    service.start();
    service.reply(Bytes(1024));
    for (const wire::Function& function : wire::allFunctions()) {
        SCOPED_TRACE(function.name);
        const auto arguments = sampleArguments(function);
        const auto encoded = tool::requestsOf(function, arguments);
        tool::tryFunction(function, arguments);
        const auto received = service.takeRequests();
        EXPECT_EQ(encoded, received);
        EXPECT_EQ(encoded.size(), function.requests.size());
    }
}

} // namespace
} // namespace kelutv::test
