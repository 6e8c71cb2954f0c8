#ifndef KELUTV_ANDROID_LOG_H
#define KELUTV_ANDROID_LOG_H

/**
 * @file
 * The platform log, usable from C11 and C++17.
 *
 * Every message becomes one line on standard error, written by one system call:
 *
 *     E TVBaseService@Client  1234/1240 invoke failure
 *
 * that is the priority's letter, the tag ("-" when there is none), two spaces, process and thread identifier, and the
 * text. One line end at the end of the text is dropped; line ends inside text or tag appear as "\n".
 *
 * The environment variable KQLOG_LEVEL (one of v d i w e f s, default d), read at the first message, names the lowest
 * priority that is written. All functions may be called from any thread at any time, process exit included, and leave
 * errno alone. Messages of up to about 1,000 characters allocate nothing; longer ones are not cut.
 */

#include <stdarg.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/** Priorities, in ascending order of weight. */
typedef enum android_LogPriority {
    ANDROID_LOG_UNKNOWN = 0, /**< shown as '?' */
    ANDROID_LOG_DEFAULT = 1, /**< shown as '?' */
    ANDROID_LOG_VERBOSE = 2,
    ANDROID_LOG_DEBUG = 3,
    ANDROID_LOG_INFO = 4,
    ANDROID_LOG_WARN = 5,
    ANDROID_LOG_ERROR = 6,
    ANDROID_LOG_FATAL = 7,
    ANDROID_LOG_SILENT = 8, /**< as KQLOG_LEVEL: nothing below it is written */
} android_LogPriority;

/**
 * Logs a text as it stands.
 * @param prio one of `android_LogPriority`; other values are shown as '?'
 * @param tag names the part of the program that speaks; may be null
 * @param text the message; null counts as empty
 * @return 1 when the message was taken, -EPERM when KQLOG_LEVEL keeps it out, another negative errno value when
 *         standard error refused it
 */
int __android_log_write(int prio, const char* tag, const char* text);

/**
 * Logs a formatted text.
 * @param prio, tag as for `__android_log_write`
 * @param fmt a printf format and its arguments; a null format counts as empty
 * @return as `__android_log_write`
 */
int __android_log_print(int prio, const char* tag, const char* fmt, ...) __attribute__((__format__(printf, 3, 4)));

/** `__android_log_print` with the arguments in a `va_list`; `ap` is left as vsnprintf leaves it. */
int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap)
    __attribute__((__format__(printf, 3, 0)));

/**
 * Logs a failed assertion with priority fatal, whatever KQLOG_LEVEL says, and aborts the process.
 * @param cond text of the condition that failed; may be null
 * @param tag as for `__android_log_write`
 * @param fmt a printf format and its arguments for the message; when null, the message is "Assertion failed: " and
 *        `cond`, or "Unspecified assertion failed" without a `cond`
 */
void __android_log_assert(const char* cond, const char* tag, const char* fmt, ...)
    __attribute__((__noreturn__, __format__(printf, 3, 4)));

/**
 * Tells whether a message would be written.
 * @param prio the message's priority
 * @param tag not looked at: there are no levels per tag
 * @param default_prio the lowest priority written when KQLOG_LEVEL is not set
 * @return 1 when `prio` reaches the level, else 0
 */
int __android_log_is_loggable(int prio, const char* tag, int default_prio);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
