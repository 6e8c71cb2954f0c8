#include "support/Deadline.h"
#include "tools/process/Deadline.h"
#include "tools/process/MessagePipe.h"
#include "tools/process/Worker.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace kelutv::test {
namespace {

using process::deadlineIn;
using process::MessagePipe;
using process::waitToRead;
using process::Worker;

int pauseForEver() {
    while (true) {
        ::pause();
    }
}

TEST(Worker, endsWithWhatItsWorkGives) {
    Worker worker = Worker::start([] { return 7; });
    ASSERT_TRUE(waitToRead({worker.fd()}, deadlineIn(kPatience)));
    const int status = worker.wait();
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

TEST(Worker, isThereUntilItIsEnded) {
    Worker worker = Worker::start(pauseForEver);
    EXPECT_FALSE(waitToRead({worker.fd()}, deadlineIn(std::chrono::milliseconds(20))));
    const int status = worker.end(kPatience);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGTERM);
}

TEST(Worker, isKilledWhenItDoesNotObey) {
    MessagePipe ready;
    Worker worker = Worker::start([&ready] {
        std::signal(SIGTERM, SIG_IGN);
        ready.send("");
        return pauseForEver();
    });
    ready.keepReceiving();
    ASSERT_TRUE(waitToRead({ready.fd()}, deadlineIn(kPatience)));
    const int status = worker.end(std::chrono::milliseconds(20));
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

/** What the worker of a worker holds open is closed when both are gone. */
TEST(Worker, endsWithTheProcessThatMadeIt) {
    MessagePipe life;
    Worker outer = Worker::start([&life] {
        life.keepSending();
        const Worker inner = Worker::start([&life] {
            life.send("");
            return pauseForEver();
        });
        return pauseForEver();
    });
    life.keepReceiving();
    ASSERT_TRUE(waitToRead({life.fd()}, deadlineIn(kPatience)));
    EXPECT_EQ(life.take(), "");
    outer.kill(SIGKILL);
    ASSERT_TRUE(waitToRead({life.fd()}, deadlineIn(kPatience)));
    EXPECT_EQ(life.take(), std::nullopt);
    EXPECT_TRUE(life.isAtEnd());
}

TEST(MessagePipe, carriesWholeMessages) {
    const std::string big(300000, 'x'); // More than a pipe holds.
    MessagePipe pipe;
    Worker worker = Worker::start([&pipe, &big] {
        pipe.keepSending();
        const bool isSent = pipe.send("one") && pipe.send("") && pipe.send(std::string("a\0b", 3)) && pipe.send(big);
        return isSent ? 0 : 1;
    });
    pipe.keepReceiving();
    std::vector<std::string> messages;
    while (!pipe.isAtEnd() && waitToRead({pipe.fd()}, deadlineIn(kPatience))) {
        while (auto message = pipe.take()) {
            messages.push_back(std::move(*message));
        }
    }
    EXPECT_TRUE(messages == std::vector<std::string>({"one", "", std::string("a\0b", 3), big}));
    EXPECT_EQ(worker.wait(), 0);
}

TEST(MessagePipe, tellsWhenNobodyReceives) {
    MessagePipe pipe;
    pipe.keepSending();
    std::signal(SIGPIPE, SIG_IGN);
    EXPECT_FALSE(pipe.send("lost"));
    std::signal(SIGPIPE, SIG_DFL);
}

} // namespace
} // namespace kelutv::test
