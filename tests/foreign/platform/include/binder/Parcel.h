#pragma once

#include <foreign/export.h>
#include <utils/Errors.h>
#include <utils/String16.h>

#include <cstddef>
#include <cstdint>

namespace android {

/** What a request or a reply is written to and read from. All of it is behind a pointer. */
class FOREIGN_API Parcel {
public:
    Parcel();
    ~Parcel();
    Parcel(const Parcel&) = delete;
    Parcel& operator=(const Parcel&) = delete;

    const std::uint8_t* data() const;
    std::size_t dataSize() const;
    std::size_t dataAvail() const;
    status_t setData(const std::uint8_t* bytes, std::size_t length);
    status_t appendFrom(const Parcel* other, std::size_t start, std::size_t length);

    /**
     * Strict-mode word, work-source word, "SYST" and the name of the interface; with FOREIGN_TOKEN=name in the
     * environment the name alone.
     */
    status_t writeInterfaceToken(const String16& interface);
    status_t write(const void* bytes, std::size_t length);
    status_t writeInt32(std::int32_t value);
    status_t writeDouble(double value);
    status_t writeCString(const char* text);
    status_t writeString16(const String16& text);

    status_t read(void* bytes, std::size_t length) const;
    std::int32_t readInt32() const;
    status_t readInt32(std::int32_t* value) const;
    double readDouble() const;
    const char* readCString() const;

private:
    struct Content;
    Content* const mContent;
};

} // namespace android
