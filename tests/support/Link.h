#pragma once

#include "support/Capture.h"
#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

#include <optional>

namespace kelutv::test {

/** How the client stands to its service: answered, never found one, or outlived it. */
enum class Link { Up, Absent, Dead };

/** The state that `KELUTV_TEST_LINK` asks for: up (also when it is not set), absent or dead. */
Link linkUnderTest();

/**
 * Brings the client of this test program into one state before the first test, for all its tests.
 *
 * The client never connects twice in a process, so one program tests one state; it is run once for each.
 */
class LinkEnvironment : public ::testing::Environment {
public:
    /** Makes the environment part of the test program of a source; call it from the initialiser of a global. */
    static LinkEnvironment& install(Link link = linkUnderTest(), const char* source = __builtin_FILE());

    void SetUp() override;
    void TearDown() override;

    Link link() const { return mLink; }

    /** The service behind the link; it is not there when the link is absent and its process is gone when dead. */
    ScriptedService& service() { return *mService; }

    /** What the client wrote to standard error while it connected and lost the link. */
    const std::string& standardError() const { return mStandardError; }

    /** What the client wrote to the platform log while it connected and lost the link. */
    const std::vector<LogEntry>& log() const { return mLog; }

private:
    explicit LinkEnvironment(Link link) : mLink(link) {}

    void connect();

    const Link mLink;
    std::optional<RuntimeDir> mRuntimeDir;
    std::optional<ScriptedService> mService;
    std::string mStandardError;
    std::vector<LogEntry> mLog;
};

} // namespace kelutv::test
