#include "kelutv-service/Service.h"

#include "service/Dispatcher.h"
#include "service/EventPublisher.h"
#include "service/Probe.h"
#include "service/Registration.h"

#include <binder/ProcessState.h>

#include <pthread.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace kelutv::service {

namespace {

/** What `run` waits for, which every other thread leaves to it. */
sigset_t blockSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

/** The publisher, which complains of what could not be sent. */
class PublishedEvents : public Events {
public:
    explicit PublishedEvents(Dispatcher::Complaint complain) : mComplain(std::move(complain)) {}

    void send(std::uint32_t identifier, const std::string& payload) override {
        if (const std::string complaint = mPublisher.publish(identifier, payload); !complaint.empty()) {
            mComplain(complaint);
        }
    }

private:
    const Dispatcher::Complaint mComplain;
    EventPublisher mPublisher;
};

Dispatcher::Complaint complaintOf(const std::string& name) {
    return [name](const std::string& text) { std::fprintf(stderr, "%s: %s\n", name.c_str(), text.c_str()); };
}

} // namespace

class Service::Implementation {
public:
    explicit Implementation(const std::string& name)
        : mName(name), mProbe(std::in_place, kServiceName), mSignals(blockSignals()), mComplain(complaintOf(name)),
          mEvents(std::make_shared<PublishedEvents>(mComplain)), mDispatcher(new Dispatcher(mEvents, mComplain)) {}

    Dispatcher& dispatcher() { return *mDispatcher; }
    Events& events() { return *mEvents; }

    int run() {
        // First, so that without threads nothing is served.
        android::ProcessState::self()->startThreadPool();
        std::string complaint = registerService(mDispatcher);
        if (complaint.empty() && !mProbe->isAnswered()) {
            complaint = std::string(kServiceName) + " does not answer; are there enough threads and descriptors?";
        }
        mProbe.reset();
        if (complaint.empty()) {
            std::printf("%s: ready (%s)\n", mName.c_str(), kServiceName);
            std::fflush(stdout);
            int received = 0;
            while (sigwait(&mSignals, &received) != 0) {
            }
        } else {
            mComplain(complaint);
        }
        mDispatcher->end();
        return complaint.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
    }

private:
    const std::string mName;
    std::optional<Probe> mProbe;
    const sigset_t mSignals;
    const Dispatcher::Complaint mComplain;
    const std::shared_ptr<Events> mEvents;
    const android::sp<Dispatcher> mDispatcher;
};

Service::Service(const std::string& name) : mImplementation(std::make_unique<Implementation>(name)) {}

Service::~Service() = default;

void Service::handle(const std::string& module, Handler handler) {
    mImplementation->dispatcher().handle(module, std::move(handler));
}

Events& Service::events() { return mImplementation->events(); }

int Service::run() { return mImplementation->run(); }

} // namespace kelutv::service
