#include "fuzz/seeds/Seed.h"
#include "fuzz/seeds/Wire.h"

namespace kelutv::fuzz {

Seeds parcelSeeds() {
    constexpr std::size_t kSteps = 24;
    const Bytes content = requestOf(0x2008, {0, 0, 0, 0, 35, 0, 0, 0});
    Seeds seeds;
    for (std::size_t step = 0; step < kSteps; ++step) {
        // One step at the start, then behind another one, with what it takes to say.
        seeds.push_back(Seed().block(content).byte(step).number(std::uint64_t{4}).bytes());
        seeds.push_back(
            Seed().block(content).byte(0).byte(step).byte(4).byte(0).bytes({1, 2, 3, 4}).byte(step).bytes());
    }
    constexpr std::size_t kReadToken = 8;
    for (const int level : {28, 29, 30}) {
        seeds.push_back(Seed().block(tokenOf(level)).byte(kReadToken).byte(0).bytes());
    }
    return seeds;
}

Seeds eepSeeds() {
    const Bytes content{1, 2, 3, 4, 5};
    Seed work;
    for (std::size_t memory = 0; memory < 2; ++memory) {
        work.byte(memory).byte(1).number(std::int32_t{0x10}).block(content);
        work.byte(memory).byte(0).number(std::int32_t{0x10}).number(std::int16_t{5});
        work.byte(memory).byte(2).byte(memory).byte(1).number(std::int32_t{0xFFFF}).block({7});
        work.byte(memory).byte(3);
    }
    return {Seed().byte(0).block(content).bytes(), Seed().byte(1).bytes(work.bytes()).bytes(),
            Seed().byte(2).block(content).bytes(work.bytes()).bytes()};
}

namespace {

enum Said : std::uint8_t { kReply, kTransaction, kReference, kDeath, kRaw, kBare };

/** A message without objects, to the one object, undamaged. */
Seed& message(Seed& seed, const Bytes& content) {
    return seed.block(content).byte(0).byte(1).number(std::uint32_t{1}).byte(0).byte(1);
}

Bytes callAnswered(Said first, const Bytes& content) {
    Seed seed;
    seed.byte(0);
    seed.byte(1).byte(kBare).byte(1).byte(1).byte(first);
    if (first == kReply || first == kTransaction) {
        message(seed, content);
    }
    seed.byte(0).byte(1).byte(kBare).byte(1).byte(0).byte(1).byte(kReply);
    return message(seed, content).bytes();
}

/** A flat object by handle, which a reply may carry. */
Bytes binderObject() {
    Seed seed;
    return seed.number(std::uint32_t{0x73682a85})
        .number(std::uint32_t{0})
        .number(std::uint64_t{3})
        .number(std::uint64_t{0})
        .bytes();
}

} // namespace

Seeds driverSeeds() {
    Seeds seeds{callAnswered(kReply, {0, 0, 0, 0, 35, 0, 0, 0}), callAnswered(kTransaction, {1, 2, 3, 4})};
    Seed withObject;
    withObject.byte(0).byte(1).byte(kBare).byte(1).byte(1).byte(kReply).block(binderObject());
    seeds.push_back(withObject.byte(1).byte(0).byte(1).number(std::uint32_t{1}).byte(0).byte(1).bytes());
    for (std::size_t reference = 0; reference < 4; ++reference) {
        seeds.push_back(Seed().byte(0).byte(1).byte(kReference).byte(1).byte(1).byte(reference).bytes());
    }
    for (std::size_t bare = 0; bare < 9; ++bare) {
        seeds.push_back(Seed().byte(3).byte(1).byte(kBare).byte(bare).byte(0).byte(1).byte(kBare).byte(1).bytes());
    }
    return seeds;
}

namespace {

enum Piece : std::uint8_t { kName, kObject, kNumber };

/** One request of a system's process, with a token of the form: 1 to 3 for levels 28 to 30. */
Seed& asked(Seed& seed, std::size_t form, std::size_t code) {
    return seed.byte(1).byte(code).byte(0).byte(1).byte(form);
}

Bytes earlierSession(std::size_t form) {
    Seed session;
    asked(session, form, 3).byte(4).byte(kName).text("tv").byte(kObject).byte(1).byte(1).byte(2);
    session.byte(kNumber).byte(0).byte(kNumber).byte(8);
    for (const std::size_t code : {1U, 2U}) {
        asked(session, form, code).byte(1).byte(kName).text("tv");
    }
    asked(session, form, 4).byte(2).byte(kNumber).byte(0).byte(kNumber).byte(15);
    session.byte(0).byte(0);
    return asked(session, form, 2).byte(1).byte(kName).text("tv").bytes();
}

/** Callbacks come before and after the service, and one goes. */
Bytes latestSession() {
    constexpr std::size_t kForm = 3;
    Seed session;
    const auto named = [&session](std::size_t code, std::uint8_t handle) {
        asked(session, kForm, code).byte(3).byte(kName).text("tv").byte(kObject).byte(1).byte(1).byte(handle);
        session.byte(kNumber).byte(12);
    };
    named(5, 1);
    asked(session, kForm, 3).byte(5).byte(kName).text("tv").byte(kObject).byte(1).byte(1).byte(2);
    session.byte(kNumber).byte(12).byte(kNumber).byte(0).byte(kNumber).byte(8);
    named(5, 3);
    asked(session, kForm, 2).byte(1).byte(kName).text("tv");
    asked(session, kForm, 4).byte(1).byte(kNumber).byte(15);
    named(6, 3);
    for (const std::size_t code : {7U, 8U, 9U, 10U}) {
        asked(session, kForm, code).byte(1).byte(kName).text("tv");
    }
    return session.byte(0).byte(0).byte(0).byte(1).bytes();
}

} // namespace

Seeds serviceManagerSeeds() { return {earlierSession(1), earlierSession(2), latestSession()}; }

namespace {

/** How a packet of the socket protocol is put together. */
enum Packet : std::uint8_t { kAnything, kOddSize, kMessage };

/** The parts of one packet that both targets read alike. */
Seed& packet(Seed& seed, Packet kind, const Bytes& body) {
    seed.byte(kind).block(body);
    return kind == kOddSize ? seed.number(static_cast<std::uint32_t>(2 * body.size())) : seed;
}

} // namespace

Seeds socketClientSeeds() {
    const Bytes reply{0, 0, 0, 0, 35, 0, 0, 0};
    const auto greetings = [](Seed& seed, std::size_t calls) -> Seed& {
        return seed.byte(1).byte(1).byte(1).byte(1).byte(1).byte(1).byte(calls - 1);
    };
    Seed answered;
    packet(greetings(answered, 2), kMessage, reply).byte(1).byte(0).byte(1);
    packet(answered, kMessage, reply).byte(1).byte(0).byte(2);
    Seed inPieces;
    packet(greetings(inPieces, 1), kOddSize, reply).byte(1).byte(0).byte(1);
    packet(inPieces, kAnything, reply);
    Seed unasked;
    packet(greetings(unasked, 1), kMessage, reply).byte(1).byte(0).byte(9);
    Seed refused;
    refused.byte(1).byte(1).byte(1).byte(0).byte(0xE0).byte(1).byte(1).byte(0);
    Seed otherProcess;
    otherProcess.byte(1).byte(1).byte(1).byte(1).byte(0).byte(7).byte(1).byte(0);
    return {answered.bytes(), inPieces.bytes(), unasked.bytes(), refused.bytes(), otherProcess.bytes()};
}

Seeds socketServerSeeds() {
    const Bytes request = requestOf(0x2008, {0, 0, 0, 0, 35, 0, 0, 0});
    Seeds seeds;
    for (const Packet kind : {kMessage, kOddSize}) {
        for (std::size_t code = 0; code < 8; ++code) {
            Seed seed;
            packet(seed.byte(1), kind, request).byte(1).byte(code).byte(1).byte(1);
            packet(seed, kAnything, request);
            seeds.push_back(seed.bytes());
        }
    }
    Seed oneWay;
    packet(oneWay.byte(1), kMessage, request).byte(1).byte(2).byte(0).number(std::uint32_t{1}).byte(1);
    Seed refused;
    packet(refused.byte(0), kMessage, request).byte(1).byte(2).byte(1).byte(1);
    seeds.push_back(oneWay.bytes());
    seeds.push_back(refused.bytes());
    return seeds;
}

Seeds eventPublisherSeeds() {
    constexpr std::size_t kVolume = 6;
    Seed wanted;
    wanted.byte(3).byte(1).byte(2).byte(2).byte(kVolume).byte(8).byte(2);
    wanted.byte(0).byte(4).bytes({1, 2, 3, 4}).byte(kVolume).byte(1);
    Seed untold;
    untold.byte(0).byte(4).bytes({1, 2, 3, 4}).byte(kVolume).byte(2).byte(3).byte(1).byte(0).byte(0).byte(2);
    Seed wrong;
    wrong.byte(3).byte(0).block({9, 0, 0, 0, 1, 0, 0, 0}).byte(2).byte(2);
    return {wanted.bytes(), untold.bytes(), wrong.bytes()};
}

Seeds eventSubscriberSeeds() {
    const Bytes event{1, 0, 6, 0, 35, 0, 0, 0};
    return {Seed().byte(6).block(event).byte(3).byte(1).byte(2).byte(5).bytes(),
            Seed().byte(6).block(event).byte(0).number(std::uint32_t{0x60000}).byte(3).byte(6).block(event).bytes(),
            Seed().byte(4).byte(4).byte(3).byte(4).byte(0).byte(6).block({1}).bytes()};
}

} // namespace kelutv::fuzz
