#include <ktpnaips/platform/runtime_fault.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace ktpnaips {
namespace {

TEST(RuntimeFaultNumber, HasTheDescriptionOfTheAutomationRuntime) {
  const struct {
    std::int32_t named;
    std::int32_t number;
    std::wstring_view description;
  } faults[] = {
      {fault::invalidCall, 5, L"Invalid procedure call or argument"},
      {fault::overflow, 6, L"Overflow"},
      {fault::outOfMemory, 7, L"Out of memory"},
      {fault::subscriptOutOfRange, 9, L"Subscript out of range"},
      {fault::typeMismatch, 13, L"Type mismatch"},
      {fault::internalError, 51, L"Internal error"},
      {fault::badFileName, 52, L"Bad file name or number"},
      {fault::diskFull, 61, L"Disk full"},
      {fault::permissionDenied, 70, L"Permission denied"},
      {fault::pathFileAccess, 75, L"Path/File access error"},
      {fault::pathNotFound, 76, L"Path not found"},
      {fault::objectNotSet, 91, L"Object variable or With block variable not set"},
      {fault::invalidUseOfNull, 94, L"Invalid use of Null"},
      {fault::duplicateKey, 457,
       L"This key is already associated with an element of this collection"},
      {fault::invalidBase64, -2147221504, L"Input string is not valid Base64."},
  };
  for (const auto& each : faults) {
    EXPECT_EQ(each.named, each.number);
    const RuntimeFault thrown(each.number);
    EXPECT_EQ(thrown.number(), each.number);
    EXPECT_EQ(thrown.description(), each.description);
  }
}

TEST(RuntimeFaultNumber, CarriesADescriptionOfItsOwnWhenGiven) {
  const RuntimeFault thrown(-2147467259, L"Unspecified error \u00e9");
  EXPECT_EQ(thrown.number(), -2147467259);
  EXPECT_EQ(thrown.description(), L"Unspecified error \u00e9");
  EXPECT_STREQ(thrown.what(), "Unspecified error \xC3\xA9");
}

}  // namespace
}  // namespace ktpnaips
