#include "platform/droid/Calls.h"
#include "platform/droid/DroidTest.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"

#include <binder/IServiceManager.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kelutv::test {
namespace {

/** No service is found or published through a directory that others could enter. */
class DirectoryRules : public DroidTest {
protected:
    void use(const std::string& path) { ::setenv("KQDROID_RUNTIME_DIR", path.c_str(), 1); }

    void expectRefused(const std::string& path) {
        LogCapture log;
        EXPECT_EQ(service("any"), nullptr);
        EXPECT_EQ(android::defaultServiceManager()->listServices().size(), 0u);
        EXPECT_EQ(android::defaultServiceManager()->addService(android::String16("rules.any"), new PeerService),
                  android::PERMISSION_DENIED);
        const std::vector<LogEntry> entries = log.take();
        ASSERT_EQ(entries.size(), 3u);
        for (const LogEntry& entry : entries) {
            EXPECT_EQ(entry.text, "runtime directory " + path + " must be a directory of uid " +
                                      std::to_string(::geteuid()) + " that only its owner may enter");
        }
    }

    std::string inDirectory(const std::string& name) const { return directory().path() + "/" + name; }
};

TEST_F(DirectoryRules, accessOfOthersIsRefused) {
    const std::string path = inDirectory("open");
    for (const mode_t mode : {0701u, 0704u, 0710u, 0740u, 0777u}) {
        std::filesystem::create_directory(path);
        ::chmod(path.c_str(), mode);
        use(path);
        expectRefused(path);
    }
}

TEST_F(DirectoryRules, linkIsRefused) {
    std::filesystem::create_directory(inDirectory("real"));
    ::chmod(inDirectory("real").c_str(), 0700);
    std::filesystem::create_symlink("real", inDirectory("link"));
    use(inDirectory("link"));
    expectRefused(inDirectory("link"));
}

TEST_F(DirectoryRules, fileIsRefused) {
    std::ofstream(inDirectory("file")) << "x";
    ::chmod(inDirectory("file").c_str(), 0700);
    use(inDirectory("file"));
    expectRefused(inDirectory("file"));
}

TEST_F(DirectoryRules, theRoomFollowsTheSameRules) {
    std::filesystem::create_directory(inDirectory("services"));
    ::chmod(inDirectory("services").c_str(), 0755);
    expectRefused(inDirectory("services"));
}

TEST_F(DirectoryRules, longPathIsNamedInTheLog) {
    const std::string path = inDirectory(std::string(120, 'd'));
    use(path);
    LogCapture log;
    EXPECT_EQ(service("any"), nullptr);
    EXPECT_LT(android::defaultServiceManager()->addService(android::String16("rules.long"), new PeerService),
              android::NO_ERROR);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].text, "calling " + path + "/services/any: File name too long");
    EXPECT_EQ(entries[1].text, "serving " + path + "/services/rules.long: File name too long");
}

TEST_F(DirectoryRules, directoryThatCannotBeMadeIsNamedInTheLog) {
    const std::string path = inDirectory("nowhere/at/all");
    use(path);
    LogCapture log;
    EXPECT_EQ(service("any"), nullptr);
    const std::vector<LogEntry> entries = log.take();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].text, "runtime directory " + path + ": No such file or directory");
}

} // namespace
} // namespace kelutv::test
