/*
 * Reads the volume of the speaker, changes it, waits for the television to tell of the change, and reads it again.
 */
#define _POSIX_C_SOURCE 200809L

#include <kelutv/kelutv.h>

#include <poll.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

enum { kSpeaker = KELU_TV_AUDIO_CHANNEL_SPEAKER, kPatienceMs = 5000 };

/* The callback runs on a thread of the library; the pipe hands the event over to main. */
static int eventPipe[2];

static void onEvent(int id, void* data, unsigned int length, void* unused) {
    (void)data, (void)unused;
    const unsigned int event[2] = {(unsigned int)id, length};
    if (((unsigned int)id & 0xFFFF0000U) == KELU_EM_MODE_VOLUME) {
        if (write(eventPipe[1], event, sizeof(event)) != (ssize_t)sizeof(event)) {
            perror("volume: cannot hand over an event");
        }
    }
}

static bool waitForEvent(void) {
    unsigned int event[2];
    struct pollfd incoming = {.fd = eventPipe[0], .events = POLLIN};
    if (poll(&incoming, 1, kPatienceMs) != 1 || read(eventPipe[0], event, sizeof(event)) != (ssize_t)sizeof(event)) {
        return false;
    }
    printf("event 0x%X with %u bytes\n", event[0], event[1]);
    return true;
}

static int fail(const char* message) {
    fflush(stdout);
    fprintf(stderr, "volume: %s\n", message);
    return EXIT_FAILURE;
}

int main(void) {
    const int volume = linux_tv_Audio_getVolume(kSpeaker);
    if (volume < 0) {
        return fail("no answer from the TV base service; is it running? (here: kelutv-simulator)");
    }
    printf("the speaker's volume is %d\n", volume);

    if (pipe(eventPipe) != 0) {
        return fail("cannot make a pipe");
    }
    linux_tv_registerCallbackFunc(onEvent);

    const int wanted = volume < 50 ? volume + 15 : volume - 15;
    printf("setting it to %d\n", wanted);
    const int result = linux_tv_Audio_setVolume(kSpeaker, wanted);
    if (result != 0) {
        fprintf(stderr, "volume: the television refused with %d\n", result);
        return EXIT_FAILURE;
    }

    if (!waitForEvent()) {
        return fail("the television did not tell of the change within 5 seconds");
    }
    linux_tv_unRegisterCallbackFunc(onEvent);

    const int now = linux_tv_Audio_getVolume(kSpeaker);
    printf("the speaker's volume is %d\n", now);
    return now == wanted ? EXIT_SUCCESS : fail("that is not the volume that was set");
}
