#pragma once

#include <ktpnaips/core/outcome.h>
#include <ktpnaips/platform/xml.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ktpnaips {

/// The interface of every response. An object of this class itself keeps nothing.
class AbstractResponse {
 public:
  AbstractResponse() = default;
  AbstractResponse(const AbstractResponse&) = delete;
  AbstractResponse& operator=(const AbstractResponse&) = delete;
  virtual ~AbstractResponse() = default;

  /// The answer element: the first child of the SOAP body. No object until an answer has one.
  virtual xml::Node Payload() const { return {}; }
  virtual void Payload(const xml::Node&) {}

  /// True while the response holds no usable success.
  virtual bool Error() const { return false; }
  virtual void Error(bool) {}

  /// Why, for a person: lines separated by CR LF. After a submit that failed it ends with the
  /// request as it was sent, password included.
  virtual std::wstring ErrorText() const { return {}; }
  virtual void ErrorText(std::wstring_view) {}

  /// The parsed answer. Setting it reads the verdict and, on success, the response's own data:
  /// `xml::Document::parse` of a kept answer loads it without a service.
  virtual xml::Document ResponseDoc() const { return {}; }
  virtual void ResponseDoc(const xml::Document&) {}
};

/// A call as the poster knows it before it looks into the answer.
struct Posted {
  std::string document;           ///< the request's, with its password
  Effect effect = Effect::reads;  ///< what the request does at the service
  bool hasSent = false;           ///< whether a part of it may have reached the service
};

/// A response that holds the four common values and what a program can act on; base of all response
/// classes.
class ResponseBase : public AbstractResponse {
 public:
  xml::Node Payload() const final { return payload_; }
  void Payload(const xml::Node& value) final { payload_ = value; }

  bool Error() const final { return error_; }
  void Error(bool value) final { error_ = value; }

  std::wstring ErrorText() const final;
  void ErrorText(std::wstring_view value) final;

  xml::Document ResponseDoc() const final { return responseDoc_; }
  void ResponseDoc(const xml::Document& value) final;

  /// What became of the request, or what the document that was set says of it.
  [[nodiscard]] Outcome outcome() const { return outcome_; }

  /// The number of the network's error, when a step of the exchange failed: those of the Windows
  /// Internet API on every platform.
  [[nodiscard]] std::optional<std::uint32_t> errorCode() const { return errorCode_; }

  /// `ErrorText` without the request behind it, for logs: passwords that an answer may repeat are
  /// masked.
  [[nodiscard]] std::wstring reason() const;

  /// The request as it was sent, or would have been (UTF-8), its passwords masked. Empty when it
  /// could not be written, and for an answer that was loaded.
  [[nodiscard]] std::string sentDocument() const;

  /// For the poster: takes the call down. Until the answer is read the outcome is that of a request
  /// without one.
  void posted(Posted call) noexcept;
  /// For the poster: the network's error, if that is why there is no answer.
  void failed(std::optional<std::uint32_t> errorCode) noexcept { errorCode_ = errorCode; }
  /// For the poster: puts the request behind `ErrorText`.
  void addTrace() noexcept { hasTrace_ = true; }

 protected:
  /// Called once the verdict on a new document is known.
  virtual void loaded();

 private:
  /// Reads the response's own data from the payload of a success.
  virtual void extractData() {}

  xml::Node payload_;
  bool error_ = true;
  std::wstring errorText_ = L"No response set";
  xml::Document responseDoc_;
  Outcome outcome_ = Outcome::none;
  Outcome outcomeIfUnreadable_ = Outcome::unreadable;
  std::optional<std::uint32_t> errorCode_;
  std::string document_;
  bool hasTrace_ = false;  ///< whether the document belongs to `ErrorText`
};

}  // namespace ktpnaips
