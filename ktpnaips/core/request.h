#pragma once

#include <ktpnaips/core/abstract_request.h>

#include <cstdint>
#include <memory>
#include <string_view>

namespace ktpnaips {

class ResponseBase;
struct Operation;

/// What all requests share: the header part, and how one is written and posted.
class RequestBase : public IAppendable {
 public:
  RequestBase(const RequestBase&) = delete;
  RequestBase& operator=(const RequestBase&) = delete;
  ~RequestBase() override = default;

  /// Account, scope and source of this request.
  [[nodiscard]] AbstractRequest& abstractReq() noexcept { return abstractReq_; }
  [[nodiscard]] const AbstractRequest& abstractReq() const noexcept { return abstractReq_; }

  /// Appends the request element with its attributes and content.
  void appendTo(const xml::Node& parent, std::wstring_view namespaceUri) const final;

 protected:
  explicit RequestBase(const Operation& operation);

  using MakeResponse = std::shared_ptr<ResponseBase> (*)();
  [[nodiscard]] std::shared_ptr<ResponseBase> post(MakeResponse makeResponse) const;

 private:
  /// Appends the operation's own content to its request element.
  virtual void appendContent(const xml::Node& request, std::wstring_view namespaceUri) const;

  const Operation& operation_;
  AbstractRequest abstractReq_;
};

/// A request that is answered by a `Response`.
template <class Response>
class Request : public RequestBase {
 public:
  /// Posts the request and waits for the answer. What went wrong stands in the response's `Error`
  /// and `ErrorText`; no object only after an unexpected failure, which has been reported. A
  /// request may be submitted any number of times.
  std::shared_ptr<Response> submit() const {
    return std::static_pointer_cast<Response>(
        post([]() -> std::shared_ptr<ResponseBase> { return std::make_shared<Response>(); }));
  }

 protected:
  using RequestBase::RequestBase;
};

}  // namespace ktpnaips
