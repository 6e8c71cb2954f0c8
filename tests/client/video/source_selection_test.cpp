#include "client/ClientTest.h"

#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

#include <cstdint>
#include <ostream>
#include <string>

namespace kelutv::test {
namespace {

using SourceSelection = ClientTest;

LogEntry told(const std::string& text) { return {ANDROID_LOG_INFO, "TVBASEMW@linuxSourceManager", text}; }

// irregular: linux_tv_SourceManager_selectSource
TEST_F(SourceSelection, givesZeroAndIsLoggedBeforeAndAfter) {
    const std::vector<LogEntry> lines{
        told("linuxapi before linux_tv_SourceManager_selectSource srcId = 9,mainWindow = -1"),
        told("linuxapi after linux_tv_SourceManager_selectSource srcId = 9,mainWindow = -1")};
    for (const std::int32_t status : {0, 5, -7}) {
        answer({status});
        EXPECT_EQ(linux_tv_SourceManager_selectSource(9, -1), 0);
        EXPECT_EQ(sent(), only(requestOf(0x7000, {9, -1})));
        EXPECT_EQ(logged(), lines);
    }
}

TEST_F(SourceSelection, ofTheClassGivesTheServicesResultAndLogsNothing) {
    answer({5});
    EXPECT_EQ(SourceManager::instance()->selectSource(2, 1), 5);
    EXPECT_EQ(sent(), only(requestOf(0x7000, {2, 1})));
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SourceSelection, takesEveryFlagButZeroAsOne) {
    for (const int flag : {1, 2, -1, 256}) {
        linux_tv_SourceManager_deselectSource(12, flag);
        EXPECT_EQ(sent(), only(requestOf(0x7001, {12, 1})));
        linux_tv_SourceManager_enableDualDisplay(flag);
        EXPECT_EQ(sent(), only(requestOf(0x7004, {1})));
        linux_tv_SourceManager_setDisplayOnLeft(flag, 3);
        EXPECT_EQ(sent(), only(requestOf(0x7005, {1, 3})));
    }
    linux_tv_SourceManager_deselectSource(12, 0);
    EXPECT_EQ(sent(), only(requestOf(0x7001, {12, 0})));
    linux_tv_SourceManager_enableDualDisplay(0);
    EXPECT_EQ(sent(), only(requestOf(0x7004, {0})));
    linux_tv_SourceManager_setDisplayOnLeft(0, 3);
    EXPECT_EQ(sent(), only(requestOf(0x7005, {0, 3})));
}

/** A reader of one source; `told` is the beginning of what it logs. */
struct SourceReader {
    const char* name;
    Bytes request;
    int (*function)();
    bool folds;
    const char* told;
};

void PrintTo(const SourceReader& reader, std::ostream* out) { *out << reader.name; }

class SourceReading : public ClientTest, public ::testing::WithParamInterface<SourceReader> {
protected:
    void expectGiven(std::int32_t result, std::int32_t answered, int given) {
        answer({result, answered});
        EXPECT_EQ(GetParam().function(), given);
        EXPECT_EQ(sent(), only(GetParam().request));
        const bool tells = GetParam().told != nullptr;
        EXPECT_EQ(logged(), tells ? std::vector{told(GetParam().told + std::to_string(given))} : kNothingLogged);
    }
};

// irregular: linux_tv_SourceManager_getCurSourceId
// irregular: linux_tv_SourceManager_getSelectSourceId
// irregular: linux_tv_SourceManager_getBootSource
// irregular: linux_tv_SourceManager_getLastMainSource
TEST_P(SourceReading, foldsTheSecondDigitalSourceWhereItDoes) { expectGiven(0, 2, GetParam().folds ? 1 : 2); }

TEST_P(SourceReading, givesEveryOtherSourceUnchanged) {
    for (const std::int32_t source : {0, 1, 3, 9, 18, -2, -1}) {
        expectGiven(0, source, source);
    }
}

TEST_P(SourceReading, givesAFailureUnchanged) { expectGiven(3, 2, -1); }

INSTANTIATE_TEST_SUITE_P(
    Readers, SourceReading,
    ::testing::Values(
        SourceReader{"current", requestOf(0x7007, {7}), [] { return linux_tv_SourceManager_getCurSourceId(7); }, true,
                     "linuxapi linux_tv_SourceManager_getCurSourceId = "},
        SourceReader{"selected", requestOf(0x700F), linux_tv_SourceManager_getSelectSourceId, true, nullptr},
        SourceReader{"boot", requestOf(0x700E), linux_tv_SourceManager_getBootSource, true, nullptr},
        SourceReader{"lastMain", requestOf(0x7013), linux_tv_SourceManager_getLastMainSource, false,
                     "linuxapi linux_tv_SourceManager_getLastMainSource = "}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(SourceSelection, theClassNeverFolds) {
    answer({0, 2});
    EXPECT_EQ(SourceManager::instance()->getCurSourceId(0), 2);
    EXPECT_EQ(SourceManager::instance()->getSelectSourceId(), 2);
    EXPECT_EQ(SourceManager::instance()->getBootSource(), 2);
    EXPECT_EQ(SourceManager::instance()->getLastMainSource(), 2);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SourceSelection, questionsAboutSourcesGiveTheValueItself) {
    answer({0, -3});
    EXPECT_EQ(linux_tv_SourceManager_isHasMultiAvSource(), -3);
    EXPECT_EQ(linux_tv_SourceManager_isNeedRelease(9, 4), -3);
    EXPECT_EQ(linux_tv_SourceManager_isNeedSwitchMedia(9, 13, 4), -3);
    EXPECT_EQ(linux_tv_SourceManager_isNeedSelectSoucre(9, 13), -3);
}

TEST_F(SourceSelection, questionsAboutTheSignalGiveOneForAnythingButZero) {
    answer({0, -3});
    EXPECT_EQ(linux_tv_SourceManager_isDVIMode(), 1);
    EXPECT_EQ(linux_tv_SourceManager_isMHLStatus(), 1);
    EXPECT_EQ(linux_tv_SourceManager_isMHLPortInUse(), 1);
    EXPECT_EQ(linux_tv_SourceManager_getOfflineSigStatus(9), 1);
    answer({0, 0});
    EXPECT_EQ(linux_tv_SourceManager_isDVIMode(), 0);
    EXPECT_EQ(linux_tv_SourceManager_isMHLStatus(), 0);
    EXPECT_EQ(linux_tv_SourceManager_isMHLPortInUse(), 0);
    EXPECT_EQ(linux_tv_SourceManager_getOfflineSigStatus(9), 0);
}

} // namespace
} // namespace kelutv::test
