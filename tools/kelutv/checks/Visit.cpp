#include "tools/kelutv/checks/Visit.h"

#include "tools/kelutv/service/Answering.h"
#include "tools/process/Deadline.h"
#include "tools/process/MessagePipe.h"
#include "tools/process/Worker.h"

#include <sys/wait.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

namespace kelutv::tool {

namespace {

/** A check begins. */
constexpr char kBegins[] = "begins";
/** An answer has come, and the check goes on. */
constexpr char kAnswered[] = "answered";
/** Answers that come in quicker succession are not told one by one. */
constexpr std::chrono::milliseconds kTimeBetweenTold{10};

/** What stands before the text of a finding; the messages without a finding are shorter. */
struct Head {
    std::int64_t nanoseconds;
    Verdict verdict;
    std::uint32_t nothing;
};
static_assert(std::has_unique_object_representations_v<Head>);

std::string messageOf(const Finding& finding) {
    const Head head{finding.time.count(), finding.verdict, 0};
    std::string message(sizeof(head), '\0');
    std::memcpy(message.data(), &head, sizeof(head));
    return message + finding.text;
}

Finding findingIn(const std::string& message) {
    Head head{};
    std::memcpy(&head, message.data(), sizeof(head));
    return {head.verdict, message.substr(sizeof(head)), std::chrono::nanoseconds(head.nanoseconds)};
}

bool isFinding(const std::string& message) { return message.size() >= sizeof(Head); }

/** Where this process tells of answers. */
const process::MessagePipe* told = nullptr;

void tellAnswer() {
    static std::chrono::steady_clock::time_point last;
    const auto now = std::chrono::steady_clock::now();
    if (now - last >= kTimeBetweenTold) {
        last = now;
        told->send(kAnswered);
    }
}

/** The process that makes the checks from one on, until one finds no service. */
class Maker {
public:
    Maker(const Check* first, const Check* end, bool tellsBeginnings)
        : mTellsBeginnings(tellsBeginnings),
          mWorker(process::Worker::start([this, first, end] { return make(first, end); })) {
        mMessages.keepReceiving();
    }

    /** The next message; nothing when the time is over, or when there is none any more. */
    std::optional<std::string> next(double seconds) {
        const process::Deadline deadline = process::deadlineIn(process::Seconds(seconds) + kTimeBetweenTold);
        for (;;) {
            if (std::optional<std::string> message = mMessages.take(); message || mMessages.isAtEnd()) {
                return message;
            }
            if (!process::waitToRead({mMessages.fd()}, deadline)) {
                return std::nullopt;
            }
        }
    }

    bool hasEnded() const { return mMessages.isAtEnd(); }

    /** Waits for its end. @return the wait status */
    int wait() { return mWorker.wait(); }

private:
    int make(const Check* first, const Check* end) {
        mMessages.keepSending();
        told = &mMessages;
        tellOfAnswers(tellAnswer);
        for (const Check* check = first; check != end; ++check) {
            const bool isHeard = !mTellsBeginnings || mMessages.send(kBegins);
            const Finding finding = check->look();
            if (!isHeard || !mMessages.send(messageOf(finding)) || finding.verdict == Verdict::Unlinked) {
                break;
            }
        }
        return EXIT_SUCCESS;
    }

    bool mTellsBeginnings;
    process::MessagePipe mMessages;
    process::Worker mWorker;
};

Finding brokenOff(int status) {
    return {Verdict::Bad, WIFSIGNALED(status)
                              ? std::string("ended the process that asked: ") + ::strsignal(WTERMSIG(status))
                              : "ended the process that asked with exit code " + std::to_string(WEXITSTATUS(status))};
}

std::string secondsText(double seconds) {
    char text[32];
    std::snprintf(text, sizeof(text), "%g s", seconds);
    return text;
}

/** What came of a check, and whether the process that made it goes on. */
struct Followed {
    Finding finding;
    bool goesOn = false;
};

Followed follow(Maker& maker, const Check& check, const Listener& listener) {
    while (const std::optional<std::string> message = maker.next(check.limit)) {
        if (isFinding(*message)) {
            return {findingIn(*message), true};
        }
        if (*message == kBegins) {
            listener.begins(check);
        }
    }
    if (maker.hasEnded()) {
        return {brokenOff(maker.wait())};
    }
    return {{Verdict::TimeOver, "no answer within " + secondsText(check.limit)}};
}

} // namespace

std::size_t makeChecks(const std::vector<Check>& checks, const Listener& listener) {
    constexpr int kMostInVain = 3;
    int inVain = 0;
    const Check* const end = checks.data() + checks.size();
    const Check* check = checks.data();
    std::unique_ptr<Maker> maker;
    while (check != end && inVain < kMostInVain) {
        if (maker == nullptr) {
            maker = std::make_unique<Maker>(check, end, listener.begins != nullptr);
        }
        const auto [finding, goesOn] = follow(*maker, *check, listener);
        listener.ends(*check++, finding);
        if (finding.verdict == Verdict::Unlinked) {
            break;
        }
        if (finding.verdict != Verdict::Unasked) {
            inVain = finding.verdict == Verdict::TimeOver ? inVain + 1 : 0;
        }
        if (!goesOn) {
            maker.reset();
        }
    }
    return static_cast<std::size_t>(check - checks.data());
}

} // namespace kelutv::tool
