// Reads the volume of the speaker, changes it, waits for the television to tell of the change, and reads it again.

#include <kelutv/kelutv.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <optional>

namespace {

constexpr int kSpeaker = KELU_TV_AUDIO_CHANNEL_SPEAKER;
constexpr std::chrono::seconds kPatience(5);

struct Event {
    unsigned int id;
    unsigned int length;
};

/** The first volume event, handed over from the library's thread to main. */
class Inbox {
public:
    void put(Event event) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEvent = event;
        mArrived.notify_one();
    }

    std::optional<Event> wait() {
        std::unique_lock<std::mutex> lock(mMutex);
        mArrived.wait_for(lock, kPatience, [this] { return mEvent.has_value(); });
        return mEvent;
    }

private:
    std::mutex mMutex;
    std::condition_variable mArrived;
    std::optional<Event> mEvent;
};

// The callback carries no pointer of the application's, so the inbox is global; it is never destroyed, since an event
// may arrive while the program ends.
Inbox& inbox() {
    static auto* const inbox = new Inbox;
    return *inbox;
}

void onEvent(int id, void*, unsigned int length, void*) {
    const auto event = static_cast<unsigned int>(id);
    if ((event & 0xFFFF0000U) == KELU_EM_MODE_VOLUME) {
        inbox().put({event, length});
    }
}

int fail(const char* message) {
    std::cout.flush();
    std::cerr << "volume: " << message << '\n';
    return EXIT_FAILURE;
}

} // namespace

int main() {
    Audio* const audio = Audio::instance();
    const int volume = audio->getVolume(kSpeaker);
    if (volume < 0) {
        return fail("no answer from the TV base service; is it running? (here: kelutv-simulator)");
    }
    std::cout << "the speaker's volume is " << volume << '\n';

    linux_tv_registerCallbackFunc(onEvent);

    const int wanted = volume < 50 ? volume + 15 : volume - 15;
    std::cout << "setting it to " << wanted << '\n';
    const int result = audio->setVolume(kSpeaker, wanted);
    if (result != 0) {
        std::cerr << "volume: the television refused with " << result << '\n';
        return EXIT_FAILURE;
    }

    const std::optional<Event> event = inbox().wait();
    if (!event) {
        return fail("the television did not tell of the change within 5 seconds");
    }
    std::cout << "event 0x" << std::hex << std::uppercase << event->id << std::dec << " with " << event->length
              << " bytes\n";
    linux_tv_unRegisterCallbackFunc(onEvent);

    const int now = audio->getVolume(kSpeaker);
    std::cout << "the speaker's volume is " << now << '\n';
    return now == wanted ? EXIT_SUCCESS : fail("that is not the volume that was set");
}
