#include "c_status.h"

#include <kelutv/linux_kelutv_pcmplayer.h>

// Applications that compare so get a warning of gcc -Wextra, and the right answer all the same.
#pragma GCC diagnostic ignored "-Wsign-compare"

int resultEqualsMinusOne(void) { return linux_tv_PCMPlayer_getStatus() == -1; }

int storedResultEqualsMinusOne(void) {
    const KELU_TV_PCMPLAYER_STATUS_E status = linux_tv_PCMPlayer_getStatus();
    return status == -1;
}

int resultAsIntIsBelowZero(void) { return (int)linux_tv_PCMPlayer_getStatus() < 0; }
