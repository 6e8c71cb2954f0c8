#pragma once

#include "wire/Function.h"

#include <kelutv/hdmicec_types.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <list>
#include <string>
#include <type_traits>
#include <vector>

namespace kelutv::tool {

/** The arguments of one call in memory, as the library sees them, and its result. */
class CallFrame {
public:
    /** Bytes for one argument; texts and arrays that come out have room for more than any answer can bring. */
    struct Storage {
        std::vector<std::uint8_t> bytes;
        bool isNull = false;
        /** Entries of an array that goes in. */
        std::size_t count = 0;
    };

    explicit CallFrame(std::size_t parameters) : mArguments(parameters) {}

    Storage& storage(std::size_t index) { return mArguments[index]; }
    const Storage& storage(std::size_t index) const { return mArguments[index]; }
    const Storage& result() const { return mResult; }
    const std::vector<std::string>& resultTexts() const { return mResultTexts; }

    /** @name For the generated calls @{ */
    template <typename T> T value(std::size_t index) const {
        static_assert(std::is_trivially_copyable_v<T>);
        T argument;
        std::memcpy(&argument, mArguments[index].bytes.data(), sizeof argument);
        return argument;
    }
    template <typename T> T* pointer(std::size_t index) {
        return mArguments[index].isNull ? nullptr : static_cast<T*>(static_cast<void*>(mArguments[index].bytes.data()));
    }
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>* devices() { return &mDevices; }

    template <typename T> void store(const T& result) {
        static_assert(std::is_trivially_copyable_v<T>);
        mResult.bytes.resize(sizeof result);
        std::memcpy(mResult.bytes.data(), &result, sizeof result);
    }
    void store(const std::list<std::string>& texts) { mResultTexts.assign(texts.begin(), texts.end()); }
    /** @} */

    const std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>& foundDevices() const { return mDevices; }

private:
    std::vector<Storage> mArguments;
    Storage mResult;
    std::vector<std::string> mResultTexts;
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> mDevices;
};

} // namespace kelutv::tool
