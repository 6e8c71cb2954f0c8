#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "wire/text/Describe.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kelutv::tool {

namespace {

constexpr std::uint32_t kSectionHeader = 0x0A0D0D0A;
constexpr std::uint32_t kInterface = 1;
constexpr std::uint32_t kEnhancedPacket = 6;
/** Which tells the reader the order of the bytes. */
constexpr std::uint32_t kByteOrder = 0x1A2B3C4D;
/** Link types that everybody may use as they like. */
constexpr std::uint16_t kParcels = 147;
constexpr std::uint16_t kEvents = 148;
constexpr std::uint16_t kComment = 1;
constexpr std::uint16_t kName = 2;
constexpr std::uint16_t kResolution = 9;
constexpr std::uint16_t kFlags = 2;
constexpr std::uint32_t kInbound = 1;
constexpr std::uint32_t kOutbound = 2;

/** The body of a block: numbers in the order of this machine, options and padding. */
class Block {
public:
    template <typename Number> void add(Number number) {
        mBytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
    }

    void addPadded(const void* bytes, std::size_t length) {
        mBytes.append(static_cast<const char*>(bytes), length);
        mBytes.append((4 - length % 4) % 4, '\0');
    }

    void addOption(std::uint16_t code, const std::string& value) {
        const std::string cut = value.substr(0, UINT16_MAX);
        add(code);
        add(static_cast<std::uint16_t>(cut.size()));
        addPadded(cut.data(), cut.size());
    }

    void endOptions() { add(std::uint32_t{0}); }

    std::string finished(std::uint32_t type) const {
        Block whole;
        const auto length = static_cast<std::uint32_t>(mBytes.size() + 12);
        whole.add(type);
        whole.add(length);
        whole.mBytes += mBytes;
        whole.add(length);
        return whole.mBytes;
    }

private:
    std::string mBytes;
};

std::string sectionHeader() {
    Block block;
    block.add(kByteOrder);
    block.add(std::uint16_t{1});
    block.add(std::uint16_t{0});
    block.add(std::int64_t{-1});
    return block.finished(kSectionHeader);
}

std::string interface(std::uint16_t linkType, const std::string& name) {
    Block block;
    block.add(linkType);
    block.add(std::uint16_t{0});
    block.add(std::uint32_t{0});
    block.addOption(kName, name);
    // Nanoseconds.
    block.addOption(kResolution, "\x09");
    block.endOptions();
    return block.finished(kInterface);
}

struct Packet {
    std::uint32_t interface;
    std::int64_t time;
    std::uint32_t direction;
    const recording::Bytes& bytes;
    std::string comment;
};

std::string textOf(const Packet& packet) {
    Block block;
    const auto time = static_cast<std::uint64_t>(std::max<std::int64_t>(packet.time, 0));
    const auto length = static_cast<std::uint32_t>(packet.bytes.size());
    block.add(packet.interface);
    block.add(static_cast<std::uint32_t>(time >> 32));
    block.add(static_cast<std::uint32_t>(time));
    block.add(length);
    block.add(length);
    block.addPadded(packet.bytes.data(), packet.bytes.size());
    block.addOption(kComment, packet.comment);
    block.addOption(kFlags, {reinterpret_cast<const char*>(&packet.direction), sizeof(packet.direction)});
    block.endOptions();
    return block.finished(kEnhancedPacket);
}

std::string callerOf(const recording::Moment& moment) {
    return '[' + std::to_string(moment.process) + ':' + std::to_string(moment.thread) + "] ";
}

class Pcapng : public Converter {
public:
    explicit Pcapng(Sink sink) : mSink(std::move(sink)) {}

    void begin() override {
        mSink(sectionHeader() + interface(kParcels, "requests and replies") + interface(kEvents, "events"));
    }

    void add(const recording::Line& line) override {
        if (const auto* const header = std::get_if<recording::Header>(&line.content)) {
            mStart = startOf(*header);
        } else if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
            add(*transaction);
        } else if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
            add(*event);
        }
    }

private:
    void add(const recording::Transaction& transaction) {
        const wire::Request request = decodeRequest(transaction.request).request;
        const std::string caller = callerOf(transaction.moment);
        const std::int64_t begin = mStart + transaction.moment.time;
        mSink(textOf({0, begin, kOutbound, transaction.request, caller + wire::describe(request)}));
        const recording::Bytes reply = transaction.reply.value_or(recording::Bytes());
        mSink(textOf({0, begin + transaction.duration, kInbound, reply,
                      caller + nameOf(request) + " -> " + replyText(request, transaction)}));
    }

    /** A packet is the identifier and then the payload. */
    void add(const recording::Event& event) {
        recording::Bytes bytes(sizeof(event.event) + event.payload.size());
        std::memcpy(bytes.data(), &event.event, sizeof(event.event));
        std::copy(event.payload.begin(), event.payload.end(), bytes.begin() + sizeof(event.event));
        mSink(textOf({1, mStart + event.moment.time, kInbound, bytes, callerOf(event.moment) + event.decoded}));
    }

    Sink mSink;
    std::int64_t mStart = 0;
};

} // namespace

std::unique_ptr<Converter> pcapngConverter(Sink sink) { return std::make_unique<Pcapng>(std::move(sink)); }

} // namespace kelutv::tool
