#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_systemsetting.h>

#include <unistd.h>

#include <array>
#include <climits>

namespace kelutv::test {
namespace {

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x8047, {item, param1, 0}); }

using SystemItem = ClientTest;

TEST_F(SystemItem, flagsAreFalseAfterAFailure) {
    struct Getter {
        int item;
        int (*read)(bool*);
    };
    for (const Getter& getter : {Getter{32792, linux_tv_SystemSetting_getTvserverInitFinish},
                                 Getter{32803, linux_tv_SystemSetting_getMarketModeEnable},
                                 Getter{32815, linux_tv_SystemSetting_getScreenOn}}) {
        bool flag = false;
        answer({0, -3});
        EXPECT_EQ(getter.read(&flag), 0);
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
        EXPECT_TRUE(flag);
        EXPECT_EQ(getter.read(nullptr), 0);
        answer({3, 1});
        EXPECT_EQ(getter.read(&flag), -1);
        EXPECT_FALSE(flag);
        EXPECT_EQ(getter.read(nullptr), -1);
        sent();
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SystemItem, valuesAreZeroAfterAFailure) {
    int low = 98;
    int high = 99;
    answer({0, 48250, 863250});
    EXPECT_EQ(linux_tv_SystemSetting_getAtvScanRange(&low, &high), 0);
    EXPECT_EQ(sent(), only(itemGet(32818)));
    EXPECT_EQ(low, 48250);
    EXPECT_EQ(high, 863250);
    EXPECT_EQ(linux_tv_SystemSetting_getAtvScanRange(nullptr, nullptr), 0);
    EXPECT_EQ(linux_tv_SystemSetting_getSocPlatformInfo(nullptr), 0);
    answer({3, 1, 2});
    EXPECT_EQ(linux_tv_SystemSetting_getAtvScanRange(&low, &high), -1);
    EXPECT_EQ(low, 0);
    EXPECT_EQ(high, 0);
    int platform = 99;
    EXPECT_EQ(linux_tv_SystemSetting_getSocPlatformInfo(&platform), -1);
    EXPECT_EQ(platform, SOC_TV_PLATFORM_DEFAULT);
}

// irregular: linux_tv_SystemSetting_getLanguage
TEST_F(SystemItem, theLanguageIsTheAnswerAndAFailureIsPrinted) {
    FdCapture output(STDOUT_FILENO);
    answer({0, 8});
    EXPECT_EQ(linux_tv_SystemSetting_getLanguage(), KQ_LANG_GERMAN);
    EXPECT_EQ(sent(), only(itemGet(32770)));
    answer({0, -1});
    EXPECT_EQ(linux_tv_SystemSetting_getLanguage(), -1);
    EXPECT_EQ(output.take(), "");
    answer({4, 8});
    EXPECT_EQ(linux_tv_SystemSetting_getLanguage(), 0);
    EXPECT_EQ(output.take(), "linux_tv_SystemSetting_getSystemItemValue fail");
    EXPECT_EQ(logged(), kNothingLogged);
}

/** The two lists of languages. */
struct LanguageList {
    const char* name;
    Bytes request;
    int (*read)(int*, int*);
    bool logsEach;
};

class SystemLanguages : public ClientTest, public ::testing::WithParamInterface<LanguageList> {
protected:
    SystemLanguages() { list.fill(kUntouched); }

    /** An answer of the count and then 1, 2, 3 ... up to 254. */
    void answerCounted(std::int32_t count) {
        Wire reply = Wire::reply().i32(0).i32(count);
        for (int i = 1; i <= 254; ++i) {
            reply.i32(i);
        }
        service().reply(reply.bytes());
    }

    void expectEntries(int entries) {
        for (int i = 0; i < entries; ++i) {
            EXPECT_EQ(list[static_cast<size_t>(i)], i + 1);
        }
        EXPECT_EQ(list[static_cast<size_t>(entries)], kUntouched);
        std::vector<LogEntry> lines;
        for (int i = 0; i < entries && GetParam().logsEach; ++i) {
            lines.push_back({ANDROID_LOG_INFO, "TVBASEMW@linuxSystemSetting",
                             "linux_tv_SystemSetting_getSubtitleLanList pLanList[" + std::to_string(i) +
                                 "] = " + std::to_string(i + 1)});
        }
        EXPECT_EQ(logged(), lines);
    }

    std::array<int, 256> list{};
    int size = 99;
};

// irregular: linux_tv_SystemSetting_getLanguageList
// irregular: linux_tv_SystemSetting_getSubtitleLanList
TEST_P(SystemLanguages, areCopiedBehindTheirCount) {
    answerCounted(3);
    EXPECT_EQ(GetParam().read(list.data(), &size), 0);
    EXPECT_EQ(sent(), only(GetParam().request));
    EXPECT_EQ(size, 3);
    expectEntries(3);
}

TEST_P(SystemLanguages, areNoMoreThanAnAnswerHolds) {
    for (const int count : {254, 255, INT_MAX}) {
        list.fill(kUntouched);
        answerCounted(count);
        EXPECT_EQ(GetParam().read(list.data(), &size), 0);
        EXPECT_EQ(size, count);
        expectEntries(254);
    }
}

TEST_P(SystemLanguages, areNoneForACountBelowOne) {
    for (const int count : {0, -1, INT_MIN}) {
        answerCounted(count);
        EXPECT_EQ(GetParam().read(list.data(), &size), 0);
        EXPECT_EQ(size, count);
        expectEntries(0);
    }
}

TEST_P(SystemLanguages, areNoneAfterAFailure) {
    answer({4, 2, 5, 6});
    EXPECT_EQ(GetParam().read(list.data(), &size), -1);
    EXPECT_EQ(size, 0);
    expectEntries(0);
}

TEST_P(SystemLanguages, mayHaveNoPlace) {
    answerCounted(2);
    EXPECT_EQ(GetParam().read(nullptr, &size), 0);
    EXPECT_EQ(size, 2);
    EXPECT_EQ(GetParam().read(list.data(), nullptr), 0);
    EXPECT_EQ(list[1], 2);
}

int readSubtitleLanguages(int* list, int* size) { return linux_tv_SystemSetting_getSubtitleLanList(17, list, size); }

INSTANTIATE_TEST_SUITE_P(Lists, SystemLanguages,
                         ::testing::Values(LanguageList{"menus", itemGet(32791), linux_tv_SystemSetting_getLanguageList,
                                                        false},
                                           LanguageList{"subtitles", itemGet(32816, 17), readSubtitleLanguages, true}),
                         [](const auto& list) { return std::string(list.param.name); });

} // namespace
} // namespace kelutv::test
