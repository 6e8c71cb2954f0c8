#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_notify.h>

#include <cstdio>

using android::TVBaseClient;

int linux_tv_registerCallbackFunc(tv_NotifyFun_Callback callback) {
    std::printf("call %s line %d\n", "linux_tv_registerCallbackFunc", 6);
    TVBaseClient::self();
    // The event identifier is told as an int here and as an unsigned int there, in the same register and of the same
    // size.
    TVBaseClient::registCallback(reinterpret_cast<TVBaseClient::EventCallback>(callback));
    return 0;
}

int linux_tv_unRegisterCallbackFunc(tv_NotifyFun_Callback) {
    TVBaseClient::self();
    TVBaseClient::registCallback(nullptr);
    return 0;
}
