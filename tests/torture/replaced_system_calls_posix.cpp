#include <curl/curl.h>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <netdb.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

#include <poll.h>

#include "tests/torture/callers.h"
#include "tests/torture/steps.h"

namespace {

using ktpnaips::test::callerOf;
using ktpnaips::test::counts;
using ktpnaips::test::endOfStream;
using ktpnaips::test::fails;
using ktpnaips::test::failureOf;
using ktpnaips::test::FallibleFunction;
using ktpnaips::test::forgetDescriptor;
using ktpnaips::test::notedDescriptor;
using ktpnaips::test::onlyOneByte;
using ktpnaips::test::Uncounted;

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
  delete static_cast<Start*>(argument);
  ktpnaips::test::countThisThread();
  return start.routine(start.argument);
}

}  // namespace

extern "C" {

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
  forgetDescriptor(descriptor);
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
  Start* start = nullptr;
  {
    const Uncounted own;
    start = new (std::nothrow) Start{routine, argument};
  }
  if (start == nullptr) return EAGAIN;
  const int result = next(thread, attributes, countedThread, start);
  if (result != 0) delete start;
  return result;
}

}  // extern "C"
