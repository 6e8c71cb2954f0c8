#include "fuzz/support/Input.h"
#include "fuzz/support/Packets.h"
#include "fuzz/support/ScratchFile.h"
#include "fuzz/support/Target.h"

#include "emclient/DeferredLog.h"
#include "emclient/ModuleList.h"
#include "emclient/SubscriberLink.h"
#include "socket/SeqPacket.h"

#include <sys/epoll.h>
#include <sys/socket.h>

#include <atomic>
#include <cstring>
#include <vector>

/** A publisher, and a subscriber that tells it anything of what it wants. */
namespace kelutv::fuzz {
namespace {

using keluem::ModuleList;

/** A list as a subscriber sends it, or anything. */
Bytes readList(Input& input) {
    if (input.below(4) == 0) {
        return input.block();
    }
    std::vector<std::uint32_t> words{ModuleList::kVersion, 0};
    words[1] = static_cast<std::uint32_t>(input.below(8));
    for (std::size_t modules = input.below(8); modules > 0; --modules) {
        words.push_back(input.number<std::uint8_t>() << 16U);
    }
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(words.data());
    return {bytes, bytes + words.size() * sizeof(std::uint32_t)};
}

/** What is read as a list is told as the same list. */
void checkList(const Bytes& packet) {
    const auto exact = exactCopyOf(packet);
    const auto list = ModuleList::of(exact.get(), packet.size());
    if (!list) {
        return;
    }
    const std::vector<std::uint32_t> words = list->packet();
    require(words.size() * sizeof(std::uint32_t) == packet.size() &&
                std::memcmp(words.data(), packet.data(), packet.size()) == 0,
            "a list is told as it was read");
    for (std::size_t i = 2; i < words.size(); ++i) {
        require(list->wants(words[i]), "what is in the list is wanted");
    }
}

class Session {
public:
    Session() : mListener(kq::listenAt(mPlace.path())) {
        require(static_cast<bool>(mListener) && mPoller.open() == 0, "there is a subscriber");
        mUsable = mLink.connect(mLog);
        acceptAgain();
    }

    void step(Input& input) {
        switch (input.below(4)) {
        case 0: {
            const Bytes payload = input.take(input.number<std::uint8_t>());
            const std::uint32_t id = input.number<std::uint8_t>() << 16U;
            if (mLink.wants(keluem::moduleOf(id))) {
                mLink.send({id, payload.data(), payload.size()}, mLog);
            }
            break;
        }
        case 1:
            takePackets(mSubscriber);
            break;
        case 2:
            mUsable = mLink.serve(EPOLLIN, mLog) && mLink.catchUp(mLog);
            acceptAgain();
            break;
        default: {
            const Bytes list = readList(input);
            checkList(list);
            sendPacket(mSubscriber, list);
        }
        }
    }

    bool isUsable() const { return mUsable; }

private:
    /** A link that has closed its connection may have come back. */
    void acceptAgain() {
        kq::UniqueFd next(::accept4(mListener.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (next) {
            mSubscriber = std::move(next);
        }
    }

    const ScratchFile mPlace;
    const kq::UniqueFd mListener;
    std::atomic<std::uint64_t> mDropped{0};
    keluem::DeferredLog mLog;
    keluem::Poller mPoller;
    keluem::SubscriberLink::Surroundings mAround{mPoller, mDropped};
    keluem::SubscriberLink mLink{mPlace.path(), mAround};
    kq::UniqueFd mSubscriber;
    bool mUsable = false;
};

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::Input input(data, size);
    kelutv::fuzz::Session session;
    while (!input.isEmpty() && session.isUsable()) {
        session.step(input);
    }
    return 0;
}
