#include "simulator/Program.h"

#include "service/Registration.h"
#include "simulator/control/Control.h"
#include "simulator/control/ControlReader.h"
#include "simulator/control/ControlServer.h"
#include "simulator/output/Complaints.h"
#include "simulator/output/Shortage.h"
#include "simulator/trace/TracePrinter.h"

#include <binder/ProcessState.h>

#include <pthread.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>

namespace kelutv::simulator {

namespace {

constexpr int kBadUsage = 2;
constexpr int kDifference = 1;
constexpr int kNoService = 3;
constexpr int kScenarioFailed = 4;
constexpr std::chrono::seconds kBetweenAttempts{1};

/** What main waits for, which every other thread leaves to it. */
sigset_t blockSignals(bool hasScreen) {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    if (hasScreen) {
        sigaddset(&signals, SIGHUP);
        sigaddset(&signals, SIGQUIT);
        sigaddset(&signals, SIGWINCH);
        sigaddset(&signals, SIGTSTP);
        sigaddset(&signals, SIGCONT);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

/** Stops as every program does on this signal, and goes on when it is continued. */
void stopProcess() {
    sigset_t stop;
    sigemptyset(&stop);
    sigaddset(&stop, SIGTSTP);
    ::kill(::getpid(), SIGTSTP);
    pthread_sigmask(SIG_UNBLOCK, &stop, nullptr);
    pthread_sigmask(SIG_BLOCK, &stop, nullptr);
}

Configuration configurationOf(const Options& options) {
    return options.config.empty() ? Configuration::standard() : Configuration::fromFile(options.config);
}

EepStore eepOf(const Options& options) { return options.eep.empty() ? EepStore() : EepStore(options.eep); }

std::shared_ptr<Ui> screenOf(const Options& options) {
    if (!options.ui || ::isatty(STDOUT_FILENO) == 0) {
        return nullptr;
    }
    const char* const noColor = std::getenv("NO_COLOR");
    const bool isLineInput = options.control == "-" && ::isatty(STDIN_FILENO) != 0;
    return std::make_shared<Ui>(STDOUT_FILENO, noColor == nullptr || *noColor == '\0',
                                !isLineInput && UiKeyboard::canRead(STDOUT_FILENO));
}

std::shared_ptr<ScenarioPlayer> playerOf(const Options& options) {
    return options.scenario.empty()
               ? nullptr
               : std::make_shared<ScenarioPlayer>(readScenario(findScenario(options.scenario), objectionToLine),
                                                  options.speed.value_or(1));
}

} // namespace

Program::Program(const Options& options)
    : mOptions(options), mProbe(std::in_place, service::kServiceName), mUi(screenOf(options)),
      mSignals(blockSignals(mUi != nullptr)), mPlayer(playerOf(options)),
      mService(new Service(watchers(), configurationOf(options), eepOf(options), options.state)) {}

int Program::run() {
    startComplaints();
    if (!mOptions.replay.empty()) {
        mService->setReplay(readReplayScript(mOptions.replay), mOptions.replayOptions);
    }
    if (!addFaults()) {
        return kBadUsage;
    }
    // First, so that without threads nothing is served.
    android::ProcessState::self()->startThreadPool();
    if (!isAwaited()) {
        return end() ? EXIT_SUCCESS : kDifference;
    }
    if (!serve()) {
        return exitCodeWithoutService();
    }
    const ControlServer channel([this](const std::string& line) { return mService->control(line); });
    std::optional<ControlReader> control;
    if (!mOptions.control.empty()) {
        control.emplace(mOptions.control, [this](const std::string& line) { obeyFile(line); });
    }
    if (!isAnswering()) {
        return exitCodeWithoutService();
    }
    begin();
    waitForTheEnd();
    const bool isAsRecorded = end();
    if (mFailedSteps > 0 && mOptions.exitAtEnd) {
        return kScenarioFailed;
    }
    return isAsRecorded ? EXIT_SUCCESS : kDifference;
}

/** Waits until the service is to be there again; false when a signal ends the program before. */
bool Program::isAwaited() {
    const auto returns = mService->returnTime();
    for (auto now = Replay::Clock::now(); now < returns; now = Replay::Clock::now()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(returns - now);
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        const timespec time{static_cast<std::time_t>(seconds.count()),
                            static_cast<long>(std::chrono::nanoseconds(left - seconds).count())};
        const int received = ::sigtimedwait(&mSignals, nullptr, &time);
        if (received >= 0 && !isForScreen(received)) {
            return false;
        }
    }
    return true;
}

/** Where a recording is played, 1 is a difference. */
int Program::exitCodeWithoutService() const { return mOptions.replay.empty() ? EXIT_FAILURE : kNoService; }

Service::Watchers Program::watchers() {
    Service::Watchers watchers;
    if (mUi != nullptr) {
        watchers.push_back(mUi);
    } else if (mOptions.trace || mOptions.ui) {
        watchers.push_back(std::make_shared<TracePrinter>(mOutput));
    }
    if (mPlayer != nullptr) {
        watchers.push_back(mPlayer);
    }
    return watchers;
}

bool Program::addFaults() {
    for (const std::string& fault : mOptions.faults) {
        if (const Answer answer = mService->control("fault " + fault); !answer.ok) {
            std::fprintf(stderr, "kelutv-simulator: --fault: %s\n", answer.text.c_str());
            return false;
        }
    }
    return true;
}

bool Program::serve() {
    const std::string complaint = service::registerService(mService);
    if (!complaint.empty()) {
        std::fprintf(stderr, "kelutv-simulator: %s\n", complaint.c_str());
    }
    return complaint.empty();
}

/** It is said to be ready, which applications wait for, when a call of another process has been answered. */
bool Program::isAnswering() {
    const bool answering = mProbe->isAnswered();
    mProbe.reset();
    if (!answering) {
        std::fprintf(stderr, "kelutv-simulator: %s does not answer; are there enough threads and descriptors?\n",
                     service::kServiceName);
    }
    return answering;
}

std::optional<std::string> Program::obey(const std::string& line) {
    const Answer answer = mService->control(line);
    if (!answer.ok) {
        return answer.text;
    }
    if (!answer.text.empty()) {
        print(answer.text);
    }
    return std::nullopt;
}

void Program::obeyFile(const std::string& line) {
    if (const auto complaint = obey(line)) {
        complain(*complaint);
    }
}

void Program::obeyKey(const std::string& line) {
    if (const auto complaint = obey(line)) {
        mUi->note(*complaint);
    }
}

void Program::begin() {
    if (mUi != nullptr) {
        mUi->start({[this](const std::string& line) { obeyKey(line); }, [] { ::kill(::getpid(), SIGTERM); }});
        mService->show();
    } else {
        print(std::string("kelutv-simulator: ready (") + service::kServiceName + ')');
    }
    if (mPlayer != nullptr) {
        mPlayer->start([this](const std::string& line) { return obey(line); },
                       [this](int failedSteps) { endScenario(failedSteps); });
    }
    // Called by a thread that this object may not outlive.
    mService->startReplay(mOptions.exitAtEnd ? [] { ::kill(::getpid(), SIGTERM); } : std::function<void()>());
}

void Program::endScenario(int failedSteps) {
    mFailedSteps = failedSteps;
    print("kelutv-simulator: the scenario has ended" +
          (failedSteps > 0 ? ", " + std::to_string(failedSteps) + " of its steps failed" : ""));
    if (mOptions.exitAtEnd) {
        ::kill(::getpid(), SIGTERM);
    }
}

void Program::print(const std::string& text) {
    if (mUi != nullptr) {
        mUi->note(text);
        return;
    }
    mOutput->add(text);
}

void Program::waitForTheEnd() {
    for (bool isOver = false; !isOver;) {
        const timespec pause{kBetweenAttempts.count(), 0};
        const int received = ::sigtimedwait(&mSignals, nullptr, mOptions.state.empty() ? nullptr : &pause);
        isOver = received >= 0 && !isForScreen(received);
        withMemory([this] { mService->keepState(); });
    }
}

/** Does what the screen does on a signal; false for one that ends the program. */
bool Program::isForScreen(int signal) {
    switch (signal) {
    case SIGWINCH:
        mUi->resized();
        return true;
    case SIGTSTP:
        mUi->leave();
        stopProcess();
        mUi->enter();
        return true;
    case SIGCONT:
        mUi->enter();
        return true;
    default:
        return false;
    }
}

bool Program::end() {
    if (mPlayer != nullptr) {
        mPlayer->stop();
    }
    if (mUi != nullptr) {
        mUi->stop();
    }
    const ReplayReport report = mService->endReplay();
    for (const std::string& line : report.lines) {
        mOutput->add(line);
    }
    mOutput->finish();
    flushComplaints();
    return report.isAsRecorded;
}

} // namespace kelutv::simulator
