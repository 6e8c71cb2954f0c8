/**
 * @file
 * The class `PCMPlayer`; its C functions are in linux_kelutv_pcmplayer.h.
 */
#pragma once

#include <kelutv/export.h>

/**
 * The service's player of PCM sound files.
 *
 * Every operation is one command to the TV base service, which does the playing; the object keeps nothing. An operation
 * blocks until the service has answered and may be called from any thread. A set command whose link fails is logged as
 * "invoke failure\n".
 */
class KELUTV_API PCMPlayer {
public:
    /**
     * The one object, made on the first call from any thread.
     * @return The object; never null.
     */
    static PCMPlayer* instance();

    PCMPlayer(const PCMPlayer&) = delete;
    PCMPlayer& operator=(const PCMPlayer&) = delete;

    /**
     * Starts to play a sound file.
     * @param pathName Path of the file in the service's file system; which formats play is the service's matter.
     * @param bLoop True plays it over and over.
     * @param bMuteDtvAudio True mutes the digital-TV audio meanwhile.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int startPlay(char const* pathName, bool bLoop, bool bMuteDtvAudio);

    /**
     * Ends the playing.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int stopPlay();

    /**
     * Reads whether the player is playing.
     * @return One of `KELU_TV_PCMPLAYER_STATUS_E`, unchecked; -1 when the service or the link fails.
     */
    int getStatus();

    /**
     * Sets the gain of the player.
     * @param gain Gain in the service's unit; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setGain(int gain);

private:
    PCMPlayer() = default;
};
