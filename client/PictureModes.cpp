#include "PictureModes.h"

#include <kelutv/picture_types.h>

#include <cstddef>

namespace kelutv::internal {

namespace {

struct ModePair {
    int mode;
    int index;
};

constexpr ModePair kSdrModes[] = {
    {KELU_TV_PIC_MODE_STANDARD, KELU_MW_PICMODE_STANDARD},
    {KELU_TV_PIC_MODE_VIVID, KELU_MW_PICMODE_VIVID},
    {KELU_TV_PIC_MODE_GENTLE, KELU_MW_PICMODE_SOFTNESS},
    {KELU_TV_PIC_MODE_USER, KELU_MW_PICMODE_USER},
    {KELU_TV_PIC_MODE_GAME, KELU_MW_PICMODE_GAME},
    {KELU_TV_PIC_MODE_SPORT, KELU_MW_PICMODE_SPORTS},
    {KELU_TV_PIC_MODE_MOVIE, KELU_MW_PICMODE_CINEMA},
    {KELU_TV_PIC_MODE_DYNAMIC, KELU_MW_PICMODE_DYNAMIC},
    {KELU_TV_PIC_MODE_PHOTO, KELU_MW_PICMODE_PHOTO_STANDARD_VIDEO},
    {KELU_TV_PIC_MODE_ECO, KELU_MW_PICMODE_ECO},
};

// HDR10, HLG and HDR10+ number their modes alike.
constexpr ModePair kHdrModes[] = {
    {KELU_TV_PIC_MODE_STANDARD, KELU_MW_PICMODE_HDR_STANDARD},
    {KELU_TV_PIC_MODE_VIVID, KELU_MW_PICMODE_HDR_VIVID},
    {KELU_TV_PIC_MODE_GAME, KELU_MW_PICMODE_HDR_GAME},
    {KELU_TV_PIC_MODE_MOVIE, KELU_MW_PICMODE_HDR_CINEMA},
};

constexpr ModePair kDolbyModes[] = {
    {KELU_TV_PIC_MODE_STANDARD, KELU_TV_PIC_MODE_DOLBY_STANDARD},
    {KELU_TV_PIC_MODE_VIVID, KELU_TV_PIC_MODE_DOLBY_VIVID},
    {KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK, KELU_TV_PIC_MODE_DOLBY_DARK},
    {KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_BRIGHT, KELU_TV_PIC_MODE_DOLBY_BRIGHT},
};

template <std::size_t count>
int lookUp(const ModePair (&pairs)[count], int ModePair::*from, int value, int ModePair::*to) {
    for (const ModePair& pair : pairs) {
        if (pair.*from == value) {
            return pair.*to;
        }
    }
    return 0;
}

int convert(int streamType, int ModePair::*from, int value, int ModePair::*to) {
    switch (streamType) {
    case KELU_TV_HDR_TYPE_HDR10:
    case KELU_TV_HDR_TYPE_HDR10_PLUS:
    case KELU_TV_HDR_TYPE_HLG:
        return lookUp(kHdrModes, from, value, to);
    case KELU_TV_HDR_TYPE_DOLBY_HDR:
        return lookUp(kDolbyModes, from, value, to);
    default:
        return lookUp(kSdrModes, from, value, to);
    }
}

} // namespace

int toServiceMode(int mode, int streamType) { return convert(streamType, &ModePair::mode, mode, &ModePair::index); }

int toPictureMode(int index, int streamType) { return convert(streamType, &ModePair::index, index, &ModePair::mode); }

} // namespace kelutv::internal
