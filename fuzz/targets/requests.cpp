#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/Televisions.h"

#include "simulator/Service.h"
#include "simulator/trace/Trace.h"
#include "simulator/trace/Watcher.h"
#include "wire/codec/ReplyReader.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <cstdint>
#include <memory>

/** Any requests to one simulated television: each is answered, and an answer to what was carried out can be read. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;

/** Has the lines of a trace made. */
class TraceMaker : public simulator::Watcher {
public:
    void served(const simulator::Served& served) override {
        simulator::describe(served.caller, served.request, served.reply);
    }
    void published(const simulator::PublishedEvent& event) override { simulator::describe(event); }
};

void writeToken(Parcel& request) { request.writeInterfaceToken(android::String16("android.ITVBaseService")); }

/** Most requests begin as those of the library do. */
void readRequest(Input& input, Parcel& request) {
    if (input.below(16) != 0) {
        writeToken(request);
        request.writeInt32(input.number<std::int32_t>());
    }
    Bytes arguments = input.block();
    // The hotel's settings are written to any file that a client names: here to none outside the folder of the run.
    std::replace(arguments.begin(), arguments.end(), std::uint8_t{'/'}, std::uint8_t{'_'});
    request.write(arguments.data(), arguments.size());
    request.setDataPosition(0);
}

void send(simulator::Service& service, const Parcel& request) {
    Parcel reply;
    require(service.transact(1, request, &reply) == android::NO_ERROR, "a request is taken");
    require(reply.dataSize() >= sizeof(std::int32_t), "a request is answered");
    wire::ByteReader sent(request.data(), request.dataSize());
    const wire::Request read = wire::readRequest(sent);
    if (read.operation != nullptr && !read.refusal) {
        wire::ByteReader answered(reply.data(), reply.dataSize());
        const wire::ReplyReading reading = wire::readReply(*read.operation, answered);
        require(reading.hasResult && !reading.flaw, "an answer is of the form that the catalogue says");
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelutv;
    fuzz::Input input(data, size);
    const android::sp<simulator::Service> service = new simulator::Service(
        {std::make_shared<fuzz::TraceMaker>()}, fuzz::standardConfiguration(), simulator::EepStore(), "");
    while (!input.isEmpty()) {
        android::Parcel request;
        fuzz::readRequest(input, request);
        fuzz::send(*service, request);
    }
    return 0;
}
