#include <ktpnaips/core/error_text.h>
#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/masking.h>
#include <ktpnaips/core/response.h>
#include <ktpnaips/platform/text.h>

#include <utility>

namespace ktpnaips {

std::wstring ResponseBase::ErrorText() const {
  return hasTrace_ ? withTrace(errorText_, document_) : errorText_;
}

void ResponseBase::ErrorText(std::wstring_view value) {
  errorText_ = value;
  hasTrace_ = false;
}

void ResponseBase::ResponseDoc(const xml::Document& value) {
  responseDoc_ = value;
  const Outcome read = Utils::loadResponse(*this);
  outcome_ = read == Outcome::unreadable ? outcomeIfUnreadable_ : read;
  loaded();
}

std::wstring ResponseBase::reason() const {
  return text::fromUtf8(withMaskedPasswords(text::toUtf8(errorText_)));
}

std::string ResponseBase::sentDocument() const {
  return withMaskedPasswords(document_);
}

void ResponseBase::posted(Posted call) noexcept {
  if (call.effect == Effect::changes) outcomeIfUnreadable_ = Outcome::inDoubt;
  outcome_ = call.hasSent ? outcomeIfUnreadable_ : Outcome::notSent;
  document_ = std::move(call.document);
}

void ResponseBase::loaded() {
  if (!error_) extractData();
}

}  // namespace ktpnaips
