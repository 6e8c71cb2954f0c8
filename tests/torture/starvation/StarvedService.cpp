#include "torture/starvation/StarvedService.h"

#include "support/Sanitizers.h"
#include "torture/processes/ForkedProcess.h"
#include "torture/starvation/TelevisionOperations.h"

#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_notify.h>

#include <sys/wait.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

namespace kelutv::test {

namespace {

using namespace std::chrono_literals;

/** Far more than any visit takes; what takes longer hangs. */
constexpr auto kVisitPatience = 6s;
constexpr auto kEventPatience = 300ms;
constexpr int kVolumes = 100;
constexpr int kChannel = 0;

std::atomic<int> gEvents{0};

} // namespace

StarvedService::StarvedService(bool keepsState)
    : mKeepsState(keepsState), mStarvation(mFolder.pathOf("page")), mOperations(televisionOperations()) {
    start();
    if (const std::string wrong = visit(1); !wrong.empty() || mVisit->notes.failed > 0) {
        throw std::runtime_error("the television is wrong before it lacks anything: " + wrong);
    }
    mAcknowledged = 1;
    mSet = 1;
}

void StarvedService::start() {
    ChildProcess::Options options;
    options.environment = {std::string("LD_PRELOAD=") + KELUTV_REFUSALS, sanitizerOptions(),
                           std::string(starvation::kPageVariable) + "=" + mFolder.pathOf("page")};
    options.captureOutput = true;
    options.captureError = true;
    std::vector<std::string> command = {KELUTV_SIMULATOR};
    if (mKeepsState) {
        command.insert(command.end(), {"--state", mFolder.pathOf("state")});
    }
    mProcess = std::make_unique<ChildProcess>(command, options);
    if (!mProcess->output().waitFor("ready")) {
        throw std::runtime_error("the television did not get ready: " + mProcess->error().text());
    }
}

ServiceRun StarvedService::run(const Starved& starved) {
    const int volume = mSet % kVolumes + 1;
    arm(*mStarvation.operator->(), starved, 0);
    std::string wrong = visit(volume);
    mStarvation->armed = false;
    const ServiceRun seen{mVisit->notes.right, mVisit->notes.failed, "", mStarvation->seen};
    mSet = volume;
    if (mVisit->acknowledged) {
        mAcknowledged = volume;
    }
    return {seen.right, seen.failed, wrong + look(), seen.seen};
}

/** A client of its own sets the volume, and compares everything with what it must be. */
std::string StarvedService::visit(int volume) {
    mVisit.renew();
    ForkedProcess client([&] { live(volume); });
    const std::optional<int> status = client.wait(kVisitPatience);
    client.kill();
    if (mVisit->notes.wrong > 0) {
        return mVisit->notes.firstWrong.data();
    }
    return !status ? "the client hung: " + client.text() : *status != 0 ? "the client ended: " + client.text() : "";
}

void StarvedService::live(int volume) {
    CallNotes& notes = mVisit->notes;
    linux_tv_registerCallbackFunc([](int, void*, unsigned int, void*) { ++gEvents; });
    const int result = linux_tv_Audio_setVolume(kChannel, volume);
    mVisit->acknowledged = result == 0;
    ++(result == 0 ? notes.right : notes.failed);
    mVisit->volume = linux_tv_Audio_getVolume(kChannel);
    if (mVisit->volume == -1) {
        ++notes.failed;
    } else if (result == 0 && mVisit->volume != volume) {
        notes.noteWrong("linux_tv_Audio_getVolume", "another volume than was set");
    }
    for (const Operation& operation : mOperations) {
        Outcome outcome;
        operation.call(outcome);
        notes.note(operation, outcome);
    }
    const bool told = eventually([] { return gEvents > 0; }, kEventPatience);
    ++(told ? notes.right : notes.failed);
}

/** What a new client finds when nothing is lacking. */
std::string StarvedService::look() {
    if (mProcess->wait(0ms)) {
        const std::string said = mProcess->error().text();
        start();
        return "the television ended: " + said;
    }
    mVisit.renew();
    ForkedProcess client([&] {
        mVisit->volume = linux_tv_Audio_getVolume(kChannel);
        for (const Operation& operation : mOperations) {
            Outcome outcome;
            operation.call(outcome);
            mVisit->notes.note(operation, outcome);
        }
    });
    if (client.wait(kVisitPatience) != 0) {
        return "afterwards a client does not come to its end: " + client.text();
    }
    const int volume = mVisit->volume;
    if (volume != mAcknowledged && volume != mSet) {
        return "the volume was set to " + std::to_string(mSet) + " and is " + std::to_string(volume);
    }
    mAcknowledged = volume;
    mSet = volume;
    if (mVisit->notes.wrong > 0) {
        return std::string("afterwards ") + mVisit->notes.firstWrong.data();
    }
    return mVisit->notes.failed > 0 ? "afterwards something still fails: " + client.text() : "";
}

std::string StarvedService::restart() {
    mProcess->kill(SIGTERM);
    if (mProcess->exitCode() != 0) {
        return "the television did not end: " + mProcess->error().text();
    }
    start();
    return look();
}

std::size_t StarvedService::descriptors() const {
    const std::filesystem::path folder = "/proc/" + std::to_string(mProcess->pid()) + "/fd";
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) {
        ++count;
    }
    return count;
}

} // namespace kelutv::test
