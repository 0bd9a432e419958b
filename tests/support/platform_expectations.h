#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "tests/support/wine.h"

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
  bool mayMissEarlyAnswers;  ///< that come before the body is sent
  bool passesOverEarlyHints;
  bool followsRedirects;
  bool limitsAnswers;             ///< one without end ends as an error
  bool mayTakeAResetForNoAnswer;  ///< it depends on the moment
  std::span<const std::uint32_t> codesWithoutText;

  [[nodiscard]] bool isReset(std::uint32_t code) const {
    return code == reset || (mayTakeAResetForNoAnswer && code == noAnswer);
  }
  [[nodiscard]] bool hasText(std::uint32_t code) const {
    return std::find(codesWithoutText.begin(), codesWithoutText.end(), code) ==
           codesWithoutText.end();
  }
};

/// Where platforms rightly differ, and where Wine differs from the Windows that it stands for.
struct PlatformExpectations {
  std::size_t longestText;   ///< in bytes; a document with a longer one is refused
  bool cutsLongerTexts;      ///< in place of that
  std::size_t mostLevels;    ///< of elements; a deeper document is refused
  bool knowsOtherEncodings;  ///< than UTF-8, and refuses one that it does not know
  bool refusesUndeclaredPrefixes;
  bool tellsWhereParsingStopped;
  HttpExpectations http;
};

inline constexpr std::size_t aGigabyte = std::size_t{1} << 30U;

inline constexpr PlatformExpectations onPosix{
    .longestText = aGigabyte,
    .cutsLongerTexts = false,
    .mostLevels = 1'000,
    .knowsOtherEncodings = true,
    .refusesUndeclaredPrefixes = true,
    .tellsWhereParsingStopped = true,
    .http =
        {
            .unknownIssuer = 12045,
            .noAnswer = 12030,
            .notHttp = 12152,
            .reset = 12031,
            .resetWhileSending = 12031,
            .sendTimeout = 12002,
            .answerTimeout = 12002,
            .timesOutConnecting = true,
            .takesShortBodiesForWhole = false,
            .keepsBlocksCutShort = true,
            .keepsConnections = false,
            .readsOnWhenGivenUp = false,
            .mayMissEarlyAnswers = false,
            .passesOverEarlyHints = true,
            .followsRedirects = false,
            .limitsAnswers = true,
            .mayTakeAResetForNoAnswer = false,
            .codesWithoutText = {},
        },
};

/// As documented; what a person on Windows may find otherwise belongs here.
inline constexpr PlatformExpectations onWindows{
    .longestText = aGigabyte,
    .cutsLongerTexts = false,
    .mostLevels = 255,
    .knowsOtherEncodings = true,
    .refusesUndeclaredPrefixes = true,
    .tellsWhereParsingStopped = true,
    .http =
        {
            .unknownIssuer = 12045,
            .noAnswer = 12030,
            .notHttp = 12152,
            .reset = 12031,
            .resetWhileSending = 12031,
            .sendTimeout = 12002,
            .answerTimeout = 12002,
            .timesOutConnecting = true,
            .takesShortBodiesForWhole = false,
            .keepsBlocksCutShort = false,
            .keepsConnections = true,
            .readsOnWhenGivenUp = false,
            .mayMissEarlyAnswers = false,
            .passesOverEarlyHints = false,
            .followsRedirects = true,
            .limitsAnswers = false,
            .mayTakeAResetForNoAnswer = false,
            .codesWithoutText = {},
        },
};

inline constexpr PlatformExpectations onWine{
    .longestText = 10'000'000,
    .cutsLongerTexts = false,
    .mostLevels = 257,
    .knowsOtherEncodings = true,
    .refusesUndeclaredPrefixes = false,
    .tellsWhereParsingStopped = false,
    .http =
        {
            .unknownIssuer = 12057,
            .noAnswer = 0,
            .notHttp = 0,
            .reset = 12030,
            .resetWhileSending = anyFailure,
            .sendTimeout = anyFailure,
            .answerTimeout = 12030,
            .timesOutConnecting = false,
            .takesShortBodiesForWhole = true,
            .keepsBlocksCutShort = false,
            .keepsConnections = true,
            .readsOnWhenGivenUp = true,
            .mayMissEarlyAnswers = true,
            .passesOverEarlyHints = false,
            .followsRedirects = true,
            .limitsAnswers = false,
            .mayTakeAResetForNoAnswer = true,
            .codesWithoutText = codesWithoutTextUnderWine,
        },
};

/// Which comes with a parser of its own.
inline constexpr PlatformExpectations onWine10 = [] {
  PlatformExpectations changed = onWine;
  changed.cutsLongerTexts = true;
  changed.knowsOtherEncodings = false;
  return changed;
}();

inline const PlatformExpectations& expectations() {
#ifdef _WIN32
  const int wine = wineVersion();
  if (wine == 0) return onWindows;
  return wine < 10 ? onWine : onWine10;
#else
  return onPosix;
#endif
}

}  // namespace ktpnaips::test
