#include "client/ClientTest.h"

#include <kelutv/KeluEEP.h>

#include <climits>
#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(std::is_empty_v<CKeluEEP> && !std::is_polymorphic_v<CKeluEEP>);
static_assert(std::is_default_constructible_v<CKeluEEP> && std::is_copy_constructible_v<CKeluEEP>);

struct Area {
    std::string name;
    int first;
    int last;
    int (CKeluEEP::*getByte)(int);
    int (CKeluEEP::*getBlock)(int, int, int*);
    int (CKeluEEP::*setByte)(int, int);
    int (CKeluEEP::*setBlock)(int, int*, int);
};

const std::vector<Area>& areas() {
    using E = CKeluEEP;
    static const std::vector<Area> table{
        {"TV", 35328, 35836, &E::GetTVFlashEepByte, &E::GetTVFlashEepMulti, &E::SetTVFlashEepByte,
         &E::SetTVFlashEepMulti},
        {"Network", 35840, 36348, &E::GetNetworkFlashEepByte, &E::GetNetworkFlashEepMulti, &E::SetNetworkFlashEepByte,
         &E::SetNetworkFlashEepMulti},
        {"APP", 36352, 36860, &E::GetAPPFlashEepByte, &E::GetAPPFlashEepMulti, &E::SetAPPFlashEepByte,
         &E::SetAPPFlashEepMulti},
        {"BT", 36864, 37372, &E::GetBTFlashEepByte, &E::GetBTFlashEepMulti, &E::SetBTFlashEepByte,
         &E::SetBTFlashEepMulti},
        {"AT", 41984, 42492, &E::GetATFlashEepByte, &E::GetATFlashEepMulti, &E::SetATFlashEepByte,
         &E::SetATFlashEepMulti},
    };
    return table;
}

std::vector<LogEntry> refusal(const std::string& operation) {
    return {
        {ANDROID_LOG_INFO, "TVBASECLi@CKeluEEP", "function = " + operation + ",u32Address cross-border,so return "}};
}

class Eep : public ClientTest {
protected:
    /** Expects that the area's four operations refuse the address and name themselves. */
    void expectRefused(const Area& area, int address) {
        SCOPED_TRACE(area.name + " at " + std::to_string(address));
        int block[4]{1, 2, 3, 4};
        EXPECT_EQ((eep.*area.getByte)(address), -1);
        EXPECT_EQ(logged(), refusal("Get" + area.name + "FlashEepByte"));
        EXPECT_EQ((eep.*area.getBlock)(address, 4, block), -1);
        EXPECT_EQ(logged(), refusal("Get" + area.name + "FlashEepMulti"));
        EXPECT_EQ((eep.*area.setByte)(address, 9), -1);
        EXPECT_EQ(logged(), refusal("Set" + area.name + "FlashEepByte"));
        EXPECT_EQ((eep.*area.setBlock)(address, block, 4), -1);
        EXPECT_EQ(logged(), refusal("Set" + area.name + "FlashEepMulti"));
        EXPECT_EQ(block[0], 1);
        EXPECT_EQ(block[3], 4);
        EXPECT_EQ(sent(), kNothingSent);
    }

    /** Expects that the area's four operations reach the service as they are. */
    void expectPassedOn(const Area& area, int address) {
        SCOPED_TRACE(area.name + " at " + std::to_string(address));
        answer({0, 201, 202, 203});
        EXPECT_EQ((eep.*area.getByte)(address), 201);
        EXPECT_EQ(sent(), only(requestOf(0x8012, {address})));
        int block[3]{91, 92, 93};
        EXPECT_EQ((eep.*area.getBlock)(address, 2, block), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8013, {address, 2})));
        EXPECT_EQ(block[0], 201);
        EXPECT_EQ(block[1], 202);
        EXPECT_EQ(block[2], 93);
        answer({6});
        EXPECT_EQ((eep.*area.setByte)(address, 77), 6);
        EXPECT_EQ(sent(), only(requestOf(0x8014, {address, 77})));
        EXPECT_EQ((eep.*area.setBlock)(address, block, 3), 6);
        EXPECT_EQ(sent(), only(requestOf(0x8015, {address, 3, 201, 202, 93})));
        EXPECT_EQ(logged(), kNothingLogged);
    }

    CKeluEEP eep;
};

TEST_F(Eep, instanceIsOneObject) {
    EXPECT_NE(CKeluEEP::instance(), nullptr);
    EXPECT_EQ(CKeluEEP::instance(), CKeluEEP::instance());
    EXPECT_EQ(CKeluEEP::instance()->GetTVFlashEepByte(0x89FF), -1);
}

// irregular: CKeluEEP::GetTVFlashEepByte, CKeluEEP::GetTVFlashEepMulti
// irregular: CKeluEEP::SetTVFlashEepByte, CKeluEEP::SetTVFlashEepMulti
// irregular: CKeluEEP::GetNetworkFlashEepByte, CKeluEEP::GetNetworkFlashEepMulti
// irregular: CKeluEEP::SetNetworkFlashEepByte, CKeluEEP::SetNetworkFlashEepMulti
// irregular: CKeluEEP::GetAPPFlashEepByte, CKeluEEP::GetAPPFlashEepMulti
// irregular: CKeluEEP::SetAPPFlashEepByte, CKeluEEP::SetAPPFlashEepMulti
// irregular: CKeluEEP::GetBTFlashEepByte, CKeluEEP::GetBTFlashEepMulti
// irregular: CKeluEEP::SetBTFlashEepByte, CKeluEEP::SetBTFlashEepMulti
// irregular: CKeluEEP::GetATFlashEepByte, CKeluEEP::GetATFlashEepMulti
// irregular: CKeluEEP::SetATFlashEepByte, CKeluEEP::SetATFlashEepMulti
TEST_F(Eep, areaBeginsAtItsFirstAddress) {
    for (const Area& area : areas()) {
        expectPassedOn(area, area.first);
        expectRefused(area, area.first - 1);
    }
}

TEST_F(Eep, areaEndsAtItsLastAddress) {
    for (const Area& area : areas()) {
        expectPassedOn(area, area.last);
        expectRefused(area, area.last + 1);
    }
}

TEST_F(Eep, threeAddressesBehindEachAreaBelongToNobody) {
    for (const Area& owner : areas()) {
        for (const Area& area : areas()) {
            expectRefused(area, owner.last + 1);
            expectRefused(area, owner.last + 2);
            expectRefused(area, owner.last + 3);
        }
    }
}

TEST_F(Eep, areaRefusesTheAddressesOfTheOthers) {
    for (const Area& owner : areas()) {
        for (const Area& area : areas()) {
            if (owner.name != area.name) {
                expectRefused(area, owner.first);
                expectRefused(area, owner.last);
            }
        }
    }
}

TEST_F(Eep, areaRefusesNegativeAndExtremeAddresses) {
    for (const Area& area : areas()) {
        expectRefused(area, -1);
        expectRefused(area, -area.first);
        expectRefused(area, INT_MIN);
        expectRefused(area, INT_MAX);
        expectRefused(area, 0);
    }
}

TEST_F(Eep, blockMayRunPastItsArea) {
    std::vector<int> block(16, 5);
    std::vector<std::int32_t> answered(17, 8);
    answered[0] = 0;
    for (const Area& area : areas()) {
        Wire reply = Wire::reply();
        for (const std::int32_t word : answered) {
            reply.i32(word);
        }
        service().reply(reply.bytes());
        EXPECT_EQ((eep.*area.getBlock)(area.last, 16, block.data()), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8013, {area.last, 16})));
        EXPECT_EQ(block, std::vector<int>(16, 8));
        EXPECT_EQ((eep.*area.setBlock)(area.last, block.data(), 16), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8015, {area.last, 16, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8})));
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(Eep, lengthIsPassedOnUnchecked) {
    for (const Area& area : areas()) {
        int block[1]{5};
        EXPECT_EQ((eep.*area.getBlock)(area.first, 0, block), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8013, {area.first, 0})));
        EXPECT_EQ((eep.*area.getBlock)(area.first, -3, block), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8013, {area.first, -3})));
        EXPECT_EQ((eep.*area.setBlock)(area.first, block, 0), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8015, {area.first, 0})));
        EXPECT_EQ(block[0], 5);
    }
}

TEST_F(Eep, nullBufferInsideIsRefusedInSilence) {
    for (const Area& area : areas()) {
        EXPECT_EQ((eep.*area.getBlock)(area.first, 4, nullptr), -1);
        EXPECT_EQ((eep.*area.setBlock)(area.first, nullptr, 4), -1);
    }
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(Eep, addressIsTestedBeforeTheBuffer) {
    for (const Area& area : areas()) {
        EXPECT_EQ((eep.*area.getBlock)(area.last + 1, 4, nullptr), -1);
        EXPECT_EQ(logged(), refusal("Get" + area.name + "FlashEepMulti"));
        EXPECT_EQ((eep.*area.setBlock)(area.first - 1, nullptr, 4), -1);
        EXPECT_EQ(logged(), refusal("Set" + area.name + "FlashEepMulti"));
    }
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(Eep, flushIsOneCommand) {
    answer({4});
    EXPECT_EQ(eep.SetFlashEepFlush(), 4);
    EXPECT_EQ(sent(), only(requestOf(0x8016)));
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
