#include "torture/starvation/TelevisionOperations.h"

#include <kelutv/Audio.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

namespace kelutv::test {

std::vector<Operation> televisionOperations() {
    return {
        {"linux_tv_Audio_setSoundMode",
         {},
         [](Outcome& o) { o.add("%d", linux_tv_Audio_setSoundMode(3)); },
         "0",
         {"-1"}},
        {"SourceManager::getTimingInfo",
         {},
         [](Outcome& o) {
             const TimingScreen timing = SourceManager::instance()->getTimingInfo();
             o.add("%ux%u, %u Hz", timing.width, timing.height, timing.frameRate);
         },
         "720x576, 50 Hz",
         {"0x0, 0 Hz"}},
        // All sources of the defaults but the second digital one.
        {"linux_tv_SourceManager_getSourceList",
         {},
         [](Outcome& o) {
             int sources[64];
             int count = 0;
             const int result = linux_tv_SourceManager_getSourceList(sources, &count);
             o.add("%d, %d", result, count);
         },
         "0, 12",
         {"-1, 0"}},
        {"HdmiCEC::getDeviceListInfo",
         {},
         [](Outcome& o) {
             std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices;
             o.add("%d", HdmiCEC::instance()->getDeviceListInfo(&devices));
             for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : devices) {
                 o.add(", %u %u '%s' %s", device.logAddr, device.hdmiDevPort, device.deVName.c_str(),
                       device.phyAddr.c_str());
             }
         },
         "0, 4 0 'Disc player' 1.0.0.0, 5 1 'Soundbar' 2.0.0.0",
         {"-1"}},
        {"CKeluEEP::GetTVFlashEepMulti",
         {},
         [](Outcome& o) {
             int bytes[] = {4711, 4711, 4711};
             const int result = CKeluEEP::instance()->GetTVFlashEepMulti(0x8A00, 2, bytes);
             o.add("%d, %d %d %d", result, bytes[0], bytes[1], bytes[2]);
         },
         "0, 0 0 4711",
         {"-1, 4711 4711 4711"}},
    };
}

} // namespace kelutv::test
