#include <kelutv/PCMPlayer.h>
#include <kelutv/linux_kelutv_pcmplayer.h>

int linux_tv_PCMPlayer_startPlay(char const* pathName, bool bLoop, bool bMuteDtvAudio) {
    return PCMPlayer::instance()->startPlay(pathName, bLoop, bMuteDtvAudio);
}

int linux_tv_PCMPlayer_stopPlay() { return PCMPlayer::instance()->stopPlay(); }

KELU_TV_PCMPLAYER_STATUS_E linux_tv_PCMPlayer_getStatus() {
    return static_cast<KELU_TV_PCMPLAYER_STATUS_E>(PCMPlayer::instance()->getStatus());
}

int linux_tv_PCMPlayer_setGain(int gain) { return PCMPlayer::instance()->setGain(gain); }
