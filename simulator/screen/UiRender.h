#pragma once

#include "simulator/screen/UiView.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The size of a terminal in characters. */
struct UiSize {
    std::size_t rows;
    std::size_t columns;
};

/**
 * The screen as text, one string a row: at most `size.rows` rows of at most `size.columns` characters each.
 *
 * A character that is not printable ASCII is shown as `?`.
 * @param color whether the rows may have ANSI sequences for colours in them
 */
std::vector<std::string> render(const UiView& view, UiSize size, bool color);

} // namespace kelutv::simulator
