#include <kelutv/commands.h>
#include <kelutv/events.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_notify.h>

#include <keluem/emal.h>

#include <pthread.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

/** A program to be traced; the first argument says what it does. */
namespace {

void setVolumes(int channel, int count) {
    for (int volume = 0; volume < count; ++volume) {
        linux_tv_Audio_setVolume(channel, volume);
    }
}

void runThreads() {
    std::vector<std::thread> threads;
    for (int channel = 0; channel < 4; ++channel) {
        threads.emplace_back(setVolumes, channel, 50);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/** Runs this program again in a child and waits for it. */
int runChild(const char* program, const char* action) {
    linux_tv_Audio_setVolume(0, 1);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(program, program, action, nullptr);
        std::_Exit(99);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    linux_tv_Audio_setVolume(0, 2);
    return status;
}

void closeAll() {
    for (int fd = 0; fd < 1024; ++fd) {
        ::close(fd);
    }
}

/** Ends the program that traces this one and goes on. */
void killTracer() {
    const pid_t tracer = ::getppid();
    ::kill(tracer, SIGKILL);
    while (::getppid() == tracer) {
        std::this_thread::yield();
    }
}

/** Sends more than fits between a program and a tool that does not read. */
void sendPastStoppedTracer() {
    ::kill(::getppid(), SIGSTOP);
    for (int i = 0; i < 200; ++i) {
        linux_tv_Factory_setInternetTime(std::string(20000, 't').c_str());
    }
    ::kill(::getppid(), SIGCONT);
    std::puts("went on");
}

/** The same, and prints how many milliseconds the slowest call took. */
void sendPastStoppedRecorder(int count) {
    using Clock = std::chrono::steady_clock;
    ::kill(::getppid(), SIGSTOP);
    Clock::duration slowest{};
    for (int i = 0; i < count; ++i) {
        const auto begin = Clock::now();
        linux_tv_Factory_setInternetTime(std::string(20000, 't').c_str());
        slowest = std::max(slowest, Clock::now() - begin);
    }
    ::kill(::getppid(), SIGCONT);
    std::printf("slowest %ld ms\n",
                static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(slowest).count()));
}

/** Connects, then sends until the service is gone, and stays. */
int sendPastService() {
    linux_tv_Audio_setVolume(0, 1);
    std::puts("connected");
    std::fflush(stdout);
    while (linux_tv_Audio_setVolume(0, 7) == 0) {
    }
    ::pause();
    return 0;
}

/** Until it is ended, or the service is. */
void sendWithoutEnd() {
    while (linux_tv_Audio_setVolume(0, 7) == 0) {
    }
}

/** Ends the first thread, and goes on in another once SIGUSR1 has come. */
void sendBehindFirstThread() {
    linux_tv_Audio_setVolume(0, 1);
    static sigset_t awaited;
    ::sigemptyset(&awaited);
    ::sigaddset(&awaited, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &awaited, nullptr);
    std::thread([] {
        std::puts("in another thread");
        std::fflush(stdout);
        int signal = 0;
        ::sigwait(&awaited, &signal);
        linux_tv_Audio_setVolume(0, 2);
        std::_Exit(0);
    }).detach();
    ::pthread_exit(nullptr);
}

/** Between two calls that are seen one for which no descriptor is left to send it through; then one from elsewhere. */
int sendWithoutDescriptor() {
    linux_tv_Audio_setVolume(0, 1);
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const int next = ::dup(STDIN_FILENO);
    ::close(next);
    const rlimit none{static_cast<rlim_t>(next), before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    linux_tv_Audio_setVolume(0, 2);
    ::setrlimit(RLIMIT_NOFILE, &before);
    linux_tv_Audio_setVolume(0, 3);
    const int result = ::chdir("/");
    linux_tv_Audio_setVolume(0, 4);
    return result;
}

/** As a recorder does that looks whether it may end. */
int sendWhileHidden() {
    const std::string pipe = std::getenv("KELUTV_RECORD_PIPE");
    const std::string hidden = pipe + ".ending";
    linux_tv_Audio_setVolume(0, 1);
    const int away = std::rename(pipe.c_str(), hidden.c_str());
    linux_tv_Audio_setVolume(0, 2);
    const int back = std::rename(hidden.c_str(), pipe.c_str());
    linux_tv_Audio_setVolume(0, 3);
    return away | back;
}

std::atomic<bool> hasEvent{false};

void takeEvent(int /*event*/, void* /*payload*/, unsigned int /*length*/, void* /*more*/) { hasEvent = true; }

void takeOwnEvent(unsigned int /*event*/, void* /*payload*/, unsigned int /*length*/, void* /*more*/) {
    hasEvent = true;
}

/** Changes the volume until an event tells of that. */
int awaitEvent() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (int volume = 1; !hasEvent && std::chrono::steady_clock::now() < deadline; volume = volume % 100 + 1) {
        linux_tv_Audio_setVolume(0, volume);
    }
    return hasEvent ? 0 : 1;
}

/** Sends a request by the proxy itself, past the library's calls. */
int sendByProxy() {
    android::Parcel request;
    android::Parcel reply;
    request.writeInterfaceToken(android::String16("android.ITVBaseService"));
    for (const int word : {int{CMD_AUDIO_SETVOLUME}, 0, 7}) {
        request.writeInt32(word);
    }
    const int status = android::TVBaseClient::self()->getBpTvbaseService()->invoke(request, &reply);
    return status != 0 ? status : reply.readInt32();
}

int run(const char* program, const std::string& action) {
    if (action == "print") {
        linux_tv_Audio_setVolume(0, 5);
        std::puts("to standard output");
        std::fputs("to standard error\n", stderr);
    } else if (action == "threads") {
        runThreads();
    } else if (action == "fork") {
        return runChild(program, "print");
    } else if (action == "close") {
        linux_tv_Audio_setVolume(0, 1);
        closeAll();
        linux_tv_Audio_setVolume(0, 2);
    } else if (action == "killed") {
        linux_tv_Audio_setVolume(0, 3);
        std::raise(SIGKILL);
    } else if (action == "orphan") {
        linux_tv_Audio_setVolume(0, 3);
        killTracer();
        std::printf("set the volume: %d\n", linux_tv_Audio_setVolume(0, 4));
    } else if (action == "stop") {
        sendPastStoppedTracer();
    } else if (action == "lost") {
        return sendPastService();
    } else if (action == "slow") {
        sendPastStoppedRecorder(200);
    } else if (action == "many") {
        setVolumes(0, 400);
        std::puts("done");
        std::fflush(stdout);
    } else if (action == "busy") {
        sendWithoutEnd();
    } else if (action == "headless") {
        sendBehindFirstThread();
    } else if (action == "unopened") {
        return sendWithoutDescriptor();
    } else if (action == "hidden") {
        return sendWhileHidden();
    } else if (action == "exec") {
        linux_tv_Audio_setVolume(0, 4);
        ::execl(program, program, "print", nullptr);
        return 99;
    } else if (action == "event") {
        linux_tv_registerCallbackFunc(takeEvent);
        return awaitEvent();
    } else if (action == "listener") {
        // The library's own listener would take its place if it came later.
        linux_tv_Audio_setVolume(0, 0);
        return EMAL_AddListener(KELU_EM_MODE_VOLUME, takeOwnEvent) != 0 ? 1 : awaitEvent();
    } else if (action == "wait") {
        linux_tv_Audio_setVolume(0, 6);
        ::pause();
    } else if (action == "proxy") {
        return sendByProxy();
    } else if (action == "large") {
        linux_tv_Factory_setInternetTime(std::string(20000, 't').c_str());
    }
    return action == "fail" ? 7 : 0;
}

} // namespace

int main(int argc, char** argv) { return argc > 1 ? run(argv[0], argv[1]) : 2; }
