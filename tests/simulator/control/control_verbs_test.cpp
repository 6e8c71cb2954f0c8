// Every verb of the control channel, as the library sees what it does.

#include "simulator/Inbox.h"
#include "simulator/Simulator.h"

#include "simulator/control/ControlClient.h"
#include "simulator/control/ControlVerbs.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <list>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

using simulator::Answer;
using simulator::ControlClient;

const auto& environmentOfControlVerbs = SimulatorEnvironment::install();

ControlClient& client() {
    static auto* const client = new ControlClient;
    return *client;
}

/** Has a line carried out that is good; its data. */
std::string say(const std::string& line) {
    const Answer answer = client().ask(line);
    EXPECT_TRUE(answer.ok) << line << ": " << answer.text;
    return answer.text;
}

/** What is wrong with a line that is refused. */
std::string complaint(const std::string& line) {
    const Answer answer = client().ask(line);
    EXPECT_FALSE(answer.ok) << line;
    return answer.text;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream rest(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(rest, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<Event> takeEvents() { return Inbox::instance().take(); }

class ControlVerbs : public ::testing::Test {
protected:
    void SetUp() override {
        mBefore = linesOf(say("show"));
        linux_tv_registerCallbackFunc(Inbox::onEvent);
        takeEvents();
    }

    void TearDown() override {
        linux_tv_Audio_restoreSoundSets();
        client().ask("cec remove 11");
        for (const std::string& line : mBefore) {
            say(line);
        }
        takeEvents();
    }

private:
    std::vector<std::string> mBefore;
};

TEST_F(ControlVerbs, SetGivesAStateAnotherValueAndTellsOfIt) {
    say("set audio.volume[0] = 35");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 35);
    say("set audio.volume[headphone]=36");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_HEADPHONE), 36);
    say("audio.mute[KELU_TV_AUDIO_CHANNEL_SPEAKER] = 1");
    EXPECT_TRUE(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER));
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x60001, {0, 35}}, {0x60001, {1, 36}}, {0x60002, {0, 1}}}));
    say("set audio.volume[0] = 35");
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
}

TEST_F(ControlVerbs, SetSelectsASourceAsARequestDoes) {
    say("set sourcemanager.curSource[0] = hdmi2");
    EXPECT_EQ(SourceManager::instance()->getCurSourceId(KELU_TV_WINDOW_MAIN), KELU_TV_SRC_HDMI2);
    EXPECT_EQ(SourceManager::instance()->getTimingInfo().width, 3840U);
    const std::vector<Event> expected{
        {0x40001, {0, 10}},
        {0x80001, {1}},
        {0x40003, {3840, 2160, 60, 0, 1, 0, 1, 0, 0}},
    };
    EXPECT_EQ(takeEvents(), expected);
}

TEST_F(ControlVerbs, SetTakesTextsAndLists) {
    say("set factory.passWord[hotel] = \"12 \\\"34\"");
    EXPECT_EQ(say("get factory.passWord[hotel]"), "factory.passWord[2] = \"12 \\\"34\"");
    say("set audio.outputList = \"speaker\", \"arc\"");
    EXPECT_EQ(say("get outputList"), "audio.outputList = \"speaker\", \"arc\"");
}

TEST_F(ControlVerbs, SetAndGetReachWhatHasCommandsOfItsOwn) {
    say("set systemsetting.eep[0x8a00] = 171");
    EXPECT_EQ(SystemSetting::instance()->getEepByte(0x8a00), 171);
    EXPECT_EQ(say("get systemsetting.eep[35328]"), "systemsetting.eep[35328] = 171");
    say("power memory");
    say("set systemsetting.powerType = 7");
    EXPECT_EQ(say("get systemsetting.wakeupMode"), "systemsetting.wakeupMode = 7");
    EXPECT_EQ(linux_tv_SystemSetting_getWakeupMode(), 7);
    EXPECT_EQ(say("show power*"), "power on lastPowerOffMode=2 wakeupMode=7");
}

TEST_F(ControlVerbs, GetShowsAStateAsSetTakesIt) {
    EXPECT_EQ(say("get audio.volume[speaker]"), "audio.volume[0] = 20");
    EXPECT_EQ(say("get audio.speakerOutput"), "audio.speakerOutput = 0");
    say("set audio.volume[4] = 44");
    const std::vector<std::string> lines = linesOf(say("get audio.volume"));
    EXPECT_NE(std::find(lines.begin(), lines.end(), "audio.volume[4] = 44"), lines.end());
    EXPECT_EQ(lines.back(), "# audio.volume of any other key: 20");
}

TEST_F(ControlVerbs, ResetBringsInitialValuesBackAndTellsOfIt) {
    for (const char* const key : {"0", "1", "3"}) {
        say(std::string("set audio.volume[") + key + "] = 35");
    }
    takeEvents();
    say("reset audio.volume except [0] [3] [24g]");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x60001, {1, 20}}}));
    say("reset audio.volume[3]");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x60001, {3, 20}}}));
    say("reset volume");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
    takeEvents();
    say("reset volume except [24g]");
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
}

TEST_F(ControlVerbs, ResetShowsTheFirstSourceInTheMainWindow) {
    say("set sourcemanager.curSource[0] = hdmi2");
    say("reset sourcemanager.curSource");
    EXPECT_EQ(SourceManager::instance()->getCurSourceId(KELU_TV_WINDOW_MAIN), KELU_TV_SRC_ATV);
    EXPECT_EQ(SourceManager::instance()->getTimingInfo().width, 720U);
}

TEST_F(ControlVerbs, ShowPicksByPattern) {
    EXPECT_EQ(say("show power*"), "power on lastPowerOffMode=0 wakeupMode=0");
    EXPECT_EQ(say("show *.SPEAKERoutput"), "audio.speakerOutput = 0");
    EXPECT_EQ(say("show cec soundbar"), "cec put logAddr=5 hdmiDevPort=1 name=\"Soundbar\" phyAddr=\"2.0.0.0\" "
                                        "listText=\"HDMI2 Soundbar\" plugged=1");
    EXPECT_EQ(linesOf(say("show source?*HDMI1")).front(), "plug KELU_TV_SRC_HDMI1");
    EXPECT_EQ(complaint("show nonsense"), "nothing matches 'nonsense'");
}

bool isAvailable(int source) {
    const std::list<int> ids = SourceManager::instance()->getAvailSourceList();
    return std::find(ids.begin(), ids.end(), source) != ids.end();
}

TEST_F(ControlVerbs, PlugAndUnplugASource) {
    say("set sourcemanager.curSource[0] = hdmi1");
    takeEvents();
    EXPECT_TRUE(isAvailable(KELU_TV_SRC_HDMI1));
    say("unplug hdmi1");
    EXPECT_FALSE(isAvailable(KELU_TV_SRC_HDMI1));
    EXPECT_FALSE(SourceManager::instance()->getSignalStatus());
    const std::vector<Event> gone = takeEvents();
    EXPECT_NE(std::find(gone.begin(), gone.end(), Event{0x40004, {9, 0, 0}}), gone.end());
    EXPECT_NE(std::find(gone.begin(), gone.end(), Event{0x40002, {0}}), gone.end());
    say("plug KELU_TV_SRC_HDMI1");
    EXPECT_TRUE(isAvailable(KELU_TV_SRC_HDMI1));
    EXPECT_TRUE(SourceManager::instance()->getSignalStatus());
}

TEST_F(ControlVerbs, SignalChangesWhatASourceShows) {
    say("set sourcemanager.curSource[0] = hdmi1");
    say("signal 9 sourcemanager.timingInfo=1280,720,50,0,0,0,1,0,0 dviMode=0");
    EXPECT_EQ(SourceManager::instance()->getTimingInfo().height, 720U);
    takeEvents();
    say("signal hdmi1 none");
    EXPECT_EQ(takeEvents(),
              (std::vector<Event>{{0x40002, {0}}, {0x40003, {0, 0, 0, 0, 0, 0, 0, 0, 0}}, {0x40004, {9, 1, 0}}}));
    say("signal hdmi1 2160p60-hdr10");
    EXPECT_EQ(linux_tv_Picture_getHdrStreamType(), KELU_TV_HDR_TYPE_HDR10);
}

TEST_F(ControlVerbs, SignalsListsThoseThatHaveAName) {
    const std::vector<std::string> names = linesOf(say("signals"));
    EXPECT_EQ(names.size(), 17U);
    EXPECT_NE(std::find(names.begin(), names.end(), "2160p24-dolby"), names.end());
}

TEST_F(ControlVerbs, CecAddsRemovesAndPlays) {
    say("cec add logAddr=11 hdmiDevPort=2 name=\"Game console\"");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x1A0001, {11, 2, 1}}}));
    say("cec play 11");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x1A0002, {11}}}));
    EXPECT_EQ(say("show cec?game*"), "cec put logAddr=11 hdmiDevPort=2 name=\"Game console\" phyAddr=\"3.0.0.0\" "
                                     "listText=\"HDMI3 Game console\" plugged=1");
    say("cec remove 11");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x1A0001, {11, 2, 0}}, {0x1A0002, {0}}}));
}

std::vector<std::string> addressesOfDevices() {
    std::vector<std::string> addresses;
    for (const std::string& line : linesOf(say("show cec*"))) {
        const std::string begin = "cec put logAddr=";
        if (line.rfind(begin, 0) == 0) {
            addresses.push_back(line.substr(begin.size(), line.find(' ', begin.size()) - begin.size()));
        }
    }
    return addresses;
}

TEST_F(ControlVerbs, CecPutsADeviceInThePlaceOfAnother) {
    say("cec put logAddr=5 hdmiDevPort=2 name=\"Loudspeaker\"");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x1A0001, {5, 1, 0}}, {0x1A0001, {5, 2, 1}}}));
    EXPECT_EQ(addressesOfDevices(), (std::vector<std::string>{"4", "5", "8", "3"}));
    say("cec put logAddr=5 hdmiDevPort=2 name=\"Loudspeaker\"");
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
    say("cec put logAddr=11 hdmiDevPort=2 plugged=0");
    EXPECT_EQ(addressesOfDevices(), (std::vector<std::string>{"4", "5", "8", "3", "11"}));
}

TEST_F(ControlVerbs, CecKeepsDevicesInAnOrder) {
    say("cec keep 3 4 5");
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
    EXPECT_EQ(addressesOfDevices(), (std::vector<std::string>{"3", "4", "5"}));
    say("cec keep");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x1A0001, {4, 0, 0}}, {0x1A0001, {5, 1, 0}}}));
    EXPECT_EQ(addressesOfDevices(), std::vector<std::string>{});
}

TEST_F(ControlVerbs, PlugAndUnplugACecDeviceInBothForms) {
    say("unplug 5");
    say("plug cec 5");
    say("unplug cec 5");
    say("plug 5");
    const Event in{0x1A0001, {5, 1, 1}};
    const Event out{0x1A0001, {5, 1, 0}};
    EXPECT_EQ(takeEvents(), (std::vector<Event>{out, in, out, in}));
}

TEST_F(ControlVerbs, KeyPressesAndReleases) {
    say("key volume_up");
    say("key KELU_TV_LINUX_KEYCODE_KELU_KEY_POWER press");
    say("key 999 release");
    EXPECT_EQ(takeEvents(),
              (std::vector<Event>{{0x80003, {115, 1}}, {0x80003, {115, 0}}, {0x80003, {116, 1}}, {0x80003, {999, 0}}}));
    EXPECT_EQ(say("get systemsetting.keyEvent[power]"), "systemsetting.keyEvent[116] = 1");
}

TEST_F(ControlVerbs, PowerEntersAState) {
    say("power suspended");
    say("power on");
    EXPECT_EQ(takeEvents(), (std::vector<Event>{{0x80002, {1}}, {0x80002, {0}}}));
    say("power on lastPowerOffMode=4 wakeupMode=2");
    EXPECT_EQ(takeEvents(), std::vector<Event>{});
    EXPECT_EQ(linux_tv_SystemSetting_getLastPowerOffMode(), 4);
    EXPECT_EQ(linux_tv_SystemSetting_getWakeupMode(), 2);
    EXPECT_EQ(complaint("power 6"), "power states go from 0 to 5");
}

TEST_F(ControlVerbs, EventHasAnyIdentifierAndPayload) {
    const std::string path = std::string(std::getenv("KQDROID_RUNTIME_DIR")) + "/payload";
    std::ofstream(path) << "abcd";
    say("event 0x60001 0100000002000000");
    say("event streamTypeChanged 03:00:00:00");
    say("event volume+0xFFFF");
    say("event KELU_EM_MODE_CEC \"abcd\"");
    say("event cec+7 @" + path);
    const int abcd = 0x64636261;
    EXPECT_EQ(
        takeEvents(),
        (std::vector<Event>{{0x60001, {1, 2}}, {0x80001, {3}}, {0x6FFFF, {}}, {0x1A0000, {abcd}}, {0x1A0007, {abcd}}}));
}

TEST_F(ControlVerbs, FaultsAreAddedListedAndCleared) {
    say("fault CMD_AUDIO_GETVOLUME error -5");
    EXPECT_EQ(say("faults"), "fault CMD_AUDIO_GETVOLUME error -5");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), -1);
    say("fault clear");
    EXPECT_EQ(say("faults"), "");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
}

TEST_F(ControlVerbs, HelpKnowsEveryVerbAndEveryVerbIsThere) {
    const std::string all = say("help");
    for (const simulator::ControlVerb& verb : simulator::controlVerbs()) {
        const std::string one = say(std::string("help ") + verb.name);
        EXPECT_EQ(one.rfind(verb.name, 0), 0U);
        EXPECT_NE(all.find(one), std::string::npos);
        EXPECT_EQ(client().ask(verb.name).text.find("there is no control command"), std::string::npos) << verb.name;
    }
}

TEST_F(ControlVerbs, RemarksSayNothing) {
    EXPECT_EQ(say(""), "");
    EXPECT_EQ(say("   "), "");
    EXPECT_EQ(say("  # set audio.volume[0] = 35"), "");
    EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 20);
}

struct BadLine {
    const char* line;
    const char* complaint;
};

constexpr BadLine kBadLines[] = {
    {"unplu hdmi1",
     "there is no control command 'unplu'; nearest: unplug; allowed: cec, event, fault, faults, get, help, key, "
     "plug, power, reset, set, show, signal, signals, unplug and vbi"},
    {"set audio.volum[0] = 1",
     "there is no state 'audio.volum'; nearest: audio.volume, audio.volumeToReg; show lists them"},
    {"set audio.volume[0]", "set takes STATE[KEY...] = VALUE..."},
    {"set audio.volume = 1", "audio.volume has 1 key, not 0"},
    {"set audio.volume[0 = 1", "the keys of 'audio.volume[0' have no closing bracket"},
    {"set audio.volume[0] = 1, 2", "audio.volume has 1 value, not 2"},
    {"set audio.volume[0] = loud", "value 1 of audio.volume is a number, not 'loud'"},
    {"set audio.volume[0] = 101", "audio.volume goes from 0 to 100"},
    {"set audio.volume[0] = 99999999999", "value 1 of audio.volume is a number, not '99999999999'"},
    {"set factory.passWord[0] = \"12", "a quote is not closed"},
    {"get", "get takes STATE[KEY...]"},
    {"get audio.volume[0, 1]", "audio.volume has 1 key, not 2"},
    {"plug", "plug takes a source, or 'cec' and the logical address of a CEC device"},
    {"unplug hdmi1 hdmi2", "unplug takes a source, or 'cec' and the logical address of a CEC device"},
    {"plug cec 9", "there is no CEC device with the logical address 9"},
    {"plug dig", "source: 'dig' may be dig1, dig2"},
    {"signal 5 none", "there is no source 5"},
    {"signal hdmi1 timingInfo=1,2", "sourcemanager.timingInfo has 9 values, not 2"},
    {"signal hdmi1 audio.volume=1", "audio.volume does not show a signal"},
    {"set audio.volume[speakr] = 1",
     "key 1 of audio.volume: 'speakr' is not one of speaker, headphone, bluetooth, hdmi, spdif, avout, 24g, "
     "hdmi_arc, socoutput; nearest: speaker"},
    {"set picture.currentPictureMode = 1", "picture.currentPictureMode is derived from other states and cannot be set"},
    {"set systemsetting.wakeupMode = 1", "systemsetting.wakeupMode is derived from other states and cannot be set"},
    {"set systemsetting.eep[0] = 256", "a byte goes from 0 to 255, not 256"},
    {"get systemsetting.eep", "systemsetting.eep has 1 key, not 0"},
    {"get systemsetting.eep[65536]", "addresses go from 0 to 65535, address 65536 or the end of its block is outside"},
    {"get video.signalStatusSync[5]", "there is no source 5"},
    {"signal hdmi1", "signal takes a source, and then none, the name of a signal, or STATE=VALUE"},
    {"cec", "cec takes add or put FIELD=VALUE..., remove ADDRESS, keep ADDRESS... or play ADDRESS"},
    {"cec add logAddr=11", "cec add needs hdmiDevPort=NUMBER"},
    {"cec put hdmiDevPort=2", "cec put needs logAddr=NUMBER"},
    {"cec put logAddr=15 hdmiDevPort=2", "logAddr goes from 1 to 14, it cannot be 15"},
    {"cec keep 4 9", "cec keep takes the logical addresses of CEC devices that are there, each once"},
    {"cec keep 4 4", "cec keep takes the logical addresses of CEC devices that are there, each once"},
    {"cec keep all", "the logical address is a number, not 'all'"},
    {"reset", "reset takes STATE, STATE[KEY...] or STATE except [KEY...] [KEY...]"},
    {"reset audio.volume except", "reset takes STATE, STATE[KEY...] or STATE except [KEY...] [KEY...]"},
    {"reset audio.volume[0] except [1]", "reset takes STATE, STATE[KEY...] or STATE except [KEY...] [KEY...]"},
    {"reset audio.volume except [0,1]", "audio.volume has 1 key, not 2"},
    {"reset picture.currentPictureMode", "picture.currentPictureMode is not a setting and has no initial value"},
    {"reset systemsetting.eep", "systemsetting.eep is not a setting and has no initial value"},
    {"reset picture.hdrStreamType", "picture.hdrStreamType shows a signal and has no initial value; signal changes it"},
    {"power on wakeup=1", "power takes a state, lastPowerOffMode=NUMBER and wakeupMode=NUMBER, not 'wakeup=1'"},
    {R"(cec add logAddr=11 hdmiDevPort=2 name="\xff")", R"(name must be UTF-8, it cannot be '\xff')"},
    {"cec add logAddr=11 logAddr=11", "the field 'logAddr' is given twice"},
    {"cec add logAdr=11",
     "a CEC device has no field 'logAdr'; nearest: logAddr; allowed: logAddr, hdmiDevPort, name, phyAddr, "
     "listText and plugged, each with =VALUE"},
    {"cec remove 9", "there is no CEC device with the logical address 9"},
    {"key", "key takes a key code and, for only one of the two, press or release"},
    {"key power hold", "use of a key: 'hold' is not one of release, press"},
    {"event", "event takes an identifier, and the payload in hexadecimal, as @FILE, or as a text in quotes"},
    {"event volume+65536", "the number added to the module of an event goes from 0 to 65535, not '65536'"},
    {"event 0x60001 012", "'012' is neither bytes in hexadecimal, nor @FILE, nor a text in quotes"},
    {"event 0x60001 @/dev/null", "/dev/null is not a regular file of at most 65536 bytes"},
    {"vbi 0", "vbi takes a type from 1 to 65535 and the data in hexadecimal"},
    {"vbi 1 00", "VBI is not initialised, open and registered: no client takes the block"},
    {"faults all", "faults takes no arguments"},
    {"signals all", "signals takes no arguments"},
    {"power of", "power state: 'of' is not one of on, suspended, memory, normal, shallow, rebooting; nearest: on"},
};

void PrintTo(const BadLine& bad, std::ostream* out) { *out << bad.line; }

class ControlComplaints : public ::testing::TestWithParam<BadLine> {};

TEST_P(ControlComplaints, SayWhatIsWrongAndChangeNothing) {
    const std::string before = say("show");
    EXPECT_EQ(complaint(GetParam().line), GetParam().complaint);
    EXPECT_EQ(say("show"), before);
}

INSTANTIATE_TEST_SUITE_P(Each, ControlComplaints, ::testing::ValuesIn(kBadLines));

TEST(ControlComplaintsOfFiles, NameTheFile) {
    const std::string path = std::string(std::getenv("KQDROID_RUNTIME_DIR")) + "/nowhere";
    EXPECT_EQ(complaint("event 0x60001 @" + path), "cannot read " + path + ": No such file or directory");
}

TEST(ControlComplaintsOfNames, ListWhatIsAllowed) {
    EXPECT_EQ(complaint("plug hdmi5").rfind("source: 'hdmi5' is not one of atv, ", 0), 0U);
    EXPECT_EQ(complaint("signal hdmi1 1080p6").rfind("'1080p6' is not a signal; nearest: 1080p60, ", 0), 0U);
    EXPECT_EQ(complaint("key volum_up").rfind("key code: 'volum_up' is not one of ", 0), 0U);
    EXPECT_EQ(complaint("event volumx+1").rfind("event or module: 'volumx' is not one of ", 0), 0U);
    EXPECT_EQ(
        complaint("event volumChanged").rfind("'volumChanged' is not an event or a module; nearest: volumeChanged", 0),
        0U);
}

} // namespace

} // namespace kelutv::test
