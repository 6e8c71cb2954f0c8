#include "support/Link.h"

#include "support/JoinedTests.h"

#include <kelutv/link/TVBaseClient.h>

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

namespace kelutv::test {

namespace {

constexpr char kDeathLine[] = "E/TvbaseClient binderDied() BnTvbaseService died!\n";

} // namespace

Link linkUnderTest() {
    const char* const wanted = std::getenv("KELUTV_TEST_LINK");
    const std::string name = wanted != nullptr ? wanted : "up";
    if (name == "up") {
        return Link::Up;
    }
    if (name == "absent") {
        return Link::Absent;
    }
    if (name == "dead") {
        return Link::Dead;
    }
    throw std::invalid_argument("KELUTV_TEST_LINK is \"" + name + "\", not up, absent or dead");
}

LinkEnvironment& LinkEnvironment::install(Link link, const char* source) {
    return addEnvironment(std::unique_ptr<LinkEnvironment>(new LinkEnvironment(link)), source);
}

void LinkEnvironment::SetUp() {
    mRuntimeDir.emplace();
    if (mLink != Link::Absent) {
        mService.emplace().start();
    }
    connect();
}

void LinkEnvironment::TearDown() {
    mService.reset();
    mRuntimeDir.reset();
}

void LinkEnvironment::connect() {
    LogCapture log;
    FdCapture standardError(STDERR_FILENO);
    android::TVBaseClient::self();
    if (mLink == Link::Dead) {
        mService->kill();
        if (!standardError.waitFor(kDeathLine)) {
            throw std::runtime_error("the client was not told of its service's death");
        }
    }
    mStandardError = standardError.take();
    mLog = log.take();
}

} // namespace kelutv::test
