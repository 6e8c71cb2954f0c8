#include "tools/Tool.h"

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace kelutv::test {
namespace {

std::ptrdiff_t linesIn(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

ToolRun quietRun(std::vector<std::string> words) {
    const TestFolder folder;
    ToolRun run = runTool(std::move(words), {"KQDROID_RUNTIME_DIR=" + folder.pathOf("nowhere/at/all")});
    EXPECT_EQ(run.exit, 0) << run.error;
    return run;
}

/** How many functions each module has, as `list --modules` says. */
std::map<std::string, std::ptrdiff_t> modules() {
    std::istringstream lines(quietRun({"list", "--modules"}).output);
    std::map<std::string, std::ptrdiff_t> counts;
    std::string name;
    for (std::ptrdiff_t count = 0; lines >> name >> count;) {
        counts[name] = count;
    }
    return counts;
}

TEST(List, showsEveryFunctionInALine) {
    std::ptrdiff_t all = 0;
    for (const auto& [name, count] : modules()) {
        EXPECT_EQ(linesIn(quietRun({"list", name + ".*"}).output), count) << name;
        all += count;
    }
    EXPECT_GT(all, 0);
    EXPECT_EQ(linesIn(quietRun({"list"}).output), all);
    EXPECT_EQ(linesIn(quietRun({"list", "--json"}).output), all);
}

TEST(List, showsWhatMatches) {
    EXPECT_EQ(quietRun({"list", "pcmplayer.s*"}).output, "pcmplayer.startPlay  Starts to play a sound file.\n"
                                                         "pcmplayer.stopPlay  Ends the playing.\n"
                                                         "pcmplayer.setGain  Sets the gain of the player.\n");
    EXPECT_EQ(linesIn(quietRun({"list", "audio"}).output), modules().at("audio"));
    EXPECT_EQ(
        quietRun({"list", "audio.?etinputvolume", "--json"}).output,
        R"text({"kind":"function","function":"Audio::getInputVolume","short":"audio.getInputVolume","module":"audio","brief":"Reads the input volume."}
{"kind":"function","function":"Audio::setInputVolume","short":"audio.setInputVolume","module":"audio","brief":"Sets the input volume."}
)text");
}

TEST(List, countsTheModules) { EXPECT_EQ(quietRun({"list", "--modules", "*.setMute"}).output, "audio  1\n"); }

TEST(List, refusesAPatternWithoutAMatch) {
    const ToolRun run = runTool({"list", "audoi"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, usageError("list", "no module or name matches 'audoi'; nearest: audio"));
}

TEST(List, findsWhateverHasSuchAName) {
    EXPECT_EQ(quietRun({"list", "CMD_AUDIO_SETVOLUME"}).output,
              "CMD_AUDIO_SETVOLUME  command: 0x2008 (8200), sent by audio.setVolume\n");
    EXPECT_EQ(quietRun({"list", "cmdid_audio_get_max_volume"}).output,
              "CMDID_AUDIO_GET_MAX_VOLUME  item: 0x200C (8204), sent by audio.getMaxVolume\n");
    EXPECT_EQ(quietRun({"list", "KELU_TV_WINDOW*"}).output,
              "KELU_TV_WINDOW_E  enumeration: Display windows.\n"
              "KELU_TV_WINDOW_MAIN  value: 0 of KELU_TV_WINDOW_E: The main window.\n"
              "KELU_TV_WINDOW_SUB  value: 1 of KELU_TV_WINDOW_E: The sub-window.\n"
              "KELU_TV_WINDOW_AUTO  value: 2 of KELU_TV_WINDOW_E: Automatic.\n"
              "KELU_TV_WINDOW_BUTT  value: 3 of KELU_TV_WINDOW_E: End marker, no value.\n"
              "KELU_TV_WINDOW_ATTR_S  record: The geometry of a display window.\n");
    EXPECT_EQ(
        quietRun({"list", "volumeChanged", "--json"}).output,
        R"({"kind":"event","name":"volumeChanged","brief":"0x60001 of KELU_EM_MODE_VOLUME: The volume of a channel )"
        R"(changes, 0 to 100."})"
        "\n");
}

TEST(List, findsOneKindOnly) {
    EXPECT_EQ(quietRun({"list", "--kind", "record", "window"}).output,
              "KELU_TV_WINDOW_ATTR_S  record: The geometry of a display window.\n");
    EXPECT_EQ(quietRun({"list", "-k", "function", "pcmplayer.setGain"}).output,
              "pcmplayer.setGain  Sets the gain of the player.\n");
    const std::string events = quietRun({"list", "--kind", "event"}).output;
    EXPECT_NE(events.find("\nvolumeChanged  event: "), std::string::npos);
    EXPECT_EQ(events.find("  command: "), std::string::npos);
    const ToolRun run = runTool({"list", "--kind", "evnt"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error, usageError("list", "there is no kind 'evnt', there are function, command, item, enumeration, "
                                            "value, record, event; nearest: event"));
}

TEST(List, hasTheEventsOfTheTelevisionThatIsMeant) {
    const TestFolder folder;
    std::ofstream(folder.pathOf("events.md"))
        << "## Events\n\n| identifier | event | payload | when |\n|---|---|---|---|\n"
           "| KELU_EM_MODE_VOLUME+7 | loudnessChanged | level:int16 | It changes. |\n";
    const ToolRun run = runTool({"list", "-k", "event"}, {"KELUTV_EVENTS=" + folder.pathOf("events.md")});
    EXPECT_EQ(run.output, "loudnessChanged  event: 0x60007 of KELU_EM_MODE_VOLUME: It changes.\n");
}

TEST(Describe, tellsOfCommandsAndItems) {
    EXPECT_EQ(quietRun({"describe", "CMD_AUDIO_SETVOLUME"}).output,
              "CMD_AUDIO_SETVOLUME (command): 0x2008 (8200), sent by audio.setVolume\n"
              "    in order: int32 channel of KELU_TV_AUDIO_CHANNEL_E, int32 vol\n"
              "    reply: the result alone\n"
              "Sent by: audio.setVolume: Sets the volume of one output channel.\n");
    EXPECT_EQ(quietRun({"describe", "CMDID_AUDIO_GET_MAX_VOLUME"}).output,
              "CMDID_AUDIO_GET_MAX_VOLUME (item): 0x200C (8204), sent by audio.getMaxVolume\n"
              "Carried by: CMD_AUDIO_COMMON_GET_ITEM_VALUE\n"
              "    in order: int32 cmdID of KELU_TV_CMDID_E, int32 channel of KELU_TV_AUDIO_CHANNEL_E, int32 param2\n"
              "    reply: ints[255]\n"
              "Sent by: audio.getMaxVolume: Reads the highest volume of one output channel.\n");
    EXPECT_EQ(quietRun({"describe", "CMD_CHANNEL_GETMAXTUNERFREQ"}).output,
              "CMD_CHANNEL_GETMAXTUNERFREQ (command): 0x6000 (24576), no function sends it\n");
    EXPECT_EQ(
        quietRun({"describe", "--json", "CMD_SOURCE_GETCURSOURCEID"}).output,
        R"({"kind":"command","name":"CMD_SOURCE_GETCURSOURCEID","number":28679,"arguments":[{"name":"mainWindow",)"
        R"("type":"int32","enumeration":"KELU_TV_WINDOW_E"}],"reply":[{"type":"int32","enumeration":"KELU_TV_SRC_E"}],)"
        R"("items":[],"functions":["sourcemanager.getCurSourceId"]})"
        "\n");
}

TEST(Describe, tellsOfTypes) {
    const std::string sources = quietRun({"describe", "kelu_tv_src_e"}).output;
    EXPECT_EQ(sources.find("KELU_TV_SRC_E (enumeration): Input sources as applications name them;"), 0U);
    EXPECT_NE(sources.find("\n    9 hdmi1 KELU_TV_SRC_HDMI1: HDMI 1.\n"), std::string::npos);
    EXPECT_EQ(sources.find("KELU_TV_SRC_BUTT"), std::string::npos);
    EXPECT_NE(sources.find("\nUsed by: "), std::string::npos);
    EXPECT_EQ(quietRun({"describe", "KELU_TV_SRC_HDMI1"}).output,
              "KELU_TV_SRC_HDMI1 (value): 9 of KELU_TV_SRC_E: HDMI 1.\n");
    EXPECT_EQ(
        quietRun({"describe", "KELU_TV_WINDOW_E", "--json"})
            .output.find(
                R"({"kind":"enumeration","name":"KELU_TV_WINDOW_E","meaning":"Display windows.","values":[{"value":0,)"
                R"("enumerator":"KELU_TV_WINDOW_MAIN","short":"main","meaning":"The main window."},{"value":1,)"),
        0U);
    EXPECT_EQ(quietRun({"describe", "PreScaleInfo"})
                  .output.find("PreScaleInfo (record): A prescale gain.\n"
                               "    int integer: Integer part.\n"
                               "    int decimal: Fractional part.\n"),
              0U);
    const std::string nested = quietRun({"describe", "KELU_TV_WINDOW_ATTR_S"}).output;
    EXPECT_NE(nested.find("\n    int window of KELU_TV_WINDOW_E: Which window.\n"), std::string::npos) << nested;
    EXPECT_NE(nested.find("\n    unsigned int cropRect.leftOffset: Cut off at the left edge.\n"), std::string::npos);
}

TEST(Describe, tellsOfEvents) {
    EXPECT_EQ(quietRun({"describe", "volumeChanged"}).output,
              "volumeChanged (event): 0x60001 of KELU_EM_MODE_VOLUME: The volume of a channel changes, 0 to 100.\n"
              "Payload: int32 channel of KELU_TV_AUDIO_CHANNEL_E, int32 volume\n");
    EXPECT_EQ(quietRun({"describe", "volumeChanged", "--json"}).output,
              R"({"kind":"event","name":"volumeChanged","first":393217,"last":393217,"module":"KELU_EM_MODE_VOLUME",)"
              R"("when":"The volume of a channel changes, 0 to 100.","fields":[{"name":"channel","type":"int32",)"
              R"("enumeration":"KELU_TV_AUDIO_CHANNEL_E"},{"name":"volume","type":"int32"}]})"
              "\n");
}

TEST(Describe, refusesWhatThereIsNot) {
    const ToolRun run = runTool({"describe", "KELU_TV_SR"});
    EXPECT_EQ(run.exit, 2);
    EXPECT_EQ(run.error.find("kelutv: there is no function, command, item, type or event 'KELU_TV_SR'; nearest: "
                             "KELU_TV_SRC_E"),
              0U)
        << run.error;
}

TEST(Describe, tellsOfAParameterThatIsAWindow) {
    const std::string text = quietRun({"describe", "sourcemanager.selectSource"}).output;
    EXPECT_NE(text.find("Parameter mainWindow: int, in. Display window, one of `KELU_TV_WINDOW_E`.\n"
                        "    0 main KELU_TV_WINDOW_MAIN\n"),
              std::string::npos)
        << text;
    EXPECT_EQ(quietRun({"encode", "sourcemanager.selectSource", "hdmi1", "sub"}).output,
              quietRun({"encode", "sourcemanager.selectSource", "9", "1"}).output);
}

TEST(Describe, tellsEverything) {
    EXPECT_EQ(quietRun({"describe", "audio.setVolume"}).output,
              R"text(int linux_tv_Audio_setVolume(int channel, int vol)
audio.setVolume: Sets the volume of one output channel.
Parameter channel: int, in. Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.
    0 speaker KELU_TV_AUDIO_CHANNEL_SPEAKER
    1 headphone KELU_TV_AUDIO_CHANNEL_HEADPHONE
    2 bluetooth KELU_TV_AUDIO_CHANNEL_BLUETOOTH
    3 hdmi KELU_TV_AUDIO_CHANNEL_HDMI
    4 spdif KELU_TV_AUDIO_CHANNEL_SPDIF
    5 avout KELU_TV_AUDIO_CHANNEL_AVOUT
    6 24g KELU_TV_AUDIO_CHANNEL_24G
    7 hdmi_arc KELU_TV_AUDIO_CHANNEL_HDMI_ARC
    8 socoutput KELU_TV_AUDIO_CHANNEL_SOCOUTPUT
Parameter vol: int, in. Volume; the service enforces the range.
    a whole number, -2147483648 to 2147483647; values ? to ?, step ?, unit ?, default ?
Returns: The service's result, 0 for success; -1 when the link fails.
Effect: set, put back by what linux_tv_Audio_getVolume reads, kept beyond power off: ?
Calls: Audio::setVolume
Sends: CMD_AUDIO_SETVOLUME 0x2008
    in order: int32 channel, int32 vol
    reply: status
)text");
}

TEST(Describe, tellsOfRecordsListsAndItems) {
    EXPECT_EQ(quietRun({"describe", "audio.getSourcePreScale"}).output,
              R"text(int linux_tv_Audio_getSourcePreScale(int preScaleSource, KELU_TV_SND_PRECIGAIN_ATTR_S* pAttr)
audio.getSourcePreScale: Reads the prescale gain of one kind of source.
Parameter preScaleSource: int, in. One of `KELU_TV_PRESCALE_SOURCE_E`.
    0 atv KELU_TV_PRESCALE_SOURCE_ATV
    1 dtv KELU_TV_PRESCALE_SOURCE_DTV
    2 cvbs KELU_TV_PRESCALE_SOURCE_CVBS
    3 vga KELU_TV_PRESCALE_SOURCE_VGA
    4 ypbpr KELU_TV_PRESCALE_SOURCE_YPBPR
    5 hdmi KELU_TV_PRESCALE_SOURCE_HDMI
    6 media KELU_TV_PRESCALE_SOURCE_MEDIA
Parameter pAttr: KELU_TV_SND_PRECIGAIN_ATTR_S*, out. Receives the gain, both parts 0 on failure; may be null.
    record of s32IntegerGain, s32DecimalGain
Returns: 0; -1 when the service or the link fails.
Effect: read
Calls: Audio::getAudioItemValue
Sends: CMD_AUDIO_COMMON_GET_ITEM_VALUE 0x2054, item CMDID_AUDIO_GET_SOURCE_PRESCALE 8207
    in order: int32 CMDID_AUDIO_GET_SOURCE_PRESCALE, int32 preScaleSource, int32 0
    reply: ints[255] pData
)text");
    EXPECT_EQ(quietRun({"describe", "eep.SetTVFlashEepMulti"}).output,
              R"text(int CKeluEEP::SetTVFlashEepMulti(int u32Address, int* pBuf, int u32Len)
eep.SetTVFlashEepMulti: Writes a block that starts in the TV area.
Parameter u32Address: int, in. Address of the first byte, 35328 to 35836.
    35328 to 35836; step ?, unit ?, default ?
Parameter pBuf: int*, in. `u32Len` ints, one byte each.
    list of u32Len, each a whole number, -2147483648 to 2147483647
Parameter u32Len: int, in, may be left out. Number of bytes, not limited here.
    a whole number, -2147483648 to 2147483647
Returns: The service's result, 0 for success; -1 for an address outside the area, for a null `pBuf` (not logged), and when the link fails.
Effect: set, put back by what SystemSetting::getFlashEepMulti reads, kept beyond power off: ?, dangerous
Calls: SystemSetting::setFlashEepMulti
Sends: CMD_SYSTEM_SETFLASHEEPMULTI 0x8015
    in order: int32 u32Address, int32 u32Len, ints pBuf[u32Len]
    reply: status
Null: A null pBuf is refused with nothing sent.
Note: An address outside the area gives -1, logged at info priority, with nothing sent.
)text");
}

/** What stands between these, the second left out. */
std::string between(const std::string& text, const std::string& begin, const std::string& end) {
    const std::size_t from = text.find(begin);
    const std::size_t to = from == std::string::npos ? from : text.find(end, from);
    return to == std::string::npos ? "" : text.substr(from, to - from);
}

TEST(Describe, tellsWhatIsKnownOfNumbers) {
    const std::string unit = quietRun({"describe", "audio.setAVsync"}).output;
    EXPECT_EQ(between(unit, "    a whole", "\n"),
              "    a whole number, -2147483648 to 2147483647; values ? to ?, step ?, unit ms, default ?");
    const std::string step = quietRun({"describe", "factory.setAvcGain"}).output;
    EXPECT_EQ(between(step, "    a number", "\n"), "    a number; values ? to ?, step 0.001, unit ?, default ?");
    const std::string field = quietRun({"describe", "audio.setPEQAttr"}).output;
    EXPECT_EQ(between(field, "    intBandNum", "\n"), "    intBandNum: 1 to 10; step ?, unit ?, default ?");
    const std::string result = quietRun({"describe", "audio.getAVsync"}).output;
    EXPECT_EQ(between(result, "    a whole", "\nEffect"),
              "    a whole number, -2147483648 to 2147483647; values ? to ?, step ?, unit ms, default ?");
}

TEST(Describe, givesWhatIsKnownOfNumbersAsJson) {
    const std::string unit = quietRun({"describe", "--json", "audio.setAVsync"}).output;
    EXPECT_EQ(between(unit, R"("range")", "}]"),
              R"("range":{"min":null,"max":null,"step":null},"unit":"ms","default":null)");
    const std::string step = quietRun({"describe", "--json", "factory.setAvcGain"}).output;
    EXPECT_EQ(between(step, R"("range")", "}]"),
              R"("range":{"min":null,"max":null,"step":0.001},"unit":null,"default":null)");
    const std::string field = quietRun({"describe", "--json", "audio.setPEQAttr"}).output;
    EXPECT_EQ(between(field, R"("fields")", "},{"),
              R"("fields":[{"name":"intBandNum","range":{"min":1,"max":10,"step":null},"unit":null,"default":null)");
    const std::string result = quietRun({"describe", "--json", "audio.getAVsync"}).output;
    EXPECT_EQ(between(result, R"("result")", R"(,"effect")"),
              R"("result":{"range":{"min":null,"max":null,"step":null},"unit":"ms","default":null})");
}

TEST(Describe, tellsWhatACallDoes) {
    const std::vector<std::pair<std::string, std::string>> effects{
        {"audio.getVolume", "Effect: read"},
        {"pcmplayer.startPlay", "Effect: action, kept beyond power off: ?"},
        {"audio.setVolume", "Effect: set, put back by what linux_tv_Audio_getVolume reads, kept beyond power off: ?"},
    };
    for (const auto& [name, effect] : effects) {
        EXPECT_EQ(between(quietRun({"describe", name}).output, "Effect", "\n"), effect) << name;
    }
    EXPECT_EQ(between(quietRun({"describe", "--json", "audio.setVolume"}).output, R"("effect")", "}"),
              R"("effect":{"kind":"set","dangerous":false,"back":"linux_tv_Audio_getVolume","kept":null)");
}

TEST(Describe, givesJson) {
    EXPECT_EQ(
        quietRun({"describe", "--json", "audio.getVolume"}).output,
        R"text({"kind":"function","function":"linux_tv_Audio_getVolume","short":"audio.getVolume","module":"audio","signature":"int linux_tv_Audio_getVolume(int channel)","brief":"Reads the volume of one output channel.","details":"","returns":"The volume; -1 when the service or the link fails.","parameters":[{"name":"channel","type":"int","direction":"in","meaning":"Output channel, one of `KELU_TV_AUDIO_CHANNEL_E`.","form":"one of speaker, headphone, bluetooth, hdmi, spdif, avout, 24g, hdmi_arc, socoutput","null":false,"enumeration":"KELU_TV_AUDIO_CHANNEL_E","values":[{"value":0,"enumerator":"KELU_TV_AUDIO_CHANNEL_SPEAKER"},{"value":1,"enumerator":"KELU_TV_AUDIO_CHANNEL_HEADPHONE"},{"value":2,"enumerator":"KELU_TV_AUDIO_CHANNEL_BLUETOOTH"},{"value":3,"enumerator":"KELU_TV_AUDIO_CHANNEL_HDMI"},{"value":4,"enumerator":"KELU_TV_AUDIO_CHANNEL_SPDIF"},{"value":5,"enumerator":"KELU_TV_AUDIO_CHANNEL_AVOUT"},{"value":6,"enumerator":"KELU_TV_AUDIO_CHANNEL_24G"},{"value":7,"enumerator":"KELU_TV_AUDIO_CHANNEL_HDMI_ARC"},{"value":8,"enumerator":"KELU_TV_AUDIO_CHANNEL_SOCOUTPUT"}]}],"calls":"Audio::getVolume","requests":[{"command":"CMD_AUDIO_GETVOLUME","number":8201,"arguments":"int32 channel","reply":"int value"}],"effect":{"kind":"read","dangerous":false},"nullRule":"","note":""}
)text");
}

TEST(Encode, givesTheBytesOfARequest) {
    EXPECT_EQ(quietRun({"encode", "audio.setVolume", "headphone", "-1"}).output,
              tokenDigits() + "0820000001000000ffffffff\n");
    EXPECT_EQ(quietRun({"encode", "audio.setVolume", "headphone", "2", "--json"}).output,
              "{\"function\":\"linux_tv_Audio_setVolume\",\"requests\":[\"" + tokenDigits() +
                  "082000000100000002000000\"]}\n");
}

TEST(Encode, givesEveryRequest) {
    EXPECT_EQ(quietRun({"encode", "picture.setMPEGNR", "1"}).output,
              tokenDigits() + "1610000001000000\n" + tokenDigits() + "1810000001000000\n");
}

TEST(Encode, writesTheBytesThemselves) {
    const ToolRun run = quietRun({"encode", "--raw", "audio.getMute", "speaker"});
    const std::size_t token = tokenDigits().size() / 2;
    EXPECT_EQ(run.output.size(), token + 8);
    EXPECT_EQ(run.output.substr(token), std::string("\x0b\x20\0\0\0\0\0\0", 8));
}

TEST(Encode, saysThatNothingIsSent) {
    const ToolRun run = quietRun({"encode", "factory.getWBWhitePattern"});
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "factory.getWBWhitePattern sends nothing\n");
    EXPECT_EQ(quietRun({"encode", "-q", "factory.getWBWhitePattern"}).error, "");
}

} // namespace
} // namespace kelutv::test
