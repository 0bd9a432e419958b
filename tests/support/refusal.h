#pragma once

#include <ktpnaips/platform/xml.h>

#include <gtest/gtest.h>

#include <string>

namespace ktpnaips::test {

/// Why the parser refuses the text; a failure of the test when it does not.
inline std::wstring refusalOf(const std::string& text) {
  xml::ParseFailure failure;
  EXPECT_FALSE(xml::Document::parse(text, &failure)) << text.substr(0, 200);
  return failure.reason;
}

}  // namespace ktpnaips::test
