#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

#include <array>
#include <list>
#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

struct SourceListReader {
    const char* name;
    int command;
    int (*function)(int* list, int* count);
    std::list<int> (SourceManager::*method)();
    std::vector<int> twoAmongOthers;
    std::vector<int> twoAlone;
};

void PrintTo(const SourceListReader& reader, std::ostream* out) { *out << reader.name; }

class SourceList : public ClientTest, public ::testing::WithParamInterface<SourceListReader> {
protected:
    SourceList() { list.fill(kUntouched); }

    int read() { return GetParam().function(list.data(), &count); }

    void expectListed(const std::vector<int>& sources) {
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(sent(), only(requestOf(GetParam().command)));
        EXPECT_EQ(count, static_cast<int>(sources.size()));
        EXPECT_EQ(std::vector<int>(list.data(), list.data() + sources.size()), sources);
        EXPECT_EQ(list[sources.size()], kUntouched);
        EXPECT_EQ(logged(), kNothingLogged);
    }

    void expectNone() {
        count = kUntouched;
        EXPECT_EQ(read(), -1);
        EXPECT_EQ(sent(), only(requestOf(GetParam().command)));
        EXPECT_EQ(count, 0);
        EXPECT_EQ(list[0], kUntouched);
        EXPECT_EQ(logged(), kNothingLogged);
    }

    std::array<int, 8> list{};
    int count = kUntouched;
};

// irregular: linux_tv_SourceManager_getSourceList
// irregular: linux_tv_SourceManager_getAvailSourceList
TEST_P(SourceList, mayLeaveOutTheSecondDigitalSource) {
    answer({0, 1, 2, 9});
    expectListed(GetParam().twoAmongOthers);
}

TEST_P(SourceList, isNoFailureWhenAllIsLeftOut) {
    answer({0, 2, 2});
    expectListed(GetParam().twoAlone);
}

TEST_P(SourceList, keepsTheOrderAndWhatStandsTwice) {
    answer({0, 12, 0, 12, -5, 1});
    expectListed({12, 0, 12, -5, 1});
}

TEST_P(SourceList, withoutEntriesGivesTheCountZeroAndAFailure) {
    answer({0});
    expectNone();
}

TEST_P(SourceList, afterAnErrorGivesTheCountZeroAndAFailure) {
    answer({3, 1, 9});
    expectNone();
    failTransactions();
    expectNone();
}

TEST_P(SourceList, endsBeforeBytesThatMakeNoNumber) {
    for (const std::size_t left : {1U, 2U, 3U}) {
        Bytes reply = replyOf({0, 9});
        reply.insert(reply.end(), left, 0x01);
        service().reply(reply);
        EXPECT_EQ((SourceManager::instance()->*GetParam().method)(), std::list<int>{9});
    }
}

TEST_P(SourceList, needsNoPlaceForWhatItGives) {
    answer({0, 1, 9});
    EXPECT_EQ(GetParam().function(nullptr, nullptr), 0);
    EXPECT_EQ(GetParam().function(nullptr, &count), 0);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(GetParam().function(list.data(), nullptr), 0);
    EXPECT_EQ(list[1], 9);
    answer({0});
    EXPECT_EQ(GetParam().function(nullptr, nullptr), -1);
}

TEST_P(SourceList, ofTheClassHoldsEverySource) {
    answer({0, 1, 2, 9});
    EXPECT_EQ((SourceManager::instance()->*GetParam().method)(), (std::list<int>{1, 2, 9}));
    answer({3, 1, 2, 9});
    EXPECT_TRUE((SourceManager::instance()->*GetParam().method)().empty());
}

INSTANTIATE_TEST_SUITE_P(Readers, SourceList,
                         ::testing::Values(SourceListReader{"all",
                                                            0x7008,
                                                            linux_tv_SourceManager_getSourceList,
                                                            &SourceManager::getSourceList,
                                                            {1, 9},
                                                            {}},
                                           SourceListReader{"available",
                                                            0x7009,
                                                            linux_tv_SourceManager_getAvailSourceList,
                                                            &SourceManager::getAvailSourceList,
                                                            {1, 2, 9},
                                                            {2, 2}}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace kelutv::test
