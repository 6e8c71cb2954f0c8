#include "vocabulary_values.h"
