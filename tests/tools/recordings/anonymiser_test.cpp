#include "tools/kelutv/recordings/Anonymiser.h"
#include "tools/kelutv/recordings/DecodedForm.h"

#include "wire/Enumeration.h"
#include "wire/text/Describe.h"

#include <binder/Parcel.h>
#include <kelutv/commands.h>
#include <kelutv/events.h>
#include <kelutv/items.h>
#include <utils/String16.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>

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

/** Texts and blocks of these tell neither which television it is nor whose: versions, paths, names of files and of
 * sounds, settings, and what only the service knows, for which the documentation names `--also`. */
const std::set<std::string>& requestsThatTellNothing() {
    static const std::set<std::string> names{"CMD_PICTURE_GETVIDEOSCREENSHOT",
                                             "CMD_PICTURE_GETMICRODIMMINGDATA",
                                             "CMD_PICTURE_GET_COLOR_ADVANCED",
                                             "CMD_PICTURE_SET_CAMERA_ENHANCE_PICTURE_MODE",
                                             "CMD_AUDIO_COMMON_SET_ITEM_STRVALUE",
                                             "CMD_AUDIO_COMMON_GET_ITEM_STRVALUE",
                                             "CMDID_AUDIO_GET_OUTPUT_LIST",
                                             "CMDID_AUDIO_GET_OUTPUT_ENABLE",
                                             "CMD_SYSTEM_GETBOOTVERSION",
                                             "CMD_SYSTEM_GET_BOX_OUTPUT_DISP_PARA",
                                             "CMD_SYSTEM_SETBOOTPICPATH",
                                             "CMD_SYSTEM_DTV_CHANGE_CHANNEL",
                                             "CMD_SYSTEM_DTV_CMD_TO_TV",
                                             "CMD_FACTORY_SET24GUPGRADEPATH",
                                             "CMD_FACTORY_GETEEPROMDATE",
                                             "CMD_FACTORY_GETSOUNDCURVE",
                                             "CMD_FACTORY_SETSOUNDCURVE",
                                             "CMD_FACTORY_GETPLATFORM",
                                             "CMD_FACTORY_GET_INNER_TCON_VERSION",
                                             "CMD_FACTORY_GET_EXTERNAL_MEMC_VERSION",
                                             "CMD_FACTORY_GET_PANEL_PQ_VERSION",
                                             "CMD_FACTORY_GETCOLORTEMPDEBUGINFO",
                                             "CMD_FACTORY_STARTRECORDERTS",
                                             "CMD_FACTORY_OPERATEEROM",
                                             "CMD_FACTORY_GET_PANEL_DATA_VERSION",
                                             "CMD_FACTORY_GETSYSUPTIME",
                                             "CMD_FACTORY_SETINTERNETTIME",
                                             "CMD_FACTORY_GETINTERNETTIME",
                                             "CMD_FACTORY_GETBURNKEYSTATUS",
                                             "CMD_FACTORY_GETLINEODLIST",
                                             "CMD_FACTORY_GET_NTPQPLATFORMVER",
                                             "CMD_FACOTRY_UPGRADENTPQIC",
                                             "CMD_FACOTRY_GET_LASER_FW_VERSION",
                                             "CMD_FACTORY_GET_EP9169FORMVER",
                                             "CMD_FACOTRY_UPGRADEEP9169IC",
                                             "CMD_FACOTRY_SET_LASER_ITEM_STRING_VALUE",
                                             "CMD_FACTORY_GET_SUPPORT_BURN_KEY_TYPE",
                                             "CMD_FACTORY_EXTERNAL_DEV_INSERT",
                                             "CMD_FACTORY_GET_CTL_VOLUME",
                                             "CMD_FACTORY_GET_CTL_HEADPHONE_VOLUME",
                                             "CMD_FACOTRY_COMMON_GET_PQ_BINVERSION",
                                             "CMD_PCMPLAYER_START_PLAY",
                                             "CMDID_SYSTEM_GET_MODULAR_VERSION",
                                             "CMDID_FACTORY_SAVE_ADJUST_PARAM",
                                             "CMDID_FACTORY_COPY_PRESENTATION_DATA",
                                             "CMDID_FACTORY_COPY_MWDB2USB",
                                             "CMDID_FACTORY_COPY_USBDB2MW",
                                             "CMDID_FACTORY_UPDATE_BOOTLOGO",
                                             "CMDID_FACTORY_EXPORT_SEPARATED_DATA",
                                             "CMDID_FACTORY_COPY_PRECHANNEL2USB",
                                             "CMDID_FACTORY_COPY_PRECHANNEL2MW",
                                             "CMDID_FACTORY_PRESETCHANNEL",
                                             "CMDID_FACTORY_SET_OTA_UPDATE",
                                             "CMDID_FACTORY_SET_IMPORT_SEPERAT_DATA",
                                             "CMDID_FACTORY_UPDATE_FLASHEEP_CHECK",
                                             "CMDID_FACTORY_GET_455_VERSION",
                                             "CMDID_FACTORY_GET_457_VERSION",
                                             "CMDID_FACTORY_GET_SEPERATE_DATA_VER",
                                             "CMDID_FACTORY_GET_PANEL_SIZE",
                                             "CMDID_FACTORY_GET_PANEL_INFO"};
    return names;
}

/** Blocks of numbers among them only when asked: the reply for each item that is a number has one. */
bool hasTextsOrBlocks(const wire::Operation& operation, bool areNumbersMeant) {
    const auto isMeant = [areNumbersMeant](const auto& row) {
        const bool isBlock = row.encoding == wire::Encoding::Ints || row.encoding == wire::Encoding::Doubles;
        return isBlock ? areNumbersMeant
                       : row.encoding != wire::Encoding::Int32 && row.encoding != wire::Encoding::Double;
    };
    return std::any_of(operation.request.begin(), operation.request.end(), isMeant) ||
           std::any_of(operation.reply.begin(), operation.reply.end(), isMeant);
}

/** Those with a row whose values have to be judged. */
std::set<std::string> requestsWithTextsOrBlocks() {
    std::set<std::string> names;
    for (const wire::Command& command : wire::allCommands()) {
        if (!command.hasItems && hasTextsOrBlocks(command.operation, true)) {
            names.insert(command.name);
        }
    }
    for (const wire::Item& item : wire::allItems()) {
        if (hasTextsOrBlocks(item.operation, false)) {
            wire::Request request;
            request.command = wire::findCommand(item.command);
            request.operation = &item.operation;
            request.arguments = {{item.value}};
            names.insert(wire::itemNameOf(request));
        }
    }
    return names;
}

TEST(Anonymiser, everyTextAndBlockIsJudged) {
    const std::set<std::string> identities(identityRequests().begin(), identityRequests().end());
    const std::set<std::string> all = requestsWithTextsOrBlocks();
    EXPECT_GT(all.size(), 60U);
    for (const std::string& name : all) {
        EXPECT_EQ(identities.count(name) + requestsThatTellNothing().count(name), 1U) << name;
    }
    for (const std::string& name : requestsThatTellNothing()) {
        EXPECT_EQ(all.count(name), 1U) << name << " has neither texts nor blocks";
    }
}

TEST(Anonymiser, masksPasswordsKeysAndNumbersOfTheUnit) {
    for (const int item : {CMDID_FACTORY_GET_PASSWORD, CMDID_FACTORY_GET_DEVELOPER_ID, CMDID_FACTORY_GET_PRODUCE_ID,
                           CMDID_FACTORY_GET_PRODUCT_NUMBER, CMDID_FACTORY_GET_ORDER_NUMBER}) {
        const Transaction before =
            transactionOf(requestFor({CMD_FACOTRY_COMMON_GET_ITEM_STRVALUE, item, 0, 0}), "secret 4711");
        EXPECT_EQ(masked(before).decoded.find("4711"), std::string::npos) << item;
    }
    android::Parcel burn;
    burn.writeInterfaceToken(android::String16("android.ITVBaseService"));
    for (const int word : {int{CMD_FACOTRY_COMMON_SET_ITEM_STRVALUE}, int{CMDID_FACTORY_SET_SEA_ALL_KEY_BURN}, 0}) {
        burn.writeInt32(word);
    }
    burn.writeCString("secret 4711");
    burn.writeInt32(0);
    EXPECT_EQ(masked(transactionOf(bytesOf(burn))).decoded.find("4711"), std::string::npos);
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

/** The request with the bytes of a text behind it, which nothing ends. */
Bytes withSecret(Bytes bytes) {
    const std::string secret = "secret47";
    bytes.insert(bytes.end(), secret.begin(), secret.end());
    return bytes;
}

bool hasSecret(const Bytes& bytes) {
    const std::string secret = "secret47";
    return std::search(bytes.begin(), bytes.end(), secret.begin(), secret.end()) != bytes.end();
}

TEST(Anonymiser, masksTheRestOfWhatCannotBeRead) {
    const Bytes get = requestFor({CMD_FACTORY_GETBARCODE});
    for (const Bytes& reply :
         {withSecret({0, 0, 0, 0}), withSecret({1, 0, 0, 0}), withSecret({0, 0, 0, 0, 'S', 'N', 0, 0})}) {
        Transaction before = transactionOf(get);
        before.reply = reply;
        before.decoded = decodedForm(before);
        const Transaction after = masked(before);
        EXPECT_EQ(after.reply->size(), reply.size());
        EXPECT_FALSE(hasSecret(*after.reply));
        EXPECT_EQ(after.decoded.find("secret47"), std::string::npos);
    }
    // A text without an end, a length that is more than there is, and more than there should be.
    for (const Bytes& request :
         {requestFor({CMD_FACTORY_SETSTBOTPBURN, 1}), requestFor({CMD_FACTORY_SETKEYDATA, 7, 1000, 99, 98}),
          requestFor({CMD_FACTORY_GETBARCODE})}) {
        const Transaction after = masked(transactionOf(withSecret(request)));
        EXPECT_EQ(after.request.size(), request.size() + 8);
        EXPECT_TRUE(std::equal(request.begin(), request.begin() + 60, after.request.begin())) << "the token";
        EXPECT_FALSE(hasSecret(after.request));
    }
}

TEST(Anonymiser, saysWhatNobodyKnows) {
    const auto isKnown = [](recording::Line line) { return Anonymiser(KeyedHash("key"), {}).mask(line); };
    EXPECT_TRUE(isKnown({transactionOf(requestFor({CMD_AUDIO_SETVOLUME, 0, 35}))}));
    EXPECT_FALSE(isKnown({transactionOf(requestFor({0x7fffffff, 1}))}));
    EXPECT_FALSE(isKnown({transactionOf(withSecret({}))}));
    EXPECT_TRUE(isKnown({recording::Event{{1, 2, 3, 4}, 0x60001, {0, 0, 0, 0, 35, 0, 0, 0}, ""}}));
    EXPECT_FALSE(isKnown({recording::Event{{1, 2, 3, 4}, 0x7fff0001, {1}, ""}}));
    EXPECT_TRUE(isKnown({recording::Gap{1, 2, 3}}));
}

TEST(Anonymiser, masksEachLetterOfUtf16) {
    android::Parcel parcel;
    parcel.writeInterfaceToken(android::String16("android.ITVBaseService"));
    parcel.writeInt32(CMD_EXTRA_SETUARTDATA);
    // The low byte of the second is no letter, the high byte of all tells of what it was.
    parcel.writeString16(android::String16(u"\u0416\u4e2d\u00e4a7"));
    const Transaction after = masked(transactionOf(bytesOf(parcel)));
    const std::size_t at = after.request.size() - 12;
    EXPECT_EQ(Bytes(after.request.begin() + static_cast<std::ptrdiff_t>(at),
                    after.request.begin() + static_cast<std::ptrdiff_t>(at) + 6),
              (Bytes{'?', 0, '?', 0, '?', 0}));
    EXPECT_GE(after.request[at + 6], 'a');
    EXPECT_LE(after.request[at + 6], 'f');
    EXPECT_EQ(after.request[at + 7], 0);
    EXPECT_GE(after.request[at + 8], '0');
    EXPECT_LE(after.request[at + 8], '9');
}

recording::Event maskedEvent(const recording::Event& event) {
    recording::Line line{event};
    Anonymiser(KeyedHash("key"), {}).mask(line);
    return std::get<recording::Event>(line.content);
}

TEST(Anonymiser, masksTextsOfEventsWhereTheyStand) {
    // The type looks as the text does.
    const Bytes payload{'A', 0, 0, 0, 'A', 0};
    const Bytes after = maskedEvent({{1, 2, 3, 4}, 0x30000 + 17, payload, ""}).payload;
    EXPECT_EQ(after[0], 'A');
    EXPECT_NE(after[4], 'A');
    EXPECT_FALSE(hasSecret(maskedEvent({{1, 2, 3, 4}, 0x30000 + 17, withSecret({5, 0, 0, 0}), ""}).payload));
    EXPECT_FALSE(hasSecret(maskedEvent({{1, 2, 3, 4}, 0x30000 + 18, withSecret({}), ""}).payload));
}

TEST(Anonymiser, leavesOtherEventsAlone) {
    // A block of teletext: its length, and then bytes that may look like letters.
    for (const recording::Event& event :
         {recording::Event{{1, 2, 3, 4}, KELU_EM_MODE_TTX + 1, {4, 0, 0, 0, 'a', 'b', 'c', 'd'}, ""},
          recording::Event{{1, 2, 3, 4}, 0x60001, {0, 0, 0, 0, 35, 0, 0, 0}, ""}}) {
        EXPECT_EQ(maskedEvent(event).payload, event.payload);
    }
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
