#include "wire/text/Letters.h"

#include <algorithm>

namespace kelutv::wire {

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

} // namespace kelutv::wire
