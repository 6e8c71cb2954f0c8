#include "ShapeService.h"

#include "Shapes.h"

#include <binder/Binder.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>

#include <sys/prctl.h>

#include <algorithm>
#include <csignal>
#include <cstdio>

namespace kelutv::bench {

namespace {

class ShapeService : public android::BBinder {
protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        if (code != FIRST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        static const android::String16 interface("android.ITVBaseService");
        if (!data.enforceInterface(interface)) {
            return android::PERMISSION_DENIED;
        }
        const std::vector<Shape>& shapes = everyShape();
        const auto shape = std::find_if(shapes.begin(), shapes.end(),
                                        [command = data.readInt32()](const Shape& s) { return s.command == command; });
        if (shape == shapes.end()) {
            return android::BAD_VALUE;
        }
        reply->writeInt32(0);
        if (shape->answer != nullptr) {
            shape->answer(*reply);
        }
        return android::NO_ERROR;
    }
};

} // namespace

int serveShapes() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const android::status_t status =
        android::defaultServiceManager()->addService(android::String16("TVBaseService"), new ShapeService);
    if (status != android::NO_ERROR) {
        std::fprintf(stderr, "kelutv-shapes: cannot register TVBaseService: status %d\n", status);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    android::IPCThreadState::self()->joinThreadPool();
    return 0;
}

} // namespace kelutv::bench
