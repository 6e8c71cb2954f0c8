#include "vocabulary_values.h"

#include <type_traits>

// A service may answer with values that have no name.
static_assert(std::is_same_v<std::underlying_type_t<KELU_TV_AVC_LEVEL>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KELU_TV_SOUND_OUTPUT_MODE_E>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KELU_TV_PEQ_FILTER_TYPE_E>, int>);
static_assert(std::is_same_v<std::underlying_type_t<KELU_TV_PCMPLAYER_STATUS_E>, int>);
static_assert(std::is_same_v<tv_NotifyFun_Callback, void (*)(int, void*, unsigned int, void*)>);
static_assert(std::is_trivial_v<NRAttrData> && std::is_standard_layout_v<NRAttrData>);
static_assert(std::is_trivial_v<KELU_TV_SND_PEQ_ATTR_S> && std::is_standard_layout_v<KELU_TV_SND_PEQ_ATTR_S>);
