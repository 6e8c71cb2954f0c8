#pragma once

#include "kelutv-service/Events.h"
#include "support/Wire.h"
#include "wire/codec/Request.h"

#include <string>
#include <utility>
#include <vector>

namespace kelutv::service {

/** The request that these bytes are. */
inline wire::Request read(const test::Bytes& bytes) {
    wire::ByteReader reader(bytes.data(), bytes.size());
    return wire::readRequest(reader);
}

/** Keeps what is published. */
class KeptEvents : public Events {
public:
    using Sent = std::vector<std::pair<std::uint32_t, std::string>>;

    void send(std::uint32_t identifier, const std::string& payload) override {
        mSent.emplace_back(identifier, payload);
    }

    /** What was published since the last call. */
    Sent take() { return std::exchange(mSent, {}); }

private:
    Sent mSent;
};

/** A payload of these words. */
inline std::string wordsOf(const std::vector<std::int32_t>& words) {
    return {reinterpret_cast<const char*>(words.data()), words.size() * sizeof(std::int32_t)};
}

} // namespace kelutv::service
