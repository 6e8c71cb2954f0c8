#pragma once

#include <sys/types.h>

#include <string>

namespace kelutv::test {

/**
 * A fresh folder that only the test's user may enter, removed with all that is in it when the object goes.
 *
 * It lies where `TMPDIR` says. A forked child leaves it alone.
 */
class TestFolder {
public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::string& path() const { return mPath; }

    /** Where an entry of the folder lies, or would lie. */
    std::string pathOf(const std::string& entry) const { return mPath + '/' + entry; }

private:
    std::string mPath;
    pid_t mOwner;
};

} // namespace kelutv::test
