#include "python/shim/Lists.h"

#include "python/shim/Interface.h"

namespace kelutv::python {

namespace {

thread_local std::string kept;

void keep(const std::string& text) {
    // A text ends where a C string would.
    kept.append(text, 0, text.find('\0'));
    kept += '\0';
}

} // namespace

void keepList(const std::list<std::string>& texts) {
    kept.clear();
    for (const std::string& text : texts) {
        keep(text);
    }
}

void keepList(const std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>& devices) {
    kept.clear();
    for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : devices) {
        keep(std::to_string(device.logAddr));
        keep(std::to_string(device.hdmiDevPort));
        keep(device.phyAddr);
        keep(device.deVName);
        keep(device.hdmiListText);
    }
}

} // namespace kelutv::python

extern "C" const char* kelutv_python_list(unsigned int* size) {
    *size = static_cast<unsigned int>(kelutv::python::kept.size());
    return kelutv::python::kept.data();
}
