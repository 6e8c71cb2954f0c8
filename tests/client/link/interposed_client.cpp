#include "client/CommandCalls.h"

#include <kelutv/Audio.h>
#include <kelutv/PCMPlayer.h>
#include <kelutv/linux_kelutv_audio.h>

/** Makes every command call and some of the modules' calls; the exit code tells whether all had the preloaded answer.
 */
int main() {
    for (const kelutv::test::CommandCall& call : kelutv::test::commandCalls()) {
        android::Parcel result;
        const int expected = call.shape == kelutv::test::ReplyShape::Value ? 7 : 0;
        if (call.make(result) != expected) {
            return 1;
        }
    }
    const bool answered = Audio::instance()->getVolume(1) == 7 && linux_tv_Audio_setVolume(1, 2) == 0 &&
                          PCMPlayer::instance()->getStatus() == 7;
    return answered ? 0 : 1;
}
