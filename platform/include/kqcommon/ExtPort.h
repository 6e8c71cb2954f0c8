#pragma once

#include <kelutv/source_types.h>

/** Boolean of the platform: 0 is false, anything else true. */
typedef int KELU_BOOL;

/** Kinds of external input ports. */
enum EInputPortType {
    INPUT_PORT_NONE = 0, /**< no port: the source is not fed from outside */
    INPUT_PORT_TUNER = 1,
    INPUT_PORT_CVBS = 2,
    INPUT_PORT_VGA = 3,
    INPUT_PORT_YPBPR = 4,
    INPUT_PORT_HDMI = 5,
    INPUT_PORT_MEDIA = 6,
    INPUT_PORT_SCART = 7,
};

/** One input port: its kind and which one of that kind. */
struct _SInputPortInfo {
    EInputPortType inputPort;
    /** Number of the device on a port of this kind, counted from 0; every member is the same 32-bit word. */
    union {
        unsigned int tunerDev;
        unsigned int cvbsDev;
        unsigned int vgaDev;
        unsigned int ypbprDev;
        unsigned int hdmiDev;
        unsigned int mediaDev;
        unsigned int scartDev;
    } inputDev;
};
typedef _SInputPortInfo SInputPortInfo;

/** An external port and whether something is plugged into it. */
struct _SExtPortPlugInOutInfo {
    SInputPortInfo externalPort;
    KELU_BOOL plugState;
};
typedef _SExtPortPlugInOutInfo SExtPortPlugInOutInfo;

/**
 * Gives the external input port that feeds a source: `KELU_MW_SRC_HDMI1` to `KELU_MW_SRC_HDMI4` are HDMI devices 0 to
 * 3; the tuner (ATV and both digital sources are devices 0 to 2), CVBS, VGA, YPbPr, media and SCART sources likewise
 * count from 0 within their kind.
 * @param source any value; `KELU_MW_SRC_AUTO`, `KELU_MW_SRC_BUTT` and values outside the enumeration have no port
 * @param port receives the record with `plugState` 0 (nothing is known of plugging here); for a source without a port
 *        `INPUT_PORT_NONE` and device 0
 * @return 0 when there is a port, -1 when there is none or when `port` is null, which is then left alone
 */
__attribute__((visibility("default"))) int coverSrc2Port(KELU_MW_SRC_E source, SExtPortPlugInOutInfo* port);
