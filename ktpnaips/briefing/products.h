#pragma once

#include <ktpnaips/core/property.h>

#include <string>

namespace ktpnaips {

/// A product file of a briefing.
class BriefItem {
 public:
  Property<std::wstring> Product;      ///< for the host; the library leaves it empty
  Property<std::wstring> File;         ///< full path of the written file
  Property<std::wstring> ProductType;  ///< "PNG", "JPG", ...; empty when the answer names none
};

/// A product file of a chart.
class Product {
 public:
  Property<std::wstring> ProductType;  ///< as the answer names it
  Property<std::wstring> Resolution;   ///< "LO", "HI" or empty
  Property<std::wstring> FilePath;     ///< full path of the temporary file
};

}  // namespace ktpnaips
