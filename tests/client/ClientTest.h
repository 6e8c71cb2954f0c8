#pragma once

#include "support/Link.h"

#include <android/log.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace kelutv::test {

/** The link of this test program. */
LinkEnvironment& link();

/** A test of the client against the scripted service, which answers 0 unless told otherwise. */
class ClientTest : public ::testing::Test {
protected:
    ClientTest();

    ScriptedService& service() { return link().service(); }

    /** The words that answer every following request. */
    void answer(std::initializer_list<std::int32_t> words) { service().reply(replyOf(words)); }

    /** Makes every following transaction fail; a link that is absent or dead does so by itself. */
    void failTransactions();

    /** The requests since the last call, each in hexadecimal. */
    std::vector<std::string> sent();

    /** What the client logged since the last call. */
    std::vector<LogEntry> logged() { return mLog.take(); }

private:
    LogCapture mLog;
};

/** For comparison with `sent`: this request and no other. */
std::vector<std::string> only(const Bytes& request);
const std::vector<std::string> kNothingSent;

const std::vector<LogEntry> kNothingLogged;
const std::vector<LogEntry> kInvokeFailure{{ANDROID_LOG_ERROR, "TVBaseService@Client", "invoke failure\n"}};

/** What the module classes log: one error without a tag. */
std::vector<LogEntry> untaggedError(const std::string& text);

} // namespace kelutv::test
