#pragma once

#include <ktpnaips/core/response.h>
#include <ktpnaips/platform/text.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/failure_recorder.h"
#include "tests/support/settings.h"
#include "tests/support/soap.h"
#include "tests/system/simulator.h"

namespace simulator {

/// An exchange over HTTPS or, with true, over HTTP. An unexpected failure is not one of its ends
/// unless the test expects it.
class Exchange : public testing::TestWithParam<bool> {
 protected:
  void SetUp() override { use(GetParam()); }
  void TearDown() override { EXPECT_EQ(failures_.reports(), expected_); }

  void expectReport(std::wstring_view report) { expected_.emplace_back(report); }

 private:
  ktpnaips::test::FreshSettings settings_;
  ktpnaips::test::FailureRecorder failures_;
  ktpnaips::test::Reports expected_;
};

inline std::string schemeName(const testing::TestParamInfo<bool>& each) {
  return each.param ? "Http" : "Https";
}

/// The document of a request of the account, given its content as elements without their prefix.
/// `attributes` are those besides the account's, each with a space in front.
inline std::string requestOf(std::string_view element, std::string_view content,
                             std::string_view attributes = {}) {
  std::string text = "<" + std::string(element) + ktpnaips::test::nddDeclaration() +
                     " source=\"orvalix\" requestor=\"DEMO\" password=\"demo-pilot\"" +
                     std::string(attributes);
  text += content.empty() ? "/>" : ">" + std::string(content) + "</" + std::string(element) + ">";
  for (auto at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
    text.insert(text[at + 1] == '/' ? at + 2 : at + 1, "ndd:");
  }
  return ktpnaips::test::requestEnvelope(text);
}

using Response = std::shared_ptr<const ktpnaips::AbstractResponse>;

/// Whether the response is a success and nothing else.
inline testing::AssertionResult succeeded(const Response& response) {
  if (response == nullptr) return testing::AssertionFailure() << "no response";
  const std::string text = ktpnaips::text::toUtf8(response->ErrorText());
  if (response->Error() || !text.empty()) return testing::AssertionFailure() << text;
  if (!response->Payload() || !response->ResponseDoc()) {
    return testing::AssertionFailure() << "a success without a document";
  }
  return testing::AssertionSuccess();
}

/// Whether the service refused the last request for this reason, and the response says so whole.
inline testing::AssertionResult refused(const Response& response, std::wstring_view reason) {
  if (response == nullptr) return testing::AssertionFailure() << "no response";
  const std::wstring expected = L"NAIPS Error: FAILURE\r\nInfo: " + std::wstring(reason) +
                                L"\r\n\r\n\r\n+-+-+-+\r\nIn response to request:\r\n\r\n" +
                                ktpnaips::text::fromUtf8(lastRequest());
  if (response->Error() && response->ErrorText() == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << ktpnaips::text::toUtf8(response->ErrorText());
}

inline bool holds(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

/// The first bytes of a file, fewer when it is shorter.
inline std::string firstBytes(const std::wstring& file, std::size_t count) {
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  std::string bytes(count, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";

/// Whether the file holds a PNG image.
inline bool isPng(const std::wstring& file) {
  return firstBytes(file, pngSignature.size()) == pngSignature;
}

}  // namespace simulator
