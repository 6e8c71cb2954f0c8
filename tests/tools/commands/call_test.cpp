#include "simulator/Simulator.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfCall = SimulatorEnvironment::install();

std::string directory() { return std::getenv("KQDROID_RUNTIME_DIR"); }

/** Runs a call that succeeds and gives what it prints. */
std::string called(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "call");
    const ToolRun run = runTool(std::move(arguments));
    EXPECT_EQ(run.exit, 0) << run.error;
    return run.output;
}

struct Wrong {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
};

class WrongCall : public ::testing::TestWithParam<Wrong> {};

TEST(Call, setsAndReadsBackByNames) {
    EXPECT_EQ(called({"audio.setVolume", "speaker", "35"}), "result: 0\n");
    EXPECT_EQ(called({"linux_tv_Audio_getVolume", "KELU_TV_AUDIO_CHANNEL_SPEAKER"}), "result: 35\n");
    EXPECT_EQ(called({"audio.setVolume", "HEADPH", "0x10"}), "result: 0\n");
    EXPECT_EQ(called({"audio.getVolume", "headphone"}), "result: 16\n");
}

TEST(Call, namesEnumeratedResults) {
    EXPECT_EQ(called({"sourcemanager.selectSource", "hdmi2", "1"}), "result: 0\n");
    EXPECT_EQ(called({"sourcemanager.getCurSourceId", "1"}), "result: 10 (hdmi2)\n");
}

TEST(Call, givesNumberAndNameOfEnumeratedValues) {
    EXPECT_EQ(called({"sourcemanager.selectSource", "hdmi1", "0"}), "result: 0\n");
    EXPECT_EQ(called({"sourcemanager.getCurSourceId", "0", "--json"}),
              "{\"function\":\"linux_tv_SourceManager_getCurSourceId\","
              "\"result\":{\"value\":9,\"enumerator\":\"KELU_TV_SRC_HDMI1\"},\"outputs\":{}}\n");
    const std::string sources = called({"sourcemanager.getSourceList", "--json"});
    EXPECT_EQ(sources.find("{\"function\":\"linux_tv_SourceManager_getSourceList\",\"result\":0,"
                           "\"outputs\":{\"list\":[{\"value\":0,\"enumerator\":\"KELU_TV_SRC_ATV\"},"),
              0U)
        << sources;
    EXPECT_EQ(called({"systemsetting.setLanguage", "-1"}), "result: 0\n");
    EXPECT_EQ(called({"systemsetting.getLanguage", "--json"}),
              "{\"function\":\"linux_tv_SystemSetting_getLanguage\","
              "\"result\":{\"value\":-1,\"enumerator\":null},\"outputs\":{}}\n");
}

TEST(Call, takesAnAddressAsItIsPrinted) {
    for (const char* const address : {"02:00:00:12:34:5a", "\"02:00:00:12:34:5A\""}) {
        EXPECT_EQ(called({"factory.setMacAddress", "0,0,0,0,0,0"}), "result: 0\n");
        EXPECT_EQ(called({"factory.setMacAddress", address}), "result: 0\n");
        EXPECT_EQ(called({"factory.getMacAddress"}), "result: 0\npStr: \"02:00:00:12:34:5A\"\n");
    }
    EXPECT_EQ(called({"factory.setMacAddress", "02:00:00:12:34:56"}), "result: 0\n");
}

TEST(Call, showsOutputs) {
    EXPECT_EQ(called({"audio.setEQEnable", "off"}), "result: 0\n");
    EXPECT_EQ(called({"audio.getEQEnable"}), "result: 0\npEnable: false\n");
    EXPECT_EQ(called({"--json", "audio.getEQEnable"}),
              "{\"function\":\"linux_tv_Audio_getEQEnable\",\"result\":0,\"outputs\":{\"pEnable\":false}}\n");
    EXPECT_EQ(called({"factory.getMacAddress"}), "result: 0\npStr: \"02:00:00:12:34:56\"\n");
    EXPECT_EQ(called({"factory.getSystemupTime"}), "result: 0\npBuf: [0, 3600]\n");
}

TEST(Call, takesAndShowsRecords) {
    EXPECT_EQ(called({"factory.setOverscan", "x=1,width=3,height=0x4"}), "result: 0\n");
    EXPECT_EQ(called({"factory.getOverscan"}), "result: 0\npRect: x=1 y=0 width=3 height=4\n");
    EXPECT_EQ(called({"factory.getOverscan", "--json"}),
              "{\"function\":\"linux_tv_Factory_getOverscan\",\"result\":0,"
              "\"outputs\":{\"pRect\":{\"x\":1,\"y\":0,\"width\":3,\"height\":4}}}\n");
}

TEST(Call, showsARecordAsTheResult) {
    EXPECT_EQ(called({"audio.setPreScale", "0", "integer=2,decimal=5"}), "result: 0\n");
    EXPECT_EQ(called({"audio.getPreScale", "0"}), "result: integer=2 decimal=5\n");
}

TEST(Call, takesBlocksInEveryForm) {
    const std::string file = directory() + "/block";
    std::ofstream(file, std::ios::binary) << '\1' << '\2' << '\3';
    for (const std::string& block :
         {std::string("1,2,3"), std::string("[1, 2, 3]"), std::string("hex:010203"), '@' + file}) {
        EXPECT_EQ(called({"eep.SetTVFlashEepMulti", "35328", "0,0,0", "3"}), "result: 0\n");
        EXPECT_EQ(called({"eep.SetTVFlashEepMulti", "35328", block}), "result: 0\n");
        EXPECT_EQ(called({"eep.GetTVFlashEepMulti", "35328", "3"}), "result: 0\npBuf: [1, 2, 3]\n");
    }
}

TEST(Call, showsListsOfRecordsAndTexts) {
    const std::string devices = called({"hdmicec.getDeviceListInfo", "--json"});
    EXPECT_EQ(devices.find("{\"function\":\"linux_tv_HdmiCEC_getDeviceListInfo\",\"result\":0,"
                           "\"outputs\":{\"deviceList\":[{\"logAddr\":4,"),
              0U)
        << devices;
    const std::string sources = called({"sourcemanager.getSourceList"});
    EXPECT_EQ(sources.find("result: 0\nlist: [0 (atv), "), 0U) << sources;
}

TEST(Call, keepsWhatTheLibraryPrintsOutOfTheData) {
    const ToolRun run = runTool({"--json", "call", "picture.getPictureMode"});
    EXPECT_EQ(run.output, "{\"function\":\"linux_tv_Picture_getPictureMode\","
                          "\"result\":{\"value\":0,\"enumerator\":\"KELU_TV_PIC_MODE_STANDARD\"},\"outputs\":{}}\n");
    EXPECT_EQ(run.error, "");
    const ToolRun logged = runTool({"--json", "call", "picture.getPictureMode"}, {"KQLOG_LEVEL=e"});
    EXPECT_EQ(logged.output, run.output);
    EXPECT_NE(logged.error.find("getPictureMode : pictureModeIndex = 0"), std::string::npos) << logged.error;
}

TEST(Call, keepsWhatTheLibraryPrintsFromTheTerminal) {
    const ToolRun run = runTool({"call", "hdmicec.sendCecCommand", "IrCommand=play,KeyPressed=true"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "result: 0\n");
    EXPECT_EQ(run.error, "");
}

/** What a call of the function gives when the next answer to it has this fault. */
ToolRun faulty(const std::string& fault, std::vector<std::string> arguments) {
    EXPECT_EQ(runTool({"sim", "fault " + fault + " once"}).exit, 0);
    return runTool(std::move(arguments));
}

TEST(Call, takesAnAnswerThatDoesNotFitForAFailure) {
    const std::string unfit = "kelutv: factory.getMacAddress: the service's answer is not as it should be: ";
    const std::vector<std::string> arguments{"call", "factory.getMacAddress"};
    const ToolRun unterminated = faulty("CMD_FACTORY_GETMACADDRESS unterminated", arguments);
    EXPECT_EQ(unterminated.exit, 4);
    EXPECT_EQ(unterminated.error, unfit + "a text has no end (at byte 4)\n");
    const ToolRun shortened = faulty("CMD_FACTORY_GETMACADDRESS short 4", arguments);
    EXPECT_EQ(shortened.exit, 4);
    EXPECT_EQ(shortened.error, unfit + "the answer lacks its text (at byte 4)\n");
    const ToolRun empty = faulty("CMD_FACTORY_GETMACADDRESS short 2", arguments);
    EXPECT_EQ(empty.exit, 4);
    EXPECT_EQ(empty.error, "kelutv: factory.getMacAddress: the service's answer has no result\n");
    const ToolRun document = faulty("CMD_FACTORY_GETMACADDRESS short 4", {"--json", "call", "factory.getMacAddress"});
    EXPECT_EQ(document.exit, 4);
    EXPECT_NE(document.output.find("\"failure\":\"the service's answer is not as it should be: the answer lacks its "
                                   "text (at byte 4)\"}"),
              std::string::npos)
        << document.output;
}

TEST(Call, takesNumbersThatAreMissingForAFailure) {
    const ToolRun number = faulty("CMD_AUDIO_GETVOLUME short 4", {"get", "volume"});
    EXPECT_EQ(number.exit, 4);
    EXPECT_EQ(number.output, "");
    EXPECT_EQ(number.error,
              "kelutv: audio.getVolume: the service's answer is not as it should be: the answer has 0 of 1 "
              "numbers (at byte 4)\n");
    const ToolRun item = faulty("CMDID_AUDIO_GET_MAX_VOLUME short 8", {"call", "audio.getMaxVolume", "speaker"});
    EXPECT_EQ(item.exit, 4);
    EXPECT_NE(item.error.find("has 1 of 255 numbers (at byte 8)"), std::string::npos) << item.error;
    const ToolRun bytes = faulty("CMD_SYSTEM_GETFLASHEEPMULTI short 16", {"eep", "read", "tv", "0x8A00", "4"});
    EXPECT_EQ(bytes.exit, 4);
    EXPECT_EQ(bytes.output, "");
    EXPECT_EQ(
        bytes.error.find("kelutv: cannot read 4 bytes from 0x8A00 on: the service's answer is not as it should be"), 0U)
        << bytes.error;
}

TEST(Call, givesNumberAndNameOfARefusal) {
    const ToolRun run = runTool({"--json", "call", "factory.setMacAddress", "1,2,3"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "{\"function\":\"linux_tv_Factory_setMacAddress\",\"result\":-107,\"outputs\":{},"
                          "\"failure\":\"the service answered -107, value out of range\","
                          "\"answer\":{\"value\":-107,\"name\":\"value out of range\"}}\n");
    const ToolRun unnamed = faulty("CMD_AUDIO_GETVOLUME error 5", {"--json", "call", "audio.getVolume", "speaker"});
    EXPECT_NE(unnamed.output.find(R"("answer":{"value":5,"name":null})"), std::string::npos) << unnamed.output;
    const ToolRun binder = faulty("CMD_AUDIO_GETVOLUME error -22", {"call", "audio.getVolume", "speaker"});
    EXPECT_EQ(binder.error, "kelutv: audio.getVolume: the service answered -22, BAD_VALUE\n");
    const ToolRun any = faulty("CMD_AUDIO_GETVOLUME error -1", {"call", "audio.getVolume", "speaker"});
    EXPECT_EQ(any.error, "kelutv: audio.getVolume: the service answered -1\n");
}

TEST(Call, showsTheBytesOfTheWire) {
    EXPECT_EQ(called({"audio.setVolume", "speaker", "35"}), "result: 0\n");
    EXPECT_EQ(
        called({"--wire", "audio.getVolume", "speaker"}),
        "-> 000040001600000061006e00640072006f00690064002e004900540056004200610073006500530065007200760069006300650000"
        "000000092000000000"
        "0000\n<- 0000000023000000\nresult: 35\n");
}

TEST(Call, tellsWhatTheServiceRefuses) {
    const ToolRun run = runTool({"call", "factory.setMacAddress", "1,2,3"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "result: -107\n");
    EXPECT_EQ(run.error, "kelutv: factory.setMacAddress: the service answered -107, value out of range\n");
}

TEST(Call, tellsThatAScreenShotIsRefused) {
    ASSERT_EQ(runTool({"sim", "fault", "CMD_PICTURE_GETVIDEOSCREENSHOT", "error", "5", "once"}).exit, 0);
    const ToolRun run = runTool({"call", "picture.getVideoScreenShot", "640", "480", "/shot.png", "false"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.error, "kelutv: picture.getVideoScreenShot: the service answered 5\n");
}

TEST(Call, takesMinusOneForAValueWhereItIsOne) {
    EXPECT_EQ(called({"systemsetting.setLanguage", "-1"}), "result: 0\n");
    EXPECT_EQ(called({"systemsetting.getLanguage"}), "result: -1\n");
}

TEST(Call, takesNegativeNumbersWhereverTheyStand) {
    struct Case {
        std::vector<std::string> words;
        /** What the request ends with. */
        std::string end;
    };
    const std::string gain = "ffffffff0cfeffff0000000000000000\n";
    const std::string volume = "00000000ffffffff\n";
    const Case cases[] = {
        {{"factory.setAvcGain", "-1.5"}, gain},
        {{"factory.setAvcGain", "-.5"}, "000000000cfeffff0000000000000000\n"},
        {{"factory.setAvcGain", "--", "-1.5"}, gain},
        {{"--", "factory.setAvcGain", "-1.5"}, gain},
        {{"audio.setVolume", "speaker", "-1"}, volume},
        {{"audio.setVolume", "speaker", "-0x1"}, volume},
        {{"audio.setVolume", "--", "speaker", "-1"}, volume},
        {{"audio.setVolume", "speaker", "--", "-1"}, volume},
        {{"audio.setVolume", "speaker", "-1", "--"}, volume},
    };
    for (Case test : cases) {
        test.words.insert(test.words.begin(), "encode");
        const ToolRun run = runTool(test.words);
        EXPECT_EQ(run.exit, 0) << run.error;
        ASSERT_GT(run.output.size(), test.end.size());
        EXPECT_EQ(run.output.substr(run.output.size() - test.end.size()), test.end);
    }
}

TEST(Call, passesANullOnThatTheMethodTakes) {
    EXPECT_EQ(called({"factory.setMachineInfo", "0", "text"}), "result: 0\n");
    EXPECT_EQ(called({"factory.setMachineInfo", "0", "null"}), "result: 0\n");
    EXPECT_EQ(called({"factory.getMachineInfo", "0"}), "result: 0\ninfo: \"\"\n");
}

TEST(Call, tellsWhatTheLibraryRefuses) {
    const ToolRun run = runTool({"--json", "call", "picture.setDolbyHdrPicMode", "1"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "{\"function\":\"Picture::setDolbyHdrPicMode\",\"result\":-1,\"outputs\":{},"
                          "\"failure\":\"the library refused the call, nothing was sent\"}\n");
}

TEST(Call, tellsThatThereIsNoService) {
    const std::string nowhere = directory() + "/nowhere";
    const ToolRun run = runTool({"call", "audio.getVolume", "speaker"}, {"KQDROID_RUNTIME_DIR=" + nowhere});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: there is no television service; is the television, or kelutv-simulator, running?\n"
                         "  no service TVBaseService in " +
                             nowhere + "/services\n");
}

void expectRefused(const std::vector<std::string>& arguments, const std::string& message) {
    environmentOfCall.simulator().takeTrace();
    for (const char* command : {"call", "encode"}) {
        std::vector<std::string> words = arguments;
        words.insert(words.begin(), command);
        const ToolRun run = runTool(words);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, usageError(command, message));
    }
    EXPECT_TRUE(environmentOfCall.simulator().takeTrace().empty());
}

TEST_P(WrongCall, saysWhatIsWrongAndSendsNothing) { expectRefused(GetParam().arguments, GetParam().message); }

TEST(Call, namesTheFileThatIsNotThere) {
    const TestFolder folder;
    const std::string path = folder.pathOf("nowhere");
    expectRefused({"factory.setMacAddress", '@' + path},
                  "factory.setMacAddress: pMacAddr: cannot read '" + path + "': No such file or directory");
}

TEST(Call, namesTheDirectoryThatIsNoFile) {
    const TestFolder folder;
    expectRefused({"factory.setMacAddress", '@' + folder.path()}, "factory.setMacAddress: pMacAddr: cannot read '" +
                                                                      folder.path() +
                                                                      "': it is a directory, and a file is needed");
}

const Wrong kWrong[] = {
    {"function",
     {"audio.setVolum", "1", "2"},
     "there is no function 'audio.setVolum'; nearest: audio.setVolume, audio.getVolume, audio.setMaxVolume, "
     "audio.setVolumeByC, audio.setVolumeToReg"},
    {"ambiguousFunction",
     {"factory.getIRWBStatus"},
     "'factory.getIRWBStatus' is short for several functions: linux_tv_Factory_getIRWBStatus, "
     "linux_tv_factory_getIRWBStatus"},
    {"tooFewArguments", {"audio.setVolume", "speaker"}, "audio.setVolume takes 2 arguments: channel vol; there is 1"},
    {"tooManyArguments", {"audio.getEQEnable", "1"}, "audio.getEQEnable takes 0 arguments; there is 1"},
    {"arrayAndLength",
     {"factory.setMacAddress"},
     "factory.setMacAddress takes 2 arguments: pMacAddr [length]; there are 0"},
    {"enumerator",
     {"audio.setVolume", "speakr", "1"},
     "audio.setVolume: channel: 'speakr' is not one of speaker, headphone, bluetooth, hdmi, spdif, avout, 24g, "
     "hdmi_arc, socoutput; nearest: speaker"},
    {"ambiguousEnumerator",
     {"sourcemanager.selectSource", "hdmi", "1"},
     "sourcemanager.selectSource: srcId: 'hdmi' may be hdmi1, hdmi2, hdmi3, hdmi4"},
    {"number",
     {"audio.setVolume", "speaker", "loud"},
     "audio.setVolume: vol: 'loud' is not a whole number, -2147483648 to 2147483647"},
    {"emptyNumber",
     {"audio.setVolume", "speaker", ""},
     "audio.setVolume: vol: '' is not a whole number, -2147483648 to 2147483647"},
    {"numberOfTooManyBits",
     {"audio.setVolume", "speaker", "4294967296"},
     "audio.setVolume: vol: '4294967296' does not fit into 32 bits"},
    {"numberOutsideItsRange",
     {"eep.GetTVFlashEepByte", "1"},
     "eep.GetTVFlashEepByte: u32Address: '1' is not 35328 to 35836"},
    {"flag", {"audio.setEQEnable", "perhaps"}, "audio.setEQEnable: enable: 'perhaps' is not true or false"},
    {"real", {"factory.setAvcGain", "much"}, "factory.setAvcGain: value: 'much' is not a number"},
    {"field",
     {"factory.setOverscan", "x=1,widht=2"},
     "factory.setOverscan: rect: there is no field 'widht' in KeluRect, which has x, y, width, height; nearest: width"},
    {"fieldWithoutValue", {"factory.setOverscan", "1,2,3,4"}, "factory.setOverscan: rect: '1' is not FIELD=VALUE"},
    {"fieldGivenTwice", {"factory.setOverscan", "x=1,y=2,x=1"}, "factory.setOverscan: rect: x is given twice"},
    {"addressOfOddDigits",
     {"factory.setMacAddress", "02:00:0"},
     "factory.setMacAddress: pMacAddr: '02:00:0' is not a whole number, -2147483648 to 2147483647"},
    {"valueOfAField",
     {"factory.setOverscan", "x=-1"},
     "factory.setOverscan: rect: x: '-1' is not a whole number, 0 to 4294967295"},
    {"entryOfAnArray",
     {"factory.setMacAddress", "1,x"},
     "factory.setMacAddress: pMacAddr: 'x' is not a whole number, -2147483648 to 2147483647"},
    {"lengthBeyondTheArray",
     {"factory.setMacAddress", "1,2", "3"},
     "factory.setMacAddress: length: 3 is more than the 2 entries of pMacAddr"},
    {"oddHexadecimals",
     {"factory.setMacAddress", "hex:123"},
     "factory.setMacAddress: pMacAddr: '123' has an odd number of hexadecimal digits"},
    {"hexadecimals",
     {"factory.setMacAddress", "hex:12g3"},
     "factory.setMacAddress: pMacAddr: 'g' is not a hexadecimal digit"},
    {"null", {"hdmicec.sendCecCommand", "null"}, "hdmicec.sendCecCommand: pCecCmdInfo: null is not allowed here"},
    {"callback",
     {"notify.registerCallbackFunc", "shout"},
     "notify.registerCallbackFunc: callback: 'shout' is not print or null"},
    {"room",
     {"eep.GetTVFlashEepMulti", "35328", "1000000000"},
     "eep.GetTVFlashEepMulti: u32Len: 1000000000 entries are too many, 4194304 is the most"},
    {"blockThatIsShorterThanItSays",
     {"vbimanager.VbiDataCallback", "1", "hex:05000000aa"},
     "vbimanager.VbiDataCallback: vbiData: the block begins with a word that says how many bytes follow, and they must "
     "be there"},
};

INSTANTIATE_TEST_SUITE_P(All, WrongCall, ::testing::ValuesIn(kWrong),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace kelutv::test
