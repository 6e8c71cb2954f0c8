#pragma once

#include "wire/codec/Request.h"

#include <binder/Parcel.h>

#include <cstddef>
#include <cstdint>
#include <optional>
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

/** More values than any reply has room for; a request that asks for more gets what there is. */
constexpr std::size_t kMostReplyValues = std::size_t{1} << 17;

/** The answer to a refused request. */
Reply replyTo(const Refusal& refusal);

/** How many values of a field the request asks for; nothing when it does not say, or not in these arguments. */
std::optional<std::size_t> lengthOf(const ReplyField& field, const Arguments& arguments);

/**
 * The answer that hands out what the television keeps; what it does not keep is 0 or empty. A length that the request
 * asks for is kept as far as a reply has room.
 */
Reply replyWith(const Operation& operation, const Arguments& arguments, const Values& kept);

/** Appends the reply; a status other than 0 when there is no memory for all of it. */
android::status_t writeReply(const Reply& reply, android::Parcel& parcel);

} // namespace kelutv::wire
