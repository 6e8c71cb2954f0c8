// The screen of the simulator: what it says of the television, and how that looks.

#include "simulator/control/Control.h"
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
    view.commands = {"[1] FIRST() -> 0", "[1] SECOND() -> 0", "[1] THIRD() -> 0"};
    view.events = {"event 0x1: one", "event 0x2: two"};
    return view;
}

TEST(UiRender, DrawsTheTelevision) {
    const Lines expected{
        "kelutv-simulator", "Power     on",
        "Source    HDMI1",  "Signal    1920x1080p 60 Hz, SDR",
        "Picture   vivid",  "Volume    [##########---------------] 40",
        "Pattern   none",   "Hotel     off",
        "Commands",         "[1] SECOND() -> 0",
        "[1] THIRD() -> 0", "Events",
        "event 0x1: one",   "event 0x2: two",
    };
    EXPECT_EQ(render(example(), {14, 80}, false), expected);
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
        "Faults    fault any error -1",
        "          fault any error -2",
        "          fault any error -3",
        "          fault any error -4",
        "          and 2 more",
        "Commands",
    };
    ASSERT_EQ(rows.size(), 40U);
    EXPECT_EQ(Lines(rows.begin() + 3, rows.begin() + 14), expected);
}

TEST(UiRender, FillsTheScreenFromAboveAndTheLatestStayInSight) {
    const Lines rows = render(example(), {24, 80}, false);
    ASSERT_EQ(rows.size(), 24U);
    EXPECT_EQ(Lines(rows.begin() + 8, rows.end()),
              (Lines{"Commands", "[1] FIRST() -> 0", "[1] SECOND() -> 0", "[1] THIRD() -> 0", "", "", "", "", "Events",
                     "event 0x1: one", "event 0x2: two", "", "", "", "", ""}));
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
    EXPECT_EQ(render(view, {3, 8}, false), (Lines{"kelutv-s", "Power   ", "Source  "}));
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
    EXPECT_EQ(rows[0], "\x1b[1mkelutv-simulator\x1b[0m");
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
    EXPECT_EQ(after({"unplug hdmi3"}).signal, "none");
}

} // namespace

} // namespace kelutv::simulator
