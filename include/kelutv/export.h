/**
 * @file
 * Marks of the public interface.
 */
#ifndef KELUTV_EXPORT_H
#define KELUTV_EXPORT_H

/** Exports a symbol from a library that hides its symbols by default. */
#define KELUTV_API __attribute__((visibility("default")))

/**
 * Fixes the width of a public enumeration to `int` where the language can say so.
 *
 * The service may answer with a value that has no name, -1 for a failure among them; with the width fixed such a value
 * is a valid value of the enumeration in C++. C leaves the type to the compiler, and gcc makes that of an enumeration
 * without negative values unsigned: there `x == -1` finds a failure (and -Wextra asks for `(int)x == -1`), `x < 0`
 * never does.
 */
#ifdef __cplusplus
#define KELUTV_INT_ENUM : int
#else
#define KELUTV_INT_ENUM
#endif

#endif
