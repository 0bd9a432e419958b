#include <ktpnaips/core/pattern.h>

#include <boost/regex.hpp>

#include <memory>

namespace ktpnaips {

struct Pattern::Compiled {
  boost::wregex expression;
};

namespace {

const auto singleLine = boost::match_default | boost::match_single_line;

std::wstring_view viewOf(const boost::wcsub_match& part) {
  return part.matched ? std::wstring_view(part.first, static_cast<std::size_t>(part.length()))
                      : std::wstring_view();
}

}  // namespace

Pattern::~Pattern() {
  delete compiled_.load();
}

const Pattern::Compiled& Pattern::compiled() const {
  const Compiled* existing = compiled_.load(std::memory_order_acquire);
  if (existing != nullptr) return *existing;
  auto made = std::make_unique<const Compiled>(Compiled{boost::wregex(
      expression_.data(), expression_.data() + expression_.size(), boost::regex::perl)});
  // Of two threads that compile it at once, the first one's is kept.
  if (!compiled_.compare_exchange_strong(existing, made.get())) return *existing;
  return *made.release();
}

std::vector<std::wstring_view> Pattern::search(std::wstring_view text) const {
  boost::wcmatch match;
  std::vector<std::wstring_view> parts;
  if (boost::regex_search(text.data(), text.data() + text.size(), match, compiled().expression,
                          singleLine)) {
    for (const auto& part : match) parts.push_back(viewOf(part));
  }
  return parts;
}

}  // namespace ktpnaips
