#pragma once

#include <kelutv/events.h>

namespace kelutv::internal {

/** The event-manager modules that the client listens to, in the order of subscription and removal. */
constexpr KELU_EM_MODE_E kEventModules[] = {
    KELU_EM_MODE_ATVPLAYER, KELU_EM_MODE_FACTOY, KELU_EM_MODE_3DSIGNAL,  KELU_EM_MODE_VOLUME,
    KELU_EM_MODE_COMMON,    KELU_EM_MODE_CEC,    KELU_EM_MODE_SRCDETECT,
};

} // namespace kelutv::internal
