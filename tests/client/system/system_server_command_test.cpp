#include "client/ClientTest.h"

#include <kelutv/SystemSetting.h>

#include <algorithm>
#include <climits>
#include <cstring>

namespace kelutv::test {
namespace {

constexpr char kTag[] = "TVBASEMW@SystemSetting";

/** The raw command to the television's service, with an answer of bytes. */
class ServerCommand : public ClientTest {
protected:
    ServerCommand() { std::memset(output, 'z', sizeof output); }

    int send(void* input, int inSize, void* out, int* size) {
        return SystemSetting::instance()->sendCmdToTVServer(0xAB, input, inSize, out, size);
    }

    void expectLogged(int inSize, const std::vector<LogEntry>& behind) {
        std::vector<LogEntry> lines{
            {ANDROID_LOG_DEBUG, kTag, "[sendCmdToTVServer, 616] cmd = 0xab, inSize = " + std::to_string(inSize)}};
        lines.insert(lines.end(), behind.begin(), behind.end());
        EXPECT_EQ(logged(), lines);
    }

    const LogEntry success{ANDROID_LOG_DEBUG, kTag, "[sendCmdToTVServer, 637] success"};
    const LogEntry failure{ANDROID_LOG_ERROR, kTag, "[sendCmdToTVServer, 652] failed"};
    static LogEntry sizeLine(int size) {
        return {ANDROID_LOG_DEBUG, kTag, "[sendCmdToTVServer, 642] outSize = " + std::to_string(size)};
    }

    unsigned char bytes[5] = {0xFF, 0, 3, 4, 5};
    char output[17] = {};
};

// irregular: SystemSetting::sendCmdToTVServer
TEST_F(ServerCommand, carriesBytesBothWays) {
    int size = 16;
    service().reply(Wire::reply().i32(0).i32(6).raw("answer", 6).bytes());
    EXPECT_EQ(send(bytes, 5, output, &size), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x8101).i32(0xAB).i32(5).i32(16).raw(bytes, 5).bytes()));
    EXPECT_EQ(size, 6);
    EXPECT_EQ(std::string(output, 7), "answerz");
    expectLogged(5, {success, sizeLine(6)});
}

TEST_F(ServerCommand, sendsTheSizeAloneWithoutBytes) {
    int size = 16;
    for (const int inSize : {0, -1, INT_MIN}) {
        size = 16;
        EXPECT_EQ(send(bytes, inSize, output, &size), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8101, {0xAB, inSize, 16})));
        expectLogged(inSize, {success, sizeLine(0)});
    }
    size = -3;
    EXPECT_EQ(send(nullptr, 5, output, &size), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8101, {0xAB, 5, -3})));
}

TEST_F(ServerCommand, withoutAPlaceForTheSizeTellsNoRoomAndReadsNothing) {
    service().reply(Wire::reply().i32(0).i32(4).raw("four", 4).bytes());
    EXPECT_EQ(send(bytes, 1, output, nullptr), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x8101).i32(0xAB).i32(1).i32(0).raw(bytes, 1).bytes()));
    EXPECT_EQ(output[0], 'z');
    expectLogged(1, {success});
}

TEST_F(ServerCommand, withoutAPlaceForTheBytesReadsNothing) {
    int size = 9;
    service().reply(Wire::reply().i32(0).i32(4).raw("four", 4).bytes());
    EXPECT_EQ(send(nullptr, 0, nullptr, &size), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8101, {0xAB, 0, 9})));
    EXPECT_EQ(size, 9);
    expectLogged(0, {success});
}

TEST_F(ServerCommand, takesTheSizeAsTheServiceGivesIt) {
    int size = 2;
    service().reply(Wire::reply().i32(0).i32(8).raw("eight...", 8).bytes());
    EXPECT_EQ(send(nullptr, 0, output, &size), 0);
    EXPECT_EQ(size, 8);
    EXPECT_EQ(std::string(output, 9), "eight...z");
}

TEST_F(ServerCommand, isZeroWhereLessArrivedThanTold) {
    for (const int told : {9, 16, 17, 4096, INT_MAX}) {
        int size = 16;
        std::memset(output, 'z', sizeof output);
        service().reply(Wire::reply().i32(0).i32(told).raw("eight...", 8).bytes());
        EXPECT_EQ(send(nullptr, 0, output, &size), 0);
        EXPECT_EQ(size, told);
        const std::size_t missing = static_cast<std::size_t>(std::min(told, 16)) - 8;
        const std::string untouched(sizeof output - 8 - missing, 'z');
        EXPECT_EQ(std::string(output, sizeof output), "eight..." + std::string(missing, '\0') + untouched);
        expectLogged(0, {success, sizeLine(told)});
    }
}

TEST_F(ServerCommand, copiesNothingForASizeBelowOne) {
    for (const int told : {0, -1, INT_MIN}) {
        int size = 16;
        service().reply(Wire::reply().i32(0).i32(told).raw("four", 4).bytes());
        EXPECT_EQ(send(nullptr, 0, output, &size), 0);
        EXPECT_EQ(size, told);
        EXPECT_EQ(output[0], 'z');
        expectLogged(0, {success, sizeLine(told)});
    }
}

TEST_F(ServerCommand, failsForAnyResultButZeroAndLeavesTheOutputs) {
    for (const std::int32_t result : {1, -1, 256}) {
        int size = 16;
        service().reply(Wire::reply().i32(result).i32(4).raw("four", 4).bytes());
        EXPECT_EQ(send(bytes, 5, output, &size), -1);
        EXPECT_EQ(size, 16);
        EXPECT_EQ(output[0], 'z');
        expectLogged(5, {failure});
    }
}

TEST_F(ServerCommand, failsWithTheLinkAndLeavesItsMessageToItself) {
    int size = 16;
    failTransactions();
    EXPECT_EQ(send(bytes, 5, output, &size), -1);
    EXPECT_EQ(size, 16);
    expectLogged(5, {failure});
}

} // namespace
} // namespace kelutv::test
