#pragma once

#include <cstddef>
#include <vector>

namespace android {

/** The growable sequence that service listings come in. */
template <typename T> class Vector {
public:
    std::size_t size() const { return mItems.size(); }
    bool isEmpty() const { return mItems.empty(); }
    const T& operator[](std::size_t index) const { return mItems[index]; }
    const T& itemAt(std::size_t index) const { return mItems[index]; }
    void push_back(const T& item) { mItems.push_back(item); }

    auto begin() const { return mItems.begin(); }
    auto end() const { return mItems.end(); }

private:
    std::vector<T> mItems;
};

} // namespace android
