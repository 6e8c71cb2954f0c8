#include "tools/kelutv/service/ServiceLink.h"

#include "tools/interposition/Connection.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"
#include "wire/text/ResultNames.h"
#include "wire/text/Shown.h"

#include <kelutv/link/TVBaseClient.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

std::string withReasons(std::string text, const std::vector<std::string>& reasons) {
    for (const std::string& reason : reasons) {
        text += "\n  " + wire::shown(reason, wire::kMostOfPath);
    }
    return text;
}

} // namespace

android::sp<android::IBinder> requireService() {
    const interposition::Connection connection = interposition::connectToService();
    if (!connection.isThere) {
        throw LinkError(withReasons("there is no television service; is the television, or kelutv-simulator, running?",
                                    connection.warnings));
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

void requireAnswers(const std::string& what, const std::vector<interposition::Transaction>& transactions) {
    const auto lost = std::find_if(transactions.begin(), transactions.end(),
                                   [](const interposition::Transaction& each) { return each.status != 0; });
    if (lost != transactions.end()) {
        throw LostError(what + ": the service is gone or did not take it (status " + wire::statusText(lost->status) +
                        ')');
    }
}

std::string withReasonsOfLoss(const std::string& what) { return withReasons(what, interposition::reasonsOfLoss()); }

} // namespace kelutv::tool
