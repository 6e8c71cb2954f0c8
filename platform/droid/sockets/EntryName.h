#pragma once

#include <utils/String16.h>

#include <string>

namespace android {

/** A service's name as a file name: letters, digits, '_', '-' and inner '.' as they are, all else as %XX of its UTF-8.
 */
std::string entryNameOf(const String16& service);

/** The other way round. */
String16 serviceNameOf(const std::string& entry);

} // namespace android
