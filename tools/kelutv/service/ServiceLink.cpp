#include "tools/kelutv/service/ServiceLink.h"

#include "tools/interposition/Connection.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"
#include "wire/text/Shown.h"

#include <kelutv/link/TVBaseClient.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

std::string missingService(const std::vector<std::string>& warnings) {
    std::string text = "there is no television service; is the television, or kelutv-simulator, running?";
    for (const std::string& warning : warnings) {
        text += "\n  " + wire::shown(warning, wire::kMostOfPath);
    }
    return text;
}

} // namespace

android::sp<android::IBinder> requireService() {
    const interposition::Connection connection = interposition::connectToService();
    if (!connection.isThere) {
        throw LinkError(missingService(connection.warnings));
    }
    for (const std::string& warning : connection.warnings) {
        Output::warn(wire::shown(warning, wire::kMostOfPath));
    }
    const android::sp<android::ITVBaseService>& service = android::TVBaseClient::self()->getBpTvbaseService();
    return android::IInterface::asBinder(service);
}

bool isServiceThere() {
    try {
        requireService();
        return true;
    } catch (const LinkError&) {
        return false;
    }
}

void failCall(const std::string& what, const std::vector<interposition::Transaction>& transactions) {
    const bool isGone = std::any_of(transactions.begin(), transactions.end(),
                                    [](const interposition::Transaction& each) { return each.status != 0; });
    if (isGone) {
        throw LinkError(what + ": the service is gone");
    }
    throw ServiceError(what);
}

} // namespace kelutv::tool
