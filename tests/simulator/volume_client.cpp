// Asks for the volume as often as told, and prints each answer.

#include <kelutv/linux_kelutv_audio.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const long times = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 1;
    for (long i = 0; i < times; ++i) {
        std::printf("%d\n", linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER));
    }
}
