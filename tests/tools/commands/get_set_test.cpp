#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& environmentOfGetSet = SimulatorEnvironment::install();

struct Setting {
    std::string name;
    std::string written;
    std::string shown;
    /** The request that sets it, in the simulator's words. */
    std::string request;
};

// clang-format off
const std::vector<Setting> kSettings{
    {"source", "hdmi2", "hdmi2", "CMD_SOURCE_SELECTSOURCE(srcId=10 KELU_TV_SRC_HDMI2, mainWindow=0 KELU_TV_WINDOW_MAIN) -> 0"},
    {"boot-source", "hdmi1", "hdmi1", "CMD_SOURCE_SETBOOTSOURCE(srcId=9 KELU_TV_SRC_HDMI1) -> 0"},
    {"volume", "35", "35", "CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) -> 0"},
    {"mute", "on", "on", "CMD_AUDIO_SETMUTE(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, onoff=1, type=0 KELU_TV_SND_MUTE_IRCTRL) -> 0"},
    {"headphone-volume", "36", "36", "CMD_AUDIO_SETVOLUME(channel=1 KELU_TV_AUDIO_CHANNEL_HEADPHONE, vol=36) -> 0"},
    {"subwoofer-volume", "37", "37", "CMD_AUDIO_SETSUBWOOFERVOL(value=37) -> 0"},
    {"max-volume", "90", "90", "CMD_AUDIO_COMMON_SET_ITEM_VALUE(cmdID=8203 CMDID_AUDIO_SET_MAX_VOLUME, channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=90, param3=0, param4=0) -> 0"},
    {"boot-volume", "38", "38", "CMD_AUDIO_COMMON_SET_ITEM_VALUE(cmdID=8210 CMDID_AUDIO_SET_BOOT_VOLUME, channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=38, param3=0, param4=0) -> 0"},
    {"sound-mode", "movie", "movie", "CMD_AUDIO_SETSOUNDMODE(sndmode=1 KELU_TV_SNDMODE_MOVIE) -> 0"},
    {"stereo", "mono", "mono", "CMD_AUDIO_SETSTEREOMODE(stereo=0 KELU_TV_SIF_OUTMODE_MONO) -> 0"},
    {"surround", "on", "on", "CMD_AUDIO_SET_SURROUND_MODE(onOff=1) -> 0"},
    {"balance", "39", "39", "CMD_AUDIO_SETEFFECTPARAMETER(type=2 KELU_TV_AUDIO_EFFECT_PARAM_BALANCE_E, value=39) -> 0"},
    {"bass", "40", "40", "CMD_AUDIO_SETEFFECTPARAMETER(type=1 KELU_TV_AUDIO_EFFECT_PARAM_BASS_E, value=40) -> 0"},
    {"treble", "41", "41", "CMD_AUDIO_SETEFFECTPARAMETER(type=0 KELU_TV_AUDIO_EFFECT_PARAM_TREBLE_E, value=41) -> 0"},
    {"spdif", "raw", "rawdata", "CMD_AUDIO_SETSPDIFOUTPUT(spdif=2 KELU_TV_SPDIF_RAWDATA) -> 0"},
    {"spdif-delay", "120", "120 ms", "CMD_AUDIO_SETSPDIFOUTPUTDELAY(ms=120) -> 0"},
    {"picture-mode", "vivid", "vivid", "CMD_PICTURE_SETPICTUREMODE(picturemode=2, streamType=1 KELU_TV_HDR_TYPE_HDR10) -> 0"},
    {"brightness", "42", "42", "CMD_PICTURE_SETBRIGHTNESS(brightness=42) -> 0"},
    {"contrast", "43", "43", "CMD_PICTURE_SETCONTRAST(contrast=43) -> 0"},
    {"saturation", "44", "44", "CMD_PICTURE_SETSATURATION(saturation=44) -> 0"},
    {"sharpness", "45", "45", "CMD_PICTURE_SETSHARPNESS(sharpness=45) -> 0"},
    {"hue", "46", "46", "CMD_PICTURE_SETHUE(hue=46) -> 0"},
    {"backlight", "47", "47", "CMD_PICTURE_SETBACKLIGHT(backlight=47) -> 0"},
    {"color-temperature", "warm", "warm", "CMD_PICTURE_SETCOLORTEMP(colortemp=2 KELU_TV_COLORTEMP_WARM) -> 0"},
    {"aspect", "4_3", "4_3", "CMD_PICTURE_SETASPECT(aspect=1 KELU_TV_ASPECT_4_3, mute=0) -> 0"},
    {"noise-reduction", "mid", "mid", "CMD_PICTURE_SETNR(nr=2 KELU_TV_LEVEL_MID) -> 0"},
    {"game-mode", "on", "on", "CMD_PICTURE_SETGAMEMODE(bEnable=1) -> 0"},
    {"freeze", "on", "on", "CMD_PICTURE_SETFREEZE(onOff=1) -> 0"},
    {"overscan", "on", "on", "CMD_PICTURE_SETOVERSCANENABLE(bEnable=1) -> 0"},
    {"hdr-mode", "hlg", "hlg", "CMD_PICTURE_SET_HDR_MODE(hdrMode=2 KELU_MW_HDR_MODE_HLG) -> 0"},
    {"language", "german", "german", "CMD_SYSTEM_COMMON_SET_ITEM_VALUE(cmdID=32771 CMDID_SYSTEM_SET_MENU_LANGUAGE, value=8 KQ_LANG_GERMAN, param2=0, param3=0, param4=0) -> 0"},
    {"screen", "off", "off", "CMD_SYSTEM_COMMON_SET_ITEM_VALUE(cmdID=32814 CMDID_SYSTEM_SET_SCREEN_ON, onOff=0, param2=0, param3=0, param4=0) -> 0"},
    {"blue-screen", "on", "on", "CMD_SYSTEM_SETSCREENBLUE(onoff=1) -> 0"},
    {"market-mode", "on", "on", "CMD_SYSTEM_COMMON_SET_ITEM_VALUE(cmdID=32802 CMDID_SYSTEM_SET_MARKET_ENABLE, enable=1, param2=0, param3=0, param4=0) -> 0"},
    {"cec", "on", "on", "CMD_CONFIG_SET_CECSWITCHMODE(aMode=1) -> 0"},
    {"arc", "on", "on", "CMD_CONFIG_SET_ARCENABLE(aEnable=1) -> 0"},
    {"hotel", "on", "on", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36925 CMDID_FACTORY_SET_HOTEL_ENABLE, enable=1, param2=0, param3=0, param4=0) -> 0"},
    {"hotel-keypad", "off", "off", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36964 CMDID_FACTORY_SET_HOTEL_KEYPAD, enable=0, param2=0, param3=0, param4=0) -> 0"},
    {"hotel-menu", "off", "off", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36927 CMDID_FACTORY_SET_HOTEL_SETUP_MENU_ENABLE, enable=0, param2=0, param3=0, param4=0) -> 0"},
    {"hotel-max-volume", "48", "48", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36966 CMDID_FACTORY_SET_HOTEL_MAX_VOLUME, volume=48, param2=0, param3=0, param4=0) -> 0"},
    {"hotel-boot-volume", "49", "49", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36968 CMDID_FACTORY_SET_HOTEL_BOOT_VOLUME, volume=49, param2=0, param3=0, param4=0) -> 0"},
    {"hotel-boot-source", "hdmi3", "hdmi3", "CMD_FACOTRY_COMMON_SET_ITEM_VALUE(cmdID=36970 CMDID_FACTORY_SET_HOTEL_BOOT_SRC, src=11 KELU_TV_SRC_HDMI3, param2=0, param3=0, param4=0) -> 0"},
};
// clang-format on

bool wasTraced(const std::string& request) {
    const std::vector<std::string> lines = environmentOfGetSet.simulator().takeTrace();
    return std::any_of(lines.begin(), lines.end(), [&request](const std::string& line) {
        return line.size() > request.size() && line.substr(line.size() - request.size() - 2) == "] " + request;
    });
}

std::vector<tool::Json> documentsOf(const std::string& output) {
    std::istringstream lines(output);
    std::vector<tool::Json> documents;
    for (std::string line; std::getline(lines, line);) {
        documents.push_back(parsedJson(line));
    }
    return documents;
}

TEST(GetSet, setsWithTheFunctionOfTheSettingAndGetsItBack) {
    for (const Setting& setting : kSettings) {
        SCOPED_TRACE(setting.name);
        environmentOfGetSet.simulator().takeTrace();
        const ToolRun set = runTool({"set", setting.name, setting.written});
        EXPECT_EQ(set.exit, 0);
        EXPECT_EQ(set.output, setting.shown + "\n");
        EXPECT_EQ(set.error, "");
        EXPECT_TRUE(wasTraced(setting.request));
        EXPECT_EQ(runTool({"get", setting.name}).output, setting.shown + "\n");
    }
}

TEST(GetSet, everySettingThatCanBeSetIsTested) {
    std::set<std::string> listed;
    for (const tool::Json& setting : documentsOf(runTool({"get", "--json"}).output)) {
        if (!setting.at("allowed").isNull()) {
            listed.insert(setting.at("thing").asText());
        }
    }
    std::set<std::string> tested;
    for (const Setting& setting : kSettings) {
        tested.insert(setting.name);
    }
    EXPECT_EQ(listed, tested);
}

TEST(GetSet, readsWhatCannotBeSet) {
    ASSERT_EQ(runTool({"set", "source", "atv"}).exit, 0);
    const std::vector<std::pair<std::string, std::string>> expected{
        {"signal", "on\n"},          {"timing", "720x576, 50 Hz, interlaced\n"},
        {"last-power-off", "0\n"},   {"platform", "KTV-1000\n"},
        {"panel", "3840x2160@60\n"}, {"picture-version", "PQ-1.4.0\n"},
    };
    for (const auto& [name, shown] : expected) {
        const ToolRun run = runTool({"get", name});
        EXPECT_EQ(run.exit, 0) << name;
        EXPECT_EQ(run.output, shown) << name;
        EXPECT_EQ(run.error, "") << name;
    }
}

TEST(GetSet, changesANumberNoFurtherThanItsRange) {
    runTool({"set", "volume", "50"});
    EXPECT_EQ(runTool({"set", "volume", "+5"}).output, "55\n");
    EXPECT_EQ(runTool({"set", "volume", "-15"}).output, "40\n");
    EXPECT_EQ(runTool({"set", "volume", "-2000000000"}).output, "0\n");
    EXPECT_EQ(runTool({"set", "volume", "+101"}).output, "100\n");
}

TEST(GetSet, turnsASwitchRound) {
    runTool({"set", "mute", "off"});
    EXPECT_EQ(runTool({"set", "mute", "toggle"}).output, "on\n");
    EXPECT_EQ(runTool({"set", "mute", "toggle"}).output, "off\n");
}

TEST(GetSet, printsDocuments) {
    EXPECT_EQ(runTool({"--json", "set", "source", "hdmi1"}).output,
              "{\"thing\":\"source\",\"value\":9,\"enumerator\":\"KELU_TV_SRC_HDMI1\"}\n");
    EXPECT_EQ(runTool({"get", "signal", "--json"}).output, "{\"thing\":\"signal\",\"value\":true}\n");
    EXPECT_EQ(runTool({"set", "volume", "7", "--json"}).output, "{\"thing\":\"volume\",\"value\":7}\n");
    EXPECT_EQ(runTool({"get", "timing", "--json"}).output,
              "{\"thing\":\"timing\",\"value\":{\"width\":1920,\"height\":1080,\"frameRate\":60,\"interlace\":false,"
              "\"formatHDMI\":0,\"format3d\":0,\"colorSpace\":0,\"MHL\":false,\"graphicMode\":true}}\n");
}

TEST(GetSet, tellsWhenTheTelevisionHasSomethingElse) {
    ASSERT_EQ(runTool({"set", "source", "atv"}).exit, 0);
    const ToolRun loud = runTool({"set", "picture-mode", "care"});
    EXPECT_EQ(loud.exit, 0);
    EXPECT_EQ(loud.output, "standard\n");
    EXPECT_EQ(loud.error, "set to care, the television has standard\n");
    EXPECT_EQ(runTool({"set", "picture-mode", "care", "--quiet"}).error, "");
}

TEST(GetSet, tellsOfARefusal) {
    const ToolRun run = runTool({"set", "source", "scart1"});
    EXPECT_EQ(run.exit, 4);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: sourcemanager.selectSource: the service answered -108, no such source\n");
}

struct Mistake {
    std::vector<std::string> arguments;
    std::string complaint;
};

TEST(GetSet, refusesWhatIsNotAllowedAndSendsNothing) {
    const std::vector<Mistake> mistakes{
        {{"get", "volme"}, "kelutv: there is no 'volme' to get or set; nearest: volume\nTry 'kelutv help get'.\n"},
        {{"set", "brighness", "3"},
         "kelutv: there is no 'brighness' to get or set; nearest: brightness\nTry 'kelutv help set'.\n"},
        {{"set", "volume", "101"}, "kelutv: volume cannot be '101', allowed: 0..100, +N, -N\nTry 'kelutv help set'.\n"},
        {{"set", "volume", "3x"}, "kelutv: volume cannot be '3x', allowed: 0..100, +N, -N\nTry 'kelutv help set'.\n"},
        {{"set", "volume", "+"}, "kelutv: volume cannot be '+', allowed: 0..100, +N, -N\nTry 'kelutv help set'.\n"},
        {{"set", "volume", ""}, "kelutv: volume cannot be '', allowed: 0..100, +N, -N\nTry 'kelutv help set'.\n"},
        {{"set", "spdif-delay", "99999999999"},
         "kelutv: spdif-delay cannot be '99999999999', allowed: 0..500 ms, +N, -N\nTry 'kelutv help set'.\n"},
        {{"set", "mute", "onn"},
         "kelutv: mute cannot be 'onn', allowed: on, off, toggle; nearest: on\nTry 'kelutv help set'.\n"},
        {{"set", "color-temperature", "wram"},
         "kelutv: color-temperature cannot be 'wram', allowed: nature, cool, warm, user; nearest: warm\n"
         "Try 'kelutv help set'.\n"},
        {{"set", "color-temperature", "butt"},
         "kelutv: color-temperature cannot be 'butt', allowed: nature, cool, warm, user\nTry 'kelutv help set'.\n"},
        {{"set", "signal", "on"}, "kelutv: signal can only be read\nTry 'kelutv help set'.\n"},
        {{"set", "volume"}, "kelutv: VALUE is required\nTry 'kelutv help set'.\n"},
        {{"get", "volume", "mtue"},
         "kelutv: there is no 'mtue' to get or set; nearest: mute\nTry 'kelutv help get'.\n"},
        {{"get", "--all", "volume"}, "kelutv: --all takes no SETTING\nTry 'kelutv help get'.\n"},
    };
    environmentOfGetSet.simulator().takeTrace();
    for (const Mistake& mistake : mistakes) {
        const ToolRun run = runTool(mistake.arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error, mistake.complaint);
    }
    EXPECT_EQ(environmentOfGetSet.simulator().takeTrace(), std::vector<std::string>());
}

TEST(GetSet, keepsWhatTheLibraryLogsAndPrintsOnlyWhenItIsAskedFor) {
    EXPECT_EQ(runTool({"get", "picture-mode", "source"}).error, "");
    const ToolRun run = runTool({"get", "picture-mode", "source"}, {"KQLOG_LEVEL=d"});
    EXPECT_NE(run.error.find("linux_tv_SourceManager_getCurSourceId"), std::string::npos) << run.error;
    EXPECT_NE(run.error.find("getPictureMode : pictureModeIndex = "), std::string::npos) << run.error;
}

TEST(GetSet, tellsThatThereIsNoService) {
    const std::string empty = std::string(std::getenv("KQDROID_RUNTIME_DIR")) + "/none";
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"get", "volume"}, {"set", "volume", "3"}, {"status"}}) {
        const ToolRun run = runTool(arguments, {"KQDROID_RUNTIME_DIR=" + empty});
        EXPECT_EQ(run.exit, 3);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.error,
                  "kelutv: there is no television service; is the television, or kelutv-simulator, running?\n"
                  "  no service TVBaseService in " +
                      empty + "/services\n");
    }
}

} // namespace
} // namespace kelutv::test
