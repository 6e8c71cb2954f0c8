#include "layout.h"

extern int kelutv_layout_is_checked;
