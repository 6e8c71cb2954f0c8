#pragma once

namespace kelutv::test {

/** How much of the torture is run. */
enum class Size {
    /** A few seconds, with the other tests. */
    Sample,
    /** What `./check --all` runs. */
    Check,
    /** Everything, which takes long. */
    Long,
};

/** What `KELUTV_TORTURE` says, `check` or `long`; the sample when it is not set. Throws on any other word. */
Size sizeOfTorture();

/** The one of the three that the size asks for. */
template <typename T> T ofSize(T sample, T check, T whole) {
    const Size size = sizeOfTorture();
    return size == Size::Sample ? sample : size == Size::Check ? check : whole;
}

} // namespace kelutv::test
