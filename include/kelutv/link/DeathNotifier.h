/**
 * @file
 * The watch over the life of the service.
 */
#pragma once

#include <binder/IBinder.h>
#include <kelutv/export.h>

/** Watches the TV base service for the client. */
class KELUTV_API DeathNotifier : public android::IBinder::DeathRecipient {
public:
    DeathNotifier();
    ~DeathNotifier() override;

    /**
     * The service is gone: says so on standard error, takes the death link back and drops the event listeners. The
     * client keeps its proxy, so that every later command fails in the transport; nothing reconnects.
     *
     * Runs on a thread of the binder runtime.
     * @param who The object that died; not used.
     */
    void binderDied(const android::wp<android::IBinder>& who) override;
};
