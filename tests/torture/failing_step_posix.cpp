#include "tests/torture/failing_step.h"

#include <curl/curl.h>
#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <libxml/xmlversion.h>
#include <link.h>
#include <netdb.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <string_view>
#include <type_traits>

#include <poll.h>

// What stands behind the allocation functions of this program.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace ktpnaips::test {
namespace {

constexpr FallibleFunction mallocFunction{"malloc", {ENOMEM}};
constexpr FallibleFunction callocFunction{"calloc", {ENOMEM}};
constexpr FallibleFunction reallocFunction{"realloc", {ENOMEM}};
constexpr FallibleFunction alignedFunction{"posix_memalign", {ENOMEM}};
constexpr FallibleFunction newFunction{"operator new", {ENOMEM}};

struct Spin {
  void lock() {
    while (flag.test_and_set(std::memory_order_acquire)) {
    }
  }
  void unlock() { flag.clear(std::memory_order_release); }
  std::atomic_flag flag;
};

/// The noted blocks by address, in a table that allocates nothing.
class Blocks {
 public:
  void add(void* address, LiveBlock block) {
    const std::lock_guard lock(spin_);
    if (++count_ > slots_.size() / 2) std::abort();
    std::size_t at = home(address);
    while (slots_[at].address != nullptr) at = next(at);
    slots_[at] = {address, block};
  }

  bool remove(const void* address) {
    if (address == nullptr || count_.load(std::memory_order_relaxed) == 0) return false;
    const std::lock_guard lock(spin_);
    std::size_t at = home(address);
    while (slots_[at].address != nullptr && slots_[at].address != address) at = next(at);
    if (slots_[at].address == nullptr) return false;
    --count_;
    close(at);
    return true;
  }

  void clear() {
    const std::lock_guard lock(spin_);
    slots_.fill({});
    count_ = 0;
  }

  /// Calls `use` for each; it may not allocate.
  template <class Use>
  void forEach(Use use) {
    const std::lock_guard lock(spin_);
    for (const Slot& slot : slots_) {
      if (slot.address != nullptr) use(slot.block);
    }
  }

 private:
  struct Slot {
    void* address;
    LiveBlock block;
  };

  [[nodiscard]] static std::size_t home(const void* address) {
    const auto bits = reinterpret_cast<std::uintptr_t>(address);  // NOLINT: hashed
    return (bits >> 4U) * 0x9E3779B97F4A7C15U >> (64U - slotBits);
  }
  [[nodiscard]] static std::size_t next(std::size_t at) { return (at + 1) % (1U << slotBits); }

  /// Moves back what follows an emptied slot, so that no search ends at it too early.
  void close(std::size_t hole) {
    for (std::size_t at = next(hole); slots_[at].address != nullptr; at = next(at)) {
      const std::size_t wanted = home(slots_[at].address);
      const bool staysBehindHole =
          hole < at ? wanted > hole && wanted <= at : wanted > hole || wanted <= at;
      if (staysBehindHole) continue;
      slots_[hole] = slots_[at];
      hole = at;
    }
    slots_[hole].address = nullptr;
  }

  static constexpr unsigned slotBits = 18;
  Spin spin_;
  std::atomic<std::size_t> count_ = 0;
  std::array<Slot, std::size_t{1} << slotBits> slots_{};
};

constinit Blocks blocks;
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

bool counts() {
  return isCounted && isArmed.load(std::memory_order_relaxed);
}

/// Who called a function of this program that returns there. The system's own library and C++'s act
/// for those above them, but for the memory of a new thread.
Caller callerOf(void* returnAddress) {
  const Uncounted uncounted;
  Caller caller;
  std::array<void*, 64> frames{};
  const auto end = frames.begin() + backtrace(frames.data(), static_cast<int>(frames.size()));
  for (auto at = std::find(frames.begin(), end, returnAddress); at != end; ++at) {
    Dl_info found{};
    if (dladdr(*at, &found) == 0) break;
    const char* const library = found.dli_fname + std::string_view(found.dli_fname).rfind('/') + 1;
    const std::string_view name = library;
    const std::string_view function = found.dli_sname != nullptr ? found.dli_sname : "";
    if (function == "_dl_allocate_tls") return {library, found.dli_sname};
    const bool isForOthers = name.starts_with("libc.") || name.starts_with("libstdc++.") ||
                             name.starts_with("ld-") || function.starts_with("CRYPTO_");
    if (isForOthers) continue;
    if (!name.starts_with("lib") || (*caller.library != '\0' && name != caller.library)) break;
    caller.library = library;
    if (function.empty()) continue;  // one that has no name outside of its library
    caller.function = found.dli_sname;
    break;
  }
  return caller;
}

/// Where libxml2's code is, so that nothing else is looked up: that takes long.
struct Range {
  std::uintptr_t first = 0;
  std::uintptr_t last = 0;
};
Range rangeOfLibxml2() {
  Range range;
  dl_iterate_phdr(
      [](dl_phdr_info* object, std::size_t, void* found) {
        if (std::string_view(object->dlpi_name).find("/libxml2.") == std::string_view::npos) {
          return 0;
        }
        for (int i = 0; i < object->dlpi_phnum; ++i) {
          const auto& part = object->dlpi_phdr[i];
          if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0) continue;
          const std::uintptr_t first = object->dlpi_addr + part.p_vaddr;
          *static_cast<Range*>(found) = {first, first + part.p_memsz};
        }
        return 1;
      },
      &range);
  return range;
}

bool isFunctionOfLibxml2(void* address, std::string_view name) {
  static const Range range = rangeOfLibxml2();
  const auto bits = reinterpret_cast<std::uintptr_t>(address);  // NOLINT: compared
  if (bits < range.first || bits > range.last) return false;
  Dl_info found{};
  return dladdr(address, &found) != 0 && found.dli_sname != nullptr && found.dli_sname == name;
}

/// Whether libxml2 does not survive the failure: it evaluates an expression (before release 2.13 it
/// loses what it has, or frees it twice) or makes its state of a thread (before release 2.12 it
/// never ends while memory stays away).
bool isFatal() {
  const Uncounted uncounted;
  std::array<void*, 64> frames{};
  const auto end = frames.begin() + backtrace(frames.data(), static_cast<int>(frames.size()));
  const bool evaluates = LIBXML_VERSION < 21300 && std::any_of(frames.begin(), end, [](void* each) {
                           return isFunctionOfLibxml2(each, "xmlXPathEval") ||
                                  isFunctionOfLibxml2(each, "xmlXPathEvalExpression");
                         });
  const bool makesState =
      LIBXML_VERSION < 21200 && plan.isLasting && std::any_of(frames.begin(), end, [](void* each) {
        return isFunctionOfLibxml2(each, "xmlGetGlobalState");
      });
  return evaluates || makesState;
}

/// How this call of the function fails; 0 when it does not.
int failureOf(const FallibleFunction& function, void* returnAddress = nullptr) {
  if (!counts()) return 0;
  const long step = steps++;
  traceIfWanted(step + 1);
  const bool isDue = step == plan.step || (plan.isLasting && failedWith != 0);
  if (isDue && function.allocates() && isFatal()) return 0;
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

/// True, with `errno` set, when this call is to fail.
bool fails(const FallibleFunction& function, void* returnAddress = nullptr) {
  const int error = failureOf(function, returnAddress);
  if (error != 0) errno = error;
  return error != 0;
}

/// A block that is allocated now by a function that returns there.
LiveBlock allocated(std::size_t size, void* returnAddress) {
  return {steps, size, notesOwners ? callerOf(returnAddress) : Caller()};
}

void* noted(void* block, std::size_t size, void* returnAddress) {
  if (block != nullptr && counts()) blocks.add(block, allocated(size, returnAddress));
  return block;
}

int notedDescriptor(int descriptor) {
  if (descriptor >= 0 && counts()) descriptors.at(static_cast<std::size_t>(descriptor)) = true;
  return descriptor;
}

/// The function of that name in the libraries.
template <class Function>
Function* original(Function*, const char* name) {
  const Uncounted uncounted;
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));  // NOLINT: what dlsym is for
}

/// How many bytes a transfer may take; with -1 it fails, with 0 it ends.
template <class Transfer>
ssize_t transferred(const FallibleFunction& function, std::size_t size, Transfer transfer) {
  const int error = failureOf(function);
  if (error == endOfStream) return 0;
  if (error > 0) {
    errno = error;
    return -1;
  }
  return transfer(error == onlyOneByte ? std::min<std::size_t>(size, 1) : size);
}

/// Whether the caller is a libcurl that takes 0 for one of its sockets when it has no memory to
/// look up a name, as docs/network-faults.md says.
bool closesStandardInput(void* caller) {
  return curl_version_info(CURLVERSION_NOW)->version_num < 0x080e00 &&
         callerOf(caller).isOf("libcurl.");
}

struct Start {
  void* (*routine)(void*);
  void* argument;
};

void* countedThread(void* argument) {
  const Start start = *static_cast<Start*>(argument);
  __libc_free(argument);
  isCounted = true;
  return start.routine(start.argument);
}

}  // namespace

bool Caller::isOf(std::string_view start) const {
  return std::string_view(library).starts_with(start);
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

using ktpnaips::test::alignedFunction;
using ktpnaips::test::allocated;
using ktpnaips::test::blocks;
using ktpnaips::test::callocFunction;
using ktpnaips::test::closesStandardInput;
using ktpnaips::test::countedThread;
using ktpnaips::test::counts;
using ktpnaips::test::descriptors;
using ktpnaips::test::endOfStream;
using ktpnaips::test::fails;
using ktpnaips::test::failureOf;
using ktpnaips::test::FallibleFunction;
using ktpnaips::test::mallocFunction;
using ktpnaips::test::newFunction;
using ktpnaips::test::noted;
using ktpnaips::test::notedDescriptor;
using ktpnaips::test::onlyOneByte;
using ktpnaips::test::original;
using ktpnaips::test::reallocFunction;
using ktpnaips::test::Start;
using ktpnaips::test::transferred;

// Allocation.

void* operator new(std::size_t size) {
  void* const block =
      fails(newFunction, __builtin_return_address(0))
          ? nullptr
          : noted(__libc_malloc(std::max<std::size_t>(size, 1)), size, __builtin_return_address(0));
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

extern "C" {

void* malloc(std::size_t size) noexcept {
  return fails(mallocFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_malloc(size), size, __builtin_return_address(0));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return fails(callocFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_calloc(count, size), count * size, __builtin_return_address(0));
}

void* realloc(void* block, std::size_t size) noexcept {
  if (fails(reallocFunction, __builtin_return_address(0))) return nullptr;
  const bool wasNoted = blocks.remove(block);
  void* const moved = __libc_realloc(block, size);
  if (moved != nullptr && (wasNoted || counts())) {
    blocks.add(moved, allocated(size, __builtin_return_address(0)));
  }
  return moved;
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  if (fails(alignedFunction, __builtin_return_address(0))) return ENOMEM;
  *block = noted(__libc_memalign(alignment, size), size, __builtin_return_address(0));
  return *block != nullptr ? 0 : ENOMEM;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return fails(alignedFunction, __builtin_return_address(0))
             ? nullptr
             : noted(__libc_memalign(alignment, size), size, __builtin_return_address(0));
}

void free(void* block) noexcept {
  blocks.remove(block);
  __libc_free(block);
}

// Files.

int open(const char* path, int flags, ...) {
  static constexpr FallibleFunction self{"open", {EACCES, ENOSPC, EMFILE, ENOENT, EROFS, EIO}};
  static const auto next = original(&::open, "open");
  std::va_list arguments;
  va_start(arguments, flags);
  const auto mode = va_arg(arguments, mode_t);
  va_end(arguments);
  return fails(self) ? -1 : notedDescriptor(next(path, flags, mode));
}

int mkostemps(char* path, int suffix, int flags) {
  static constexpr FallibleFunction self{"mkostemps", {EACCES, ENOSPC, EMFILE}};
  static const auto next = original(&::mkostemps, "mkostemps");
  return fails(self) ? -1 : notedDescriptor(next(path, suffix, flags));
}

FILE* fopen(const char* path, const char* mode) {
  static constexpr FallibleFunction self{"fopen", {EACCES, EMFILE}};
  static const auto next = original(&::fopen, "fopen");
  return fails(self) ? nullptr : next(path, mode);
}

FILE* fopen64(const char* path, const char* mode) {
  static constexpr FallibleFunction self{"fopen64", {EACCES, EMFILE}};
  static const auto next = original(&::fopen64, "fopen64");
  return fails(self) ? nullptr : next(path, mode);
}

char* fgets(char* to, int size, FILE* file) {
  static constexpr FallibleFunction self{"fgets", {EIO}};
  static const auto next = original(&::fgets, "fgets");
  return fails(self) ? nullptr : next(to, size, file);
}

std::size_t fread(void* to, std::size_t size, std::size_t count, FILE* file) {
  static constexpr FallibleFunction self{"fread", {EIO}};
  static const auto next = original(&::fread, "fread");
  return fails(self) ? 0 : next(to, size, count, file);
}

int mkdir(const char* path, mode_t mode) noexcept {
  static constexpr FallibleFunction self{"mkdir", {EACCES, ENOSPC}};
  static const auto next = original(&::mkdir, "mkdir");
  return fails(self) ? -1 : next(path, mode);
}

int unlink(const char* path) noexcept {
  static constexpr FallibleFunction self{"unlink", {EACCES}};
  static const auto next = original(&::unlink, "unlink");
  return fails(self) ? -1 : next(path);
}

int stat(const char* path, struct stat* status) noexcept {
  static constexpr FallibleFunction self{"stat", {EACCES, EIO}};
  static const auto next = original(&::stat, "stat");
  return fails(self) ? -1 : next(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
  static constexpr FallibleFunction self{"lstat", {EACCES, EIO}};
  static const auto next = original(&::lstat, "lstat");
  return fails(self) ? -1 : next(path, status);
}

int fstat(int descriptor, struct stat* status) noexcept {
  static constexpr FallibleFunction self{"fstat", {EIO}};
  static const auto next = original(&::fstat, "fstat");
  return fails(self) ? -1 : next(descriptor, status);
}

DIR* opendir(const char* path) {
  static constexpr FallibleFunction self{"opendir", {EACCES, EMFILE}};
  static const auto next = original(&::opendir, "opendir");
  return fails(self) ? nullptr : next(path);
}

dirent* readdir(DIR* folder) {
  static constexpr FallibleFunction self{"readdir", {EIO}};
  static const auto next = original(&::readdir, "readdir");
  return fails(self) ? nullptr : next(folder);
}

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
  static constexpr FallibleFunction self{"write", {ENOSPC, EIO, EDQUOT, EFBIG, EINTR, onlyOneByte}};
  static const auto next = original(&::write, "write");
  return transferred(self, size, [&](std::size_t most) { return next(descriptor, bytes, most); });
}

ssize_t read(int descriptor, void* bytes, std::size_t size) {
  static constexpr FallibleFunction self{"read", {EIO, EINTR}};
  static const auto next = original(&::read, "read");
  return transferred(self, size, [&](std::size_t most) { return next(descriptor, bytes, most); });
}

// A descriptor that cannot be closed is gone nevertheless, as Linux has it.
int close(int descriptor) {
  static constexpr FallibleFunction self{"close", {EIO, EINTR, ENOSPC}};
  static const auto next = original(&::close, "close");
  // Some other connection of the process, this test's service, would get that number and lose it.
  if (descriptor == STDIN_FILENO && counts() && closesStandardInput(__builtin_return_address(0))) {
    return 0;
  }
  const bool hasFailed = fails(self);
  const int error = errno;
  if (descriptor >= 0) descriptors.at(static_cast<std::size_t>(descriptor)) = false;
  const int result = next(descriptor);
  if (hasFailed) errno = error;
  return hasFailed ? -1 : result;
}

// Network and threads.

int socket(int domain, int type, int protocol) noexcept {
  static constexpr FallibleFunction self{"socket", {EMFILE, ENOBUFS, EACCES}};
  static const auto next = original(&::socket, "socket");
  return fails(self) ? -1 : notedDescriptor(next(domain, type, protocol));
}

int socketpair(int domain, int type, int protocol, int* pair) noexcept {
  static constexpr FallibleFunction self{"socketpair", {EMFILE, ENFILE}};
  static const auto next = original(&::socketpair, "socketpair");
  if (fails(self)) return -1;
  const int result = next(domain, type, protocol, pair);
  if (result == 0) notedDescriptor(pair[0]);
  if (result == 0) notedDescriptor(pair[1]);
  return result;
}

int connect(int descriptor, const sockaddr* address, socklen_t size) {
  static constexpr FallibleFunction self{"connect",
                                         {ECONNREFUSED, ENETUNREACH, ETIMEDOUT, EADDRNOTAVAIL}};
  static const auto next = original(&::connect, "connect");
  return fails(self) ? -1 : next(descriptor, address, size);
}

ssize_t send(int descriptor, const void* bytes, std::size_t size, int flags) {
  static constexpr FallibleFunction self{"send", {ECONNRESET, EPIPE, EAGAIN, EINTR, onlyOneByte}};
  static const auto next = original(&::send, "send");
  return transferred(self, size,
                     [&](std::size_t most) { return next(descriptor, bytes, most, flags); });
}

ssize_t recv(int descriptor, void* bytes, std::size_t size, int flags) {
  static constexpr FallibleFunction self{
      "recv", {ECONNRESET, ETIMEDOUT, EAGAIN, EINTR, onlyOneByte, endOfStream}};
  static const auto next = original(&::recv, "recv");
  return transferred(self, size,
                     [&](std::size_t most) { return next(descriptor, bytes, most, flags); });
}

int poll(pollfd* descriptorsToPoll, nfds_t count, int timeout) {
  static constexpr FallibleFunction self{"poll", {ENOBUFS, EINTR}};
  static const auto next = original(&::poll, "poll");
  return fails(self) ? -1 : next(descriptorsToPoll, count, timeout);
}

int getsockopt(int descriptor, int level, int name, void* value, socklen_t* size) noexcept {
  static constexpr FallibleFunction self{"getsockopt", {ENOBUFS}};
  static const auto next = original(&::getsockopt, "getsockopt");
  return fails(self) ? -1 : next(descriptor, level, name, value, size);
}

int setsockopt(int descriptor, int level, int name, const void* value, socklen_t size) noexcept {
  static constexpr FallibleFunction self{"setsockopt", {ENOBUFS}};
  static const auto next = original(&::setsockopt, "setsockopt");
  return fails(self) ? -1 : next(descriptor, level, name, value, size);
}

int getpeername(int descriptor, sockaddr* address, socklen_t* size) noexcept {
  static constexpr FallibleFunction self{"getpeername", {ENOBUFS, ENOTCONN}};
  static const auto next = original(&::getpeername, "getpeername");
  return fails(self) ? -1 : next(descriptor, address, size);
}

int getsockname(int descriptor, sockaddr* address, socklen_t* size) noexcept {
  static constexpr FallibleFunction self{"getsockname", {ENOBUFS}};
  static const auto next = original(&::getsockname, "getsockname");
  return fails(self) ? -1 : next(descriptor, address, size);
}

int fcntl(int descriptor, int command, ...) {
  static constexpr FallibleFunction self{"fcntl", {EINVAL}};
  static const auto next = original(&::fcntl, "fcntl");
  std::va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return fails(self) ? -1 : next(descriptor, command, argument);
}

int ioctl(int descriptor, unsigned long request, ...) noexcept {
  static constexpr FallibleFunction self{"ioctl", {EINVAL}};
  static const auto next = original(&::ioctl, "ioctl");
  std::va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return fails(self) ? -1 : next(descriptor, request, argument);
}

// Every name is one of this machine, so that tests need no name server.
int getaddrinfo(const char* node, const char* service, const addrinfo* hints, addrinfo** found) {
  static constexpr FallibleFunction self{"getaddrinfo",
                                         {EAI_AGAIN, EAI_NONAME, EAI_MEMORY, EAI_FAIL}};
  static const auto next = original(&::getaddrinfo, "getaddrinfo");
  const int error = failureOf(self);
  return error != 0 ? error : next(counts() ? "127.0.0.1" : node, service, hints, found);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument) noexcept {
  static constexpr FallibleFunction self{"pthread_create", {EAGAIN}};
  static const auto next = original(&::pthread_create, "pthread_create");
  if (const int error = failureOf(self); error != 0) return error;
  if (!counts()) return next(thread, attributes, routine, argument);
  void* const memory = __libc_malloc(sizeof(Start));
  if (memory == nullptr) return EAGAIN;
  const int result = next(thread, attributes, countedThread, new (memory) Start{routine, argument});
  if (result != 0) __libc_free(memory);
  return result;
}

}  // extern "C"
