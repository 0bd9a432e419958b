#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string_view>
#include <vector>

/// Every step of a call that can fail: an allocation in any library, or one of the system's calls
/// for files, threads and the network. The functions themselves are replaced for the whole program.
namespace ktpnaips::test {

/// A function whose calls are steps.
struct FallibleFunction {
  const char* name;
  std::array<int, 6> errors;  ///< the ways to fail: values of `errno`, or of those below; then 0

  /// Whether it is one of the functions that allocate, which fail in one way only.
  [[nodiscard]] bool allocates() const;
};

/// A library under ours, and the function in it, the innermost that has a name outside of it. Empty
/// for this program and the library in it.
struct Caller {
  const char* library = "";  ///< as in "libcurl.so.4"
  const char* function = "";

  /// Whether the library's name starts so, as in "libcurl.".
  [[nodiscard]] bool isOf(std::string_view start) const;
};

/// Ways to fail that are no value of `errno`.
inline constexpr int onlyOneByte = -1;  ///< no more than one byte is transferred
inline constexpr int endOfStream = -2;  ///< the other side seems to have closed

/// Which step fails, and how.
struct Failure {
  static constexpr long never = std::numeric_limits<long>::max();

  long step = never;       ///< the steps that come before it
  std::size_t way = 0;     ///< index among the errors of its function
  bool isLasting = false;  ///< later steps of the same function fail too
};

/// Counts the steps of the calling thread, and of those that it starts, until the end of the scope
/// and makes one fail; notes what they allocate and open. One at a time.
class FailingStep {
 public:
  explicit FailingStep(const Failure& failure);
  ~FailingStep();
  FailingStep(const FailingStep&) = delete;
  FailingStep& operator=(const FailingStep&) = delete;
};

/// What happened under the last `FailingStep`.
struct StepsTaken {
  long count = 0;
  const FallibleFunction* at = nullptr;  ///< whose call the step was, if it was reached
  bool hasFailed = false;                ///< false when its function has fewer ways to fail
  Caller deniedTo;                       ///< whose allocation failed
};
StepsTaken stepsTaken();

/// Keeps the calling thread's steps from being counted until the end of the scope.
class Uncounted {
 public:
  Uncounted();
  ~Uncounted();
  Uncounted(const Uncounted&) = delete;
  Uncounted& operator=(const Uncounted&) = delete;

 private:
  bool before_;
};

/// Where a block was allocated that nobody has freed yet.
struct LiveBlock {
  long step = 0;
  std::size_t size = 0;
  Caller owner;  ///< if owners were noted
};
/// Whether the owners of blocks are noted from now on, which takes time.
void noteOwners(bool wanted);
/// Those allocated under a `FailingStep`, at most 20.
std::vector<LiveBlock> someLiveBlocks();
/// How many descriptors were opened under a `FailingStep` and not closed.
int openDescriptors();
/// Takes what is there now for what has to be there.
void forgetWhatIsThere();

/// Prints, at each of these steps from now on, how it was come to.
void traceSteps(std::vector<long> steps);

}  // namespace ktpnaips::test
