#include "tools/kelutv/recordings/Anonymiser.h"
#include "tools/kelutv/recordings/DecodedForm.h"

#include "wire/Enumeration.h"

#include <binder/Parcel.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <utils/String16.h>

#include <gtest/gtest.h>

#include <cstring>

namespace kelutv::tool {

namespace {

using recording::Bytes;
using recording::Transaction;

Bytes bytesOf(const android::Parcel& parcel) { return {parcel.data(), parcel.data() + parcel.dataSize()}; }

Bytes requestFor(std::initializer_list<int> words, const char* text = nullptr) {
    android::Parcel parcel;
    parcel.writeInterfaceToken(android::String16("android.ITVBaseService"));
    for (const int word : words) {
        parcel.writeInt32(word);
    }
    if (text != nullptr) {
        parcel.writeCString(text);
    }
    return bytesOf(parcel);
}

Transaction transactionOf(const Bytes& request, const char* text = nullptr) {
    android::Parcel reply;
    reply.writeInt32(0);
    if (text != nullptr) {
        reply.writeCString(text);
    }
    Transaction transaction{{1, 2, 3, 4}, 5, 0, request, bytesOf(reply), ""};
    transaction.decoded = decodedForm(transaction);
    return transaction;
}

Transaction masked(const Transaction& transaction, const std::string& key = "key",
                   const std::vector<wire::RequestPattern>& more = {}) {
    recording::Line line{transaction};
    Anonymiser(KeyedHash(key), more).mask(line);
    return std::get<Transaction>(line.content);
}

std::string textIn(const Bytes& reply) { return reinterpret_cast<const char*>(reply.data()) + sizeof(std::int32_t); }

TEST(KeyedHash, isSipHash) {
    // The vectors that were published with it.
    const KeyedHash hash(std::array<std::uint64_t, 2>{0x0706050403020100U, 0x0f0e0d0c0b0a0908U});
    EXPECT_EQ(hash.of(""), 0x726fdb47dd0e0e31U);
    EXPECT_EQ(hash.of(std::string("\0", 1)), 0x74f839c593dc67fdU);
    EXPECT_EQ(hash.of(std::string("\0\1\2\3\4\5\6\7\10\11\12\13\14\15\16", 15)), 0xa129ca6149be45e5U);
}

TEST(Anonymiser, knowsRequestsThatThereAre) {
    for (const std::string& name : identityRequests()) {
        EXPECT_NE(wire::findEnumerator(name), nullptr) << name;
    }
}

TEST(Anonymiser, masksTextsInTheirForm) {
    const Transaction before = transactionOf(requestFor({CMD_FACTORY_GETMACADDRESS}), "00:1A:2b:3C:4d:5E");
    const Transaction after = masked(before);
    EXPECT_EQ(after.request, before.request);
    EXPECT_EQ(after.reply->size(), before.reply->size());
    const std::string text = textIn(*after.reply);
    ASSERT_EQ(text.size(), 17U);
    EXPECT_NE(text, "00:1A:2b:3C:4d:5E");
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i % 3 == 2) {
            EXPECT_EQ(text[i], ':');
        } else {
            EXPECT_NE(std::strchr("0123456789abcdefABCDEF", text[i]), nullptr) << text;
        }
    }
    EXPECT_NE(after.decoded.find(text), std::string::npos);
    EXPECT_EQ(after.decoded.find("1A"), std::string::npos);
}

TEST(Anonymiser, givesTheSameTheSameMask) {
    const Transaction one = transactionOf(requestFor({CMD_FACTORY_GETBARCODE}), "SN123456789");
    const Transaction other = transactionOf(requestFor({CMD_FACTORY_GET_EMMC_ID}), "SN123456789");
    EXPECT_EQ(masked(one).reply, masked(other).reply);
    EXPECT_EQ(masked(one).reply, masked(one).reply);
    EXPECT_NE(masked(one).reply, masked(one, "another").reply);
    EXPECT_NE(masked(one).reply, masked(transactionOf(requestFor({CMD_FACTORY_GETBARCODE}), "SN123456780")).reply);
}

TEST(Anonymiser, masksBlocksAndTheirChecksums) {
    const Transaction before =
        transactionOf(requestFor({CMD_FACTORY_SETKEYDATA, 7, 4, 99, 98, 0x11, 0x22, 0x33, 0x44}));
    const Transaction after = masked(before);
    ASSERT_EQ(after.request.size(), before.request.size());
    const std::size_t kept = before.request.size() - 6 * sizeof(std::int32_t);
    EXPECT_TRUE(std::equal(after.request.begin(), after.request.begin() + static_cast<std::ptrdiff_t>(kept),
                           before.request.begin()));
    int changed = 0;
    for (std::size_t at = kept; at < before.request.size(); at += sizeof(std::int32_t)) {
        std::int32_t number = 0;
        std::memcpy(&number, after.request.data() + at, sizeof(number));
        EXPECT_GE(number, 0);
        EXPECT_LE(number, 255);
        changed += std::memcmp(after.request.data() + at, before.request.data() + at, sizeof(number)) != 0 ? 1 : 0;
    }
    EXPECT_GE(changed, 5);
}

TEST(Anonymiser, leavesEverythingElseAlone) {
    for (const Transaction& before : {transactionOf(requestFor({CMD_AUDIO_SETVOLUME, 0, 35})),
                                      transactionOf(requestFor({CMD_FACTORY_GETPLATFORM}), "platform 1"),
                                      transactionOf(requestFor({0x7fffffff, 1}))}) {
        const Transaction after = masked(before);
        EXPECT_EQ(after.request, before.request);
        EXPECT_EQ(after.reply, before.reply);
        EXPECT_EQ(after.decoded, before.decoded);
    }
}

TEST(Anonymiser, masksWhatIsNamed) {
    const Transaction before = transactionOf(requestFor({CMD_FACTORY_SETINTERNETTIME}, "Tuesday 12"));
    EXPECT_EQ(masked(before).request, before.request);
    const Transaction after = masked(before, "key", {wire::RequestPattern("CMD_FACTORY_SETINTERNETTIME")});
    EXPECT_NE(after.request, before.request);
    EXPECT_EQ(after.request.size(), before.request.size());
    const std::string end(after.request.end() - 12, after.request.end());
    EXPECT_EQ(end[7], ' ');
    EXPECT_EQ(end.substr(10), std::string(2, '\0'));
}

TEST(Anonymiser, masksTextsOfEvents) {
    // Type 5, then what the television says of itself.
    const std::string text = "BRAND 7";
    recording::Event event{{1, 2, 3, 4}, 0x30000 + 17, {5, 0, 0, 0}, "{}"};
    event.payload.insert(event.payload.end(), text.begin(), text.end());
    event.payload.push_back(0);
    recording::Line line{event};
    Anonymiser(KeyedHash("key"), {}).mask(line);
    const auto after = std::get<recording::Event>(line.content);
    EXPECT_EQ(after.payload.size(), event.payload.size());
    EXPECT_EQ(after.payload[0], 5);
    EXPECT_EQ(after.payload[9], ' ');
    EXPECT_NE(after.payload, event.payload);
    EXPECT_EQ(after.decoded.find("BRAND 7"), std::string::npos);
}

} // namespace

} // namespace kelutv::tool
