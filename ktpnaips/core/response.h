#pragma once

#include <ktpnaips/platform/xml.h>

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

  /// Why, for a person: lines separated by CR LF. After a submit it ends with the request as it
  /// was sent, password included.
  virtual std::wstring ErrorText() const { return {}; }
  virtual void ErrorText(std::wstring_view) {}

  /// The parsed answer. Setting it reads the verdict and, on success, the response's own data:
  /// `xml::Document::parse` of a kept answer loads it without a service.
  virtual xml::Document ResponseDoc() const { return {}; }
  virtual void ResponseDoc(const xml::Document&) {}
};

/// A response that holds the four common values; base of all response classes.
class ResponseBase : public AbstractResponse {
 public:
  xml::Node Payload() const final { return payload_; }
  void Payload(const xml::Node& value) final { payload_ = value; }

  bool Error() const final { return error_; }
  void Error(bool value) final { error_ = value; }

  std::wstring ErrorText() const final { return errorText_; }
  void ErrorText(std::wstring_view value) final { errorText_ = value; }

  xml::Document ResponseDoc() const final { return responseDoc_; }
  void ResponseDoc(const xml::Document& value) final;

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
};

}  // namespace ktpnaips
