/** What Python calls of the shim, besides the generated functions. */
#pragma once

#include <kelutv/export.h>

#include <stdint.h>

extern "C" {

/* begin of what Python reads */

/** Where a field of a record stands, `Record.field`, or how long the record `Record` is; in bytes. */
typedef struct kelutv_python_place {
    const char* name;
    unsigned int bytes;
} kelutv_python_place;

/** Every record of the interface with its fields, by ascending name. */
KELUTV_API const kelutv_python_place* kelutv_python_places(void);
KELUTV_API unsigned int kelutv_python_place_count(void);

/**
 * Connects the process to the service. Only the first success lasts; after a failure the next call tries again.
 * @param text Receives why there is no connection, cut to `room` bytes with the zero.
 * @return 1 with a connection, 0 without.
 */
KELUTV_API int kelutv_python_connect(char* text, unsigned int room);

/**
 * What became of the requests of this thread: 0 when there was none, their answer's bytes when there was one that was
 * answered with a result of 0, else -1. The caller puts 0 there before each call; it lives as long as the thread.
 */
KELUTV_API int32_t* kelutv_python_summary(void);

/**
 * Looks closer at the requests of this thread since 0 was put into the summary.
 * @param is_value The result word is what is read.
 * @param number Receives the status of the transaction, or the service's result; 0 where neither says it.
 * @param text Receives what was wrong, cut to `room` bytes with the zero.
 * @return 0: nothing; 1: one did not get through; 2: the service refused; 3: the answer is not as it should be.
 */
KELUTV_API int kelutv_python_failure(int is_value, int32_t* number, char* text, unsigned int room);

/** The texts of the list that this thread was given last, a zero behind each; `size` receives their bytes. */
KELUTV_API const char* kelutv_python_list(unsigned int* size);

/** The head of what waits in the queue, without what follows it. */
typedef struct kelutv_python_notice {
    /** How many had come with it since the queue began. */
    unsigned long long number;
    /** 0 an event, 1 a block of data. */
    unsigned int kind;
    unsigned int id;
    unsigned int length;
} kelutv_python_notice;

/**
 * Begins to queue what comes in, at most `most` of it at a time.
 * @return A descriptor that can be read while something waits, -1 where there is none left.
 */
KELUTV_API int kelutv_python_notices_begin(unsigned int most);

/** Has the client hand its events to the queue, in place of any other callback. */
KELUTV_API void kelutv_python_events_begin(void);

/**
 * Takes the oldest out of the queue.
 * @param head Receives what it is.
 * @param payload Receives its bytes when `room` is enough for them; with less nothing is taken.
 * @return 1 when something was taken, 0 when nothing waits, -1 when there is not enough room.
 */
KELUTV_API int kelutv_python_notice_take(kelutv_python_notice* head, void* payload, unsigned int room);

/** How many have come since the queue began, those that were lost included. */
KELUTV_API unsigned long long kelutv_python_notice_count(void);

/* end of what Python reads */
}
