#pragma once

#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

#include <string>

namespace kelutv::wire {

/** One request in words: `CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35)`. */
std::string describe(const Request& request);

/** Its answer in words: the result word, then what stands behind it, as in `0: 35`; or why it was refused. */
std::string describe(const Request& request, const Reply& reply);

/** One argument or field in words; a block is in brackets, the zeros that fill it up are only counted. */
std::string describe(const Values& values, Encoding kind, const Enumeration* names);

/** The values in words, apart by commas. */
std::string joined(const Values& values, Encoding kind, const Enumeration* names);

/** The name of the item that a request carries; empty when it carries none, or one without a name. */
std::string itemNameOf(const Request& request);

/** What the arguments of a known command are, as far as the request says. */
const Rows<RequestItem>& itemsOf(const Request& request);

/** A list of records repeats the fields of one; what an answer holds may be beyond the catalogue, too. */
const ReplyField& fieldAt(const Operation& operation, std::size_t index);

/** What the answer hands out: its values but for counts of what follows, or the result word where it is the answer. */
Values handedOutIn(const Operation& operation, const Reply& reply);

} // namespace kelutv::wire
