#pragma once

#include "fuzz/support/Input.h"

#include <binder/Parcel.h>
#include <utils/Errors.h>

#include <functional>

namespace kelutv::fuzz {

/** What the transport gives for one request. */
struct Answer {
    android::status_t status = android::NO_ERROR;
    Bytes reply;
};

using Answerer = std::function<Answer(const android::Parcel& request)>;

/**
 * Lets every request of the client library be answered in this process, by a transport that takes the place of the
 * platform's: under every name there is a living service. Replies lie in memory of exactly their size.
 */
void answerBy(Answerer answerer);

} // namespace kelutv::fuzz
