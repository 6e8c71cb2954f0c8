#include "tools/kelutv/compliance/events/Hearing.h"

#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/service/Answering.h"
#include "tools/process/Deadline.h"

#include <iterator>
#include <set>

namespace kelutv::tool::compliance {

namespace {

/** Who waits for an answer is told that often that this process only waits for an event. */
constexpr std::chrono::milliseconds kTimeBetweenNotes{100};

} // namespace

Hearing& Hearing::instance() {
    const std::vector<std::uint32_t> modules = allModules();
    // Events may come to the very end of the process.
    static const auto* const subscription =
        new EventSubscription(std::set<std::uint32_t>(modules.begin(), modules.end()));
    static Hearing hearing;
    static_cast<void>(subscription);
    return hearing;
}

void Hearing::clear() {
    EventQueue::instance().take();
    mCame.clear();
}

std::optional<Bytes> Hearing::next(const wire::Event& event, std::chrono::milliseconds time) {
    const process::Deadline deadline = process::deadlineIn(time);
    for (;;) {
        noteAnswer();
        std::deque<ReceivedEvent> came = EventQueue::instance().take();
        std::move(came.begin(), came.end(), std::back_inserter(mCame));
        while (!mCame.empty()) {
            const ReceivedEvent first = std::move(mCame.front());
            mCame.pop_front();
            if (first.id >= event.first && first.id <= event.last) {
                return first.payload;
            }
        }
        const process::Deadline soon = process::deadlineIn(kTimeBetweenNotes);
        const bool isLast = *deadline <= *soon;
        if (!process::waitToRead({EventQueue::instance().fd()}, isLast ? deadline : soon) && isLast) {
            return std::nullopt;
        }
    }
}

} // namespace kelutv::tool::compliance
