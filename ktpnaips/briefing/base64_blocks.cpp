#include <ktpnaips/briefing/base64_blocks.h>
#include <ktpnaips/platform/processor.h>

#if defined(__x86_64__) || defined(__i386__)

#include <immintrin.h>

// Vectors of 16 bytes: wider ones are not safe on the stack of 64-bit Windows with every compiler.
namespace ktpnaips::Enc64 {
namespace {

/// Turns 16 digits into their values; false when one of them is none. A character is known by the
/// halves of its code: each half has the bits of the characters that cannot have it, and a digit's
/// halves have none in common.
[[gnu::target("sse4.1")]] bool toValues(__m128i& digits) {
  const __m128i refusedByLow = _mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                             0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A);
  const __m128i refusedByHigh = _mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10,
                                              0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10);
  // By the high half: 0 to 9, A to Z and a to z. "/" is the one that shares its half, with "+".
  const __m128i distances = _mm_setr_epi8(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A', 26 - 'a',
                                          26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0);
  const __m128i half = _mm_set1_epi8(0x0F);
  const __m128i high = _mm_and_si128(_mm_srli_epi32(digits, 4), half);
  const __m128i low = _mm_and_si128(digits, half);
  const __m128i refused =
      _mm_and_si128(_mm_shuffle_epi8(refusedByLow, low), _mm_shuffle_epi8(refusedByHigh, high));
  if (_mm_testz_si128(refused, refused) == 0) return false;
  const __m128i slashes = _mm_cmpeq_epi8(digits, _mm_set1_epi8('/'));  // -1 for each
  digits = _mm_add_epi8(digits, _mm_shuffle_epi8(distances, _mm_add_epi8(slashes, high)));
  return true;
}

/// Packs 16 values of 6 bits into 12 bytes and 4 zeros.
[[gnu::target("sse4.1")]] __m128i packed(__m128i values) {
  const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi32(0x01400140));
  const __m128i groups = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00011000));
  return _mm_shuffle_epi8(groups,
                          _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
}

[[gnu::target("sse4.1")]] const char* decode(const char* at, const char* end, char*& to) {
  constexpr int digits = 16;
  for (; end - at >= digits + 8; at += digits) {  // there is room for the zeros
    __m128i block = _mm_loadu_si128(static_cast<const __m128i_u*>(static_cast<const void*>(at)));
    if (!toValues(block)) break;
    _mm_storeu_si128(static_cast<__m128i_u*>(static_cast<void*>(to)), packed(block));
    to += digits / 4 * 3;
  }
  return at;
}

}  // namespace

const char* decodeBlocks(const char* at, const char* end, char*& to) {
  static const bool able = processor::hasSse41();
  return able ? decode(at, end, to) : at;
}

}  // namespace ktpnaips::Enc64

#else

const char* ktpnaips::Enc64::decodeBlocks(const char* at, const char*, char*&) {
  return at;
}

#endif
