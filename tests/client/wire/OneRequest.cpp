#include "client/wire/OneRequest.h"

#include <gtest/gtest.h>

namespace kelutv::test {

Bytes requestBytes(const WireOperation& operation) {
    return Wire::request(operation.command).raw(operation.payload.data(), operation.payload.size()).bytes();
}

void expectOneRequest(ScriptedService& service, const WireOperation& operation) {
    const std::vector<Bytes> requests = service.takeRequests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(hex(requests.front()), hex(requestBytes(operation)));
}

} // namespace kelutv::test
