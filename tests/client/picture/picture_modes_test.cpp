#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_picture.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

constexpr int kGetStreamType = 0x1053;
constexpr int kSetMode = 0x1002;
constexpr int kGetMode = 0x1003;

enum class Kind { Sdr, Hdr, Dolby };

struct StreamType {
    int value;
    Kind kind;
};

const StreamType kStreamTypes[] = {
    {-1, Kind::Sdr}, {0, Kind::Sdr}, {1, Kind::Hdr}, {2, Kind::Dolby}, {3, Kind::Sdr},
    {4, Kind::Hdr},  {5, Kind::Sdr}, {6, Kind::Hdr}, {7, Kind::Sdr},   {8, Kind::Sdr},
};

/** What a value becomes in each kind of stream. */
struct Row {
    int from;
    int sdr;
    int hdr;
    int dolby;

    int in(Kind kind) const { return kind == Kind::Sdr ? sdr : kind == Kind::Hdr ? hdr : dolby; }
};

const Row kIndexOfMode[] = {
    {-1, 0, 0, 0}, {0, 0, 0, 3},  {1, 2, 2, 2},  {2, 9, 0, 0},  {3, 11, 0, 0}, {4, 0, 0, 0},  {5, 0, 0, 0},
    {6, 3, 3, 0},  {7, 0, 0, 1},  {8, 0, 0, 0},  {9, 0, 0, 0},  {10, 7, 0, 0}, {11, 1, 1, 0}, {12, 8, 0, 0},
    {13, 6, 0, 0}, {14, 4, 0, 0}, {15, 0, 0, 0}, {16, 0, 0, 0}, {17, 0, 0, 0},
};

const Row kModeOfIndex[] = {
    {-1, 0, 0, 0}, {0, 0, 0, 8},  {1, 11, 11, 7}, {2, 1, 1, 1},  {3, 6, 6, 0},  {4, 14, 0, 0}, {5, 0, 0, 0},
    {6, 13, 0, 0}, {7, 10, 0, 0}, {8, 12, 0, 0},  {9, 2, 0, 0},  {10, 0, 0, 0}, {11, 3, 0, 0}, {12, 0, 0, 0},
    {13, 0, 0, 0}, {14, 0, 0, 0}, {15, 0, 0, 0},  {16, 0, 0, 0}, {17, 0, 0, 0},
};

std::vector<std::string> both(const Bytes& first, const Bytes& second) { return {hex(first), hex(second)}; }

std::string number(int value) { return std::to_string(value); }

class PictureMode : public ClientTest {
protected:
    void streamTypeIs(int streamType) { service().replyTo(kGetStreamType, replyOf({0, streamType})); }

    std::string printed() { return mOutput.take(); }

    static std::string conversion(const std::string& function, int mode, int index, int streamType) {
        return function + " picturemode = " + number(mode) + ",streamTypeIndex = " + number(streamType) + function +
               " pictureModeIndex = " + number(index) + ",streamTypeIndex = " + number(streamType);
    }

    /** Calls a function that asks about one mode, for every stream type and every mode. */
    void expectOnlyTheIndexIsSent(int (*function)(int), const std::string& name, int command) {
        for (const StreamType& stream : kStreamTypes) {
            streamTypeIs(stream.value);
            service().replyTo(command, replyOf({0, 77}));
            for (const Row& row : kIndexOfMode) {
                const int index = row.in(stream.kind);
                SCOPED_TRACE("mode " + number(row.from) + ", stream type " + number(stream.value));
                EXPECT_EQ(function(row.from), 77);
                EXPECT_EQ(sent(), both(requestOf(kGetStreamType), requestOf(command, {index})));
                EXPECT_EQ(printed(), conversion(name, row.from, index, stream.value));
            }
        }
    }

private:
    FdCapture mOutput{STDOUT_FILENO};
};

// irregular: linux_tv_Picture_setPictureMode
TEST_F(PictureMode, isSentAsItsIndexWithTheStreamType) {
    for (const StreamType& stream : kStreamTypes) {
        streamTypeIs(stream.value);
        service().replyTo(kSetMode, replyOf({6}));
        for (const Row& row : kIndexOfMode) {
            const int index = row.in(stream.kind);
            SCOPED_TRACE("mode " + number(row.from) + ", stream type " + number(stream.value));
            EXPECT_EQ(linux_tv_Picture_setPictureMode(row.from), 6);
            EXPECT_EQ(sent(), both(requestOf(kGetStreamType), requestOf(kSetMode, {index, stream.value})));
            EXPECT_EQ(printed(), conversion("setPictureMode", row.from, index, stream.value));
        }
    }
}

// irregular: linux_tv_Picture_getPictureMode
TEST_F(PictureMode, isReadFromItsIndex) {
    for (const StreamType& stream : kStreamTypes) {
        streamTypeIs(stream.value);
        for (const Row& row : kModeOfIndex) {
            const int mode = row.in(stream.kind);
            SCOPED_TRACE("index " + number(row.from) + ", stream type " + number(stream.value));
            service().replyTo(kGetMode, replyOf({0, row.from}));
            EXPECT_EQ(linux_tv_Picture_getPictureMode(), mode);
            EXPECT_EQ(sent(), both(requestOf(kGetStreamType), requestOf(kGetMode)));
            EXPECT_EQ(printed(), "getPictureMode : pictureModeIndex = " + number(mode) +
                                     ", streamTypeIndex  = " + number(stream.value));
        }
    }
}

// irregular: linux_tv_Picture_getBLValueInPicmode
TEST_F(PictureMode, isSentAsItsIndexAloneForItsBacklight) {
    expectOnlyTheIndexIsSent(linux_tv_Picture_getBLValueInPicmode, "getBLValueInPicmode", 0x1093);
}

// irregular: linux_tv_Picture_getDreamPanelByPicmode
TEST_F(PictureMode, isSentAsItsIndexAloneForItsDreamPanel) {
    expectOnlyTheIndexIsSent(linux_tv_Picture_getDreamPanelByPicmode, "getDreamPanelByPicmode", 0x1094);
}

TEST_F(PictureMode, isStandardWhenTheServiceRefusesToTell) {
    streamTypeIs(2);
    service().replyTo(kGetMode, replyOf({1, 1}));
    EXPECT_EQ(linux_tv_Picture_getPictureMode(), 0);
    EXPECT_EQ(printed(), "getPictureMode : pictureModeIndex = 0, streamTypeIndex  = 2");
}

TEST_F(PictureMode, isOfStandardRangeWhenTheStreamTypeIsNotTold) {
    service().replyTo(kGetStreamType, replyOf({1, 2}));
    EXPECT_EQ(linux_tv_Picture_setPictureMode(2), 0);
    EXPECT_EQ(sent(), both(requestOf(kGetStreamType), requestOf(kSetMode, {9, -1})));
    EXPECT_EQ(printed(), conversion("setPictureMode", 2, 9, -1));
}

} // namespace
} // namespace kelutv::test
