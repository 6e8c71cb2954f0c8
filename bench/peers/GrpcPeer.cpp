#include "Peer.h"

#include "bench/support/Child.h"
#include "bench/support/Failure.h"

#include "television.grpc.pb.h"

#include <grpcpp/grpcpp.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>

namespace kelutv::bench {

namespace {

constexpr std::chrono::seconds kPatience{10};

std::string addressHere() {
    const char* const directory = std::getenv("KQDROID_RUNTIME_DIR");
    return std::string("unix:") + (directory != nullptr ? directory : ".") + "/grpc";
}

class Answerer final : public Television::Service {
    grpc::Status SetVolume(grpc::ServerContext*, const SetVolumeRequest*, SetVolumeReply* reply) override {
        reply->set_status(0);
        return grpc::Status::OK;
    }
};

void answer(const std::string& address, int ready) {
    Answerer answerer;
    grpc::ServerBuilder builder;
    builder.AddListeningPort(address, grpc::InsecureServerCredentials());
    builder.RegisterService(&answerer);
    const std::unique_ptr<grpc::Server> server = builder.BuildAndStart();
    if (server == nullptr) {
        giveUp("the gRPC server did not start");
    }
    ::eventfd_write(ready, 1);
    server->Wait();
}

class GrpcPeer : public Peer {
public:
    GrpcPeer() {
        const std::string address = addressHere();
        const int ready = ::eventfd(0, EFD_CLOEXEC);
        mAnswerer.emplace([&address, ready] { answer(address, ready); });
        eventfd_t value = 0;
        require(::eventfd_read(ready, &value) == 0, "eventfd");
        ::close(ready);
        const auto channel = grpc::CreateChannel(address, grpc::InsecureChannelCredentials());
        if (!channel->WaitForConnected(std::chrono::system_clock::now() + kPatience)) {
            giveUp("the gRPC server cannot be reached");
        }
        mStub = Television::NewStub(channel);
    }

    void call() override {
        grpc::ClientContext context;
        SetVolumeRequest request;
        request.set_channel(0);
        request.set_volume(20);
        SetVolumeReply reply;
        if (!mStub->SetVolume(&context, request, &reply).ok()) {
            giveUp("a gRPC call failed");
        }
    }
    const char* name() const override { return "grpc"; }
    pid_t process() const override { return mAnswerer->process(); }

private:
    std::optional<Child> mAnswerer;
    std::unique_ptr<Television::Stub> mStub;
};

} // namespace

std::unique_ptr<Peer> makeGrpcPeer() { return std::make_unique<GrpcPeer>(); }

} // namespace kelutv::bench
