#include "client/ClientTest.h"

#include <kelutv/PCSetting.h>

#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(std::is_empty_v<PCSetting> && !std::is_polymorphic_v<PCSetting>);

using PcSetting = ClientTest;

TEST_F(PcSetting, hasOneInstance) { EXPECT_EQ(PCSetting::instance(), PCSetting::instance()); }

} // namespace
} // namespace kelutv::test
