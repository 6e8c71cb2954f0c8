#ifndef FOREIGN_EMAL_H
#define FOREIGN_EMAL_H

#ifdef __cplusplus
extern "C" {
#endif

/** Subscribes to the events of one module. 0 when every later event reaches the listener. */
__attribute__((visibility("default"))) int EMAL_AddListener(unsigned int module,
                                                            void (*listener)(unsigned int, void*, unsigned int, void*));

/** Ends it. 0 when there was a listener. */
__attribute__((visibility("default"))) int EMAL_RemoveListener(unsigned int module);

#ifdef __cplusplus
}
#endif

#endif
