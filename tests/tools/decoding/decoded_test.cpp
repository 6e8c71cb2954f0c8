#include "tools/Samples.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/decoding/Decoding.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kelutv::test {
namespace {

TEST(Decoded, isWhatEveryFunctionSends) {
    for (const wire::Function& function : wire::allFunctions()) {
        SCOPED_TRACE(function.name);
        for (const auto& bytes : tool::requestsOf(function, sampleArguments(function))) {
            const tool::DecodedRequest decoded = tool::decodeRequest(bytes);
            if (decoded.flaw) {
                ADD_FAILURE() << tool::textOf(*decoded.flaw);
                continue;
            }
            const auto senders = tool::sendersOf(decoded.request);
            EXPECT_NE(std::find(senders.begin(), senders.end(), &function), senders.end());
        }
    }
}

} // namespace
} // namespace kelutv::test
