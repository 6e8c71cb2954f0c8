#ifndef FOREIGN_ANDROID_LOG_H
#define FOREIGN_ANDROID_LOG_H

#ifdef __cplusplus
extern "C" {
#endif

typedef enum android_LogPriority {
    ANDROID_LOG_UNKNOWN = 0,
    ANDROID_LOG_DEFAULT,
    ANDROID_LOG_VERBOSE,
    ANDROID_LOG_DEBUG,
    ANDROID_LOG_INFO,
    ANDROID_LOG_WARN,
    ANDROID_LOG_ERROR,
    ANDROID_LOG_FATAL,
    ANDROID_LOG_SILENT
} android_LogPriority;

/** Adds a line to the file that FOREIGN_LOG names, as a log that a person looks into later; without it to none. */
__attribute__((visibility("default"), format(printf, 3, 4))) int __android_log_print(int priority, const char* tag,
                                                                                     const char* format, ...);

#ifdef __cplusplus
}
#endif

#endif
