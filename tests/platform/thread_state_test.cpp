#include <ktpnaips/platform/thread_state.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace ktpnaips {
namespace {

std::atomic<int> alive{0};
std::atomic<int> made{0};

struct Counted {
  Counted() {
    ++alive;
    ++made;
  }
  ~Counted() { --alive; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  int value = 0;
};

struct Other {
  int value = 7;
};

TEST(ThreadState, IsMadeOnFirstUseAndDestroyedWhenItsThreadEnds) {
  const int before = alive;
  const int madeBefore = made;
  std::thread([&] {
    EXPECT_EQ(alive, before);
    platform::threadState<Counted>().value = 5;
    EXPECT_EQ(alive, before + 1);
    EXPECT_EQ(platform::threadState<Counted>().value, 5);
    EXPECT_EQ(made, madeBefore + 1);
  }).join();
  EXPECT_EQ(alive, before);
}

TEST(ThreadState, IsNotMadeForAThreadThatDoesNotUseIt) {
  const int before = made;
  std::thread([] {}).join();
  EXPECT_EQ(made, before);
}

TEST(ThreadState, IsOneObjectAThread) {
  std::atomic<int> ready{0};
  std::vector<std::thread> threads;
  std::vector<Counted*> objects(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] {
      Counted& own = platform::threadState<Counted>();
      own.value = i;
      objects[static_cast<std::size_t>(i)] = &own;
      ++ready;
      while (ready < 4) std::this_thread::yield();
      EXPECT_EQ(platform::threadState<Counted>().value, i);
      EXPECT_EQ(&platform::threadState<Counted>(), &own);
    });
  }
  for (auto& thread : threads) thread.join();
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(objects[i], objects[j]);
  }
}

TEST(ThreadState, IsOneObjectAType) {
  std::thread([] {
    platform::threadState<Counted>().value = 1;
    EXPECT_EQ(platform::threadState<Other>().value, 7);
    platform::threadState<Other>().value = 2;
    EXPECT_EQ(platform::threadState<Counted>().value, 1);
  }).join();
}

}  // namespace
}  // namespace ktpnaips
