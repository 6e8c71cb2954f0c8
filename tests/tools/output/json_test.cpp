#include "tools/kelutv/output/Json.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using tool::Json;

TEST(Json, printsValuesOfEveryKind) {
    EXPECT_EQ(Json().dump(), "null");
    EXPECT_EQ(Json(nullptr).dump(), "null");
    EXPECT_EQ(Json(true).dump(), "true");
    EXPECT_EQ(Json(std::uint8_t{90}).dump(), "90");
    EXPECT_EQ(Json(std::numeric_limits<std::uint32_t>::max()).dump(), "4294967295");
    EXPECT_EQ(Json(std::numeric_limits<std::int64_t>::min()).dump(), "-9223372036854775808");
    EXPECT_EQ(Json(2.0).dump(), "2.0");
    EXPECT_EQ(Json(0.1).dump(), "0.1");
    EXPECT_EQ(Json(std::numeric_limits<double>::quiet_NaN()).dump(), "null");
    EXPECT_EQ(Json("a \"text\"\n").dump(), R"("a \"text\"\n")");
    EXPECT_EQ(Json(std::string("a\0b", 3)).dump(), R"("a\u0000b")");
}

TEST(Json, replacesWhatIsNoUtf8) { EXPECT_EQ(Json("a\xFFz").dump(), "\"a\xEF\xBF\xBDz\""); }

TEST(Json, printsListsAndObjectsInTheirOrder) {
    Json object{{"z", 1}, {"a", Json::array({true, "x", nullptr})}};
    object["m"]["inner"] = std::vector<std::string>{"one", "two"};
    object["z"] = Json::object();
    EXPECT_EQ(object.dump(), R"({"z":{},"a":[true,"x",null],"m":{"inner":["one","two"]}})");
    EXPECT_EQ(Json::array().dump(), "[]");
}

TEST(Json, appendsToLists) {
    Json list = Json::array();
    list.add(1);
    list.add({{"a", 2}});
    EXPECT_EQ(list.dump(), R"([1,{"a":2}])");
}

TEST(Json, findsMembers) {
    const Json object{{"a", 5}};
    EXPECT_EQ(object.at("a").asInteger(), 5);
    EXPECT_EQ(object.find("b"), nullptr);
    EXPECT_THROW(object.at("b"), std::logic_error);
}

TEST(Json, givesItsValueAsWhatItIs) {
    EXPECT_EQ(Json(35.9).asInteger(), 35);
    EXPECT_EQ(Json(7).asReal(), 7.0);
    EXPECT_EQ(Json("x").asText(), "x");
    EXPECT_THROW(Json("x").asInteger(), std::logic_error);
    EXPECT_THROW(Json(1).asBoolean(), std::logic_error);
    EXPECT_THROW(Json().entries(), std::logic_error);
    EXPECT_THROW(Json(1).add(2), std::logic_error);
}

TEST(Json, comparesByValue) {
    EXPECT_TRUE(Json("a") == Json(std::string("a")));
    EXPECT_TRUE(Json(1) != Json(2));
    EXPECT_TRUE(Json(1) != Json(true));
    EXPECT_TRUE((Json{{"a", 1}} == Json{{"a", 1}}));
}

std::string complaintAbout(const std::string& text) {
    try {
        Json::parsed(text);
    } catch (const tool::JsonError& error) {
        return error.what();
    }
    return "";
}

TEST(Json, isReadFromItsText) {
    const std::string text = R"({"b":[1,-2,3.5,"x\"[{",null,true],"a":{"c":9223372036854775807}})";
    EXPECT_EQ(Json::parsed(text).dump(), text);
    EXPECT_EQ(Json::parsed("18446744073709551615"), Json(18446744073709551615.0));
    EXPECT_NE(complaintAbout("{\"a\": 1,\n x}").find("line 2, column 2"), std::string::npos);
    EXPECT_NE(complaintAbout(""), "");
    // No number is that large.
    EXPECT_EQ(complaintAbout("[1e61555]").substr(0, 9), "no JSON: ");
}

TEST(Json, isReadAsDeepAsDocumentsAre) {
    EXPECT_EQ(complaintAbout(std::string(64, '[') + std::string(64, ']')), "");
    EXPECT_EQ(complaintAbout(std::string(65, '[') + std::string(65, ']')),
              "objects and lists are nested more than 64 deep");
    EXPECT_EQ(complaintAbout(std::string(1000000, '[')), "objects and lists are nested more than 64 deep");
}

} // namespace
} // namespace kelutv::test
