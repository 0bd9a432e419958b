#pragma once

#include <ktpnaips/core/appendable.h>

#include <string>

namespace ktpnaips {

/// The SOAP document of a request as `submit` would post it with the calling thread's settings:
/// UTF-8, the password included. Throws fault 5 when a value holds a character that XML does not
/// allow.
std::string requestDocument(const IAppendable& request);

}  // namespace ktpnaips
