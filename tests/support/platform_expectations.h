#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#ifdef _WIN32
#include <windows.h>
#endif

namespace ktpnaips::test {

inline constexpr std::uint32_t codesWithoutTextUnderWine[] = {12031, 12045, 12057,
                                                              12152, 12157, 12175};

/// Any code but 0: which one depends on the moment.
inline constexpr std::uint32_t anyFailure = 0xFFFFFFFF;

inline bool matches(std::uint32_t code, std::uint32_t expected) {
  return expected == anyFailure ? code != 0 : code == expected;
}

struct HttpExpectations {
  std::uint32_t unknownIssuer;
  std::uint32_t noAnswer;  ///< the connection is closed in place of an answer
  std::uint32_t notHttp;   ///< what comes is no answer, or breaks off in its headers
  std::uint32_t reset;
  std::uint32_t resetWhileSending;
  std::uint32_t sendTimeout;
  std::uint32_t answerTimeout;
  bool timesOutConnecting;
  bool takesShortBodiesForWhole;
  bool keepsBlocksCutShort;  ///< what of a block came before the connection failed is handed over
  bool keepsConnections;     ///< a second call goes over the first one's connection
  bool readsOnWhenGivenUp;   ///< to use the connection again
  bool readsEarlyAnswers;    ///< that come before the body is sent
  bool passesOverEarlyHints;
  bool followsRedirects;
  std::span<const std::uint32_t> codesWithoutText;

  [[nodiscard]] bool hasText(std::uint32_t code) const {
    return std::find(codesWithoutText.begin(), codesWithoutText.end(), code) ==
           codesWithoutText.end();
  }
};

/// Where platforms rightly differ, and where Wine differs from the Windows that it stands for.
struct PlatformExpectations {
  std::size_t longestText;  ///< in bytes; a document with a longer one is refused
  std::size_t mostLevels;   ///< of elements; a deeper document is refused
  bool refusesUndeclaredPrefixes;
  bool tellsWhereParsingStopped;
  HttpExpectations http;
};

inline constexpr std::size_t aGigabyte = std::size_t{1} << 30U;

inline constexpr PlatformExpectations onPosix{aGigabyte,
                                              1'000'000,
                                              true,
                                              true,
                                              {12045,
                                               12030,
                                               12152,
                                               12031,
                                               12031,
                                               12002,
                                               12002,
                                               true,
                                               false,
                                               true,
                                               false,
                                               false,
                                               true,
                                               true,
                                               false,
                                               {}}};

/// As documented; what a person on Windows may find otherwise belongs here.
inline constexpr PlatformExpectations onWindows{aGigabyte,
                                                255,
                                                true,
                                                true,
                                                {12045,
                                                 12030,
                                                 12152,
                                                 12031,
                                                 12031,
                                                 12002,
                                                 12002,
                                                 true,
                                                 false,
                                                 false,
                                                 true,
                                                 false,
                                                 true,
                                                 false,
                                                 true,
                                                 {}}};

inline constexpr PlatformExpectations onWine{
    10'000'000,
    1'999,
    false,
    false,
    {12057, 0, 0, 12030, anyFailure, anyFailure, 12030, false, true, false, true, true, false,
     false, true, codesWithoutTextUnderWine}};

inline const PlatformExpectations& expectations() {
#ifdef _WIN32
  const HMODULE system = GetModuleHandleA("ntdll.dll");
  const bool isWine = system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
  return isWine ? onWine : onWindows;
#else
  return onPosix;
#endif
}

}  // namespace ktpnaips::test
