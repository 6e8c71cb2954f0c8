#include <utils/String16.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>

namespace kelutv::test {
namespace {

using android::String16;

struct Conversion {
    const char* what;
    std::string utf8;
    std::u16string utf16;
};

std::ostream& operator<<(std::ostream& out, const Conversion& conversion) { return out << conversion.what; }

class String16Conversion : public ::testing::TestWithParam<Conversion> {};

TEST_P(String16Conversion, fromUtf8) {
    const Conversion& conversion = GetParam();
    const String16 text(conversion.utf8.data(), conversion.utf8.size());
    EXPECT_TRUE(std::u16string(text.string(), text.size()) == conversion.utf16);
    EXPECT_EQ(text.string()[text.size()], u'\0');
}

const Conversion kConversions[] = {
    {"empty", "", u""},
    {"ASCII", "Volume 7", u"Volume 7"},
    {"two bytes", "\xC3\xA4\xDF\xBF", u"\u00E4\u07FF"},
    {"three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", u"\u0800\uFFFF"},
    {"four bytes", "\xF0\x90\x80\x80\xF0\x9F\x93\xBA", u"\xD800\xDC00\xD83D\xDCFA"},
    {"the last code point", "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
    {"an inner zero", std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    {"a lone continuation byte", "a\x80z", u"a\uFFFDz"},
    {"a byte that is never used", "\xFF\xFEz", u"\uFFFD\uFFFDz"},
    {"a sequence cut by the end", "a\xE2\x82", u"a\uFFFD\uFFFD"},
    {"a sequence cut by a letter", "\xE2\x82z", u"\uFFFD\uFFFDz"},
    {"an overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
    {"an overlong three-byte form", "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
    {"a surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
    {"beyond the last code point", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a lead byte of five", "\xF8\x88\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
};

INSTANTIATE_TEST_SUITE_P(All, String16Conversion, ::testing::ValuesIn(kConversions));

TEST(String16, isEmptyByDefault) {
    const String16 none;
    EXPECT_EQ(none.size(), 0u);
    EXPECT_EQ(none.string()[0], u'\0');
}

TEST(String16, keepsUtf16AsItIs) {
    const char16_t loneSurrogate[] = {0xDC00, u'a', 0};
    const String16 text(loneSurrogate);
    ASSERT_EQ(text.size(), 2u);
    EXPECT_EQ(text.string()[0], 0xDC00);
    const String16 part(u"abcdef", 3);
    EXPECT_TRUE(part == String16("abc"));
}

TEST(String16, compares) {
    EXPECT_TRUE(String16("abc") == String16(u"abc"));
    EXPECT_TRUE(String16("abc") != String16("abd"));
    EXPECT_TRUE(String16("abc") != String16("ab"));
    EXPECT_TRUE(String16("ab") < String16("abc"));
    EXPECT_FALSE(String16("b") < String16("abc"));
}

} // namespace
} // namespace kelutv::test
