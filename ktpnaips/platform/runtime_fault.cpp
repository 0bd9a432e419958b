#include <ktpnaips/platform/runtime_fault.h>

#include <ktpnaips/platform/text.h>

#include <algorithm>
#include <array>

namespace ktpnaips {
namespace {

struct Description {
  std::int32_t number;
  const char* text;
};

constexpr std::array descriptions{
    Description{fault::invalidCall, "Invalid procedure call or argument"},
    Description{fault::overflow, "Overflow"},
    Description{fault::outOfMemory, "Out of memory"},
    Description{fault::subscriptOutOfRange, "Subscript out of range"},
    Description{fault::typeMismatch, "Type mismatch"},
    Description{fault::internalError, "Internal error"},
    Description{fault::badFileName, "Bad file name or number"},
    Description{fault::diskFull, "Disk full"},
    Description{fault::permissionDenied, "Permission denied"},
    Description{fault::pathFileAccess, "Path/File access error"},
    Description{fault::pathNotFound, "Path not found"},
    Description{fault::objectNotSet, "Object variable or With block variable not set"},
    Description{fault::invalidUseOfNull, "Invalid use of Null"},
    Description{fault::duplicateKey,
                "This key is already associated with an element of this collection"},
    Description{fault::invalidBase64, "Input string is not valid Base64."},
};

const char* descriptionOf(std::int32_t number) {
  const auto* found = std::ranges::find(descriptions, number, &Description::number);
  return found != descriptions.end() ? found->text : "Application-defined or object-defined error";
}

}  // namespace

RuntimeFault::RuntimeFault(std::int32_t number)
    : std::runtime_error(descriptionOf(number)), number_(number) {}

RuntimeFault::RuntimeFault(std::int32_t number, std::wstring_view description)
    : std::runtime_error(text::toUtf8(description)), number_(number) {}

std::wstring RuntimeFault::description() const {
  return text::fromUtf8(what());
}

}  // namespace ktpnaips
