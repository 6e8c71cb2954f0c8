#include "kelutv-service/Reply.h"

#include "wire/codec/Refusal.h"

namespace kelutv::service {

Reply Reply::refused() { return failed(static_cast<std::int32_t>(wire::Result::NotProvided), "not provided"); }

Reply Reply::outOfRange(std::string why) {
    return failed(static_cast<std::int32_t>(wire::Result::OutOfRange), std::move(why));
}

} // namespace kelutv::service
