#pragma once

#include "Request.h"

#include <binder/Parcel.h>

#include <cstdint>
#include <string>
#include <vector>

namespace simulator {

/** The service's answer: the result word, and behind a result of 0 one entry per field of the command's reply. */
struct Reply {
    std::int32_t result = 0;
    /** In words, why the request was refused. */
    std::string complaint;
    std::vector<Scalars> fields;
};

Reply refusal(const Fault& fault);

/** The answer that hands out what the television keeps; what it does not keep is 0 or empty. */
Reply replyWith(const Operation& operation, const Scalars& kept);

void writeReply(const Reply& reply, android::Parcel& parcel);

} // namespace simulator
