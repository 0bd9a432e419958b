#include <ktpnaips/core/loading.h>
#include <ktpnaips/core/response.h>

namespace ktpnaips {

void ResponseBase::ResponseDoc(const xml::Document& value) {
  responseDoc_ = value;
  Utils::loadResponse(*this);
  loaded();
}

void ResponseBase::loaded() {
  if (!error_) extractData();
}

}  // namespace ktpnaips
