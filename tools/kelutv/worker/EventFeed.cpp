#include "tools/kelutv/worker/EventFeed.h"

#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/ServiceLink.h"
#include "tools/process/Deadline.h"
#include "tools/process/SignalWatch.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace kelutv::tool {

namespace {

constexpr std::chrono::milliseconds kFeedGrace{1000};
constexpr std::chrono::milliseconds kPause{100};

enum class MessageKind { Watching, Event, Loss, Failure };

/** What stands before a payload, or before the text of a failure; without gaps, whose bytes would be sent, too. */
struct Head {
    MessageKind kind;
    Exit exit = Exit::Success;
    std::uint32_t id = 0;
    std::uint32_t nothing = 0;
    std::chrono::system_clock::time_point time = {};
};
static_assert(std::has_unique_object_representations_v<Head>);

std::string messageOf(const Head& head, const std::string& rest = "") {
    std::string message(sizeof(head), '\0');
    std::memcpy(message.data(), &head, sizeof(head));
    return message + rest;
}

std::string messageOf(const ReceivedEvent& event) {
    return messageOf({MessageKind::Event, Exit::Success, event.id, 0, event.time},
                     {event.payload.begin(), event.payload.end()});
}

/** A service that is just ending may be found for a moment. @return false when it is to end before there is one */
bool awaitService(const process::SignalWatch& signals) {
    do {
        if (process::waitToRead({signals.fd()}, process::deadlineIn(kPause))) {
            return false;
        }
    } while (!isServiceThere());
    return true;
}

/** Until the service is gone or this process is to end. */
void handOn(EventQueue& queue, const process::MessagePipe& news, const process::SignalWatch& signals) {
    for (bool isLost = false; !isLost;) {
        process::waitToRead({queue.fd(), signals.fd()}, std::nullopt);
        if (process::waitToRead({signals.fd()}, process::deadlineIn(process::Seconds::zero()))) {
            return;
        }
        isLost = queue.isLost();
        for (const ReceivedEvent& event : queue.take()) {
            news.send(messageOf(event));
        }
    }
    news.send(messageOf({MessageKind::Loss}));
}

} // namespace

EventFeed::EventFeed(const std::set<std::uint32_t>& modules, First first)
    : mWorker(process::Worker::start([&] { return watch(modules, first); })) {
    mNews.keepReceiving();
}

EventFeed::~EventFeed() {
    if (mIsWatching) {
        mWorker.end(kFeedGrace); // Its subscriptions end before it.
    }
}

std::optional<EventFeed::News> EventFeed::take() {
    const auto message = mNews.take();
    if (message) {
        return newsIn(*message);
    }
    if (mNews.isAtEnd()) {
        throw ToolError(Exit::Failure, "the process that watches the television has ended");
    }
    return std::nullopt;
}

EventFeed::News EventFeed::newsIn(const std::string& message) {
    Head head{MessageKind::Failure};
    std::memcpy(&head, message.data(), sizeof(head));
    const std::string rest = message.substr(sizeof(head));
    switch (head.kind) {
    case MessageKind::Event:
        return {News::Kind::Event, {head.time, head.id, {rest.begin(), rest.end()}}};
    case MessageKind::Watching:
        mIsWatching = true;
        return {News::Kind::Begin, {}};
    case MessageKind::Loss:
        return {News::Kind::End, {}};
    case MessageKind::Failure:
        break;
    }
    throw ToolError(head.exit, rest);
}

int EventFeed::watch(const std::set<std::uint32_t>& modules, First first) {
    mNews.keepSending();
    try {
        process::SignalWatch signals{SIGTERM};
        EventQueue& queue = EventQueue::instance(); // Made before there is a thread that delivers to it.
        if (first == First::IsAwaited && !awaitService(signals)) {
            return EXIT_SUCCESS;
        }
        const EventSubscription subscription(modules);
        mNews.send(messageOf({MessageKind::Watching}));
        handOn(queue, mNews, signals);
    } catch (const ToolError& error) {
        mNews.send(messageOf({MessageKind::Failure, error.exit()}, error.what()));
    } catch (const std::exception& error) {
        mNews.send(messageOf({MessageKind::Failure, Exit::Failure}, error.what()));
    }
    return EXIT_SUCCESS;
}

} // namespace kelutv::tool
