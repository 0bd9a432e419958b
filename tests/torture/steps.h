#pragma once

#include <cstddef>

#include "tests/torture/failing_step.h"

/// What the functions that are replaced ask and tell: whether they fail, what they gave.
namespace ktpnaips::test {

/// Whether the calling thread's steps are counted now.
bool counts();
/// Has the calling thread's steps counted whenever a `FailingStep` lives.
void countThisThread();

/// How this call of the function fails; 0 when it does not. For one that allocates, the address
/// that it returns to tells whose it is.
int failureOf(const FallibleFunction& function, void* returnAddress = nullptr);
/// True, with `errno` set, when this call is to fail.
bool fails(const FallibleFunction& function, void* returnAddress = nullptr);

/// Notes a block that is allocated now by a function that returns there.
void note(void* block, std::size_t size, void* returnAddress);
/// The block, noted when steps are counted and it is there.
void* noted(void* block, std::size_t size, void* returnAddress);
/// Forgets the block; whether it was noted until now.
bool forget(const void* block);

/// The descriptor, noted when steps are counted and it is one.
int notedDescriptor(int descriptor);
void forgetDescriptor(int descriptor);

}  // namespace ktpnaips::test
