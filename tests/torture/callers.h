#pragma once

#include "tests/torture/failing_step.h"

namespace ktpnaips::test {

/// Who called a function of this program that returns there. The system's own library and C++'s act
/// for those above them, but for the memory of a new thread.
Caller callerOf(void* returnAddress);

/// Whether libxml2 does not survive that the allocation fails that is asked for now: it evaluates
/// an expression (before release 2.13 it loses what it has, or frees it twice) or makes its state
/// of a thread (before release 2.12 it never ends while memory stays away, which is a lasting
/// failure).
bool isFatalToLibxml2(bool isLasting);

}  // namespace ktpnaips::test
