#include "client/ClientTest.h"
#include "support/Deadline.h"

#include <kelutv/KeluVbiCtrl.h>
#include <kelutv/KeluVbiManager.h>

#include <array>
#include <atomic>
#include <cstring>
#include <thread>
#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(!std::is_polymorphic_v<KeluVbiManager>);
static_assert(sizeof(KeluVbiManager) == sizeof(KELU_VBI_DATA_CALLBACK));
static_assert(!std::is_default_constructible_v<KeluVbiManager> && !std::is_copy_constructible_v<KeluVbiManager>);
static_assert(std::is_same_v<KELU_VBI_DATA_CALLBACK, void (*)(unsigned int, void*, unsigned int)>);
static_assert(std::is_same_v<decltype(&KeluVbiManager::VbiDataCallback),
                             void (KeluVbiManager::*)(unsigned int, void*, unsigned int)>);
static_assert(std::is_empty_v<CKeluVbiCtrl> && !std::is_polymorphic_v<CKeluVbiCtrl>);
static_assert(std::is_default_constructible_v<CKeluVbiCtrl> && std::is_copy_constructible_v<CKeluVbiCtrl>);
static_assert(std::is_same_v<decltype(&CKeluVbiCtrl::registVbiDataCB),
                             int (CKeluVbiCtrl::*)(void (*)(unsigned int, void*, unsigned int))>);

struct Delivery {
    std::string receiver;
    unsigned int type;
    void* data;
    unsigned int length;
};

bool operator==(const Delivery& a, const Delivery& b) {
    return a.receiver == b.receiver && a.type == b.type && a.data == b.data && a.length == b.length;
}

std::vector<Delivery> gDeliveries;

void first(unsigned int type, void* data, unsigned int length) { gDeliveries.push_back({"first", type, data, length}); }

void second(unsigned int type, void* data, unsigned int length) {
    gDeliveries.push_back({"second", type, data, length});
}

KeluVbiManager& manager() { return *KeluVbiManager::instance(); }

/** A block at an odd address: its length, then its payload. */
class OddBlock {
public:
    explicit OddBlock(std::uint32_t length) { std::memcpy(start(), &length, sizeof(length)); }

    void* start() { return mBytes.data() + 1; }
    void* payload() { return mBytes.data() + 1 + sizeof(std::uint32_t); }
    const auto& bytes() const { return mBytes; }

private:
    alignas(std::uint32_t) std::array<unsigned char, 16> mBytes{0xA5, 0, 0, 0, 0, 11, 12, 13};
};

class Vbi : public ClientTest {
protected:
    Vbi() { gDeliveries.clear(); }
    ~Vbi() override {
        manager().UnRegistVBIDataCallback();
        service().takeRequests();
    }

    /** Who gets a block that is delivered now; empty for nobody. */
    static std::string receiver() {
        OddBlock block(3);
        gDeliveries.clear();
        manager().VbiDataCallback(1, block.start(), 0);
        return gDeliveries.empty() ? "" : gDeliveries.front().receiver;
    }
};

TEST_F(Vbi, managerIsOneObject) {
    EXPECT_NE(KeluVbiManager::instance(), nullptr);
    EXPECT_EQ(KeluVbiManager::instance(), KeluVbiManager::instance());
}

TEST_F(Vbi, everyOperationIsOneCommandWithoutArguments) {
    answer({7});
    EXPECT_EQ(manager().Init(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD001)));
    EXPECT_EQ(manager().DeInit(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD002)));
    EXPECT_EQ(manager().Open(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD003)));
    EXPECT_EQ(manager().Close(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD004)));
    EXPECT_EQ(manager().RegistVBIDataCallback(first), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD005)));
    EXPECT_EQ(manager().UnRegistVBIDataCallback(), 7);
    EXPECT_EQ(sent(), only(requestOf(0xD006)));
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: CKeluVbiCtrl::registVbiDataCB
TEST_F(Vbi, controlForwardsToTheManager) {
    CKeluVbiCtrl control;
    answer({-9});
    EXPECT_EQ(control.init(), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD001)));
    EXPECT_EQ(control.deInit(), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD002)));
    EXPECT_EQ(control.open(), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD003)));
    EXPECT_EQ(control.close(), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD004)));
    EXPECT_EQ(control.registVbiDataCB(second), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD005)));
    EXPECT_EQ(receiver(), "second");
    EXPECT_EQ(CKeluVbiCtrl().unRegistDataCB(), -9);
    EXPECT_EQ(sent(), only(requestOf(0xD006)));
    EXPECT_EQ(receiver(), "");
}

TEST_F(Vbi, operationsNeedNoOrder) {
    EXPECT_EQ(manager().Close(), 0);
    EXPECT_EQ(manager().UnRegistVBIDataCallback(), 0);
    EXPECT_EQ(manager().DeInit(), 0);
    EXPECT_EQ(manager().DeInit(), 0);
    EXPECT_EQ(sent().size(), 4U);
}

// irregular: KeluVbiManager::RegistVBIDataCallback
TEST_F(Vbi, registrationInstallsTheCallbackBeforeTheServiceAnswers) {
    service().hangNext();
    std::thread registering([] { manager().RegistVBIDataCallback(first); });
    EXPECT_TRUE(service().waitUntilHanging());
    EXPECT_EQ(receiver(), "first");
    service().release();
    registering.join();
    EXPECT_EQ(receiver(), "first");
}

// irregular: KeluVbiManager::UnRegistVBIDataCallback
TEST_F(Vbi, unregistrationRemovesTheCallbackBeforeTheServiceAnswers) {
    manager().RegistVBIDataCallback(first);
    service().hangNext();
    std::thread unregistering([] { manager().UnRegistVBIDataCallback(); });
    EXPECT_TRUE(service().waitUntilHanging());
    EXPECT_EQ(receiver(), "");
    service().release();
    unregistering.join();
    EXPECT_EQ(receiver(), "");
}

TEST_F(Vbi, registrationThatIsRefusedStaysInstalled) {
    answer({3});
    EXPECT_EQ(manager().RegistVBIDataCallback(first), 3);
    EXPECT_EQ(receiver(), "first");
}

TEST_F(Vbi, unregistrationThatIsRefusedIsNotUndone) {
    manager().RegistVBIDataCallback(first);
    answer({3});
    EXPECT_EQ(manager().UnRegistVBIDataCallback(), 3);
    EXPECT_EQ(receiver(), "");
}

TEST_F(Vbi, registeringAgainReplacesTheCallbackAndSendsAgain) {
    manager().RegistVBIDataCallback(first);
    manager().RegistVBIDataCallback(second);
    EXPECT_EQ(sent(), std::vector<std::string>(2, hex(requestOf(0xD005))));
    EXPECT_EQ(receiver(), "second");
}

TEST_F(Vbi, registeringNullRemovesTheCallbackAndSends) {
    manager().RegistVBIDataCallback(first);
    sent();
    EXPECT_EQ(manager().RegistVBIDataCallback(nullptr), 0);
    EXPECT_EQ(sent(), only(requestOf(0xD005)));
    EXPECT_EQ(receiver(), "");
}

// irregular: KeluVbiManager::VbiDataCallback
TEST_F(Vbi, deliveryTakesTheLengthFromTheBlock) {
    manager().RegistVBIDataCallback(first);
    sent();
    OddBlock block(3);
    manager().VbiDataCallback(0x80000001, block.start(), 999);
    manager().VbiDataCallback(2, block.start(), 0);
    const std::vector<Delivery> expected{{"first", 0x80000001, block.payload(), 3}, {"first", 2, block.payload(), 3}};
    EXPECT_EQ(gDeliveries, expected);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(Vbi, deliveryPassesTheLargestLengthOn) {
    manager().RegistVBIDataCallback(first);
    OddBlock block(0xFFFFFFFF);
    manager().VbiDataCallback(1, block.start(), 7);
    const std::vector<Delivery> expected{{"first", 1, block.payload(), 0xFFFFFFFF}};
    EXPECT_EQ(gDeliveries, expected);
}

TEST_F(Vbi, deliveryOfAnEmptyBlockPointsJustPastItsLength) {
    manager().RegistVBIDataCallback(first);
    OddBlock block(0);
    manager().VbiDataCallback(5, block.start(), 12);
    const std::vector<Delivery> expected{{"first", 5, block.payload(), 0}};
    EXPECT_EQ(gDeliveries, expected);
}

TEST_F(Vbi, deliveryLeavesTheBlockAsItIs) {
    manager().RegistVBIDataCallback(first);
    OddBlock block(3);
    const auto before = block.bytes();
    manager().VbiDataCallback(5, block.start(), 3);
    EXPECT_EQ(block.bytes(), before);
}

TEST_F(Vbi, deliveryWithoutACallbackDoesNotTouchTheBlock) {
    manager().VbiDataCallback(5, nullptr, 12);
    manager().RegistVBIDataCallback(first);
    manager().UnRegistVBIDataCallback();
    manager().VbiDataCallback(5, nullptr, 12);
    EXPECT_TRUE(gDeliveries.empty());
}

std::atomic<int> gWrongLengths{0};
std::atomic<int> gCalls{0};

void count(unsigned int, void*, unsigned int length) {
    ++gCalls;
    gWrongLengths += length == 3 ? 0 : 1;
}

TEST_F(Vbi, deliveryRunsBesideRegistration) {
    gCalls = 0;
    gWrongLengths = 0;
    std::atomic<bool> done{false};
    std::thread delivering([&done] {
        OddBlock block(3);
        while (!done) {
            manager().VbiDataCallback(1, block.start(), 0);
        }
    });
    for (int i = 0; i < 200; ++i) {
        manager().RegistVBIDataCallback(count);
        manager().UnRegistVBIDataCallback();
    }
    manager().RegistVBIDataCallback(count);
    const int before = gCalls;
    EXPECT_TRUE(eventually([before] { return gCalls > before; }));
    done = true;
    delivering.join();
    EXPECT_EQ(gWrongLengths, 0);
}

} // namespace
} // namespace kelutv::test
