#pragma once

#include <kelutv/link/ITVBaseService.h>

namespace android {

/**
 * The process's one connection to the TV base service and the command calls that every module uses.
 *
 * A request holds the interface token, the command identifier and the arguments in the order of the call's parameters:
 * an int as int32, a string as its bytes with a terminator, a parcel byte for byte. The service answers with an int32
 * result and what the command adds to it. Pointers are not checked. All calls may be made from several threads at once;
 * each blocks until the service has answered.
 */
class KELUTV_API TVBaseClient {
public:
    using EventCallback = void (*)(unsigned int eventId, void* msg, unsigned int msgLength, void* prev);

    /**
     * The one client, connected on the first call: five tries to find the service, then it stays unconnected for the
     * life of the process. Never null.
     */
    static TVBaseClient* self();

    TVBaseClient(const TVBaseClient&) = delete;
    TVBaseClient& operator=(const TVBaseClient&) = delete;

    /** Sends one finished request; -32 (DEAD_OBJECT) without a transaction when the service was never found. */
    status_t invoke(const Parcel& request, Parcel* reply);

    /** The proxy; null when the service was never found, kept after the service has died. */
    sp<ITVBaseService>& getBpTvbaseService();
    /** The death watch; null when the service was never found. */
    sp<IBinder::DeathRecipient>& getDeathRecipient();

    /** Stores the callback that events go to, in place of any earlier one; null takes it away. */
    static void registCallback(void (*callback)(unsigned int, void*, unsigned int, void*));
    /** Hands one event on, unchanged; dropped when there is no callback. Runs on the event manager's delivery thread.
     */
    static void eventNotify(unsigned int eventId, void* msg, unsigned int msgLength, void* prev);

    /** @name Set calls: the service's result unchanged; -1, logged as "invoke failure\n", when no reply came. @{ */
    int exeCmdSet(int cmd);
    int exeCmdSet(int cmd, int arg1);
    int exeCmdSet(int cmd, char* arg1);
    int exeCmdSet(int cmd, char const* arg1);
    int exeCmdSet(int cmd, int arg1, char const* arg2);
    int exeCmdSet(int cmd, int arg1, char const* arg2, char const* arg3);
    int exeCmdSet(int cmd, int arg1, int arg2);
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3);
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4);
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4, int arg5);
    int exeCmdSet(int cmd, int arg1, int arg2, char const* arg3);
    int exeCmdSet(int cmd, int arg1, int arg2, char const* arg3, int arg4);
    int exeCmdSet(int cmd, char const* arg1, char const* arg2, char const* arg3, char const* arg4);
    int exeCmdSet(int cmd, char const* arg1, int arg2, int arg3, int arg4, int arg5);
    int exeCmdSet(int cmd, Parcel const& arg);
    int exeCmdSet(int cmd, int arg1, int arg2, Parcel const& arg);
    /** @} */

    /**
     * Set call with an answer: 0, with `read` holding the reply behind its result word; -1 with `read` untouched,
     * logged as "invoke failure\n", when no reply came or the service's result is not 0.
     */
    int exeCmdSet(int cmd, Parcel const& write, Parcel& read);

    /** @name Get calls: the value behind a result of 0; -1 in every other case. Nothing is logged. @{ */
    int exeCmdGet(int cmd);
    int exeCmdGet(int cmd, int arg1);
    int exeCmdGet(int cmd, int arg1, int arg2);
    int exeCmdGet(int cmd, int arg1, int arg2, int arg3);
    /** @} */

    /**
     * @name Get calls with more than one value: 0, with `result` holding the reply behind its result word, position at
     * the start; -1 with `result` untouched in every other case. Nothing is logged.
     * @{
     */
    int exeCmdGet(int cmd, Parcel& result);
    int exeCmdGet(int cmd, int arg, Parcel& result);
    int exeCmdGet(int cmd, int arg1, int arg2, Parcel& result);
    int exeCmdGet(int cmd, int arg1, int arg2, int arg3, Parcel& result);
    /**
     * Sends `doFlag`, `param`, `dataSize` and `*size`, then the `dataSize` bytes at `data` when `dataSize` is above 0.
     * `size` is read even when `dataSize` is 0, and never written.
     */
    int exeCmdGet(int cmd, int doFlag, int param, int dataSize, int* size, unsigned char* data, Parcel& result);
    /** @} */

private:
    TVBaseClient();
    virtual ~TVBaseClient();

    sp<ITVBaseService> mBpTvbaseService;
    sp<IBinder::DeathRecipient> mDeathRecipient;
    static EventCallback mEventCallback;
};

} // namespace android
