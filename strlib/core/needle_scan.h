#ifndef STRLIB_CORE_NEEDLE_SCAN_H
#define STRLIB_CORE_NEEDLE_SCAN_H

// Finding places where a needle may stand, by the way that suits the machine: by as much of its start as a mask can
// tell at once, or by its first byte.

#include "machine/block.h"

#if defined(STRLIB_BLOCK_X86)
#include "core/prefix_scan.h"
#else
#include "core/first_byte_scan.h"
#endif

#endif
