#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace kelutv::test {
namespace {

const std::string kToken =
    "0000400016000000"
    "61006e00640072006f00690064002e00490054005600420061007300650053006500720076006900630065000000"
    "0000";
const std::string kSetVolume = kToken + "08200000"
                                        "00000000"
                                        "23000000";
const std::string kSetVolumeText = "interface: android.ITVBaseService\n"
                                   "command: CMD_AUDIO_SETVOLUME 0x2008\n"
                                   "  channel = 0 KELU_TV_AUDIO_CHANNEL_SPEAKER\n"
                                   "  vol = 35\n"
                                   "sent by: linux_tv_Audio_setVolume\n";

/** A file that is removed with the object. */
class InputFile {
public:
    explicit InputFile(const std::string& content) {
        std::ofstream(mFolder.pathOf("input"), std::ios::binary) << content;
    }

    std::string argument() const { return '@' + mFolder.pathOf("input"); }

private:
    TestFolder mFolder;
};

TEST(Decode, namesWhatARequestSays) {
    const ToolRun run = runTool({"decode", kSetVolume});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, kSetVolumeText);
    EXPECT_EQ(run.error, "");
}

TEST(Decode, findsTheCommandBehindEveryFormOfToken) {
    const std::string name = kToken.substr(8);
    const std::string call = "08200000"
                             "00000000"
                             "23000000";
    const std::string strictMode = "00004000";
    const std::string workSource = "ffffffff";
    const std::string header = "54535953"; // "SYST"
    for (const std::string& before :
         {std::string(), strictMode, strictMode + workSource, strictMode + workSource + header}) {
        const ToolRun run = runTool({"decode", before + name + call});
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_EQ(run.output, kSetVolumeText);
    }
    const ToolRun run = runTool({"decode", strictMode + workSource + header + "00000000" + name + call});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, "kelutv: request: the interface token is not android.ITVBaseService (at byte 0)\n");
}

TEST(Decode, findsTheCommandWhereItIsToldTo) {
    const std::string text = kSetVolumeText.substr(kSetVolumeText.find("command"));
    for (const auto& [bytes, offset] :
         std::vector<std::pair<std::string, std::string>>{{kSetVolume, "56"},
                                                          {kSetVolume, "0x38"},
                                                          {"082000000000000023000000", "0"},
                                                          {"abcd08200000"
                                                           "0000000023000000",
                                                           "2"}}) {
        const ToolRun run = runTool({"decode", "--offset", offset, bytes});
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_EQ(run.output, text);
    }
    const ToolRun run = runTool({"decode", "--offset", "56", kToken});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, "kelutv: request: the command identifier is missing (at byte 56)\n");
}

TEST(Decode, namesTheItem) {
    const ToolRun run = runTool({"decode", "--json", kToken + "54200000" + "0c200000" + "00000000" + "00000000"});
    EXPECT_EQ(run.exit, 0) << run.error;
    const auto request = parsedJson(run.output).at("request");
    EXPECT_EQ(request.at("command"), "CMD_AUDIO_COMMON_GET_ITEM_VALUE");
    EXPECT_EQ(request.at("item"), "CMDID_AUDIO_GET_MAX_VOLUME");
    EXPECT_EQ(parsedJson(run.output).at("functions"),
              parsedJson(R"(["linux_tv_Audio_getAudioItemValue", "linux_tv_Audio_getMaxVolume"])"));
}

TEST(Decode, readsItemsThatTheCatalogueDoesNotKnow) {
    const ToolRun run = runTool({"decode", kToken + "54200000" + "efbe0000" + "01000000" + "02000000"});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.output.substr(0, run.output.find("sent by")), "interface: android.ITVBaseService\n"
                                                                "command: CMD_AUDIO_COMMON_GET_ITEM_VALUE 0x2054\n"
                                                                "  cmdID = 48879\n"
                                                                "  param1 = 1\n"
                                                                "  param2 = 2\n");
}

TEST(Decode, takesWordsAndPrefixes) {
    const ToolRun run = runTool({"decode", "0x" + kToken, "0x08200000", "00 00 00 00\n23 00", "0000"});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.output, kSetVolumeText);
}

TEST(Decode, takesDumps) {
    const std::string dumps[] = {
        "00000000: 0000 4000 1600 0000 6100 6e00 6400 7200  ..@.....a.n.d.r.\n"
        "00000010: 6f00 6900 6400 2e00 4900 5400 5600 4200  o.i.d...I.T.V.B.\n"
        "00000020: 6100 7300 6500 5300 6500 7200 7600 6900  a.s.e.S.e.r.v.i.\n"
        "00000030: 6300 6500 0000 0000 0820 0000 0000 0000  c.e...... ......\n"
        "00000040: 2300 0000                                #...\n",
        "00000000  00 00 40 00 16 00 00 00  61 00 6e 00 64 00 72 00  |..@.....a.n.d.r.|\n"
        "00000010  6f 00 69 00 64 00 2e 00  49 00 54 00 56 00 42 00  |o.i.d...I.T.V.B.|\n"
        "00000020  61 00 73 00 65 00 53 00  65 00 72 00 76 00 69 00  |a.s.e.S.e.r.v.i.|\n"
        "00000030  63 00 65 00 00 00 00 00  08 20 00 00 00 00 00 00  |c.e...... ......|\n"
        "00000040  23 00 00 00                                       |#...|\n"
        "00000044\n",
        // Lines of an address, or of nothing, alone.
        "0000: 0000 4000 1600 0000 6100 6e00 6400 7200 6f00 6900 6400 2e00 4900 5400 5600 4200\n"
        "0020: \n"
        "0020: 6100 7300 6500 5300 6500 7200 7600 6900 6300 6500 0000 0000 0820 0000 0000 0000\n"
        "0040: 2300 0000\n"
        " : \n",
    };
    for (const std::string& dump : dumps) {
        const InputFile file(dump);
        const ToolRun run = runTool({"decode", file.argument()});
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_EQ(run.output, kSetVolumeText);
    }
}

TEST(Decode, takesTheBytesThemselves) {
    const InputFile file(std::string(4, '\0'));
    const ToolRun run = runTool({"decode", "--raw", kSetVolume, "--reply", file.argument()});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.output, kSetVolumeText + "result: 0\n");
}

TEST(Decode, readsAReply) {
    struct Case {
        std::vector<std::string> arguments;
        const char* output;
    };
    const Case cases[] = {
        {{"--command", "CMD_AUDIO_GETVOLUME", "--reply", "00000000 23000000"}, "result: 0\n  35\n"},
        {{"--command", "audio_getvolume", "--reply", "00000000 23000000"}, "result: 0\n  35\n"},
        {{"--command", "0x2009", "--reply", "95ffffff"}, "result: -107, value out of range\n"},
        {{"--command", "CMD_SOURCE_GETSOURCELIST", "--reply", "00000000 00000000 01000000"},
         "result: 0\n  0 KELU_TV_SRC_ATV, 1 KELU_TV_SRC_DIG1\n"},
        {{"--command", "CMD_CEC_GETDEVICELISTALLINFO", "--reply", "00000000"}, "result: 0\n"},
        {{"--command", "CMD_CEC_GETDEVICELISTALLINFO", "--reply",
          "00000000 04000000 01000000 41000000 42000000 43000000 05000000 00000000 44000000 45000000 46000000"},
         "result: 0\n  4\n  1\n  \"A\"\n  \"B\"\n  \"C\"\n  5\n  0\n  \"D\"\n  \"E\"\n  \"F\"\n"},
    };
    for (const Case& test : cases) {
        std::vector<std::string> arguments{"decode"};
        arguments.insert(arguments.end(), test.arguments.begin(), test.arguments.end());
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exit, 0) << run.error;
        EXPECT_EQ(run.output, test.output);
    }
}

TEST(Decode, readsBoth) {
    const ToolRun run = runTool({"decode", kSetVolume, "--reply", "00000000", "--json"});
    EXPECT_EQ(run.exit, 0) << run.error;
    EXPECT_EQ(run.output, "{\"request\":{\"command\":\"CMD_AUDIO_SETVOLUME\",\"number\":8200,\"arguments\":["
                          "{\"name\":\"channel\",\"value\":0,\"enumerator\":\"KELU_TV_AUDIO_CHANNEL_SPEAKER\"},"
                          "{\"name\":\"vol\",\"value\":35}]},\"functions\":[\"linux_tv_Audio_setVolume\"],"
                          "\"reply\":{\"result\":0,\"fields\":[]}}\n");
}

TEST(Decode, showsWhatCouldBeReadOfAMalformedRequest) {
    struct Case {
        std::string bytes;
        const char* output;
        std::string error;
    };
    const Case cases[] = {
        {kSetVolume.substr(0, kSetVolume.size() - 8),
         "interface: android.ITVBaseService\n"
         "command: CMD_AUDIO_SETVOLUME 0x2008\n"
         "  channel = 0 KELU_TV_AUDIO_CHANNEL_SPEAKER\n"
         "sent by: linux_tv_Audio_setVolume\n",
         "kelutv: request: vol is missing (at byte 64)\n"},
        {kSetVolume + "00000000", kSetVolumeText.c_str(), "kelutv: request: 4 bytes too many (at byte 68)\n"},
        {kToken + "34120000", "interface: android.ITVBaseService\ncommand: 0x1234\n",
         "kelutv: request: unknown command (at byte 56)\n"},
        {kToken, "", "kelutv: request: the command identifier is missing (at byte 56)\n"},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool({"decode", test.bytes});
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, test.output);
        EXPECT_EQ(run.error, test.error);
    }
}

TEST(Decode, showsWhatCouldBeReadOfAMalformedReply) {
    struct Case {
        const char* command;
        const char* reply;
        const char* output;
        std::string error;
    };
    const Case cases[] = {
        {"CMD_AUDIO_GETVOLUME", "0000", "", "kelutv: reply: the result word is missing (at byte 0)\n"},
        {"CMD_AUDIO_GETVOLUME", "00000000", "result: 0\n",
         "kelutv: reply: the answer has 0 of 1 numbers (at byte 4)\n"},
        {"CMD_AUDIO_GETVOLUME", "000000000100000002000000", "result: 0\n  1\n",
         "kelutv: reply: 4 bytes too many (at byte 8)\n"},
        {"CMD_AUDIO_SETVOLUME", "0000000001000000", "result: 0\n", "kelutv: reply: 4 bytes too many (at byte 4)\n"},
        {"CMDID_AUDIO_GET_OUTPUT_LIST", "000000004100000042424242", "result: 0\n  \"A\"\n",
         "kelutv: reply: a text has no end (at byte 8)\n"},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool({"decode", "--command", test.command, "--reply", test.reply});
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, test.output);
        EXPECT_EQ(run.error, test.error);
    }
}

TEST(Decode, refusesBadInput) {
    const TestFolder folder;
    const std::string nowhere = folder.pathOf("nowhere");
    struct Case {
        std::vector<std::string> arguments;
        std::string error;
    };
    const Case cases[] = {
        {{}, "nothing to decode: give the bytes of a request, --reply with those of a reply, or both"},
        {{"--reply", "00"}, "--reply needs the request before it, or --command to name what it answers"},
        {{"00", "--command", "0x2008"}, "--command: the request names its command itself; leave one of them out"},
        {{"00", "--item", "0x200C"}, "--item needs --command"},
        {{"--offset", "0", "--command", "0x2008", "--reply", "00"}, "--offset needs the bytes of a request"},
        {{"0000", "--offset", "3"}, "--offset takes a number of bytes from 0 to 2, the size of the request, not '3'"},
        {{"0000", "--offset=-1"}, "--offset takes a number of bytes from 0 to 2, the size of the request, not '-1'"},
        {{"0000", "--offset", "x"}, "--offset takes a number of bytes from 0 to 2, the size of the request, not 'x'"},
        {{"zz"}, "'z' is not a hexadecimal digit"},
        {{"000"}, "'000' has an odd number of hexadecimal digits"},
        {{'@' + nowhere}, "cannot read '" + nowhere + "': No such file or directory"},
        {{"@/dev/zero"}, "cannot read '/dev/zero': it has more than 16777216 bytes"},
        {{"--command", "CMD_AUDIO_GETVOLUM", "--reply", "00"}, "--command: 'CMD_AUDIO_GETVOLUM' is not one of "},
        {{"--command", "0x99999", "--reply", "00"}, "--command: no command 0x99999"},
        {{"--command", "AUDIO_COMMON_GET_ITEM_VALUE", "--item", "nothing", "--reply", "00"},
         "--item: 'nothing' is not one of "},
        {{"--command", "CMD_AUDIO_GETVOLUME", "--item", "1", "--reply", "00"},
         "--item: CMD_AUDIO_GETVOLUME carries no items"},
        {{"--command", "CMD_AUDIO_COMMON_GET_ITEM_VALUE", "--item", "1", "--reply", "00"},
         "--item: CMD_AUDIO_COMMON_GET_ITEM_VALUE has no item 1"},
    };
    for (const Case& test : cases) {
        std::vector<std::string> arguments{"decode"};
        arguments.insert(arguments.end(), test.arguments.begin(), test.arguments.end());
        const ToolRun run = runTool(arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error.substr(0, 8 + test.error.size()), "kelutv: " + test.error);
    }
}

} // namespace
} // namespace kelutv::test
