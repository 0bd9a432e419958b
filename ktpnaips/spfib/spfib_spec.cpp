#include <ktpnaips/core/flag_attributes.h>
#include <ktpnaips/core/text_items.h>
#include <ktpnaips/core/trap.h>
#include <ktpnaips/core/xml_building.h>
#include <ktpnaips/spfib/spfib_spec.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace ktpnaips {

using modBrevank::addElement;

namespace {

constexpr std::size_t mostStages = 10;

constexpr std::int32_t domestic = 0;
constexpr std::array options{NamedFlag{1, L"exp-wind"}, NamedFlag{2, L"intl-series-notam"},
                             NamedFlag{3, L"full-text-notam"}, NamedFlag{4, L"charts"},
                             NamedFlag{5, L"mid-sigwx-gpwt"}};
constexpr std::int32_t highVariant = 6;

}  // namespace

void SPFIBSpec::addStage(std::shared_ptr<SPFIBStageSpec> stage) {
  if (stage != nullptr && entries().size() < mostStages) append(std::move(stage));
}

void SPFIBSpec::appendTo(const xml::Node& bulletin, std::wstring_view namespaceUri) const {
  trapped(appendToOf(L"SPFIBSpec"), [&] {
    addElement(bulletin, L"domestic", namespaceUri, modBrevank::boolean(flag(domestic)));
    addElement(bulletin, L"acid", namespaceUri, Aircraft());
    for (const auto& stage : *this) addPart(bulletin, L"stage", namespaceUri, stage.get());
    addElement(bulletin, L"tas", namespaceUri, TAS());
    for (const auto& [bit, name] : options) {
      addElement(bulletin, name, namespaceUri, modBrevank::boolean(flag(bit)));
    }
    addElement(bulletin, L"variant", namespaceUri, flag(highVariant) ? L"HI" : L"LO");
  });
}

}  // namespace ktpnaips
