#include "cli/pack/coded_way.h"

#include "cli/text_output.h"

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>
#include <string_view>

namespace cli::pack {

using ktpnaips::text::fromUtf8;

namespace {

/// Whether a word of a route text is a point, not an airway, a level or a mark.
bool isPoint(const std::string& word) {
  const auto isLetter = [](char c) { return c >= 'A' && c <= 'Z'; };
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  constexpr std::size_t longest = 5;
  constexpr std::size_t bearingAndDistance = 6;
  const auto letters =
      static_cast<std::size_t>(std::ranges::find_if_not(word, isLetter) - word.begin());
  const std::string_view rest = std::string_view(word).substr(letters);
  if (word == "DCT" || letters < 2 || letters > longest) return false;
  return rest.empty() || (rest.size() == bearingAndDistance && std::ranges::all_of(rest, isDigit));
}

}  // namespace

std::vector<CodedWay> codedWays(Flight& flight) {
  std::vector<CodedWay> ways;
  for (Stage& stage : flight.stages) {
    if (!stage.way.code.empty()) ways.push_back({&stage.way, &stage.from, &stage.to});
    if (stage.alternate && !stage.alternate->way.code.empty()) {
      ways.push_back({&stage.alternate->way, &stage.to, &stage.alternate->place});
    }
  }
  return ways;
}

void fill(ktpnaips::GetRouteRqs& request, const CodedWay& coded) {
  request.Depart(fromUtf8(coded.from->text));
  request.Destination(fromUtf8(coded.to->text));
  request.Code(fromUtf8(coded.way->code));
}

std::string routeText(const ktpnaips::AbstractResponse& response) {
  constexpr std::array<std::wstring_view, 4> known{L"adep", L"ades", L"code", L"description"};
  const auto payload = response.Payload();
  std::string text;
  if (!payload) return text;
  for (const auto& leaf : payload.selectAll(".//*[not(*)]")) {
    std::wstring name = leaf.name();
    name.erase(0, name.find(L':') + 1);
    if (std::ranges::find(known, name) == known.end()) text += oneLine(leaf.text()) + ' ';
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

void takeRoute(const CodedWay& coded, const std::string& text) {
  coded.way->text = text;
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    const bool isEnd = word == coded.from->text || word == coded.to->text;
    if (isPoint(word) && !isEnd) coded.way->points.push_back(placeNamed(word));
  }
}

}  // namespace cli::pack
