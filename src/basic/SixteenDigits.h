// Sixteen digits at once, where the processor has vectors that can put bytes in order.
#pragma once

#if defined(__x86_64__)
#include <cstdint>
#include <immintrin.h>
#endif

namespace korvel {

#if defined(__x86_64__)

#define WITH_VECTORS __attribute__((target("sse4.2,popcnt")))

inline bool hasVectors() {
    return __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt");
}

// All bits of each byte that is a digit value 0 to 9.
WITH_VECTORS inline __m128i digitValues(__m128i values) {
    return _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
}

// The number that sixteen digit values form, the first in the lowest byte: neighbours are joined to pairs, to
// fours and to eights.
WITH_VECTORS inline std::uint64_t joinedSixteen(__m128i values) {
    const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi16(0x010A));
    const __m128i fours = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00010064));
    const __m128i packed = _mm_packus_epi32(fours, fours);
    const auto eights =
        static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_madd_epi16(packed, _mm_set1_epi32(0x00012710))));
    return (eights & 0xFFFFFFFF) * 100000000 + (eights >> 32);
}

#else

inline bool hasVectors() {
    return false;
}

#endif

} // namespace korvel
