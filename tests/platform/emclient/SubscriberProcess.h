#pragma once

#include "EventRecorder.h"
#include "support/ChildProcess.h"

#include <string>

namespace kelutv::test {

/** A process of its own that subscribes to one module and has done so when the constructor returns. */
class SubscriberProcess {
public:
    SubscriberProcess(const char* subscriberCase, unsigned int module)
        : mProcess({KELUTV_EVENT_SUBSCRIBER, subscriberCase, std::to_string(module)}, options()) {
        mReady = mProcess.output().waitFor("ready\n");
    }

    bool ready() const { return mReady; }
    ChildProcess& process() { return mProcess; }

    /** What it has printed after "ready". */
    std::string printed() {
        const std::string text = mProcess.output().text();
        return text.substr(text.find("ready\n") + 6);
    }

    bool waitFor(const std::string& part) { return mProcess.output().waitFor(part); }

private:
    static ChildProcess::Options options() {
        runtimeDir();
        ChildProcess::Options options;
        options.captureOutput = true;
        return options;
    }

    ChildProcess mProcess;
    bool mReady = false;
};

} // namespace kelutv::test
