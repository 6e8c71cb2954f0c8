#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace kelutv::test {
namespace {

namespace fs = std::filesystem;

class NewService : public ::testing::Test {
protected:
    std::string textOf(const std::string& name) const {
        std::ifstream file(mFolder.pathOf(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::set<std::string> filesIn(const std::string& folder) const {
        std::set<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(mFolder.pathOf(folder))) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    TestFolder mFolder;
};

TEST_F(NewService, writesAFileForEachModuleWithCommands) {
    const ToolRun run = runTool({"new-service", mFolder.pathOf("tv")});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(filesIn("tv"),
              (std::set<std::string>{"CMakeLists.txt", "README.md", "audio.cpp", "config.cpp", "factory.cpp",
                                     "handlers.h", "hdmicec.cpp", "main.cpp", "pcmplayer.cpp", "pcsetting.cpp",
                                     "picture.cpp", "sourcemanager.cpp", "systemsetting.cpp", "tv.service.in",
                                     "vbimanager.cpp", "video.cpp"}));
}

TEST_F(NewService, namesWhatItWrote) {
    const ToolRun run =
        runTool({"new-service", mFolder.pathOf("tv"), "--module", "video", "--module", "audio", "--name", "my_tv-2"});
    std::string expected;
    for (const char* const name :
         {"README.md", "CMakeLists.txt", "main.cpp", "handlers.h", "audio.cpp", "video.cpp", "my_tv-2.service.in"}) {
        expected += mFolder.pathOf("tv") + '/' + name + '\n';
    }
    EXPECT_EQ(run.output, expected);
    EXPECT_NE(run.error.find("my_tv-2 refuses everything so far"), std::string::npos);
}

TEST_F(NewService, leavesNoPlaceEmpty) {
    ASSERT_EQ(runTool({"new-service", mFolder.pathOf("tv")}).exit, 0);
    for (const std::string& name : filesIn("tv")) {
        EXPECT_EQ(textOf("tv/" + name).find("{{"), std::string::npos) << name;
    }
}

TEST_F(NewService, takesAnEmptyFolder) {
    fs::create_directory(mFolder.pathOf("tv"));
    EXPECT_EQ(runTool({"new-service", mFolder.pathOf("tv")}).exit, 0);
}

TEST_F(NewService, leavesAFolderWithSomethingInItAlone) {
    fs::create_directory(mFolder.pathOf("tv"));
    std::ofstream(mFolder.pathOf("tv/notes.txt")) << "mine";
    const ToolRun run = runTool({"new-service", mFolder.pathOf("tv")});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.error, "kelutv: " + mFolder.pathOf("tv") + " is not empty; nothing was written\n");
    EXPECT_EQ(filesIn("tv"), std::set<std::string>{"notes.txt"});
}

TEST_F(NewService, saysWhereItCannotWrite) {
    std::ofstream(mFolder.pathOf("tv")) << "a file";
    const ToolRun run = runTool({"new-service", mFolder.pathOf("tv")});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.error, "kelutv: cannot write to " + mFolder.pathOf("tv") + ": Not a directory\n");
}

TEST_F(NewService, refusesNamesThatNoProgramCanHave) {
    const std::string complaint = "a program is called by letters, digits, '-' and '_' behind a letter, not '";
    EXPECT_EQ(runTool({"new-service", mFolder.pathOf("2tv")}).error,
              usageError("new-service", complaint + "2tv'; --name gives the program another one"));
    EXPECT_EQ(runTool({"new-service", mFolder.pathOf("tv"), "--name", "a b"}).error,
              usageError("new-service", complaint + "a b'"));
    EXPECT_EQ(
        runTool({"new-service", mFolder.pathOf("test")}).error,
        usageError("new-service", "CMake keeps the name 'test' for itself; --name gives the program another one"));
    EXPECT_TRUE(filesIn("").empty());
}

TEST_F(NewService, refusesModulesThatThereAreNot) {
    const ToolRun run = runTool({"new-service", mFolder.pathOf("tv"), "--module", "adio"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error,
              usageError("new-service", "unknown module 'adio'; there are audio, config, factory, hdmicec, pcmplayer, "
                                        "pcsetting, picture, sourcemanager, systemsetting, vbimanager, video; "
                                        "nearest: audio"));
    EXPECT_TRUE(filesIn("").empty());
}

} // namespace
} // namespace kelutv::test
