#ifndef KELUTV_TESTS_C_STATUS_H
#define KELUTV_TESTS_C_STATUS_H

#ifdef __cplusplus
extern "C" {
#endif

/** Three ways in which C tells a failure from a status; each reads the status of the PCM player anew. */
int resultEqualsMinusOne(void);
int storedResultEqualsMinusOne(void);
int resultAsIntIsBelowZero(void);

#ifdef __cplusplus
}
#endif

#endif
