#pragma once

#include <kelutv/source_types.h>

enum EInputPortType { INPUT_PORT_NONE = 100, INPUT_PORT_HDMI = 101 };

/** A port: the members that the library and its users know stand behind one of the platform's own. */
struct _SInputPortInfo {
    unsigned long long board;
    EInputPortType inputPort;
    union {
        unsigned int hdmiDev;
    } inputDev;
};
typedef _SInputPortInfo SInputPortInfo;

struct _SExtPortPlugInOutInfo {
    int plugState;
    SInputPortInfo externalPort;
};
typedef _SExtPortPlugInOutInfo SExtPortPlugInOutInfo;

/** The port of an HDMI source. 0 for one, which fills the record; -1 for any other source. */
__attribute__((visibility("default"))) int coverSrc2Port(KELU_MW_SRC_E source, SExtPortPlugInOutInfo* port);
