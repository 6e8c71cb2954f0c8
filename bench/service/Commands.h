#pragma once

namespace kelutv::bench {

/** A command that no television has: the quick service answers with as many bytes as the first argument says, of which
 * the result takes four. */
constexpr int kReplyOfSize = 0x7FFF0001;

} // namespace kelutv::bench
