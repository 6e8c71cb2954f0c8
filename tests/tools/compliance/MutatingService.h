#pragma once

#include "service/RequestServer.h"
#include "simulator/television/Television.h"
#include "support/Wire.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <utility>

namespace kelutv::test {

/** What a request asks for: the command, and the item where it carries one. */
using Asked = std::pair<std::int32_t, std::int32_t>;

/** Changes the bytes of a reply. */
using Mutation = std::function<Bytes(Bytes)>;

/** A simulated television whose replies to one kind of request are changed on their way. */
class MutatingService : public service::RequestServer {
public:
    MutatingService();

    /** From now on replies to these requests are changed; those to others are as they should be. */
    void mutate(const Asked& asked, Mutation mutation);

    /** From now on replies to requests that cannot be read are changed, and no others. */
    void mutateRefusals(Mutation mutation);

    /** From now on no reply is changed. */
    void mend();

    /** What was asked for successfully since the last look, each with the last right reply. */
    std::map<Asked, Bytes> takeReplies();

    /** Whether a reply has gone out changed since the last look. */
    bool takeChange();

protected:
    android::status_t serve(const wire::Request& request, const android::Parcel& data, android::Parcel* reply) override;

private:
    android::status_t answer(const Mutation& mutation, const Bytes& right, android::Parcel& reply);

    std::mutex mMutex;
    simulator::Television mTelevision;
    Asked mAsked{};
    Mutation mMutation;
    Mutation mMutationOfRefusals;
    bool mHasChanged = false;
    std::map<Asked, Bytes> mReplies;
};

} // namespace kelutv::test
