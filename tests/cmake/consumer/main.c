#include <kelutv/kelutv.h>

/* No service runs here, so the command must come back with the link's failure value. */
int main(void) { return linux_tv_Audio_getVolume(0) == -1 ? 0 : 1; }
