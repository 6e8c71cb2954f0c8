#include "torture/memory/MemoryOperations.h"
#include "torture/memory/Seen.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/PCMPlayer.h>
#include <kelutv/SystemSetting.h>

namespace kelutv::test {

namespace {

constexpr int kAnswer = 5;

std::array<int, 100> gNumbers = hundredNumbers();
std::array<double, 50> gPoints{};

Wire withNumbers(Wire wire) {
    for (const int number : gNumbers) {
        wire.i32(number);
    }
    return wire;
}

Wire withPoints(Wire wire) {
    for (const double point : gPoints) {
        wire.f64(point);
    }
    return wire;
}

Wire withUtf16(Wire wire) {
    const std::string text = longText();
    return wire.str16(std::u16string(text.begin(), text.end()).c_str());
}

Operation set(const char* name, int (*call)(), const Wire& request) {
    return observed(name, [call](Seen& seen) { seen.result = call(); }, {{request.bytes(), replyOf({kAnswer})}},
                    std::to_string(kAnswer), {"-1"});
}

Operation zeroOrFail(const char* name, const std::function<void(Seen&)>& call, const Wire& request, const Wire& reply,
                     const std::string& right) {
    return observed(name, call, {{request.bytes(), reply.bytes()}}, right, {"-1"});
}

} // namespace

std::vector<Operation> requestOperations() {
    return {
        set(
            "NumbersBehindTheirCount", [] { return Factory::instance()->setMacAddress(gNumbers.data(), 100); },
            withNumbers(Wire::request(0x905D).i32(100))),
        set(
            "PointsBehindTheirCount", [] { return Factory::instance()->setSoundCurve(gPoints.data(), 50); },
            withPoints(Wire::request(0x9061).i32(50))),
        set(
            "NumbersBehindAddressAndLength",
            [] { return SystemSetting::instance()->setFlashEepMulti(16, gNumbers.data(), 100); },
            withNumbers(Wire::request(0x8015).i32(16).i32(100))),
        set(
            "WideText", [] { return Factory::instance()->setUartData(longText()); }, withUtf16(Wire::request(0xF02A))),
        set(
            "TextAlone", [] { return Factory::instance()->startRecorderTsStream(longText()); },
            Wire::request(0x9089).cstr(longText())),
        set(
            "TextBehindNumbers", [] { return PCMPlayer::instance()->startPlay(longText(), true, false); },
            Wire::request(0xE001).i32(1).i32(0).cstr(longText())),
        zeroOrFail(
            "TextForText",
            [](Seen& seen) { seen.result = Factory::instance()->setStbOtpBurn(1, longText(), seen.text.data()); },
            Wire::request(0x909F).i32(1).cstr(longText()), Wire::reply().i32(0).cstr(longText()),
            std::string("0 text=") + longText()),
        zeroOrFail(
            "BytesAlone",
            [](Seen& seen) {
                seen.result = SystemSetting::instance()->dtvControl(3, gNumbers.data(), sizeof gNumbers);
            },
            withNumbers(Wire::request(0x8100).i32(3).i32(400)), Wire::reply().i32(0), "0"),
        zeroOrFail(
            "BytesForBytes",
            [](Seen& seen) {
                seen.count = 1200;
                seen.result = SystemSetting::instance()->sendCmdToTVServer(3, gNumbers.data(), sizeof gNumbers,
                                                                           seen.numbers.data(), &seen.count);
                if (seen.result != 0 && seen.count == 1200) {
                    seen.count = Seen::kUntouched;
                }
            },
            withNumbers(Wire::request(0x8101).i32(3).i32(400).i32(1200)), withNumbers(Wire::reply().i32(0).i32(400)),
            "0 count=400 numbers=" + numbersUpTo(100)),
        observed("FlagForText",
                 [](Seen& seen) {
                     bool on = false;
                     seen.result = Audio::instance()->getOutputStatus(longText(), &on);
                     seen.count = on ? 1 : 0;
                 },
                 {{Wire::request(0x2059).cstr(longText()).bytes(), replyOf({0, 1})}}, "0 count=1", {"0 count=0"}),
    };
}

} // namespace kelutv::test
