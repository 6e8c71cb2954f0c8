#ifndef KELUTV_TESTS_C_CALLS_H
#define KELUTV_TESTS_C_CALLS_H

#ifdef __cplusplus
extern "C" {
#endif

/** Makes, from C, every call that must refuse a null pointer; returns how many did not answer -1. */
int acceptedNullPointers(void);

#ifdef __cplusplus
}
#endif

#endif
