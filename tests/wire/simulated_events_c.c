/* The header of the simulated television's events, twice over and in C. */
#include <kelutv-simulator/events.h>

#include <assert.h>
#include <stddef.h>

static_assert(KELU_SIM_EVENT_VOLUME_CHANGED == 0x60001, "the identifier of volumeChanged");
static_assert(KELU_SIM_EVENT_POWER_STATE_CHANGED == 0x80002, "the identifier of powerStateChanged");
static_assert(KELU_SIM_EVENT_VBI_BLOCK == 0x120001, "the first identifier of vbiBlock");
static_assert(KELU_SIM_EVENT_VBI_BLOCK_LAST == 0x12FFFF, "the last identifier of vbiBlock");
static_assert(KELU_SIM_POWER_STATE_REBOOTING == 5, "a power state");
static_assert(sizeof(KELU_SIM_EVENT_VOLUME_CHANGED_S) == 8, "two words");
static_assert(offsetof(KELU_SIM_EVENT_VOLUME_CHANGED_S, volume) == 4, "the volume is the second word");
static_assert(sizeof(KELU_SIM_EVENT_TIMING_CHANGED_S) == 36, "nine words");
static_assert(sizeof(KELU_SIM_EVENT_VBI_BLOCK_S) == 4, "the length, with the data behind it");
