// One call after the other: `kelutv-recorded-calls` prints what one of them takes, whether somebody records it or not.

#include <kelutv/kelutv.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

int main() {
    using Clock = std::chrono::steady_clock;
    constexpr std::size_t kCalls = 1000;
    std::vector<Clock::duration> times;
    while (times.size() < kCalls) {
        const auto start = Clock::now();
        if (linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20) != 0) {
            return 1;
        }
        times.push_back(Clock::now() - start);
    }
    const auto middle = times.begin() + kCalls / 2;
    std::nth_element(times.begin(), middle, times.end());
    std::printf("a call in microseconds: %.3f\n", std::chrono::duration<double, std::micro>(*middle).count());
}
