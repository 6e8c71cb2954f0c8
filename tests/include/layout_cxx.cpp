#include "layout.h"

#include <kelutv/link/BpTVBaseService.h>
#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>
#include <kqcommon/ExtPort.h>

#include <type_traits>

namespace {

/** A size or an offset on machines with pointers of 32 and of 64 bits. */
constexpr std::size_t by(std::size_t ilp32, std::size_t lp64) { return sizeof(void*) == 8 ? lp64 : ilp32; }

static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);
static_assert(sizeof(std::string) == by(24, 32));

static_assert(sizeof(KELU_TV_CEC_DEVICE_INFO_SORTED_S) == by(80, 104));
static_assert(alignof(KELU_TV_CEC_DEVICE_INFO_SORTED_S) == alignof(void*));
static_assert(offsetof(KELU_TV_CEC_DEVICE_INFO_SORTED_S, logAddr) == 0);
static_assert(offsetof(KELU_TV_CEC_DEVICE_INFO_SORTED_S, hdmiDevPort) == 4);
static_assert(offsetof(KELU_TV_CEC_DEVICE_INFO_SORTED_S, phyAddr) == 8);
static_assert(offsetof(KELU_TV_CEC_DEVICE_INFO_SORTED_S, deVName) == by(32, 40));
static_assert(offsetof(KELU_TV_CEC_DEVICE_INFO_SORTED_S, hdmiListText) == by(56, 72));

// The port whose declaration is the platform's.
static_assert(sizeof(SExtPortPlugInOutInfo) == 12);
static_assert(offsetof(SExtPortPlugInOutInfo, externalPort) == 0);
static_assert(offsetof(SExtPortPlugInOutInfo, plugState) == 8);
static_assert(offsetof(SInputPortInfo, inputPort) == 0);
static_assert(offsetof(SInputPortInfo, inputDev) == 4);

static_assert(sizeof(tv_NotifyFun_Callback) == by(4, 8));
static_assert(sizeof(KELU_VBI_DATA_CALLBACK) == by(4, 8));

template <typename Class> constexpr bool kIsEmptyClass = std::is_empty_v<Class> && sizeof(Class) == 1;

static_assert(sizeof(Audio) == by(4, 8));
static_assert(kIsEmptyClass<CConfig>);
static_assert(kIsEmptyClass<CKeluEEP>);
static_assert(kIsEmptyClass<CKeluVbiCtrl>);
static_assert(kIsEmptyClass<Factory>);
static_assert(kIsEmptyClass<HdmiCEC>);
static_assert(sizeof(KeluVbiManager) == by(4, 8));
static_assert(kIsEmptyClass<PCMPlayer>);
static_assert(kIsEmptyClass<PCSetting>);
static_assert(kIsEmptyClass<Picture>);
static_assert(kIsEmptyClass<SourceManager>);
static_assert(kIsEmptyClass<SystemSetting>);
static_assert(kIsEmptyClass<Video3D>);

// The shared base with its count stands behind each class's own part.
static_assert(sizeof(DeathNotifier) == by(12, 24));
static_assert(sizeof(android::ITVBaseService) == by(12, 24));
static_assert(sizeof(android::BpTVBaseService) == by(20, 40));
// Table pointer, proxy, death watch.
static_assert(sizeof(android::TVBaseClient) == by(12, 24));

} // namespace
