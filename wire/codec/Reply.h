#pragma once

#include "wire/codec/Request.h"

#include <binder/Parcel.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::wire {

/** The service's answer: the result word, and behind a result of 0 one entry per field of the command's reply. */
struct Reply {
    std::int32_t result = 0;
    /** In words, why the request was refused. */
    std::string complaint;
    std::vector<Values> fields;
};

/** The answer to a refused request. */
Reply replyTo(const Refusal& refusal);

/** The answer that hands out what the television keeps; what it does not keep is 0 or empty. */
Reply replyWith(const Operation& operation, const Values& kept);

/** Appends the reply; a status other than 0 when there is no memory for all of it. */
android::status_t writeReply(const Reply& reply, android::Parcel& parcel);

} // namespace kelutv::wire
