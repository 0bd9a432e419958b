#include "cli/chart_files.h"

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <string_view>

namespace cli {
namespace {

bool isLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The text as part of a file name: what may mean something else there becomes "_".
std::string namePart(std::wstring_view text) {
  constexpr std::size_t longest = 80;
  std::string part = ktpnaips::text::toUtf8(text.substr(0, longest));
  std::ranges::replace_if(
      part, [](char c) { return !isLetterOrDigit(c) && c != '-'; }, '_');
  return part;
}

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

}  // namespace

std::string chartFileName(const ktpnaips::ChartDescriptor* chart,
                          const ktpnaips::Product& product) {
  std::string name = chart != nullptr ? namePart(chart->Key()) : "";
  if (name.empty()) name = "chart";
  if (!product.Resolution().empty()) name += "-" + namePart(product.Resolution());
  if (!product.ProductType().empty()) name += "." + lowerCase(namePart(product.ProductType()));
  return name;
}

}  // namespace cli
