#include "client/wire/OneRequest.h"
#include "client/wire/WireTest.h"
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

/** Makes the call and compares what it gave and logged; a null expectation is not compared. */
void expectOutcome(const WireOperation& operation, int null, const char* observed, const char* log) {
    LogCapture capture;
    Observed seen;
    operation.call(seen, null);
    if (observed != nullptr) {
        EXPECT_EQ(seen.text(), observed);
    }
    if (log != nullptr) {
        EXPECT_EQ(textOf(capture.take()), log);
    }
}

void expectAnswersRead(const WireOperation& operation) {
    for (const Answer& answer : operation.answers) {
        const Bytes reply = bytesOf(answer.reply);
        SCOPED_TRACE("answer " + hex(reply));
        environment.service().reply(reply);
        expectOutcome(operation, 0, answer.observed, answer.log);
        expectOneRequest(environment.service(), operation);
    }
}

void expectFailure(const WireOperation& operation) {
    SCOPED_TRACE("failing transaction");
    expectOutcome(operation, 0, operation.observedOnFailure, operation.logOnFailure);
}

void expectNullsRefused(const WireOperation& operation) {
    int position = 0;
    for (const RefusedNull& null : operation.nulls) {
        SCOPED_TRACE(std::string("null ") + null.parameter);
        expectOutcome(operation, ++position, null.observed, null.log);
    }
}

} // namespace

TEST_P(WireTest, holds) {
    const WireOperation& operation = *GetParam();
    if (environment.link() == Link::Up) {
        expectAnswersRead(operation);
        environment.service().replyStatus(android::UNKNOWN_ERROR);
        expectFailure(operation);
        expectOneRequest(environment.service(), operation);
        expectNullsRefused(operation);
        EXPECT_TRUE(environment.service().takeRequests().empty());
    } else {
        expectFailure(operation);
        expectNullsRefused(operation);
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, WireTest, ::testing::ValuesIn(everyOperation()), operationName);

} // namespace kelutv::test
