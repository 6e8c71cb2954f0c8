#include "client/ClientTest.h"

namespace kelutv::test {

namespace {

LinkEnvironment& kLink = LinkEnvironment::install();

} // namespace

LinkEnvironment& link() { return kLink; }

ClientTest::ClientTest() {
    if (link().link() == Link::Up) {
        service().takeRequests();
        answer({0});
    }
}

void ClientTest::failTransactions() {
    if (link().link() == Link::Up) {
        service().replyStatus(android::FAILED_TRANSACTION);
    }
}

std::vector<std::string> ClientTest::sent() {
    std::vector<std::string> requests;
    for (const Bytes& request : service().takeRequests()) {
        requests.push_back(hex(request));
    }
    return requests;
}

std::vector<std::string> only(const Bytes& request) { return {hex(request)}; }

std::vector<LogEntry> untaggedError(const std::string& text) { return {{ANDROID_LOG_ERROR, std::nullopt, text}}; }

} // namespace kelutv::test
