#include "tools/compliance/SampleRun.h"

#include <algorithm>

namespace kelutv::test {

using namespace tool::compliance;
using std::chrono::microseconds;

Run sampleRun() {
    Run run;
    run.circumstances = {"2026-11-22T14:00:00Z",
                         "1.0.0",
                         "0123456789abcdef",
                         "sockets",
                         "TVBase",
                         "Linux x86_64",
                         {"audio", "--allow", "factory.setMacAddress"}};
    run.seconds = 1.5;
    run.results = {
        {"form.audio.getVolume[channel=speaker].form",
         "form",
         "audio",
         "linux_tv_Audio_getVolume",
         "The reply is laid out as the catalogue says, since clients read it by that.",
         Verdict::passed,
         "",
         std::nullopt,
         {microseconds(100), microseconds(300)}},
        {"form.audio.getVolume[channel=headphone].form",
         "form",
         "audio",
         "linux_tv_Audio_getVolume",
         "The reply is laid out as the catalogue says, since clients read it by that.",
         Verdict::failed,
         "the reply <ends> & \"stops\"",
         Exchange{1, {0x01, 0x02}, 0, {0x00, 0x00, 0x00, 0x00, 0x23}},
         {microseconds(9000)}},
        {"state.audio.setMute",
         "state",
         "audio",
         "linux_tv_Audio_setMute",
         "What is set is read back.",
         Verdict::refused,
         "the service answered -107, value out of range",
         std::nullopt,
         {}},
        {"state.picture.setBright",
         "state",
         "picture",
         "linux_tv_Picture_setBright",
         "What is set is read back.",
         Verdict::expectedFailure,
         "not kept; known: no back light",
         Exchange{1, {}, -32, {}},
         {}},
        {"refusal.factory.setMacAddress.truncated",
         "refusal",
         "factory",
         "linux_tv_Factory_setMacAddress",
         "Half a request is refused.",
         Verdict::leftOut,
         "dangerous; --allow factory.setMacAddress makes it",
         std::nullopt,
         {}},
        {"events.audio.setVolume.once",
         "events",
         "audio",
         "linux_tv_Audio_setVolume",
         "A change is told once.",
         Verdict::inconclusive,
         "the volume has one value only",
         std::nullopt,
         {}},
    };
    return run;
}

CheckResult& resultIn(Run& run, const std::string& id) {
    return *std::find_if(run.results.begin(), run.results.end(),
                         [&id](const CheckResult& result) { return result.id == id; });
}

} // namespace kelutv::test
