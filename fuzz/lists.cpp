#include <ktpnaips/core/globals.h>
#include <ktpnaips/notification/icao_notification.h>
#include <ktpnaips/notification/icao_other_info.h>
#include <ktpnaips/notification/sartime_notification.h>
#include <ktpnaips/platform/text.h>
#include <ktpnaips/platform/xml.h>

#include <map>
#include <vector>

#include "fuzzing.h"

/// The lists of designators that texts are made into, against a search for whole words.
namespace {

using ktpnaips::xml::Node;
using Words = std::vector<std::wstring>;

/// Each of the letters with each of the digits, or alone without digits.
void add(Words& words, std::wstring_view letters, std::wstring_view digits = {}) {
  for (const wchar_t letter : letters) {
    if (digits.empty()) words.emplace_back(1, letter);
    for (const wchar_t digit : digits) words.push_back({letter, digit});
  }
}

Words equipmentWords() {
  Words words;
  add(words, L"NSABCDFGHIKLORTUVWXYZ");
  add(words, L"E", L"123");
  add(words, L"J", L"1234567");
  add(words, L"M", L"123");
  add(words, L"P", L"123456789");
  return words;
}

Words surveillanceWords() {
  Words words;
  add(words, L"NLEHSIPXCA");
  add(words, L"BUV", L"12");
  add(words, L"DG", L"1");
  return words;
}

Words navigationWords() {
  Words words;
  add(words, L"AL", L"1");
  add(words, L"B", L"123456");
  add(words, L"CDO", L"1234");
  add(words, L"ST", L"12");
  return words;
}

const Words statusWords{L"ALTRV", L"ATFMX", L"FFR",     L"FLTCK",   L"HAZMAT", L"HEAD", L"HOSP",
                        L"HUM",   L"MARSA", L"MEDEVAC", L"NONRVSM", L"SAR",    L"STATE"};

std::wstring cleaned(std::wstring_view text) {
  const auto first = std::min(text.find_first_not_of(L' '), text.size());
  const auto last = text.find_last_not_of(L' ');
  return ktpnaips::text::toUpper(text.substr(first, last + 1 - first));
}

void append(std::wstring& list, std::wstring_view word) {
  if (!list.empty()) list += L' ';
  list += word;
}

std::wstring listed(std::wstring_view text, const Words& words) {
  std::wstring list;
  while (!text.empty()) {
    const auto word =
        std::ranges::find_if(words, [&](const auto& each) { return text.starts_with(each); });
    if (word != words.end()) append(list, *word);
    text.remove_prefix(word != words.end() ? word->size() : 1);
  }
  return list;
}

std::wstring personsOnBoard(std::wstring_view text) {
  constexpr std::wstring_view digits = L"0123456789";
  std::wstring list;
  while (!text.empty()) {
    std::size_t length = std::min(text.find_first_not_of(digits), text.size());
    if (length == 0 && text.starts_with(L"TBA")) length = text.starts_with(L"TBAN") ? 4 : 3;
    if (length > 0) append(list, text.substr(0, length));
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return list;
}

/// The texts of the part's children by their names.
using Children = std::map<std::wstring, std::wstring>;

Children childrenOf(const ktpnaips::IAppendable& part) {
  const auto document = ktpnaips::xml::Document::create();
  const Node parent = document.appendElement(L"part", {}, {});
  part.appendTo(parent, L"urn:ndd");
  Children children;
  for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
    children[child.name()] = child.text();
  }
  return children;
}

void checkEquipment(const std::wstring& text) {
  static const Words equipment = equipmentWords();
  static const Words surveillance = surveillanceWords();
  ktpnaips::ICAOFlightNotifStage stage;
  stage.NavComEquip(text);
  stage.SSREquip(text);
  std::wstring squeezed = cleaned(text);
  std::erase(squeezed, L' ');
  if (squeezed.empty()) squeezed = L"N";
  Children written = childrenOf(stage);
  fuzz::require(written[L"ndd:nav-com-equip"] == listed(squeezed, equipment),
                "radio equipment is what designates it");
  fuzz::require(written[L"ndd:surv-equip"] == listed(squeezed, surveillance),
                "surveillance equipment is what designates it");
}

void checkOtherInformation(const std::wstring& text) {
  static const Words navigation = navigationWords();
  ktpnaips::ICAOOtherInfo info;
  info.STS(text);
  info.PBN(text);
  Children written = childrenOf(info);
  fuzz::require(written[L"ndd:sts"] == listed(cleaned(info.STS()), statusWords),
                "special handling is what designates it");
  fuzz::require(written[L"ndd:pbn"] == listed(cleaned(info.PBN()), navigation),
                "navigation performance is what designates it");
}

void checkPersonsOnBoard(const std::wstring& text) {
  ktpnaips::SARTimeFlightNotif notification;
  notification.POB(text);
  fuzz::require(notification.POB() == personsOnBoard(cleaned(text)),
                "persons on board are numbers and the words for later");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ktpnaips::Globals::settings().newFPLFormat = true;
  fuzz::Input input(data, size);
  const std::uint8_t kind = input.byte();
  const std::wstring text = ktpnaips::text::fromUtf8(input.rest());
  if (kind % 3 == 0) checkEquipment(text);
  if (kind % 3 == 1) checkOtherInformation(text);
  if (kind % 3 == 2) checkPersonsOnBoard(text);
  return 0;
}
