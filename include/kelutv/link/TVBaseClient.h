/**
 * @file
 * The connection of the process to the service, and the command calls.
 */
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
    /** Takes one event: its identifier, the payload, the payload's length in bytes, and what the event manager adds. */
    using EventCallback = void (*)(unsigned int eventId, void* msg, unsigned int msgLength, void* prev);

    /**
     * The one client, connected on the first call: five tries to find the service, then it stays unconnected for the
     * life of the process.
     * @return The client; never null.
     */
    static TVBaseClient* self();

    TVBaseClient(const TVBaseClient&) = delete;
    TVBaseClient& operator=(const TVBaseClient&) = delete;

    /**
     * Sends one finished request.
     * @param request Interface token, command identifier, arguments.
     * @param reply Receives the service's answer, result word first.
     * @return The transport's status, 0 when a reply came; -32 (DEAD_OBJECT) without a transaction when the service was
     *         never found.
     */
    status_t invoke(const Parcel& request, Parcel* reply);

    /**
     * The proxy of the service.
     * @return The proxy; null when the service was never found, kept after the service has died.
     */
    sp<ITVBaseService>& getBpTvbaseService();

    /**
     * The death watch.
     * @return The watch; null when the service was never found.
     */
    sp<IBinder::DeathRecipient>& getDeathRecipient();

    /**
     * Stores the callback that events go to, in place of any earlier one.
     * @param callback The callback; null takes the stored one away.
     */
    static void registCallback(void (*callback)(unsigned int, void*, unsigned int, void*));

    /**
     * Hands one event on, unchanged; dropped when there is no callback. Runs on the event manager's delivery thread.
     * @param eventId The event; its upper half is the module.
     * @param msg Payload, valid during the call.
     * @param msgLength Length of the payload in bytes.
     * @param prev What the event manager hands over.
     */
    static void eventNotify(unsigned int eventId, void* msg, unsigned int msgLength, void* prev);

    /**
     * @name Set calls
     * The service's result unchanged; -1, logged as "invoke failure\n", when no reply came.
     * @{
     */

    /**
     * Sends a set command without arguments.
     * @param cmd The command.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd);

    /**
     * Sends a set command with one number.
     * @param cmd The command.
     * @param arg1 The argument.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1);

    /**
     * Sends a set command with one text.
     * @param cmd The command.
     * @param arg1 The argument.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, char* arg1);

    /**
     * Sends a set command with one text.
     * @param cmd The command.
     * @param arg1 The argument.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, char const* arg1);

    /**
     * Sends a set command with one number and one text.
     * @param cmd The command.
     * @param arg1,arg2 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, char const* arg2);

    /**
     * Sends a set command with one number and two texts.
     * @param cmd The command.
     * @param arg1,arg2,arg3 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, char const* arg2, char const* arg3);

    /**
     * Sends a set command with two numbers.
     * @param cmd The command.
     * @param arg1,arg2 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2);

    /**
     * Sends a set command with three numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3);

    /**
     * Sends a set command with four numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3,arg4 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4);

    /**
     * Sends a set command with five numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3,arg4,arg5 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4, int arg5);

    /**
     * Sends a set command with two numbers and one text.
     * @param cmd The command.
     * @param arg1,arg2,arg3 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, char const* arg3);

    /**
     * Sends a set command with two numbers, one text and one number.
     * @param cmd The command.
     * @param arg1,arg2,arg3,arg4 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, char const* arg3, int arg4);

    /**
     * Sends a set command with four texts.
     * @param cmd The command.
     * @param arg1,arg2,arg3,arg4 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, char const* arg1, char const* arg2, char const* arg3, char const* arg4);

    /**
     * Sends a set command with one text and four numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3,arg4,arg5 The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, char const* arg1, int arg2, int arg3, int arg4, int arg5);

    /**
     * Sends a set command with one parcel.
     * @param cmd The command.
     * @param arg The argument.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, Parcel const& arg);

    /**
     * Sends a set command with two numbers and one parcel.
     * @param cmd The command.
     * @param arg1,arg2,arg The arguments, in wire order.
     * @return The service's result; -1 when no reply came.
     */
    int exeCmdSet(int cmd, int arg1, int arg2, Parcel const& arg);
    /** @} */

    /**
     * Sends a set command that is answered with values.
     * @param cmd The command.
     * @param write The arguments, copied byte for byte.
     * @param read Receives the reply behind its result word; untouched on failure.
     * @return 0 for success; -1, logged as "invoke failure\n", when no reply came or the service's result is not 0.
     */
    int exeCmdSet(int cmd, Parcel const& write, Parcel& read);

    /**
     * @name Get calls
     * The value behind a result of 0; -1 in every other case. Nothing is logged.
     * @{
     */

    /**
     * Sends a get command without arguments.
     * @param cmd The command.
     * @return The value; -1 for a failure.
     */
    int exeCmdGet(int cmd);

    /**
     * Sends a get command with one number.
     * @param cmd The command.
     * @param arg1 The argument.
     * @return The value; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg1);

    /**
     * Sends a get command with two numbers.
     * @param cmd The command.
     * @param arg1,arg2 The arguments, in wire order.
     * @return The value; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg1, int arg2);

    /**
     * Sends a get command with three numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3 The arguments, in wire order.
     * @return The value; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg1, int arg2, int arg3);
    /** @} */

    /**
     * @name Get calls with more than one value
     * 0, with `result` holding the reply behind its result word, position at the start; -1 with `result` untouched in
     * every other case. Nothing is logged.
     * @{
     */

    /**
     * Sends a get command without arguments.
     * @param cmd The command.
     * @param result Receives the values.
     * @return 0 for success; -1 for a failure.
     */
    int exeCmdGet(int cmd, Parcel& result);

    /**
     * Sends a get command with one number.
     * @param cmd The command.
     * @param arg The argument.
     * @param result Receives the values.
     * @return 0 for success; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg, Parcel& result);

    /**
     * Sends a get command with two numbers.
     * @param cmd The command.
     * @param arg1,arg2 The arguments, in wire order.
     * @param result Receives the values.
     * @return 0 for success; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg1, int arg2, Parcel& result);

    /**
     * Sends a get command with three numbers.
     * @param cmd The command.
     * @param arg1,arg2,arg3 The arguments, in wire order.
     * @param result Receives the values.
     * @return 0 for success; -1 for a failure.
     */
    int exeCmdGet(int cmd, int arg1, int arg2, int arg3, Parcel& result);

    /**
     * Sends `doFlag`, `param`, `dataSize` and `*size`, then the `dataSize` bytes at `data` when `dataSize` is above 0.
     * `size` is read even when `dataSize` is 0, and never written.
     * @param cmd The command.
     * @param doFlag,param Two numbers for the service.
     * @param dataSize Bytes at `data`.
     * @param size Points to a number for the service, not null.
     * @param data The bytes; not read when `dataSize` is 0 or less.
     * @param result Receives the values.
     * @return 0 for success; -1 for a failure.
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
