#include <ktpnaips/core/pattern.h>

#include <boost/regex.hpp>

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

Pattern::Pattern(std::wstring_view expression)
    : compiled_(std::make_unique<Compiled>(boost::wregex(
          expression.data(), expression.data() + expression.size(), boost::regex::perl))) {}

Pattern::~Pattern() = default;

std::vector<std::wstring_view> Pattern::search(std::wstring_view text) const {
  boost::wcmatch match;
  std::vector<std::wstring_view> parts;
  if (boost::regex_search(text.data(), text.data() + text.size(), match, compiled_->expression,
                          singleLine)) {
    for (const auto& part : match) parts.push_back(viewOf(part));
  }
  return parts;
}

std::wstring Pattern::joinedMatches(std::wstring_view text) const {
  std::wstring joined;
  boost::wcregex_iterator match(text.data(), text.data() + text.size(), compiled_->expression,
                                singleLine);
  for (; match != boost::wcregex_iterator(); ++match) {
    if (!joined.empty()) joined += L' ';
    joined += viewOf((*match)[0]);
  }
  return joined;
}

}  // namespace ktpnaips
