#include "tests/torture/failing_step.h"

#include <execinfo.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <utility>

#include "tests/torture/callers.h"
#include "tests/torture/noted_blocks.h"
#include "tests/torture/steps.h"

namespace ktpnaips::test {
namespace {

constinit NotedBlocks blocks;
std::array<std::atomic<bool>, 4096> descriptors{};

thread_local bool isCounted = false;
std::atomic<bool> isArmed = false;
std::atomic<long> steps = 0;
Failure plan;
std::atomic<const FallibleFunction*> reached = nullptr;
std::atomic<int> failedWith = 0;  // 0 as long as nothing has failed
Caller deniedTo;
bool notesOwners = false;

std::array<std::atomic<long>, 32> traced{};

void traceIfWanted(long step) {
  if (std::none_of(traced.begin(), traced.end(), [&](const auto& each) { return each == step; })) {
    return;
  }
  std::array<void*, 60> frames{};
  const Uncounted uncounted;
  std::fprintf(stderr, "-- step %ld:\n", step);
  backtrace_symbols_fd(frames.data(), backtrace(frames.data(), static_cast<int>(frames.size())),
                       STDERR_FILENO);
}

}  // namespace

bool counts() {
  return isCounted && isArmed.load(std::memory_order_relaxed);
}

void countThisThread() {
  isCounted = true;
}

int failureOf(const FallibleFunction& function, void* returnAddress) {
  if (!counts()) return 0;
  const long step = steps++;
  traceIfWanted(step + 1);
  const bool isDue = step == plan.step || (plan.isLasting && failedWith != 0);
  if (isDue && function.allocates() && isFatalToLibxml2(plan.isLasting)) return 0;
  if (step == plan.step) {
    reached = &function;
    failedWith = plan.way < function.errors.size() ? function.errors[plan.way] : 0;
    deniedTo = callerOf(returnAddress);
    return failedWith;
  }
  const bool goesOn =
      plan.isLasting && failedWith != 0 &&
      (reached == &function || (function.allocates() && reached.load()->allocates()));
  return goesOn ? failedWith.load() : 0;
}

bool fails(const FallibleFunction& function, void* returnAddress) {
  const int error = failureOf(function, returnAddress);
  if (error != 0) errno = error;
  return error != 0;
}

void note(void* block, std::size_t size, void* returnAddress) {
  blocks.add(block, {steps, size, notesOwners ? callerOf(returnAddress) : Caller()});
}

void* noted(void* block, std::size_t size, void* returnAddress) {
  if (block != nullptr && counts()) note(block, size, returnAddress);
  return block;
}

bool forget(const void* block) {
  return blocks.remove(block);
}

int notedDescriptor(int descriptor) {
  if (descriptor >= 0 && counts()) descriptors.at(static_cast<std::size_t>(descriptor)) = true;
  return descriptor;
}

void forgetDescriptor(int descriptor) {
  if (descriptor >= 0) descriptors.at(static_cast<std::size_t>(descriptor)) = false;
}

bool FallibleFunction::allocates() const {
  return errors.front() == ENOMEM;
}

FailingStep::FailingStep(const Failure& failure) {
  plan = failure;
  steps = 0;
  reached = nullptr;
  failedWith = 0;
  isCounted = true;
  isArmed = true;
}

FailingStep::~FailingStep() {
  isArmed = false;
  isCounted = false;
}

StepsTaken stepsTaken() {
  return {steps, reached, failedWith != 0, deniedTo};
}

Uncounted::Uncounted() : before_(isCounted) {
  isCounted = false;
}

Uncounted::~Uncounted() {
  isCounted = before_;
}

std::vector<LiveBlock> someLiveBlocks() {
  std::array<LiveBlock, 20> found;
  std::size_t count = 0;
  blocks.forEach([&](const LiveBlock& block) {
    if (count < found.size()) found.at(count++) = block;
  });
  return {found.begin(), found.begin() + static_cast<std::ptrdiff_t>(count)};
}

int openDescriptors() {
  return static_cast<int>(std::count(descriptors.begin(), descriptors.end(), true));
}

void forgetWhatIsThere() {
  blocks.clear();
  std::fill(descriptors.begin(), descriptors.end(), false);
}

void noteOwners(bool wanted) {
  notesOwners = wanted;
}

void traceSteps(std::vector<long> wanted) {
  wanted.resize(traced.size(), 0);
  std::copy(wanted.begin(), wanted.end(), traced.begin());
}

}  // namespace ktpnaips::test
