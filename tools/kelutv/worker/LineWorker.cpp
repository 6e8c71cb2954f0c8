#include "tools/kelutv/worker/LineWorker.h"

#include "tools/kelutv/worker/TimedCommand.h"
#include "tools/process/Deadline.h"
#include "tools/process/MessagePipe.h"
#include "tools/process/Worker.h"

#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <optional>
#include <type_traits>

namespace kelutv::tool {

namespace {

/** What a process that is no longer needed has to end by itself. */
constexpr std::chrono::milliseconds kLineGrace{1000};

/** What the process says of a line. */
enum class AnswerKind { Time, End };

/** The time that the line may take from now on, or how it ended; without gaps, whose bytes would be sent, too. */
struct Answer {
    AnswerKind kind;
    Exit exit;
    std::chrono::microseconds time;
};
static_assert(std::has_unique_object_representations_v<Answer>);

std::string messageOf(const Answer& answer) {
    std::string message(sizeof(answer), '\0');
    std::memcpy(message.data(), &answer, sizeof(answer));
    return message;
}

Answer answerIn(const std::string& message) {
    Answer answer{};
    std::memcpy(&answer, message.data(), std::min(message.size(), sizeof(answer)));
    return answer;
}

std::string messageOf(const std::vector<std::string>& words) {
    std::string message;
    for (const std::string& word : words) {
        message.append(word.c_str(), word.size() + 1);
    }
    return message;
}

std::vector<std::string> wordsIn(const std::string& message) {
    std::vector<std::string> words;
    for (std::size_t start = 0; start < message.size(); start += words.back().size() + 1) {
        words.emplace_back(message.c_str() + start);
    }
    return words;
}

/** While this lives the keyboard does not interrupt this process. */
class InterruptIgnored {
public:
    InterruptIgnored() : mBefore(std::signal(SIGINT, SIG_IGN)) {}
    ~InterruptIgnored() { std::signal(SIGINT, mBefore); }
    InterruptIgnored(const InterruptIgnored&) = delete;
    InterruptIgnored& operator=(const InterruptIgnored&) = delete;

private:
    void (*mBefore)(int);
};

Exit exitIn(int status) {
    if (WIFEXITED(status)) {
        return static_cast<Exit>(WEXITSTATUS(status));
    }
    if (WTERMSIG(status) != SIGINT) {
        throw ToolError(Exit::Failure, "the command was ended by signal " + std::to_string(WTERMSIG(status)) + " (" +
                                           ::strsignal(WTERMSIG(status)) + ')');
    }
    return Exit::Failure;
}

} // namespace

/** The process and the pipes to and from it. */
class LineWorker::Process {
public:
    explicit Process(RunCommandLine run) : mWorker(process::Worker::start([this, run] { return carryOutLines(run); })) {
        mLines.keepSending();
        mAnswers.keepReceiving();
    }

    /** Ends it by the end of its lines, so that it takes leave of the service. */
    ~Process() {
        mLines.close();
        process::waitToRead({mWorker.fd()}, process::deadlineIn(kLineGrace));
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void send(const std::vector<std::string>& words) const { mLines.send(messageOf(words)); }

    bool hasEnded() const { return process::waitToRead({mWorker.fd()}, process::deadlineIn(Seconds::zero())); }

    /** Nothing when the process has ended. Gives it up when the time is over. @throws ToolError then */
    std::optional<Exit> awaitExit() {
        std::optional<Seconds> time;
        process::Deadline deadline;
        while (!mAnswers.isAtEnd()) {
            if (const auto message = mAnswers.take()) {
                const Answer answer = answerIn(*message);
                if (answer.kind == AnswerKind::End) {
                    return answer.exit;
                }
                time = answer.time;
                deadline = process::deadlineIn(time);
            } else if (!process::waitToRead({mAnswers.fd()}, deadline)) {
                mWorker.kill(SIGKILL);
                throw ToolError(Exit::TimeOver, timeOverText(*time));
            }
        }
        return std::nullopt;
    }

    int waitForEnd() { return mWorker.wait(); }

private:
    int carryOutLines(RunCommandLine run) {
        mLines.keepReceiving();
        mAnswers.keepSending();
        const InterruptIgnored betweenLines;
        while (!mLines.isAtEnd()) {
            if (const auto line = mLines.take()) {
                carryOut(run, wordsIn(*line));
            } else {
                process::waitToRead({mLines.fd()}, std::nullopt);
            }
        }
        return 0;
    }

    void carryOut(RunCommandLine run, std::vector<std::string> words) const {
        std::signal(SIGINT, SIG_DFL);
        const Exit exit = run(std::move(words), [this](Seconds time) {
            const auto rounded = std::chrono::round<std::chrono::microseconds>(time);
            mAnswers.send(messageOf(Answer{AnswerKind::Time, Exit::Success, rounded}));
        });
        std::signal(SIGINT, SIG_IGN);
        mAnswers.send(messageOf(Answer{AnswerKind::End, exit, {}}));
    }

    process::MessagePipe mLines;
    process::MessagePipe mAnswers;
    process::Worker mWorker;
};

LineWorker::LineWorker(RunCommandLine runCommandLine, bool isInterruptedAlone)
    : mRun(runCommandLine), mIsInterruptedAlone(isInterruptedAlone) {}

LineWorker::~LineWorker() = default;

Exit LineWorker::run(const std::vector<std::string>& words) {
    std::optional<InterruptIgnored> whileItRuns;
    if (mIsInterruptedAlone) {
        whileItRuns.emplace();
    }
    if (mProcess == nullptr || mProcess->hasEnded()) {
        mProcess = std::make_unique<Process>(mRun);
    }
    // Kept for the next line only if this one leaves it of use: what is connected once does not connect again.
    std::unique_ptr<Process> process = std::move(mProcess);
    process->send(words);
    const std::optional<Exit> exit = process->awaitExit();
    if (!exit) {
        return exitIn(process->waitForEnd());
    }
    if (*exit != Exit::Link) {
        mProcess = std::move(process);
    }
    return *exit;
}

Exit LineWorker::runAlone(const std::vector<std::string>& words) const {
    const InterruptIgnored whileItRuns;
    process::Worker worker = process::Worker::start([this, &words] {
        std::signal(SIGINT, SIG_DFL);
        return static_cast<int>(mRun(words, continueInWorkerFor));
    });
    return exitIn(worker.wait());
}

} // namespace kelutv::tool
