// What the EEPROM areas and the VBI operations make of a link that fails, was never there, or is dead.

#include "client/ClientTest.h"

#include <kelutv/KeluEEP.h>
#include <kelutv/KeluVbiCtrl.h>
#include <kelutv/KeluVbiManager.h>

#include <cstring>

namespace kelutv::test {
namespace {

unsigned int gLastLength = 0;

void keepLength(unsigned int, void*, unsigned int length) { gLastLength = length; }

/** The length that a delivered block of 8 bytes reaches the callback with; 0 without one. */
unsigned int deliveredLength() {
    char block[12]{};
    const std::uint32_t length = 8;
    std::memcpy(block, &length, sizeof(length));
    gLastLength = 0;
    KeluVbiManager::instance()->VbiDataCallback(1, block, sizeof(block));
    return gLastLength;
}

class EepVbiFailure : public ClientTest {
protected:
    void SetUp() override { failTransactions(); }
};

TEST_F(EepVbiFailure, isLoggedByTheLinkOncePerVbiCommand) {
    CKeluVbiCtrl control;
    for (const auto operation : {&CKeluVbiCtrl::init, &CKeluVbiCtrl::open, &CKeluVbiCtrl::close, &CKeluVbiCtrl::deInit,
                                 &CKeluVbiCtrl::unRegistDataCB}) {
        EXPECT_EQ((control.*operation)(), -1);
        EXPECT_EQ(logged(), kInvokeFailure);
    }
}

TEST_F(EepVbiFailure, leavesTheCallbackInstalled) {
    EXPECT_EQ(CKeluVbiCtrl().registVbiDataCB(keepLength), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(deliveredLength(), 8U);
}

TEST_F(EepVbiFailure, doesNotBringTheCallbackBack) {
    CKeluVbiCtrl().registVbiDataCB(keepLength);
    EXPECT_EQ(CKeluVbiCtrl().unRegistDataCB(), -1);
    EXPECT_EQ(deliveredLength(), 0U);
}

TEST_F(EepVbiFailure, ofAReadLeavesTheBufferAndIsNotLogged) {
    int buffer[] = {41, 42};
    EXPECT_EQ(CKeluEEP().GetTVFlashEepByte(0x8A00), -1);
    EXPECT_EQ(CKeluEEP().GetATFlashEepMulti(0xA400, 2, buffer), -1);
    EXPECT_EQ(buffer[0], 41);
    EXPECT_EQ(buffer[1], 42);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(EepVbiFailure, ofAWriteIsLoggedByTheLink) {
    int buffer[] = {41, 42};
    EXPECT_EQ(CKeluEEP().SetBTFlashEepByte(0x9000, 5), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(CKeluEEP().SetBTFlashEepMulti(0x9000, buffer, 2), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(CKeluEEP().SetFlashEepFlush(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(EepVbiFailure, isNotEvenMetOutsideAnArea) {
    EXPECT_EQ(CKeluEEP().SetBTFlashEepByte(0x8FFF, 5), -1);
    const std::vector<LogEntry> lines = logged();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].tag, "TVBASECLi@CKeluEEP");
}

} // namespace
} // namespace kelutv::test
