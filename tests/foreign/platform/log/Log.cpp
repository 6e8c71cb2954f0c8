#include <android/log.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

int __android_log_print(int priority, const char* tag, const char* format, ...) {
    const char* const path = std::getenv("FOREIGN_LOG");
    std::FILE* const file = path == nullptr ? nullptr : std::fopen(path, "ae");
    if (file == nullptr) {
        return 0;
    }
    std::fprintf(file, "<%d> %s: ", priority, tag == nullptr ? "" : tag);
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(file, format, arguments);
    va_end(arguments);
    std::fputc('\n', file);
    return std::fclose(file);
}
