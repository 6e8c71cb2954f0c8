// A process that subscribes to one module, or publishes: event_subscriber CASE MODULE. Says "ready" on standard output
// when it has.

#include <fcntl.h>
#include <keluem/emal.h>
#include <keluem/publisher.h>
#include <pthread.h>
#include <semaphore.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

constexpr unsigned int kLastEvent = 0xFFFF; // low bits of the event that ends the process
constexpr unsigned int kPatienceSeconds = 60;
constexpr int kDeliveredAtExit = 3;

sem_t happened;
sem_t resumed;
std::atomic<bool> destroyed{false};

/** Its destruction tells that static objects are being destroyed. */
class Static {
public:
    ~Static() { destroyed = true; }
};

const Static staticObject;

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

bool subscribe(unsigned int module, Listener listener) {
    const int status = EMAL_AddListener(module, listener);
    std::puts(status == 0 ? "ready" : "refused");
    std::fflush(stdout);
    return status == 0;
}

void waitFor(sem_t* semaphore) {
    while (::sem_wait(semaphore) != 0 && errno == EINTR) {
    }
}

void print(unsigned int id, void* payload, unsigned int length, void* /*previous*/) {
    std::printf("%x %.*s\n", id, static_cast<int>(length), static_cast<const char*>(payload));
    std::fflush(stdout);
    if ((id & kLastEvent) == kLastEvent) {
        ::sem_post(&happened);
    }
}

/** Prints every event until the last. */
int printAll(unsigned int module) {
    if (!subscribe(module, print)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Returns from main while events arrive; a listener called while static objects are destroyed makes it abort. */
int exitMain(unsigned int module) {
    const auto listener = [](unsigned int, void*, unsigned int, void*) {
        if (destroyed) {
            std::abort();
        }
        ::sem_post(&happened);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Subscribes while it is made. Ends the process with another exit code when an event comes while it is destroyed. */
class EarlySubscriber {
public:
    explicit EarlySubscriber(unsigned int module)
        : mSubscribed(subscribe(module, [](unsigned int, void*, unsigned int, void*) { ::sem_post(&happened); })) {}

    ~EarlySubscriber() {
        std::puts("exiting");
        std::fflush(stdout);
        timespec deadline{};
        ::clock_gettime(CLOCK_REALTIME, &deadline);
        ++deadline.tv_sec; // an event that is not delivered can only be waited for
        if (::sem_timedwait(&happened, &deadline) == 0) {
            ::_exit(kDeliveredAtExit);
        }
    }

    EarlySubscriber(const EarlySubscriber&) = delete;
    EarlySubscriber& operator=(const EarlySubscriber&) = delete;

    bool subscribed() const { return mSubscribed; }

private:
    const bool mSubscribed;
};

/** Returns from main at once; the first event comes while static objects are destroyed. */
int exitFirst(unsigned int module) {
    static const EarlySubscriber subscriber(module);
    return subscriber.subscribed() ? 0 : 1;
}

/** Ends its main thread alone; the first event ends the process. */
int endMainThread(unsigned int module) {
    if (!subscribe(module, [](unsigned int, void*, unsigned int, void*) { ::_exit(0); })) {
        return 1;
    }
    ::pthread_exit(nullptr);
}

/** Calls exit from the listener, once main has said that it has subscribed. */
int exitListener(unsigned int module) {
    const auto listener = [](unsigned int, void*, unsigned int, void*) {
        waitFor(&resumed);
        std::exit(0);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    ::sem_post(&resumed);
    waitFor(&happened);
    return 2;
}

/** Returns from main while the listener is stuck. */
int exitStuck(unsigned int module) {
    const auto listener = [](unsigned int, void*, unsigned int, void*) {
        ::sem_post(&happened);
        waitFor(&resumed);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Says "stuck" at the first event and stays so until SIGUSR1, then prints every event. */
int printSlowly(unsigned int module) {
    std::signal(SIGUSR1, [](int) { ::sem_post(&resumed); });
    const auto listener = [](unsigned int id, void* payload, unsigned int length, void* previous) {
        static bool stuck = false;
        if (!stuck) {
            stuck = true;
            std::puts("stuck");
            std::fflush(stdout);
            waitFor(&resumed);
        }
        print(id, payload, length, previous);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Forks after subscribing; the child stays until it is killed, the parent prints every event. */
int forkAndPrint(unsigned int module) {
    if (EMAL_AddListener(module, print) != 0) {
        return 1;
    }
    int forked[2];
    if (::pipe2(forked, O_CLOEXEC) != 0) {
        return 1;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kPatienceSeconds);
        ::close(forked[1]);
        for (;;) {
            ::pause();
        }
    }
    // The child closes what it inherited of the event manager before fork returns there.
    ::close(forked[1]);
    char byte = 0;
    static_cast<void>(::read(forked[0], &byte, 1));
    std::printf("child %d\nready\n", child);
    std::fflush(stdout);
    waitFor(&happened);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    return 0;
}

/** Returns from main as soon as it has subscribed. */
int leaveAtOnce(unsigned int module) { return subscribe(module, print) ? 0 : 1; }

void setDescriptorLimit(rlim_t value) {
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = value;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

/** Prints every event; "starve" takes it every further descriptor, "feed" gives them back. */
int printStarved(unsigned int module) {
    const auto listener = [](unsigned int id, void* payload, unsigned int length, void* previous) {
        const std::string text(static_cast<const char*>(payload), length);
        if (text == "starve") {
            setDescriptorLimit(0);
        } else if (text == "feed") {
            setDescriptorLimit(256);
        }
        print(id, payload, length, previous);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Its listener forks a child, which returns from the listener, and says how the child ends. */
int forkInListener(unsigned int module) {
    const auto listener = [](unsigned int, void*, unsigned int, void*) {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(kPatienceSeconds);
            return;
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        std::printf("child %s %d\n", WIFEXITED(status) ? "exit" : "signal",
                    WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status));
        std::fflush(stdout);
        ::sem_post(&happened);
    };
    if (!subscribe(module, listener)) {
        return 1;
    }
    waitFor(&happened);
    return 0;
}

/** Publishes an event, forks a child that stays until it is killed, and stays itself. */
int publishAndFork(unsigned int module) {
    keluem::Publisher publisher;
    if (publisher.publish(module, nullptr, 0) != 0) {
        return 1;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kPatienceSeconds);
        for (;;) {
            ::pause();
        }
    }
    std::printf("child %d\nready\n", child);
    std::fflush(stdout);
    waitFor(&happened);
    return 0;
}

/** Subscribes after a fork that came before any use of the event manager. */
int forkFirst(unsigned int module) {
    const pid_t child = ::fork();
    if (child == 0) {
        return printAll(module);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

} // namespace

int main(int argc, char** argv) {
    const std::map<std::string, int (*)(unsigned int)> cases{
        {"print", printAll},
        {"exit-main", exitMain},
        {"exit-listener", exitListener},
        {"exit-first", exitFirst},
        {"end-main-thread", endMainThread},
        {"exit-stuck", exitStuck},
        {"brief", leaveAtOnce},
        {"starved", printStarved},
        {"fork-listener", forkInListener},
        {"publish-fork", publishAndFork},
        {"slow", printSlowly},
        {"fork", forkAndPrint},
        {"fork-first", forkFirst},
    };
    const auto chosen = cases.find(argc == 3 ? argv[1] : "");
    if (chosen == cases.end()) {
        return 2;
    }
    ::alarm(kPatienceSeconds);
    ::sem_init(&happened, 0, 0);
    ::sem_init(&resumed, 0, 0);
    return chosen->second(static_cast<unsigned int>(std::stoul(argv[2], nullptr, 0)));
}
