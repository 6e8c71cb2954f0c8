#include "client/wire/WireTable.h"
#include "support/Capture.h"
#include "support/Link.h"

#include <android/log.h>
#include <utils/Errors.h>

namespace kelutv::test {

namespace {

LinkEnvironment& environment = LinkEnvironment::install();

char letterOf(int priority) {
    switch (priority) {
    case ANDROID_LOG_ERROR:
        return 'E';
    case ANDROID_LOG_INFO:
        return 'I';
    case ANDROID_LOG_DEBUG:
        return 'D';
    default:
        return '?';
    }
}

std::string textOf(const std::vector<LogEntry>& entries) {
    std::string text;
    for (const LogEntry& entry : entries) {
        text.append(1, letterOf(entry.priority)).append("/").append(entry.tag.value_or("-")).append(": ");
        text.append(entry.text).append(";");
    }
    return text;
}

Bytes bytesOf(std::string_view text) { return Bytes(text.begin(), text.end()); }

Bytes requestBytes(const WireOperation& operation) {
    return Wire::request(operation.command).raw(operation.payload.data(), operation.payload.size()).bytes();
}

/** Makes the call and compares what it gave and logged; a null expectation is not compared. */
void expectOutcome(std::string (*call)(), const char* observed, const char* log) {
    LogCapture capture;
    const std::string seen = call();
    if (observed != nullptr) {
        EXPECT_EQ(seen, observed);
    }
    if (log != nullptr) {
        EXPECT_EQ(textOf(capture.take()), log);
    }
}

void expectOneRequest(const WireOperation& operation) {
    const std::vector<Bytes> requests = environment.service().takeRequests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(hex(requests.front()), hex(requestBytes(operation)));
}

void expectAnswersRead(const WireOperation& operation) {
    for (const Answer& answer : operation.answers) {
        const Bytes reply = bytesOf(answer.reply);
        SCOPED_TRACE("answer " + hex(reply));
        environment.service().reply(reply);
        expectOutcome(operation.call, answer.observed, answer.log);
        expectOneRequest(operation);
    }
}

void expectFailure(const WireOperation& operation) {
    SCOPED_TRACE("failing transaction");
    expectOutcome(operation.call, operation.observedOnFailure, operation.logOnFailure);
}

void expectNullsRefused(const WireOperation& operation) {
    for (const RefusedNull& null : operation.nulls) {
        SCOPED_TRACE(std::string("null ") + null.parameter);
        expectOutcome(null.call, null.observed, null.log);
    }
}

} // namespace

TEST_P(WireTable, holds) {
    if (environment.link() == Link::Up) {
        expectAnswersRead(GetParam());
        environment.service().replyStatus(android::UNKNOWN_ERROR);
        expectFailure(GetParam());
        expectOneRequest(GetParam());
        expectNullsRefused(GetParam());
        EXPECT_TRUE(environment.service().takeRequests().empty());
    } else {
        expectFailure(GetParam());
        expectNullsRefused(GetParam());
    }
}

} // namespace kelutv::test
