/**
 * @file
 * The service's player of PCM sound files.
 *
 * Every function is one command to the TV base service, which does the playing. It blocks until the service has
 * answered and may be called from any thread. A set command whose link fails is logged as "invoke failure\n".
 */
#ifndef KELUTV_LINUX_KELUTV_PCMPLAYER_H
#define KELUTV_LINUX_KELUTV_PCMPLAYER_H

#include <kelutv/export.h>
#include <kelutv/pcmplayer_types.h>

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Starts to play a sound file.
 * @param pathName Path of the file in the service's file system; which formats play is the service's matter.
 * @param bLoop True plays it over and over.
 * @param bMuteDtvAudio True mutes the digital-TV audio meanwhile.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCMPlayer_startPlay(char const* pathName, bool bLoop, bool bMuteDtvAudio);

/**
 * Ends the playing.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCMPlayer_stopPlay(void);

/**
 * Reads whether the player is playing.
 * @return The status, unchecked; -1 in the same type when the service or the link fails. In C compare
 * `(int)status == -1`: the type may be unsigned, and nothing in it is below 0.
 */
KELUTV_API KELU_TV_PCMPLAYER_STATUS_E linux_tv_PCMPlayer_getStatus(void);

/**
 * Sets the gain of the player.
 * @param gain Gain in the service's unit; the service enforces the range.
 * @return The service's result, 0 for success; -1 when the link fails.
 */
KELUTV_API int linux_tv_PCMPlayer_setGain(int gain);

#ifdef __cplusplus
}
#endif

#endif
