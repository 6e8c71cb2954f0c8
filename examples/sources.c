/*
 * Goes through three sources - a signal of standard dynamic range, an HDR10 and a Dolby one -, waits for the television
 * to tell of each, and chooses a picture mode there.
 */
#define _POSIX_C_SOURCE 200809L

#include <kelutv/kelutv.h>

#include <poll.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

enum { kMainWindow = KELU_TV_WINDOW_MAIN, kPatienceMs = 5000 };

struct Step {
    const char* name;
    int source;
    const char* modeName;
    int mode;
};

static const struct Step kSteps[] = {
    {"HDMI1", KELU_TV_SRC_HDMI1, "sport", KELU_TV_PIC_MODE_SPORT},
    {"HDMI2", KELU_TV_SRC_HDMI2, "movie", KELU_TV_PIC_MODE_MOVIE},
    {"HDMI3", KELU_TV_SRC_HDMI3, "Dolby dark", KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK},
};

/*
 * The callback runs on a thread of the library; the pipe hands the event over to main. Its two words, window and
 * source, are those of kelutv-simulator.
 */
static int eventPipe[2];

static void onEvent(int id, void* data, unsigned int length, void* unused) {
    (void)unused;
    if (((unsigned int)id & 0xFFFF0000U) == KELU_EM_MODE_SRCDETECT && length == 2 * sizeof(int) &&
        write(eventPipe[1], data, length) != (ssize_t)length) {
        perror("sources: cannot hand over an event");
    }
}

static bool waitForSource(void) {
    int words[2];
    struct pollfd incoming = {.fd = eventPipe[0], .events = POLLIN};
    if (poll(&incoming, 1, kPatienceMs) != 1 || read(eventPipe[0], words, sizeof(words)) != (ssize_t)sizeof(words)) {
        return false;
    }
    printf("event: window %d shows source %d\n", words[0], words[1]);
    return true;
}

static bool fail(const char* message) {
    fflush(stdout);
    fprintf(stderr, "sources: %s\n", message);
    return false;
}

static const char* streamTypeName(int streamType) {
    switch (streamType) {
    case KELU_TV_HDR_TYPE_SDR:
        return "SDR";
    case KELU_TV_HDR_TYPE_HDR10:
        return "HDR10";
    case KELU_TV_HDR_TYPE_DOLBY_HDR:
        return "Dolby HDR";
    default:
        return "another stream type";
    }
}

static bool printSignal(const char* name) {
    TimingScreen timing;
    if (linux_tv_SourceManager_getTimingInfo(&timing) != 0) {
        return fail("there is no signal");
    }
    printf("%s: %ux%u%c at %u Hz, %s\n", name, timing.width, timing.height, timing.interlace ? 'i' : 'p',
           timing.frameRate, streamTypeName(linux_tv_Picture_getHdrStreamType()));
    return true;
}

/* The library traces picture modes on standard output, without a line end. */
static bool choosePictureMode(const struct Step* step) {
    const int result = linux_tv_Picture_setPictureMode(step->mode);
    putchar('\n');
    const int mode = linux_tv_Picture_getPictureMode();
    putchar('\n');
    if (result != 0 || mode != step->mode) {
        return fail("the television did not take the picture mode");
    }
    printf("%s: picture mode %s\n", step->name, step->modeName);
    return true;
}

static bool show(const struct Step* step) {
    const bool shownAlready = linux_tv_SourceManager_getCurSourceId(kMainWindow) == step->source;
    linux_tv_SourceManager_selectSource(step->source, kMainWindow);
    if (linux_tv_SourceManager_getCurSourceId(kMainWindow) != step->source) {
        return fail("the television did not take the source");
    }
    if (!shownAlready && !waitForSource()) {
        return fail("the television did not tell of the change within 5 seconds");
    }
    return printSignal(step->name) && choosePictureMode(step);
}

int main(void) {
    const int source = linux_tv_SourceManager_getCurSourceId(kMainWindow);
    if (source < 0) {
        fail("no answer from the TV base service; is it running? (here: kelutv-simulator)");
        return EXIT_FAILURE;
    }
    printf("the main window shows source %d\n", source);
    if (pipe(eventPipe) != 0) {
        fail("cannot make a pipe");
        return EXIT_FAILURE;
    }
    linux_tv_registerCallbackFunc(onEvent);
    for (size_t i = 0; i < sizeof(kSteps) / sizeof(kSteps[0]); ++i) {
        if (!show(&kSteps[i])) {
            return EXIT_FAILURE;
        }
    }
    linux_tv_unRegisterCallbackFunc(onEvent);
    return EXIT_SUCCESS;
}
