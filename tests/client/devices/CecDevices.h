#pragma once

#include "support/Wire.h"

#include <kelutv/hdmicec_types.h>

#include <initializer_list>

namespace kelutv::test {

/** A successful answer that holds these devices, the name of each before its physical address. */
inline Wire devicesReply(std::initializer_list<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices) {
    Wire reply = Wire::reply().i32(0);
    for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : devices) {
        reply.i32(static_cast<std::int32_t>(device.logAddr)).i32(static_cast<std::int32_t>(device.hdmiDevPort));
        reply.cstr(device.deVName.c_str()).cstr(device.phyAddr.c_str()).cstr(device.hdmiListText.c_str());
    }
    return reply;
}

} // namespace kelutv::test
