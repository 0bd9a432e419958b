#include <ktpnaips/core/flag_word.h>

#include <ktpnaips/platform/runtime_fault.h>

namespace ktpnaips {
namespace {

std::int32_t valueOf(std::int32_t bit) {
  if (bit >= 31) throw RuntimeFault(fault::overflow);
  return bit < 0 ? 0 : std::int32_t{1} << bit;
}

}  // namespace

bool FlagWord::flag(std::int32_t bit) const {
  return (valueOf(bit) & bits_) > 0;
}

void FlagWord::setFlag(std::int32_t bit, bool on) {
  const std::int32_t value = valueOf(bit);
  bits_ = on ? bits_ | value : bits_ & ~value;
}

}  // namespace ktpnaips
