#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

/// How each work is measured, by hand and with the library alike. `bench/compare` sets the
/// environment that the programs read.
namespace bench {

inline std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

inline std::string httpAddress() {
  return environment("BENCH_HTTP");
}

inline std::string httpsAddress() {
  return environment("BENCH_HTTPS");
}

/// A file with the system's issuers and that of the benchmark's service.
inline std::string issuers() {
  return environment("BENCH_ISSUERS");
}

/// The most memory that the process has held, in kB. Unlike getrusage's number it does not start
/// with that of the process's parent.
inline double peakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double size = 0;
    if (word == "VmHWM:" && status >> size) return size;
  }
  return 0;
}

/// Seconds of processor time that the calling thread has used, in the kernel too.
inline double processorTime() {
  timespec used{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

inline double median(std::vector<double>& times) {
  std::ranges::sort(times);
  return times[times.size() / 2];
}

/// Measures `work` after one call of it for warming up. `after` tidies up, outside the time.
template <class Work, class After>
void measure(benchmark::State& state, Work work, After after) {
  using Clock = std::chrono::steady_clock;
  work();
  after();
  std::vector<double> times;
  std::vector<double> processorTimes;
  for (auto _ : state) {
    const double used = processorTime();
    const auto start = Clock::now();
    work();
    times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    processorTimes.push_back(processorTime() - used);
    state.SetIterationTime(times.back());
    after();
  }
  state.counters["median_us"] = median(times) * 1e6;
  state.counters["least_us"] = times.front() * 1e6;
  state.counters["processor_us"] = median(processorTimes) * 1e6;
  state.counters["peak_kB"] = peakMemory();
}

template <class Work>
void measure(benchmark::State& state, Work work) {
  measure(state, work, [] {});
}

using Registered = benchmark::internal::Benchmark;

inline void manually(Registered* work) {
  work->UseManualTime();
}

/// Sizes of texts from 1 kB to 100 MB.
inline void sizes(Registered* work) {
  work->UseManualTime();
  for (const std::int64_t size : {1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000}) {
    work->Arg(size);
  }
}

/// Numbers of entries from 1 to 100,000.
inline void entries(Registered* work) {
  work->UseManualTime();
  for (const std::int64_t count : {1, 10, 100, 1'000, 10'000, 100'000}) work->Arg(count);
}

/// Does the work over and over on one of several threads. Another one is always there: without it
/// the C library leaves its locks out.
template <class Work>
void repeatOnThread(benchmark::State& state, Work work) {
  static const std::jthread other([](const std::stop_token& end) {
    while (!end.stop_requested()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  });
  for (auto _ : state) work();
  state.SetItemsProcessed(state.iterations());
}

inline void threads(Registered* work) {
  work->UseRealTime();
  for (const int count : {1, 2, 4, 8}) work->Threads(count);
}

}  // namespace bench
