#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

template <typename Class> constexpr bool kHoldsNothing = std::is_empty_v<Class> && !std::is_polymorphic_v<Class>;

static_assert(kHoldsNothing<SourceManager>);
static_assert(kHoldsNothing<SystemSetting>);
static_assert(kHoldsNothing<Video3D>);
static_assert(!std::is_copy_constructible_v<SourceManager> && !std::is_default_constructible_v<SourceManager>);
static_assert(std::is_same_v<decltype(&SourceManager::deselectSource), int (SourceManager::*)(int, bool)>);
static_assert(std::is_same_v<decltype(&SourceManager::setWindowRect), int (SourceManager::*)(KeluRect, int, int)>);
static_assert(std::is_same_v<decltype(&Video3D::set3dto2d), int (Video3D::*)(int)>);
static_assert(std::is_same_v<decltype(&SystemSetting::dtvControl), int (SystemSetting::*)(int, void*, int)>);
static_assert(std::is_same_v<decltype(&SystemSetting::OledJbOffrsRepairProc), bool (SystemSetting::*)()>);
static_assert(std::is_same_v<decltype(&SystemSetting::setAIScreenStandby), int (SystemSetting::*)(int)>);
static_assert(std::is_same_v<decltype(linux_tv_SystemSetting_setAIScreenStandby), bool(int)>);
static_assert(std::is_same_v<decltype(linux_tv_SystemSetting_setAICloseScreenMode), int(bool)>);

TEST(PlainClasses, haveOneInstance) {
    EXPECT_NE(SourceManager::instance(), nullptr);
    EXPECT_EQ(SourceManager::instance(), SourceManager::instance());
    EXPECT_EQ(SystemSetting::instance(), SystemSetting::instance());
    EXPECT_EQ(Video3D::instance(), Video3D::instance());
}

} // namespace
