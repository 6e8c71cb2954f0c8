// The first call of a process: `kelutv-first-answer TIME`, the time before it was started in nanoseconds of the
// monotonic clock, prints how long it took to main and from there to the answer.

#include "StartTimes.h"

#include <kelutv/kelutv.h>

int main(int count, char** arguments) {
    const kelutv::bench::StartTimes times(count > 1 ? arguments[1] : nullptr);
    if (linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20) != 0) {
        return 1;
    }
    times.print();
}
