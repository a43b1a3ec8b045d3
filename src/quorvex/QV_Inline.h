#pragma once

/// What works on packs is inlined into one wrapper for each instruction set; compiled by itself it would
/// be code for the narrowest of them.
#define QV_INLINE [[gnu::always_inline]] inline
