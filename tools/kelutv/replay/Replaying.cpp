#include "tools/kelutv/replay/Replaying.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/recordings/LiveLine.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <binder/Parcel.h>
#include <kelutv/link/TVBaseClient.h>

namespace kelutv::tool {

namespace {

using recording::Bytes;

/** As it is sent here; one without a token, as its bytes are. */
Bytes requestHere(const Happening& call, const Bytes& token) {
    Bytes request = call.hasToken ? token : Bytes();
    request.insert(request.end(), call.bytes.begin(), call.bytes.end());
    return request;
}

/** The same call with what is answered now. It goes the way of the library's own, so that it can be recorded, too. */
Happening answered(const Happening& call, const Bytes& request) {
    android::Parcel data;
    android::Parcel reply;
    data.setData(request.data(), request.size());
    Happening live = call;
    live.number = android::TVBaseClient::self()->getBpTvbaseService()->invoke(data, &reply);
    live.reply.clear();
    if (live.number == 0) {
        live.reply.assign(reply.data(), reply.data() + reply.dataSize());
    }
    return live;
}

} // namespace

ReplaySum
replay(const std::vector<RecordedCall>& calls, const Ignored& ignored,
       const std::function<void(const RecordedCall& call, const std::vector<ValueDifference>& values)>& tell) {
    requireService();
    const Bytes token = headerOfNow().token;
    ReplaySum sum;
    for (const RecordedCall& call : calls) {
        const Happening live = answered(call.happening, requestHere(call.happening, token));
        ++sum.sent;
        std::vector<ValueDifference> values;
        if (!ignored.has(call.happening)) {
            values = differencesOf(call.happening, live);
            ignored.takeFrom(values, call.happening);
        }
        if (!values.empty()) {
            ++sum.differences;
            tell(call, values);
        }
        if (live.number != 0 && !isServiceAlive()) {
            sum.isGone = true;
            break;
        }
    }
    return sum;
}

} // namespace kelutv::tool
