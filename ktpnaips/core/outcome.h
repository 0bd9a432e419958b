#pragma once

#include <string_view>

namespace ktpnaips {

/// What became of a request, and with it what a program can do next.
enum class Outcome {
  none,        ///< no answer is set: nothing was sent, or nothing loaded
  success,     ///< the service did what it was asked
  refused,     ///< the service refused, and says why
  fault,       ///< the service answered with a SOAP fault
  notSent,     ///< nothing of the request reached the service
  inDoubt,     ///< a request that changes something was sent at least in part, and has no readable
               ///< answer: look at the service whether it was done before sending it again
  unreadable,  ///< no readable answer to any other request that was sent
};

/// Its name in every language but C++, as in "in-doubt". Where no answer is set nothing was sent.
constexpr std::wstring_view nameOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::success:
      return L"success";
    case Outcome::refused:
      return L"refused";
    case Outcome::fault:
      return L"fault";
    case Outcome::inDoubt:
      return L"in-doubt";
    case Outcome::unreadable:
      return L"unreadable";
    case Outcome::none:
    case Outcome::notSent:
      break;
  }
  return L"not-sent";
}

/// Whether a request leaves what the service holds as it was, or changes it.
enum class Effect { reads, changes };

}  // namespace ktpnaips
