#include <kqcommon/ExtPort.h>

namespace {

constexpr unsigned long long kBoard = 0xB0A2D;

} // namespace

int coverSrc2Port(KELU_MW_SRC_E source, SExtPortPlugInOutInfo* port) {
    if (port == nullptr || source < KELU_MW_SRC_HDMI1 || source > KELU_MW_SRC_HDMI4) {
        return -1;
    }
    port->plugState = 1;
    port->externalPort.board = kBoard;
    port->externalPort.inputPort = INPUT_PORT_HDMI;
    port->externalPort.inputDev.hdmiDev = static_cast<unsigned int>(source) - KELU_MW_SRC_HDMI1;
    return 0;
}
