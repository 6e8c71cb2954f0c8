/**
 * @file
 * The class `PCSetting`; its C functions are in linux_kelutv_pcsetting.h.
 */
#pragma once

#include <kelutv/export.h>

/**
 * The geometry and the sampling of the picture from an analogue computer (VGA) input.
 *
 * Every operation is one command to the TV base service, which owns all values; the object keeps none. An operation
 * blocks until the service has answered, may be called from any thread, and writes nothing to the log, save that a set
 * command whose link fails is logged as "invoke failure\n".
 */
class KELUTV_API PCSetting {
public:
    /**
     * The one object, made on the first call from any thread and kept until the process ends.
     * @return The object; never null.
     */
    static PCSetting* instance();

    PCSetting(const PCSetting&) = delete;
    PCSetting& operator=(const PCSetting&) = delete;

    /**
     * Adjusts position, clock and phase to the signal.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int autoAdjust();

    /**
     * Sets the horizontal position of the picture.
     * @param position Position; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setHPosition(int position);

    /**
     * Reads the horizontal position of the picture.
     * @return The position; -1 when the service or the link fails.
     */
    int getHPosition();

    /**
     * Sets the vertical position of the picture.
     * @param position Position; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setVPosition(int position);

    /**
     * Reads the vertical position of the picture.
     * @return The position; -1 when the service or the link fails.
     */
    int getVPosition();

    /**
     * Sets the sampling clock.
     * @param clock Clock; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setClock(int clock);

    /**
     * Reads the sampling clock.
     * @return The clock; -1 when the service or the link fails.
     */
    int getClock();

    /**
     * Sets the sampling phase.
     * @param phase Phase; the service enforces the range.
     * @return The service's result, 0 for success; -1 when the link fails.
     */
    int setPhase(int phase);

    /**
     * Reads the sampling phase.
     * @return The phase; -1 when the service or the link fails.
     */
    int getPhase();

private:
    PCSetting() = default;
};
