#pragma once

/** Marks what the platform's libraries give away; the rest of them is hidden. */
#define FOREIGN_API __attribute__((visibility("default")))
