#include "ClientTest.h"

#include <kelutv/PCSetting.h>
#include <kelutv/linux_kelutv_pcsetting.h>

#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(std::is_empty_v<PCSetting> && !std::is_polymorphic_v<PCSetting>);

using PcSetting = ClientTest;

TEST_F(PcSetting, adjustsItselfWithoutAnArgument) {
    answer({5});
    EXPECT_EQ(linux_tv_PCSetting_autoAdjust(), 5);
    EXPECT_EQ(sent(), only(requestOf(0x4002)));
    EXPECT_EQ(PCSetting::instance()->autoAdjust(), 5);
    EXPECT_EQ(sent(), only(requestOf(0x4002)));
}

struct Value {
    int setCommand;
    int (*set)(int);
    int (*get)();
};

TEST_F(PcSetting, keepsEachValueUnderACommandOfItsOwn) {
    for (const Value& value : {
             Value{0x4003, linux_tv_PCSetting_setHPosition, linux_tv_PCSetting_getHPosition},
             Value{0x4005, linux_tv_PCSetting_setVPosition, linux_tv_PCSetting_getVPosition},
             Value{0x4007, linux_tv_PCSetting_setClock, linux_tv_PCSetting_getClock},
             Value{0x4009, linux_tv_PCSetting_setPhase, linux_tv_PCSetting_getPhase},
         }) {
        answer({6});
        EXPECT_EQ(value.set(-77), 6);
        EXPECT_EQ(sent(), only(requestOf(value.setCommand, {-77})));
        answer({0, -8});
        EXPECT_EQ(value.get(), -8);
        EXPECT_EQ(sent(), only(requestOf(value.setCommand + 1)));
        answer({3, 8});
        EXPECT_EQ(value.get(), -1);
        sent();
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(PcSetting, hasOneInstance) { EXPECT_EQ(PCSetting::instance(), PCSetting::instance()); }

} // namespace
} // namespace kelutv::test
