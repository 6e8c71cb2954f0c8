#pragma once

/** The picture modes of applications, and the indexes the service gives them for each stream type. */
namespace kelutv::internal {

/** The service's index of the application's mode; 0 for a mode that the stream type does not have. */
int toServiceMode(int mode, int streamType);

/** The application's mode for the service's index; `KELU_TV_PIC_MODE_STANDARD` for an index without a mode. */
int toPictureMode(int index, int streamType);

} // namespace kelutv::internal
