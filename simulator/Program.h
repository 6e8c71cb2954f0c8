#pragma once

#include "service/Probe.h"
#include "simulator/Service.h"
#include "simulator/output/LineWriter.h"
#include "simulator/scenarios/ScenarioPlayer.h"
#include "simulator/screen/Ui.h"

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The options of the command line. */
struct Options {
    bool trace = false;
    bool ui = false;
    std::string config;
    std::string eep;
    std::string state;
    std::string control;
    std::vector<std::string> faults;
    std::string scenario;
    std::optional<double> speed;
    std::string replay;
    ReplayOptions replayOptions;
    bool exitAtEnd = false;
};

/** The simulator as a program: a television that is served until a signal or the end of its scenario. */
class Program {
public:
    /** @throws ScenarioError, ConfigurationError */
    explicit Program(const Options& options);

    /** @return the exit code */
    int run();

private:
    Service::Watchers watchers();
    bool addFaults();
    bool isAwaited();
    bool serve();
    /** Carries out a line and prints its data. @return what is wrong with it, if anything */
    std::optional<std::string> obey(const std::string& line);
    void obeyFile(const std::string& line);
    void obeyKey(const std::string& line);
    bool isAnswering();
    void begin();
    void endScenario(int failedSteps);
    void print(const std::string& text);
    void waitForTheEnd();
    bool isForScreen(int signal);
    /** @return whether all was as in the recording that is played, if one is */
    bool end();
    int exitCodeWithoutService() const;

    const Options& mOptions;
    std::optional<service::Probe> mProbe;
    const std::shared_ptr<Ui> mUi;
    const sigset_t mSignals;
    /** Shared with the watchers of the service, which serves until the process has ended. */
    const std::shared_ptr<LineWriter> mOutput = std::make_shared<LineWriter>(STDOUT_FILENO);
    const std::shared_ptr<ScenarioPlayer> mPlayer;
    const android::sp<Service> mService;
    std::atomic<int> mFailedSteps{0};
};

} // namespace kelutv::simulator
