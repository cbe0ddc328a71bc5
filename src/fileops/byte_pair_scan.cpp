#include "fileops/byte_pair_scan.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace FileSystem {
namespace {

std::size_t ScanByByte(const BytePair& pair, const unsigned char* text, std::size_t from, std::size_t end) {
  while (from < end && !pair.FitsAt(text + from)) ++from;
  return from;
}

#if defined(__x86_64__)

// Sixteen positions at a time; every processor of this kind can do it.
std::size_t ScanBySixteen(const BytePair& pair, const unsigned char* text, std::size_t from,
                          std::size_t end) {
  const __m128i firstValue = _mm_set1_epi8(static_cast<char>(pair.first.value));
  const __m128i firstMask = _mm_set1_epi8(static_cast<char>(pair.first.mask));
  const __m128i secondValue = _mm_set1_epi8(static_cast<char>(pair.second.value));
  const __m128i secondMask = _mm_set1_epi8(static_cast<char>(pair.second.mask));
  for (; from + 16 <= end; from += 16) {
    const unsigned char* const place = text + from;
    const auto* const one = reinterpret_cast<const __m128i*>(place + pair.first.offset);
    const auto* const two = reinterpret_cast<const __m128i*>(place + pair.second.offset);
    const __m128i fits =
        _mm_and_si128(_mm_cmpeq_epi8(_mm_or_si128(_mm_loadu_si128(one), firstMask), firstValue),
                      _mm_cmpeq_epi8(_mm_or_si128(_mm_loadu_si128(two), secondMask), secondValue));
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(fits));
    if (bits != 0) return from + static_cast<std::size_t>(__builtin_ctz(bits));
  }
  return ScanByByte(pair, text, from, end);
}

struct WidePair {
  __m256i firstValue, firstMask, secondValue, secondMask;
};

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i FitsWide(const BytePair& pair,
                                                                    const WidePair& wide,
                                                                    const unsigned char* place) {
  const auto* const one = reinterpret_cast<const __m256i*>(place + pair.first.offset);
  const auto* const two = reinterpret_cast<const __m256i*>(place + pair.second.offset);
  return _mm256_and_si256(
      _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(one), wide.firstMask), wide.firstValue),
      _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(two), wide.secondMask), wide.secondValue));
}

[[gnu::target("avx2"), gnu::always_inline]] inline unsigned BitsOf(__m256i fits) {
  return static_cast<unsigned>(_mm256_movemask_epi8(fits));
}

// Four times thirty-two positions before the first look at the result.
[[gnu::target("avx2")]] std::size_t ScanByThirtyTwo(const BytePair& pair, const unsigned char* text,
                                                    std::size_t from, std::size_t end) {
  const WidePair wide = {_mm256_set1_epi8(static_cast<char>(pair.first.value)),
                         _mm256_set1_epi8(static_cast<char>(pair.first.mask)),
                         _mm256_set1_epi8(static_cast<char>(pair.second.value)),
                         _mm256_set1_epi8(static_cast<char>(pair.second.mask))};
  for (; from + 128 <= end; from += 128) {
    const __m256i a = FitsWide(pair, wide, text + from);
    const __m256i b = FitsWide(pair, wide, text + from + 32);
    const __m256i c = FitsWide(pair, wide, text + from + 64);
    const __m256i d = FitsWide(pair, wide, text + from + 96);
    if (BitsOf(_mm256_or_si256(_mm256_or_si256(a, b), _mm256_or_si256(c, d))) != 0) break;
  }
  for (; from + 32 <= end; from += 32) {
    const unsigned bits = BitsOf(FitsWide(pair, wide, text + from));
    if (bits != 0) return from + static_cast<std::size_t>(__builtin_ctz(bits));
  }
  return ScanByByte(pair, text, from, end);
}

// Four times sixty-four. The second comparison is made only of what the first one left. Where no mask has a
// bit, setting none saves a fourth of the time.
template <bool kMasked>
[[gnu::target("avx512bw")]] std::size_t ScanBySixtyFour(const BytePair& pair, const unsigned char* text,
                                                        std::size_t from, std::size_t end) {
  const __m512i firstValue = _mm512_set1_epi8(static_cast<char>(pair.first.value));
  const __m512i firstMask = _mm512_set1_epi8(static_cast<char>(pair.first.mask));
  const __m512i secondValue = _mm512_set1_epi8(static_cast<char>(pair.second.value));
  const __m512i secondMask = _mm512_set1_epi8(static_cast<char>(pair.second.mask));
  const unsigned char* const ones = text + pair.first.offset;
  const unsigned char* const twos = text + pair.second.offset;
  const auto fits = [&](std::size_t place) __attribute__((target("avx512bw"), always_inline)) {
    __m512i one = _mm512_loadu_si512(ones + place);
    __m512i two = _mm512_loadu_si512(twos + place);
    if constexpr (kMasked) {
      one = _mm512_or_si512(one, firstMask);
      two = _mm512_or_si512(two, secondMask);
    }
    return _mm512_mask_cmpeq_epi8_mask(_mm512_cmpeq_epi8_mask(one, firstValue), two, secondValue);
  };
  for (; from + 256 <= end; from += 256) {
    // The masks are put together where they are: moving each to another register costs as much as comparing.
    const __mmask64 front = _kor_mask64(fits(from), fits(from + 64));
    const __mmask64 back = _kor_mask64(fits(from + 128), fits(from + 192));
    if (_kortestz_mask64_u8(front, back) == 0) break;
  }
  for (; from + 64 <= end; from += 64) {
    const std::uint64_t bits = fits(from);
    if (bits != 0) return from + static_cast<std::size_t>(__builtin_ctzll(bits));
  }
  return ScanByByte(pair, text, from, end);
}

[[gnu::target("avx512bw")]] std::size_t ScanBySixtyFour(const BytePair& pair, const unsigned char* text,
                                                        std::size_t from, std::size_t end) {
  const bool masked = (pair.first.mask | pair.second.mask) != 0;
  return masked ? ScanBySixtyFour<true>(pair, text, from, end)
                : ScanBySixtyFour<false>(pair, text, from, end);
}

#endif

}  // namespace

std::size_t ScanForPair(const BytePair& pair, const unsigned char* text, std::size_t from, std::size_t end) {
  static const PairScan fastest = PairScans().front();
  return fastest(pair, text, from, end);
}

std::vector<PairScan> PairScans() {
  std::vector<PairScan> scans;
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx512bw")) scans.push_back(ScanBySixtyFour);
  if (__builtin_cpu_supports("avx2")) scans.push_back(ScanByThirtyTwo);
  scans.push_back(ScanBySixteen);
#endif
  scans.push_back(ScanByByte);
  return scans;
}

}  // namespace FileSystem
