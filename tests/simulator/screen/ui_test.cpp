// The screen of the simulator: what it says of the television, and how that looks.

#include "simulator/control/Control.h"
#include "simulator/screen/UiKeys.h"
#include "simulator/screen/UiRender.h"
#include "simulator/screen/UiView.h"
#include "simulator/television/Television.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kelutv::simulator {

namespace {

using Lines = std::vector<std::string>;

UiView example() {
    UiView view;
    view.power = "on";
    view.source = "HDMI1";
    view.signal = "1920x1080p 60 Hz";
    view.streamType = "SDR";
    view.pictureMode = "vivid";
    view.volume = 40;
    view.hotel = "off";
    view.inputs = {{1, "KELU_TV_SRC_ATV", "ATV", true, true, false},
                   {9, "KELU_TV_SRC_HDMI1", "HDMI1", true, true, true},
                   {10, "KELU_TV_SRC_HDMI2", "HDMI2", false, false, false},
                   {12, "KELU_TV_SRC_HDMI4", "HDMI4", true, false, false}};
    view.devices = {"5 Soundbar (plays)", "8 Streaming box (unplugged)"};
    view.hasKeys = true;
    view.commands = {"[1] FIRST() -> 0", "[1] SECOND() -> 0", "[1] THIRD() -> 0"};
    view.events = {"event 0x1: one", "event 0x2: two"};
    return view;
}

constexpr char kTitle[] = "kelutv-simulator  q leaves, ? shows keys";
constexpr char kInputs[] = "Inputs    ATV, HDMI1, HDMI2 (unplugged), HDMI4 (no signal)";
constexpr char kDevices[] = "CEC       5 Soundbar (plays), 8 Streaming box (unplugged)";

TEST(UiRender, DrawsTheTelevision) {
    const Lines expected{
        kTitle,
        "Power     on",
        "Source    HDMI1",
        "Signal    1920x1080p 60 Hz, SDR",
        "Picture   vivid",
        "Volume    [##########---------------] 40",
        "Pattern   none",
        "Hotel     off",
        kInputs,
        kDevices,
        "Commands",
        "[1] SECOND() -> 0",
        "[1] THIRD() -> 0",
        "Events",
        "event 0x1: one",
        "event 0x2: two",
    };
    EXPECT_EQ(render(example(), {16, 80}, false), expected);
}

TEST(UiRender, CutsNothingAtFortyColumns) {
    UiView view = example();
    view.volume = 100;
    view.muted = true;
    view.pattern = UiColor{255, 255, 255};
    view.commands = {"[4711] CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) -> 0"};
    view.events = {"event 0x60001 volumeChanged: audio.volume[0] = 35"};
    const Lines expected{
        "kelutv-simulator  q leaves, ? shows keys",
        "Power     on",
        "Source    HDMI1",
        "Signal    1920x1080p 60 Hz, SDR",
        "Picture   vivid",
        "Volume    [###################] 100 mute",
        "Pattern   red 255, green 255, blue 255",
        "Hotel     off",
        "Inputs    ATV, HDMI1, HDMI2 (unplugged),",
        "          HDMI4 (no signal)",
        "CEC       5 Soundbar (plays), 8",
        "          Streaming box (unplugged)",
        "Commands",
        "[4711] CMD_AUDIO_SETVOLUME(channel=0",
        "KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35)",
        "-> 0",
        "Events",
        "event 0x60001 volumeChanged:",
        "audio.volume[0] = 35",
        "",
    };
    EXPECT_EQ(render(view, {20, 40}, false), expected);
}

TEST(UiRender, ExplainsTheKeys) {
    UiView view = example();
    view.showsKeys = true;
    const Lines expected{
        kTitle,
        "Keys",
        "+ -  volume",
        "m    mute",
        "s S  next source, or the one before",
        "u    unplug the source, or plug it in",
        "p    power",
        "arrows, Enter, Backspace, h (home), M",
        "(menu), 0 to 9: keys for the application",
        "?    the television again",
        "q    leave, as Ctrl-C does",
        "",
    };
    EXPECT_EQ(render(view, {12, 40}, false), expected);
}

TEST(UiRender, SaysHowToLeaveWithoutAKeyboard) {
    UiView view = example();
    view.hasKeys = false;
    EXPECT_EQ(render(view, {24, 80}, false)[0], "kelutv-simulator  Ctrl-C leaves");
}

TEST(UiRender, ShowsMutePatternAndFaults) {
    UiView view = example();
    view.signal = "none";
    view.volume = 100;
    view.muted = true;
    view.pattern = UiColor{255, 128, 0};
    view.faults = {"fault any error -1", "fault any error -2", "fault any error -3",
                   "fault any error -4", "fault any error -5", "fault any error -6"};
    const Lines rows = render(view, {40, 80}, false);
    const Lines expected{
        "Signal    none",
        "Picture   vivid",
        "Volume    [#########################] 100 mute",
        "Pattern   red 255, green 128, blue 0",
        "Hotel     off",
        kInputs,
        kDevices,
        "Faults    fault any error -1",
        "          fault any error -2",
        "          fault any error -3",
        "          fault any error -4",
        "          and 2 more",
        "Commands",
    };
    ASSERT_EQ(rows.size(), 40U);
    EXPECT_EQ(Lines(rows.begin() + 3, rows.begin() + 16), expected);
}

TEST(UiRender, FillsTheScreenFromAboveAndTheLatestStayInSight) {
    const Lines rows = render(example(), {24, 80}, false);
    ASSERT_EQ(rows.size(), 24U);
    EXPECT_EQ(Lines(rows.begin() + 10, rows.end()),
              (Lines{"Commands", "[1] FIRST() -> 0", "[1] SECOND() -> 0", "[1] THIRD() -> 0", "", "", "", "Events",
                     "event 0x1: one", "event 0x2: two", "", "", "", ""}));
}

TEST(UiRender, FitsEverySize) {
    UiView view = example();
    view.faults = {std::string(300, 'f')};
    for (std::size_t rows = 0; rows < 30; ++rows) {
        for (const std::size_t columns : {0, 1, 9, 10, 11, 40}) {
            const Lines drawn = render(view, {rows, columns}, false);
            EXPECT_EQ(drawn.size(), rows);
            EXPECT_TRUE(std::all_of(drawn.begin(), drawn.end(),
                                    [columns](const std::string& row) { return row.size() <= columns; }));
        }
    }
    EXPECT_EQ(render(view, {3, 8}, false), (Lines{"kelutv-s", "Power   ", "        "}));
}

TEST(UiRender, LetsNoControlCharacterThrough) {
    UiView view = example();
    view.source = "A\x1b[31m\xc3\xa9\n";
    EXPECT_EQ(render(view, {3, 80}, false)[2], "Source    A?[31m???");
}

TEST(UiRender, ColoursOnlyWhenAllowed) {
    UiView view = example();
    view.pattern = UiColor{1, 2, 3};
    const Lines rows = render(view, {20, 80}, true);
    EXPECT_EQ(rows[0], "\x1b[1mkelutv-simulator\x1b[0m\x1b[2m  q leaves, ? shows keys\x1b[0m");
    EXPECT_EQ(rows[1], "\x1b[2mPower     \x1b[0mon");
    EXPECT_EQ(rows[6], "\x1b[2mPattern   \x1b[0m\x1b[48;2;1;2;3m        \x1b[0m red 1, green 2, blue 3");
    for (const std::string& row : render(view, {20, 80}, false)) {
        EXPECT_EQ(row.find('\x1b'), std::string::npos) << row;
    }
}

class UiViewOf : public ::testing::Test {
protected:
    UiView after(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            const Answer answer = obey(mTelevision.equipment().configuration, line,
                                       [this](const Deed& deed) { return mTelevision.operate(deed); });
            EXPECT_TRUE(answer.ok) << line << ": " << answer.text;
        }
        return viewOf(mTelevision.equipment());
    }

    Television mTelevision{Configuration::standard()};
};

TEST_F(UiViewOf, TheTelevisionAtFirst) {
    const UiView view = after({});
    EXPECT_EQ(view.power, "on");
    EXPECT_EQ(view.source, "ATV");
    EXPECT_EQ(view.signal, "720x576i 50 Hz");
    EXPECT_EQ(view.streamType, "SDR");
    EXPECT_EQ(view.pictureMode, "standard");
    EXPECT_EQ(view.volume, 20);
    EXPECT_FALSE(view.muted);
    EXPECT_FALSE(view.pattern);
    EXPECT_EQ(view.hotel, "off");
    EXPECT_EQ(view.faults, Lines{});
    ASSERT_EQ(view.inputs.size(), 13U);
    EXPECT_EQ(view.inputs[0].name, "ATV");
    EXPECT_TRUE(view.inputs[0].isCurrent);
    EXPECT_TRUE(view.inputs[0].hasSignal);
    EXPECT_EQ(view.inputs[4].name, "CVBS2");
    EXPECT_TRUE(view.inputs[4].isPlugged);
    EXPECT_FALSE(view.inputs[4].hasSignal);
    EXPECT_EQ(view.devices,
              (Lines{"4 Disc player", "5 Soundbar", "8 Streaming box (unplugged)", "3 Set-top box (unplugged)"}));
}

TEST_F(UiViewOf, WhatWasChanged) {
    const UiView view = after({
        "power suspended",
        "set sourcemanager.curSource[0] = hdmi3",
        "set audio.volume[speaker] = 7",
        "set audio.mute[speaker] = 1",
        "set factory.whiteBalanceColor = 1 255 300 -1",
        "set factory.hotelEnable = 1",
        "set factory.hotelMaxVolume = 40",
        "fault any error -5",
    });
    EXPECT_EQ(view.power, "suspended");
    EXPECT_EQ(view.source, "HDMI3");
    EXPECT_EQ(view.signal, "3840x2160p 24 Hz");
    EXPECT_EQ(view.streamType, "DOLBY_HDR");
    EXPECT_EQ(view.pictureMode, "standard");
    EXPECT_EQ(view.volume, 7);
    EXPECT_TRUE(view.muted);
    ASSERT_TRUE(view.pattern);
    EXPECT_EQ(view.pattern->red, 255);
    EXPECT_EQ(view.pattern->green, 255);
    EXPECT_EQ(view.pattern->blue, 0);
    EXPECT_EQ(view.hotel, "on, volume up to 40");
    EXPECT_EQ(view.faults, Lines{"fault any error -5"});
    const UiView unplugged = after({"unplug hdmi3", "cec play 5"});
    EXPECT_EQ(unplugged.signal, "none");
    EXPECT_FALSE(unplugged.inputs[9].isPlugged);
    EXPECT_EQ(unplugged.inputs[9].fullName, "KELU_TV_SRC_HDMI3");
    EXPECT_EQ(unplugged.devices[1], "5 Soundbar (plays)");
}

std::vector<std::string> linesFor(const std::string& bytes, const UiView& view) {
    std::vector<std::string> lines;
    for (const UiKey& key : keysIn(bytes)) {
        lines.push_back(lineFor(key, view).value_or(""));
    }
    return lines;
}

TEST_F(UiViewOf, KeysAreThoseOfARemoteControl) {
    const UiView view = after({});
    EXPECT_EQ(linesFor("+=-mu", view),
              (Lines{"set audio.volume[0] = 21", "set audio.volume[0] = 21", "set audio.volume[0] = 19",
                     "set audio.mute[0] = 1", "unplug KELU_TV_SRC_ATV"}));
    EXPECT_EQ(linesFor("p", view), Lines{"power suspended"});
    EXPECT_EQ(linesFor("\x1b[A\x1bOB\r\x7f"
                       "7",
                       view),
              (Lines{"key 103", "key 108", "key 28", "key 158", "key 8"}));
    EXPECT_EQ(linesFor("q?", view), (Lines{"", ""}));
}

TEST_F(UiViewOf, KeysGoOnFromWhatThereIs) {
    const UiView view = after({"set audio.volume[0] = 100", "set audio.mute[0] = 1", "power memory", "unplug atv"});
    EXPECT_EQ(linesFor("+mpu", view),
              (Lines{"set audio.volume[0] = 100", "set audio.mute[0] = 0", "power on", "plug KELU_TV_SRC_ATV"}));
    EXPECT_EQ(linesFor("-", after({"set audio.volume[0] = 0"})), Lines{"set audio.volume[0] = 0"});
}

TEST_F(UiViewOf, KeysGoThroughTheSources) {
    const UiView view = after({});
    const std::string select = "set sourcemanager.curSource[0] = ";
    EXPECT_EQ(linesFor("sS", view),
              (Lines{select + std::to_string(view.inputs[1].id), select + std::to_string(view.inputs[12].id)}));
    const UiView last = after({select + std::to_string(view.inputs[12].id)});
    EXPECT_EQ(linesFor("s", last), Lines{select + std::to_string(view.inputs[0].id)});
}

TEST(UiKeys, LeavesOutWhatIsNoKey) {
    EXPECT_EQ(keysIn("x\x1b[15~\x1b[1;5D\x1b\xc3\xa9").size(), 0U);
    EXPECT_EQ(keysIn("\x1b[15~m").size(), 1U);
}

} // namespace

} // namespace kelutv::simulator
