#pragma once

#include <ktpnaips/core/appendable.h>
#include <ktpnaips/core/outcome.h>
#include <ktpnaips/core/response.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ktpnaips {

namespace Utils {

/// Wraps the request in a SOAP 1.1 envelope, posts it to the service and hands the answer to the
/// response; without a response a bare `AbstractResponse` takes it. An unexpected failure is
/// reported and ends the posting only.
void aaapost(std::int32_t service, std::wstring_view requestName, const IAppendable& request,
             std::shared_ptr<AbstractResponse> response, Effect effect = Effect::reads);

}  // namespace Utils

}  // namespace ktpnaips
