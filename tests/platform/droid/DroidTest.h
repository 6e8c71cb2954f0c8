#pragma once

#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

namespace kelutv::test {

/** Each test has a runtime directory of its own. What a test serves itself needs a name that no other test serves. */
class DroidTest : public ::testing::Test {
protected:
    const RuntimeDir& directory() const { return mDirectory; }
    /** Where the socket of a service lies. */
    std::string pathOf(const std::string& entry) const { return mDirectory.path() + "/services/" + entry; }

private:
    RuntimeDir mDirectory;
};

} // namespace kelutv::test
