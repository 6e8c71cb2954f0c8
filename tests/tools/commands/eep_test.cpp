#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** An image of an area in a file of its own. */
class ImageFile {
public:
    explicit ImageFile(const std::string& content) { std::ofstream(path(), std::ios::binary) << content; }

    std::string path() const { return mFolder.pathOf("image"); }

private:
    TestFolder mFolder;
};

/** How many commands of this kind the television got since the last look. */
std::ptrdiff_t sent(const std::string& command) {
    const auto trace = television.simulator().takeTrace();
    return std::count_if(trace.begin(), trace.end(),
                         [&command](const std::string& line) { return line.find(command + '(') != std::string::npos; });
}

TEST(Eep, listsTheAreas) {
    const ToolRun run = runTool({"eep", "areas"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "tv       0x8A00 to 0x8BFC    509 bytes  the television's own area\n"
                          "network  0x8C00 to 0x8DFC    509 bytes  the network area\n"
                          "app      0x8E00 to 0x8FFC    509 bytes  the applications' area\n"
                          "bt       0x9000 to 0x91FC    509 bytes  the Bluetooth area\n"
                          "at       0xA400 to 0xA5FC    509 bytes  the AT area\n"
                          "flash    0x0000 to 0xFFFF  65536 bytes  the whole flash EEPROM\n"
                          "eep      0x0000 to 0xFFFF  65536 bytes  the EEPROM\n");
}

TEST(Eep, writesAndReadsEveryArea) {
    const std::vector<std::pair<const char*, const char*>> places = {
        {"tv", "0x8A00"}, {"network", "0x8DF8"}, {"app", "36352"}, {"bt", "0x9010"},
        {"at", "0xA5F8"}, {"flash", "0"},        {"eep", "0xFFFB"}};
    for (const auto& [area, address] : places) {
        const ToolRun written = runTool({"eep", "write", area, address, "1", "0xFF,0", "hex:4142", "--verify"});
        EXPECT_EQ(written.exit, 0) << written.error;
        EXPECT_EQ(sent("CMD_SYSTEM_SETFLASHEEPFLUSH"), std::string(area) == "eep" ? 0 : 1) << area;
        const ToolRun read = runTool({"eep", "read", area, address, "5"});
        EXPECT_EQ(read.exit, 0) << read.error;
        EXPECT_EQ(read.output, "01 ff 00 41 42\n") << area;
    }
    EXPECT_EQ(runTool({"eep", "read", "flash", "0x8A00", "5", "--raw"}).output, std::string("\x01\xFF\0AB", 5));
    EXPECT_EQ(runTool({"eep", "read", "TV", "0x8A03", "--json"}).output,
              "{\"area\":\"tv\",\"address\":35331,\"length\":1,\"bytes\":\"41\"}\n");
}

TEST(Eep, leavesTheFlushOut) {
    EXPECT_EQ(runTool({"eep", "write", "bt", "0x9100", "7", "--no-flush"}).exit, 0);
    EXPECT_EQ(sent("CMD_SYSTEM_SETFLASHEEPFLUSH"), 0);
}

TEST(Eep, dumpsAnArea) {
    ASSERT_EQ(runTool({"eep", "write", "app", "0x8E20", "hex:00414243ff"}).exit, 0);
    ASSERT_EQ(runTool({"eep", "write", "app", "0x8E00", "0,0,0,0,0"}).exit, 0);
    const ToolRun run = runTool({"eep", "dump", "app"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "00008e00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|\n"
                          "*\n"
                          "00008e20  00 41 42 43 ff 00 00 00  00 00 00 00 00 00 00 00  |.ABC............|\n"
                          "00008e30  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  |................|\n"
                          "*\n"
                          "00008ff0  00 00 00 00 00 00 00 00  00 00 00 00 00           |.............|\n"
                          "00008ffd\n");
    EXPECT_EQ(runTool({"eep", "dump", "app", "--offset", "0x21", "--length", "3"}).output,
              "00008e21  41 42 43                                          |ABC|\n"
              "00008e24\n");
}

TEST(Eep, loadsAnImageOfAnArea) {
    std::string image(509, 'x');
    image[508] = 'y';
    const ImageFile file(image);
    const ToolRun loaded = runTool({"eep", "load", "network", file.path(), "--verify"});
    EXPECT_EQ(loaded.exit, 0) << loaded.error;
    EXPECT_EQ(runTool({"eep", "dump", "network", "--raw"}).output, image);
    EXPECT_EQ(runTool({"eep", "read", "flash", "0x8DFC", "2"}).output, "79 00\n");
}

TEST(Eep, takesAnAddressAsADumpShowsIt) {
    ASSERT_EQ(runTool({"eep", "write", "tv", "0x8A10", "0x42"}).exit, 0);
    const std::string dump = runTool({"eep", "dump", "tv", "--offset", "16", "--length", "1"}).output;
    const std::string address = dump.substr(0, dump.find(' '));
    EXPECT_EQ(address, "00008a10");
    EXPECT_EQ(runTool({"eep", "read", "tv", address}).output, "42\n");
    EXPECT_EQ(runTool({"eep", "write", "tv", address, "0x43"}).exit, 0);
    EXPECT_EQ(runTool({"eep", "read", "tv", "35344"}).output, "43\n");
    EXPECT_EQ(runTool({"eep", "write", "flash", "010", "7"}).exit, 0);
    EXPECT_EQ(runTool({"eep", "read", "flash", "10"}).output, "07\n");
}

TEST(Eep, failsWhenTheImageCannotBeRead) {
    const TestFolder folder;
    const std::string nowhere = folder.pathOf("nowhere");
    television.simulator().takeTrace();
    const ToolRun missing = runTool({"eep", "load", "tv", nowhere});
    EXPECT_EQ(missing.exit, 1);
    EXPECT_EQ(missing.error, "kelutv: cannot read '" + nowhere + "': No such file or directory\n");
    const ToolRun directory = runTool({"eep", "load", "tv", folder.path()});
    EXPECT_EQ(directory.exit, 1);
    EXPECT_EQ(directory.error,
              "kelutv: cannot read '" + folder.path() + "': it is a directory, and a file is needed\n");
    EXPECT_TRUE(television.simulator().takeTrace().empty());
}

TEST(Eep, refusesBadInputAndSendsNothing) {
    const ImageFile file("short");
    const TestFolder folder;
    const std::string nowhere = folder.pathOf("nowhere");
    struct Case {
        std::vector<std::string> arguments;
        std::string error;
    };
    const Case cases[] = {
        {{"read", "tw", "0"}, "no area is called tw; nearest: tv"},
        {{"read", "tv", "0x8BFD"}, "address 0x8BFD is outside the area tv, which goes from 0x8A00 to 0x8BFC"},
        {{"read", "tv", "8G"}, "ADDRESS: '8G' is not a number; write it like 35328 or 0x8A00"},
        {{"read", "tv", "0x8BFC", "2"},
         "2 bytes from 0x8BFC on do not fit into the area tv: from there to its end at "
         "0x8BFC it has 1 to 1"},
        {{"read", "tv", "0x8A00", "0"}, "0 bytes from 0x8A00 on do not fit into the area tv"},
        {{"write", "tv", "0x8BFC", "1", "2"}, "2 bytes from 0x8BFC on do not fit into the area tv"},
        {{"write", "tv", "0x8A00", "256"}, "BYTES: a byte goes from 0 to 255, not 256"},
        {{"write", "tv", "0x8A00", "1,x"}, "BYTES: 'x' is not a number; write it like 35328 or 0x8A00"},
        {{"write", "tv", "0x8A00", "hex:4"}, "'4' has an odd number of hexadecimal digits"},
        {{"write", "tv", "0x8A00", "@" + nowhere}, "cannot read '" + nowhere + "': No such file or directory"},
        {{"dump", "tv", "--offset", "509"}, "--offset: the area tv has the offsets 0 to 508, not 509"},
        {{"dump", "tv", "--offset", "500", "--length", "10"}, "10 bytes from 0x8BF4 on do not fit into the area tv"},
        {{"read", "tv", "00008bfd"}, "address 0x8BFD is outside the area tv, which goes from 0x8A00 to 0x8BFC"},
        {{"dump", "tv", "--offset", "99999999999\x1b"},
         "--offset: '99999999999\\x1b' is not a number; write it like 35328 or 0x8A00"},
        {{"load", "tv", file.path()}, file.path() + " has 5 bytes; the area tv needs exactly 509"},
    };
    television.simulator().takeTrace();
    for (const Case& test : cases) {
        std::vector<std::string> arguments{"eep"};
        arguments.insert(arguments.end(), test.arguments.begin(), test.arguments.end());
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error.substr(0, 8 + test.error.size()), "kelutv: " + test.error);
    }
    EXPECT_TRUE(television.simulator().takeTrace().empty());
}

TEST(Eep, tellsOfTheMissingService) {
    const TestFolder folder;
    const std::string elsewhere = folder.pathOf("runtime");
    const ToolRun run = runTool({"eep", "dump", "tv"}, {"KQDROID_RUNTIME_DIR=" + elsewhere});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(runTool({"eep", "areas"}, {"KQDROID_RUNTIME_DIR=" + elsewhere}).exit, 0);
}

} // namespace
} // namespace kelutv::test
