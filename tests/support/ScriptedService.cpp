#include "support/ScriptedService.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <utils/String16.h>

#include <csignal>
#include <stdexcept>
#include <string>

namespace kelutv::test {

using android::Parcel;
using android::status_t;

namespace {

void transact(const android::sp<android::IBinder>& binder, scripted::Control code, const Parcel& data, Parcel& reply) {
    const status_t status = binder->transact(code, data, &reply, 0);
    if (status != android::OK) {
        throw std::runtime_error("the scripted service did not obey control " + std::to_string(code) + ": status " +
                                 std::to_string(status));
    }
}

void writeBytes(Parcel& data, const Bytes& bytes) {
    data.writeInt32(static_cast<std::int32_t>(bytes.size()));
    data.write(bytes.data(), bytes.size());
}

} // namespace

void ScriptedService::start() {
    ChildProcess::Options options;
    options.captureOutput = true;
    mProcess = std::make_unique<ChildProcess>(std::vector<std::string>{KELUTV_SCRIPTED_SERVICE}, options);
    if (!mProcess->output().waitFor(scripted::kReadyLine)) {
        throw std::runtime_error("the scripted service did not register itself");
    }
    mBinder = android::defaultServiceManager()->getService(android::String16(scripted::kServiceName));
    if (mBinder == nullptr) {
        throw std::runtime_error("the scripted service is registered but cannot be found");
    }
}

void ScriptedService::reply(const Bytes& bytes) {
    Parcel data;
    Parcel answer;
    writeBytes(data, bytes);
    transact(mBinder, scripted::kReplyWith, data, answer);
}

void ScriptedService::replyTo(int command, const Bytes& bytes) {
    Parcel data;
    Parcel answer;
    data.writeInt32(command);
    writeBytes(data, bytes);
    transact(mBinder, scripted::kReplyToCommand, data, answer);
}

void ScriptedService::replyStatus(status_t status) {
    Parcel data;
    Parcel answer;
    data.writeInt32(status);
    transact(mBinder, scripted::kReplyStatus, data, answer);
}

std::vector<Bytes> ScriptedService::takeRequests() {
    Parcel data;
    Parcel answer;
    transact(mBinder, scripted::kTakeRequests, data, answer);
    std::vector<Bytes> requests(static_cast<std::size_t>(answer.readInt32()));
    for (Bytes& request : requests) {
        request.resize(static_cast<std::size_t>(answer.readInt32()));
        if (answer.read(request.data(), request.size()) != android::OK) {
            throw std::runtime_error("the scripted service's list of requests is cut short");
        }
    }
    return requests;
}

void ScriptedService::hangNext() { control(scripted::kHangNext); }

bool ScriptedService::waitUntilHanging() {
    return eventually([this] {
        Parcel data;
        Parcel answer;
        transact(mBinder, scripted::kIsHanging, data, answer);
        return answer.readInt32() != 0;
    });
}

void ScriptedService::release() { control(scripted::kRelease); }

void ScriptedService::exitBeforeReply() { control(scripted::kExitBeforeReply); }

void ScriptedService::exitAfterReply() { control(scripted::kExitAfterReply); }

void ScriptedService::kill() {
    mProcess->kill(SIGKILL);
    if (!waitUntilGone()) {
        throw std::runtime_error("the scripted service is still there after SIGKILL");
    }
}

bool ScriptedService::waitUntilGone() { return mProcess->wait().has_value(); }

ScriptedService::Caller ScriptedService::callingUidPid() {
    Parcel data;
    Parcel answer;
    transact(mBinder, scripted::kLastCaller, data, answer);
    const auto uid = static_cast<uid_t>(answer.readInt32());
    const auto pid = static_cast<pid_t>(answer.readInt32());
    return {uid, pid};
}

void ScriptedService::control(scripted::Control code) {
    Parcel data;
    Parcel answer;
    transact(mBinder, code, data, answer);
}

} // namespace kelutv::test
