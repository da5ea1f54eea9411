// Marlux 3. What the whole module takes for granted of its compiler and platform.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef _WIN32  // elsewhere the parts that ask no Windows are compiled for sanitizers and fuzzers, with any pointer size
static_assert(sizeof(void*) == 4,
              "Marlux 3 is a 32-bit module: its records and its host interface hold pointers in 32 bits");
#endif

// Lets the compiler check a printf-style format against its arguments. Positions count from 1; a member function's
// hidden object argument is position 1.
#ifdef _WIN32
#define MARLUX_PRINTF(formatPosition, firstArgument) __attribute__((format(ms_printf, formatPosition, firstArgument)))
#else
#define MARLUX_PRINTF(formatPosition, firstArgument) __attribute__((format(printf, formatPosition, firstArgument)))
#endif
