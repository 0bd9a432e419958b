#pragma once

#include <ktpnaips/core/date_time.h>

#include <nlohmann/json.hpp>

#include <string_view>

namespace cli {

/// Keys stay in the order in which they are set.
using Json = nlohmann::ordered_json;

/// A text as JSON.
Json jsonText(std::wstring_view text);

/// Writes it in one line to standard output; what a terminal would act on is escaped.
void printJson(const Json& json);

/// "YYYY-MM-DDThh:mm:ssZ".
std::string dateTimeText(ktpnaips::DateTime value);

/// Sets "Count" and "Items", each entry made by `item`.
template <class Collection, class Item>
void setItems(Json& json, const Collection& collection, Item item) {
  Json items = Json::array();
  for (const auto& entry : collection) items.push_back(item(entry));
  json["Count"] = items.size();
  json["Items"] = std::move(items);
}

}  // namespace cli
