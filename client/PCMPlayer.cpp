#include <kelutv/PCMPlayer.h>
#include <kelutv/commands.h>
#include <kelutv/link/TVBaseClient.h>

using android::TVBaseClient;

PCMPlayer* PCMPlayer::instance() {
    static PCMPlayer mObj;
    return &mObj;
}

int PCMPlayer::startPlay(char const* pathName, bool bLoop, bool bMuteDtvAudio) {
    return TVBaseClient::self()->exeCmdSet(CMD_PCMPLAYER_START_PLAY, bLoop, bMuteDtvAudio, pathName);
}

int PCMPlayer::stopPlay() { return TVBaseClient::self()->exeCmdSet(CMD_PCMPLAYER_STOP_PLAY); }

int PCMPlayer::getStatus() { return TVBaseClient::self()->exeCmdGet(CMD_PCMPLAYER_GET_STATUS); }

int PCMPlayer::setGain(int gain) { return TVBaseClient::self()->exeCmdSet(CMD_PCMPLAYER_SET_GAIN, gain); }
