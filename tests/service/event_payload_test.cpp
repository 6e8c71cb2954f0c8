#include "service/EventPayload.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelutv::service {

namespace {

constexpr wire::EventField kFields[] = {
    {"small", wire::FieldType::Int8, nullptr},  {"byte", wire::FieldType::UInt8, nullptr},
    {"short", wire::FieldType::Int16, nullptr}, {"port", wire::FieldType::UInt16, nullptr},
    {"value", wire::FieldType::Int32, nullptr}, {"name", wire::FieldType::Text, nullptr}};
constexpr wire::EventField kBytes[] = {{"frame", wire::FieldType::Bytes, nullptr}};
constexpr wire::Event kEvent{1, 1, "happened", kFields, ""};
constexpr wire::Event kFrame{2, 2, "framed", kBytes, ""};

TEST(EventPayload, holdsEachFieldInItsSize) {
    EXPECT_EQ(payloadOf(kEvent, {-2, 254, -3, 65533, 7, "arc"}),
              std::string("\xfe\xfe\xfd\xff\xfd\xff\x07\0\0\0arc\0", 14));
    EXPECT_EQ(payloadOf(kFrame, {std::string("a\0b", 3)}), std::string("a\0b", 3));
}

TEST(EventPayload, takesOneValueForEachField) {
    EXPECT_THROW(payloadOf(kFrame, {}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kFrame, {"a", "b"}), std::invalid_argument);
}

TEST(EventPayload, takesNoNumberThatItsFieldCannotHold) {
    EXPECT_THROW(payloadOf(kEvent, {128, 0, 0, 0, 0, ""}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, 256, 0, 0, 0, ""}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, -1, 0, 0, 0, ""}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, 0, 32768, 0, 0, ""}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, 0, 0, 65536, 0, ""}), std::invalid_argument);
}

TEST(EventPayload, takesNoValueOfAnotherKind) {
    EXPECT_THROW(payloadOf(kEvent, {0, 0, 0, 0, 1.0, ""}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, 0, 0, 0, 0, 0}), std::invalid_argument);
    EXPECT_THROW(payloadOf(kEvent, {0, 0, 0, 0, 0, std::string("a\0b", 3)}), std::invalid_argument);
}

} // namespace

} // namespace kelutv::service
