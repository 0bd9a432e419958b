#pragma once

#include <string_view>

#include <ktpnaips/platform/http.h>

/// The Windows Internet API's codes that the steps answer with.
namespace ktpnaips::http::error {

inline constexpr ErrorCode invalidParameter = 87;
inline constexpr ErrorCode timeout = 12002;
inline constexpr ErrorCode internalError = 12004;
inline constexpr ErrorCode invalidUrl = 12005;
inline constexpr ErrorCode nameNotResolved = 12007;
inline constexpr ErrorCode incorrectHandleType = 12018;
inline constexpr ErrorCode cannotConnect = 12029;
inline constexpr ErrorCode connectionAborted = 12030;
inline constexpr ErrorCode connectionReset = 12031;
inline constexpr ErrorCode certDateInvalid = 12037;
inline constexpr ErrorCode certNameInvalid = 12038;
inline constexpr ErrorCode invalidCa = 12045;
inline constexpr ErrorCode invalidServerResponse = 12152;
inline constexpr ErrorCode secureChannelError = 12157;
inline constexpr ErrorCode secureFailure = 12175;

/// Keeps what is known about the calling thread's failure, for `errorMessage`, and returns `code`.
ErrorCode fail(ErrorCode code, std::string_view detail);
/// Forgets it again: a new step begins.
void forgetFailure();

}  // namespace ktpnaips::http::error
