#pragma once

#include <curl/curl.h>

#include <new>

#include <ktpnaips/platform/runtime_fault.h>
#include <ktpnaips/platform/text.h>

namespace ktpnaips::http {

/// Sets an option that every libcurl in question knows: a refusal is no transport failure.
template <class Value>
void setOption(CURL* easy, CURLoption option, Value value) {
  const CURLcode result = curl_easy_setopt(easy, option, value);
  if (result == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
  if (result != CURLE_OK)
    throw RuntimeFault(fault::internalError, text::fromUtf8(curl_easy_strerror(result)));
}

}  // namespace ktpnaips::http
