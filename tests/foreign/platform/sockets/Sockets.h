#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace foreign {

using Bytes = std::vector<std::uint8_t>;

/** A file descriptor that is closed with the object. */
class Descriptor {
public:
    explicit Descriptor(int number = -1) : mNumber(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    int number() const { return mNumber; }
    bool isOpen() const { return mNumber >= 0; }

private:
    int mNumber;
};

/** Names of the sockets beside those of services. */
constexpr char kEventSocket[] = "events";
/** The first word of a connection: what it is for. */
enum class Purpose : std::uint32_t { Call, Life };

/** A packet socket of a folder; closed, with errno, when it cannot be reached or made. */
Descriptor connectTo(const std::string& folder, const std::string& name);
Descriptor listenAt(const std::string& folder, const std::string& name);

/** One packet: a word and bytes. */
struct Packet {
    std::uint32_t word;
    Bytes bytes;
};

/** False, with errno, when the packet did not go out whole. */
bool send(const Descriptor& socket, const Packet& packet);
/** Waits for the next packet; none when the other side has gone. */
std::optional<Packet> receive(const Descriptor& socket);

/** Waits until the other side has gone. */
void awaitHangUp(const Descriptor& socket);
/** Whether it has gone by now. */
bool isHungUp(const Descriptor& socket);

} // namespace foreign
