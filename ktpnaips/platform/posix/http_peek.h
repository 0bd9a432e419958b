#pragma once

#include <ktpnaips/platform/posix/http_answer.h>

#include <chrono>
#include <cstddef>

namespace ktpnaips::http {

/// Copies the body that comes behind an answer's headers and leaves it on the socket. Waits for the
/// whole of it, or for as much as there is room for, but not longer than `patience` for the next
/// byte. Returns how many bytes it copied; none when the connection is gone, and the socket -1.
std::size_t peekAtBody(int socket, const AnswerHeaders& headers, char* to, std::size_t room,
                       std::chrono::milliseconds patience);

}  // namespace ktpnaips::http
