#ifndef KELUTV_EMAL_H
#define KELUTV_EMAL_H

/**
 * @file
 * Subscription to the event manager, usable from C11 and C++17.
 *
 * An event's module is its identifier with the lower 16 bits cleared. A process has at most one listener per module.
 * All listeners of a process run on one thread of the library, one after the other, events of one publisher in the
 * order of their publication. Listeners may themselves subscribe, unsubscribe and publish.
 *
 * At process exit no listener is called any more from the moment the static objects that existed at the first event
 * begin to be destroyed; exit waits at most two seconds for a listener in progress, and not at all when that listener
 * itself called exit. After fork the child gets no events and cannot subscribe; the parent goes on as before. A child
 * that a listener forks ends, with status 0, when it returns from the listener.
 */

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/**
 * Subscribes a listener to one module. Every event of the module that is published after the return reaches it once;
 * one that was published before the call does not. A listener that the module already has is replaced; it may still be
 * in its last call on return.
 * @param module module identifier, a multiple of 0x10000
 * @param listener called with the event identifier, its payload, the payload's length in bytes (0 to 65536), and
 *        null. The payload is aligned for any type, valid during the call, and null when its length is 0.
 * @return 0; -EINVAL for a null listener or a module with low bits set, -EPERM in the child of a fork, -ENOSPC when
 *         1024 modules have one, another negative errno value when the runtime directory (KQDROID_RUNTIME_DIR) cannot
 * be used or the system gives no descriptor, thread or memory; then nothing is subscribed
 */
int EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*));

/**
 * Ends the subscription of this process to one module. On return no call of its listener is running, except when the
 * caller is a listener itself.
 * @param module module identifier, a multiple of 0x10000
 * @return 0; -EINVAL for a module with low bits set, -ENOENT when it has no listener, -EPERM in the child of a fork
 */
int EMAL_RemoveListener(unsigned int module);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
