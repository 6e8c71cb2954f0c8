#include "client/ClientTest.h"
#include "client/factory/TheFactory.h"

#include <limits>
#include <list>
#include <string>

namespace kelutv::test {
namespace {

constexpr char kOtpError[] = "setStbOtpBurn,getBurnKeyStatus timeData  error";
constexpr char kOtpNull[] = "setStbOtpBurn input buf is null";

/** An error without a tag. */
LogEntry error(const std::string& text) { return untaggedError(text).front(); }

class FactoryKey : public ClientTest {
protected:
    void answerText(const char* words) { service().reply(Wire::reply().i32(0).cstr(words).bytes()); }

    /** The entries, each number in brackets taken out of its text. */
    std::vector<LogEntry> loggedWithoutLines() {
        std::vector<LogEntry> entries = logged();
        for (LogEntry& entry : entries) {
            const std::size_t end = entry.text.find(']');
            if (entry.text.front() == '[' && entry.text.find_first_not_of("0123456789", 1) == end && end > 1) {
                entry.text.erase(1, end - 1);
            }
        }
        return entries;
    }

    char text[32] = "untouched";
};

Bytes otpRequest(int kind, const char* key) { return Wire::request(0x909F).i32(kind).cstr(key).bytes(); }

// irregular: Factory::setStbOtpBurn
TEST_F(FactoryKey, burningGivesTheSerialNumber) {
    answerText("SN42");
    EXPECT_EQ(factory().setStbOtpBurn(5, "key", text), 0);
    EXPECT_EQ(sent(), only(otpRequest(5, "key")));
    EXPECT_STREQ(text, "SN42");
    const std::vector<LogEntry> lines{error("[] setStbOtpBurn snData = SN42")};
    EXPECT_EQ(loggedWithoutLines(), lines);
}

TEST_F(FactoryKey, burningGoesOnWithoutAKey) {
    answerText("SN42");
    EXPECT_EQ(factory().setStbOtpBurn(5, nullptr, text), -1);
    EXPECT_EQ(sent(), only(otpRequest(5, "")));
    EXPECT_STREQ(text, "SN42");
    const std::vector<LogEntry> lines{error(kOtpNull), error("[] setStbOtpBurn snData = SN42")};
    EXPECT_EQ(loggedWithoutLines(), lines);
}

TEST_F(FactoryKey, burningGoesOnWithoutABuffer) {
    answerText("SN42");
    EXPECT_EQ(factory().setStbOtpBurn(5, "key", nullptr), -1);
    EXPECT_EQ(sent(), only(otpRequest(5, "key")));
    const std::vector<LogEntry> lines{error(kOtpNull), error("[] setStbOtpBurn snData = SN42")};
    EXPECT_EQ(loggedWithoutLines(), lines);
}

TEST_F(FactoryKey, burningFailsWithTheService) {
    service().reply(Wire::reply().i32(4).cstr("SN42").bytes());
    EXPECT_EQ(factory().setStbOtpBurn(5, "key", text), -1);
    std::vector<LogEntry> lines{kInvokeFailure.front(), error(kOtpError)};
    EXPECT_EQ(logged(), lines);
    answer({0});
    EXPECT_EQ(factory().setStbOtpBurn(5, "key", text), -1);
    EXPECT_EQ(logged(), untaggedError(kOtpError));
    EXPECT_STREQ(text, "untouched");
    answer({4});
    EXPECT_EQ(factory().setStbOtpBurn(5, nullptr, nullptr), -1);
    lines = {error(kOtpNull), kInvokeFailure.front(), error(kOtpError)};
    EXPECT_EQ(logged(), lines);
}

// irregular: Factory::getDtvSn
TEST_F(FactoryKey, serialNumberIsAskedForEvenWithoutABuffer) {
    answerText("SN43");
    EXPECT_EQ(factory().getDtvSn(1, text), 0);
    EXPECT_EQ(sent(), only(requestOf(0x90A0, {1})));
    EXPECT_STREQ(text, "SN43");
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(factory().getDtvSn(1, nullptr), -1);
    EXPECT_EQ(sent(), only(requestOf(0x90A0, {1})));
    EXPECT_EQ(logged(), untaggedError("getDtvSn snData buf is null"));
}

TEST_F(FactoryKey, serialNumberNeedsAText) {
    service().reply(Wire::reply().i32(4).cstr("SN43").bytes());
    EXPECT_EQ(factory().getDtvSn(1, text), -1);
    answer({0});
    EXPECT_EQ(factory().getDtvSn(1, text), -1);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::getBurnKeyType
TEST_F(FactoryKey, kindsAreReadToTheEndOfTheReply) {
    service().reply(Wire::reply().i32(0).i32(3).i32(0).i32(-7).bytes());
    EXPECT_EQ(factory().getBurnKeyType("/usb"), (std::list<int>{3, 0, -7}));
    EXPECT_EQ(sent(), only(Wire::request(0x90C9).cstr("/usb").bytes()));
    Bytes uneven = replyOf({0, 3});
    uneven.insert(uneven.end(), {1, 2});
    service().reply(uneven);
    EXPECT_EQ(factory().getBurnKeyType("/usb"), (std::list<int>{3}));
    answer({0});
    EXPECT_TRUE(factory().getBurnKeyType("/usb").empty());
    EXPECT_EQ(logged(), kNothingLogged);
    answer({2, 3});
    EXPECT_TRUE(factory().getBurnKeyType("/usb").empty());
    EXPECT_EQ(logged(), kInvokeFailure);
}

// irregular: Factory::exDevInserted
TEST_F(FactoryKey, insertedDeviceGivesTheValueBehindTheResult) {
    answer({0, -9, 8});
    EXPECT_EQ(factory().exDevInserted("device"), -9);
    EXPECT_EQ(sent(), only(Wire::request(0x90CA).cstr("device").bytes()));
    EXPECT_EQ(logged(), kNothingLogged);
    answer({0});
    EXPECT_EQ(factory().exDevInserted("device"), 0);
    answer({6, 9});
    EXPECT_EQ(factory().exDevInserted("device"), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

// irregular: Factory::setKeyData
// irregular: Factory::setNetPortDataTransmission
// irregular: Factory::setMacAddress
TEST_F(FactoryKey, blocksStandBehindTheirHeaders) {
    int data[] = {7, -8, 9};
    answer({2});
    EXPECT_EQ(factory().setKeyData(1, data, 3, 4, 5), 2);
    EXPECT_EQ(sent(), only(requestOf(0x90CB, {1, 3, 4, 5, 7, -8, 9})));
    EXPECT_EQ(factory().setNetPortDataTransmission(1, data, 2, 4, 5), 2);
    EXPECT_EQ(sent(), only(requestOf(0x9087, {1, 2, 4, 5, 7, -8})));
    EXPECT_EQ(factory().setMacAddress(data, 3), 2);
    EXPECT_EQ(sent(), only(requestOf(0x905D, {3, 7, -8, 9})));
}

TEST_F(FactoryKey, blocksMayBeMissing) {
    int data[] = {7, -8, 9};
    for (const int length : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(factory().setKeyData(1, data, length, 4, 5), 0);
        EXPECT_EQ(sent(), only(requestOf(0x90CB, {1, length, 4, 5})));
        EXPECT_EQ(factory().setNetPortDataTransmission(1, data, length, 4, 5), 0);
        EXPECT_EQ(sent(), only(requestOf(0x9087, {1, length, 4, 5})));
        EXPECT_EQ(factory().setMacAddress(data, length), 0);
        EXPECT_EQ(sent(), only(requestOf(0x905D, {length})));
    }
    EXPECT_EQ(factory().setMacAddress(nullptr, 3), 0);
    EXPECT_EQ(sent(), only(requestOf(0x905D, {3})));
}

} // namespace
} // namespace kelutv::test
