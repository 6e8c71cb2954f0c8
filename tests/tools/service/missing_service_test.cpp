#include "tools/Tool.h"

#include "support/RuntimeDir.h"
#include "support/ScriptedService.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace kelutv::test {
namespace {

/** The tool says where it looked for the service and what was wrong there, whatever the log level. */
class MissingService : public ::testing::Test {
protected:
    /** What is said below the first line; the log level must not matter. */
    void expectReasons(const std::vector<std::string>& environment, const std::string& reasons) {
        for (const char* const command : {"call", "get"}) {
            const ToolRun run = *command == 'c' ? runTool({"call", "audio.getVolume", "speaker"}, environment)
                                                : runTool({"get", "volume"}, environment);
            EXPECT_EQ(run.exit, 3);
            EXPECT_EQ(run.output, "");
            EXPECT_EQ(run.error,
                      "kelutv: there is no television service; is the television, or kelutv-simulator, running?\n" +
                          reasons);
        }
    }

    static std::string missingIn(const std::string& directory) {
        return "  no service TVBaseService in " + directory + "/services\n";
    }
    static std::string mustBePrivate(const std::string& path) {
        return "  runtime directory " + path + " must be a directory of uid " + std::to_string(::geteuid()) +
               " that only its owner may enter\n";
    }
    std::string inFolder(const std::string& name) const { return folder.pathOf(name); }

    const RuntimeDir directory;
    const TestFolder folder;
};

TEST_F(MissingService, isLookedForInTheRuntimeDirectory) { expectReasons({}, missingIn(directory.path())); }

TEST_F(MissingService, mayComeOfADirectoryThatOthersMayEnter) {
    const std::string path = inFolder("open");
    ::mkdir(path.c_str(), 0700);
    ::chmod(path.c_str(), 0755);
    expectReasons({"KQDROID_RUNTIME_DIR=" + path}, mustBePrivate(path) + missingIn(path));
}

TEST_F(MissingService, mayComeOfAFileInPlaceOfTheDirectory) {
    const std::string path = inFolder("file");
    std::ofstream(path) << "x";
    expectReasons({"KQDROID_RUNTIME_DIR=" + path}, mustBePrivate(path) + missingIn(path));
}

TEST_F(MissingService, mayComeOfADirectoryThatCannotBeMade) {
    const std::string path = inFolder("nowhere/at/all");
    expectReasons({"KQDROID_RUNTIME_DIR=" + path},
                  "  runtime directory " + path + ": No such file or directory\n" + missingIn(path));
}

TEST_F(MissingService, mayComeOfARelativeDirectory) {
    expectReasons({"KQDROID_RUNTIME_DIR=run/kqdroid"},
                  "  runtime directory run/kqdroid must be a path that begins with /\n" + missingIn("run/kqdroid"));
}

TEST_F(MissingService, mayComeOfADriverThatIsNotThere) {
    expectReasons({"KQDROID_TRANSPORT=kernel", "KQDROID_BINDER_DEVICE=" + inFolder("binder")},
                  "  calls are to go through the kernel's binder driver: " + inFolder("binder") +
                      ": No such file or directory\n");
}

TEST_F(MissingService, isToldOfWithoutTheBytesThatATerminalObeys) {
    expectReasons({"KQDROID_TRANSPORT=\x1b[2J", "KQDROID_BINDER_DEVICE=" + inFolder("binder")},
                  "  KQDROID_TRANSPORT is \"\\x1b[2J\", not kernel or sockets; taking what there is\n"
                  "  calls go through sockets (" +
                      inFolder("binder") + ": No such file or directory)\n" + missingIn(directory.path()));
}

TEST_F(MissingService, isToldOfOnceWithTheLogBeside) {
    const ToolRun run = runTool({"get", "volume"}, {"KQLOG_LEVEL=w"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_NE(run.error.find("W kqdroid  "), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("running?\n" + missingIn(directory.path())), std::string::npos) << run.error;
}

/** With a service there, too. */
class WrongVariable : public MissingService {
protected:
    void SetUp() override {
        service.start();
        service.reply(replyOf({0, 25}));
    }

    ScriptedService service;
};

TEST_F(WrongVariable, isNamedWithWhatIsAllowed) {
    struct Case {
        std::vector<std::string> environment;
        std::string complaint;
    };
    const std::string device = inFolder("binder");
    const std::string noDevice = "kelutv: calls go through sockets (" + device + ": No such file or directory)\n";
    const Case cases[] = {
        {{"KQDROID_SERVICE_WAIT_MS=soon"},
         "kelutv: KQDROID_SERVICE_WAIT_MS is \"soon\", not a number from 0 to 60000; waiting 1000 ms\n"},
        {{"KQDROID_TRANSPORT=", "KQDROID_BINDER_DEVICE=" + device}, noDevice},
        {{"KQDROID_TRANSPORT=pigeons", "KQDROID_BINDER_DEVICE=" + device},
         "kelutv: KQDROID_TRANSPORT is \"pigeons\", not kernel or sockets; taking what there is\n" + noDevice},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool({"get", "volume"}, test.environment);
        EXPECT_EQ(run.exit, 0);
        EXPECT_EQ(run.output, "25\n");
        EXPECT_EQ(run.error, test.complaint);
    }
}

TEST_F(WrongVariable, isNamedWhereItIsTheLogLevel) {
    const ToolRun run = runTool({"get", "volume"}, {"KQLOG_LEVEL=loud"});
    EXPECT_EQ(run.output, "25\n");
    EXPECT_NE(run.error.find("kelutv: KQLOG_LEVEL is \"loud\" but must be one of v d i w e f s; d is used\n"),
              std::string::npos)
        << run.error;
}

} // namespace
} // namespace kelutv::test
