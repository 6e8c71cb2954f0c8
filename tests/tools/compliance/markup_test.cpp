#include "tools/compliance/SampleRun.h"

#include "tools/kelutv/compliance/reports/ExchangeText.h"
#include "tools/kelutv/compliance/reports/HtmlReport.h"
#include "tools/kelutv/compliance/reports/JunitReport.h"
#include "tools/kelutv/compliance/reports/Markup.h"
#include "wire/codec/Token.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {
namespace {

using namespace tool::compliance;

TEST(Markup, escapesWhatMeansSomething) {
    EXPECT_EQ(escaped("a < b & c > \"d\" 'e'"), "a &lt; b &amp; c &gt; &quot;d&quot; &#39;e&#39;");
    EXPECT_EQ(openingTag("a", {{"b", "\"<"}}), "<a b=\"&quot;&lt;\">");
    EXPECT_EQ(textElement("a", {}, "<b>"), "<a>&lt;b&gt;</a>");
}

TEST(Markup, writesWhatNoDocumentMayHoldInItsBytes) {
    EXPECT_EQ(escaped(std::string("a\0b\x1b", 4)), "a\\x00b\\x1b");
    EXPECT_EQ(escaped("\xff\xc3\xbc"), "\\xff\xc3\xbc");
    EXPECT_EQ(escaped("\xef\xbf\xbe\xef\xbf\xbf"), "\\xef\\xbf\\xbe\\xef\\xbf\\xbf");
    EXPECT_EQ(escaped("one\ntwo"), "one\ntwo");
}

TEST(ExchangeText, saysWhatWasAskedAndAnswered) {
    // CMD_AUDIO_GETVOLUME of channel 0 without a token, which is wrong at byte 0.
    const ExchangeText text = textOf(Exchange{1, {0x02, 0x20, 0, 0}, 0, {0, 0, 0, 0}});
    EXPECT_NE(text.request.find("(at byte 0)"), std::string::npos) << text.request;
    EXPECT_EQ(text.requestBytes.front(), "00000000  02 20 00 00                                       |. ..|");
    EXPECT_EQ(text.reply.substr(0, 1), "0");
}

TEST(ExchangeText, saysWhyThereIsNoReply) {
    const ExchangeText text = textOf(Exchange{1, {}, -74, {}});
    EXPECT_EQ(text.reply, "no reply: status -74");
    EXPECT_TRUE(text.replyBytes.empty());
}

TEST(ExchangeText, showsTheBeginningOfALongRequest) {
    std::vector<std::uint8_t> request(1 << 20);
    for (std::size_t i = 0; i < request.size(); ++i) {
        request[i] = static_cast<std::uint8_t>(i * 7);
    }
    const ExchangeText text = textOf(Exchange{1, request, 0, {}});
    EXPECT_LT(text.requestBytes.size(), 40U);
    EXPECT_EQ(text.requestBytes.back(), "... 1048576 bytes in all");
    EXPECT_LT(text.request.size(), 3000U);
}

TEST(Page, hasEachFailureWithWhatWasExchanged) {
    const std::string page = htmlOf(sampleRun());
    EXPECT_NE(page.find("id=\"form.audio.getVolume[channel=headphone].form\""), std::string::npos);
    EXPECT_NE(page.find("the reply &lt;ends&gt; &amp; &quot;stops&quot;"), std::string::npos);
    EXPECT_NE(page.find("00000000  00 00 00 00 23"), std::string::npos);
    EXPECT_EQ(page.find("id=\"form.audio.getVolume[channel=speaker].form\""), std::string::npos);
}

TEST(Page, saysHowLongAnswersTookInUnitsThatFit) {
    auto run = sampleRun();
    using std::chrono::nanoseconds;
    run.results[0].latencies = {nanoseconds(999), nanoseconds(12800), nanoseconds(2000000000)};
    run.results[1].latencies.clear();
    const std::string page = htmlOf(run);
    EXPECT_NE(page.find("<td class=\"number\">12.8 \u00B5s</td><td class=\"number\">2 s</td>"), std::string::npos);
    EXPECT_NE(page.find("<span>100 ns</span><span>1 \u00B5s</span>"), std::string::npos);
    EXPECT_NE(page.find("3 answers, half within 12.8 \u00B5s"), std::string::npos);
}

TEST(Page, saysThatNothingFailed) {
    auto run = sampleRun();
    run.results.erase(run.results.begin() + 1);
    EXPECT_NE(htmlOf(run).find("Nothing failed of 5"), std::string::npos);
    EXPECT_NE(htmlOf(tool::compliance::Run{}).find("Nothing failed of 0"), std::string::npos);
}

} // namespace
} // namespace kelutv::test
