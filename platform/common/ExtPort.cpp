#include <kqcommon/ExtPort.h>

namespace {

struct PortRange {
    EInputPortType port;
    int firstSource;
    int lastSource;
};

constexpr PortRange kPortRanges[] = {
    {INPUT_PORT_TUNER, KELU_MW_SRC_ATV, KELU_MW_SRC_DIG2},
    {INPUT_PORT_CVBS, KELU_MW_SRC_CVBS1, KELU_MW_SRC_CVBS_MAX},
    {INPUT_PORT_VGA, KELU_MW_SRC_VGA, KELU_MW_SRC_VGA},
    {INPUT_PORT_YPBPR, KELU_MW_SRC_YPBPR1, KELU_MW_SRC_YPBPR_MAX},
    {INPUT_PORT_HDMI, KELU_MW_SRC_HDMI1, KELU_MW_SRC_HDMI_MAX},
    {INPUT_PORT_MEDIA, KELU_MW_SRC_MEDIA1, KELU_MW_SRC_MEDIA_MAX},
    {INPUT_PORT_SCART, KELU_MW_SRC_SCART1, KELU_MW_SRC_SCART_MAX},
};

} // namespace

int coverSrc2Port(KELU_MW_SRC_E source, SExtPortPlugInOutInfo* port) {
    if (port == nullptr) {
        return -1;
    }
    *port = {};
    const int value = source;
    for (const PortRange& range : kPortRanges) {
        if (value >= range.firstSource && value <= range.lastSource) {
            port->externalPort.inputPort = range.port;
            port->externalPort.inputDev.hdmiDev = static_cast<unsigned int>(value - range.firstSource);
            return 0;
        }
    }
    return -1;
}
