#include "tools/snapshot/Snapshots.h"

#include "support/Wire.h"
#include "tools/process/Worker.h"

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>
#include <kelutv/commands.h>

namespace kelutv::test {
namespace {

using tool::Json;

/** A television of two volumes, each of which goes back to 0 when the other one is set. */
class Seesaw : public android::BBinder {
protected:
    android::status_t onTransact(std::uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 std::uint32_t flags) override {
        const std::size_t token = Wire::request(0).bytes().size() - sizeof(std::int32_t);
        if (code != android::IBinder::FIRST_CALL_TRANSACTION || data.dataSize() < token + sizeof(std::int32_t)) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        data.setDataPosition(token);
        const std::int32_t command = data.readInt32();
        return answer(command, data.readInt32(), *reply);
    }

private:
    android::status_t answer(std::int32_t command, std::int32_t value, android::Parcel& reply) {
        switch (command) {
        case CMD_AUDIO_GETINPUTVOLUME:
            return answerWith(mInput, reply);
        case CMD_AUDIO_GETSUBWOOFERVOL:
            return answerWith(mSubWoofer, reply);
        case CMD_AUDIO_SETINPUTVOLUME:
            mInput = value;
            mSubWoofer = 0;
            return reply.writeInt32(0);
        case CMD_AUDIO_SETSUBWOOFERVOL:
            mSubWoofer = value;
            mInput = 0;
            return reply.writeInt32(0);
        default:
            return reply.writeInt32(-1);
        }
    }

    static android::status_t answerWith(std::int32_t value, android::Parcel& reply) {
        reply.writeInt32(0);
        return reply.writeInt32(value);
    }

    std::int32_t mInput = 0;
    std::int32_t mSubWoofer = 0;
};

process::Worker startSeesaw() {
    return process::Worker::start([] {
        android::ProcessState::self()->startThreadPool();
        android::defaultServiceManager()->addService(android::String16("TVBaseService"), new Seesaw);
        android::IPCThreadState::self()->joinThreadPool();
        return 0;
    });
}

TEST_F(Snapshots, sayWhichStatesDoNotStayAsTheyWereSet) {
    writeSome("golden.json", {{"audio.inputVolume", Json::array({5})}, {"audio.subWooferVolume", Json::array({7})}});
    turnOff();
    const process::Worker service = startSeesaw();
    ASSERT_EQ(runTool({"wait", "service", "--timeout", "30"}).exit, 0);
    const ToolRun restored = restore("golden.json");
    EXPECT_EQ(restored.exit, 1);
    EXPECT_NE(restored.output.find("audio.inputVolume: 0, not 5: changes when another state is set\n"),
              std::string::npos)
        << restored.output;
    EXPECT_EQ(restored.error, "kelutv: 1 state set, 1 did not take, 0 as wanted, 0 dangerous left alone\n");
}

} // namespace
} // namespace kelutv::test
