#include "src/comm/byte_queue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <numeric>
#include <vector>

namespace quilon {
namespace {

using Bytes = std::vector<uint8_t>;

void Push(const Bytes& bytes, ByteQueue* queue) {
  queue->Push(bytes.data(), bytes.size());
}

Bytes PopWithin(uint32_t patience, size_t count, ByteQueue* queue) {
  Bytes bytes(count);
  bytes.resize(queue->Pop(bytes.data(), count, patience));
  return bytes;
}

Bytes TryPop(size_t count, ByteQueue* queue) {
  return PopWithin(0, count, queue);
}

Bytes Pop(size_t count, ByteQueue* queue) {
  return PopWithin(ByteQueue::kForever, count, queue);
}

TEST(ByteQueueTest, KeepsTheOrder) {
  ByteQueue queue;
  Push({1, 2, 3}, &queue);
  Push({4, 5}, &queue);
  EXPECT_EQ(queue.Size(), 5U);
  EXPECT_EQ(TryPop(2, &queue), (Bytes{1, 2}));
  EXPECT_EQ(Pop(10, &queue), (Bytes{3, 4, 5}));
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(ByteQueueTest, TakesNothingFromAnEmptyQueue) {
  ByteQueue queue;
  EXPECT_EQ(TryPop(10, &queue), Bytes());
  Push({}, &queue);
  EXPECT_EQ(TryPop(10, &queue), Bytes());
}

TEST(ByteQueueTest, PopWaitsForAByte) {
  ByteQueue queue;
  auto popped = std::async(std::launch::async, Pop, 10, &queue);
  EXPECT_EQ(popped.wait_for(std::chrono::milliseconds(20)),
            std::future_status::timeout);
  Push({7}, &queue);
  EXPECT_EQ(popped.get(), Bytes{7});
}

TEST(ByteQueueTest, InterruptEndsWaitingForGood) {
  ByteQueue queue;
  auto popped = std::async(std::launch::async, Pop, 10, &queue);
  queue.Interrupt();
  EXPECT_EQ(popped.get(), Bytes());
  Push({1}, &queue);
  EXPECT_EQ(Pop(10, &queue), Bytes());
  EXPECT_EQ(queue.Size(), 1U);
}

TEST(ByteQueueTest, IsServedWhenWhoeverPoppedComesBack) {
  ByteQueue queue;
  EXPECT_TRUE(queue.WaitUntilServed(0));
  Push({1}, &queue);
  EXPECT_FALSE(queue.WaitUntilServed(1));
  EXPECT_EQ(Pop(10, &queue), Bytes{1});
  EXPECT_FALSE(queue.WaitUntilServed(1));
  auto served = std::async(std::launch::async, [&] {
    return queue.WaitUntilServed(ByteQueue::kForever);
  });
  EXPECT_EQ(TryPop(10, &queue), Bytes());
  EXPECT_TRUE(served.get());
}

TEST(ByteQueueTest, RoomAtTheFrontIsUsedAgain) {
  ByteQueue queue;
  Bytes expected;
  uint8_t next = 0;
  for (int i = 0; i < 1000; ++i) {
    const Bytes pushed = {next, static_cast<uint8_t>(next + 1),
                          static_cast<uint8_t>(next + 2)};
    next = static_cast<uint8_t>(next + 3);
    Push(pushed, &queue);
    expected.insert(expected.end(), pushed.begin(), pushed.end());
    const Bytes popped = TryPop(2, &queue);
    ASSERT_EQ(popped, Bytes(expected.begin(), expected.begin() + 2));
    expected.erase(expected.begin(), expected.begin() + 2);
  }
  EXPECT_EQ(TryPop(5000, &queue), expected);
}

TEST(ByteQueueTest, RoomEndsAtTheCapacity) {
  ByteQueue queue;
  EXPECT_TRUE(queue.HasRoom(ByteQueue::kCapacity));
  EXPECT_FALSE(queue.HasRoom(ByteQueue::kCapacity + 1));
  EXPECT_FALSE(queue.HasRoom(SIZE_MAX));
  Push(Bytes(ByteQueue::kCapacity - 1), &queue);
  EXPECT_TRUE(queue.HasRoom(1));
  EXPECT_FALSE(queue.HasRoom(2));
  Push({1}, &queue);
  EXPECT_FALSE(queue.HasRoom(1));
  EXPECT_TRUE(queue.HasRoom(0));
}

TEST(ByteQueueTest, CarriesEverythingFromOneThreadToAnother) {
  constexpr size_t kTotal = 100000;
  Bytes all(kTotal);
  std::iota(all.begin(), all.end(), uint8_t{0});
  ByteQueue queue;
  auto pusher = std::async(std::launch::async, [&] {
    for (size_t i = 0; i < kTotal; i += 100) {
      queue.Push(&all[i], 100);
    }
  });
  Bytes carried;
  while (carried.size() < kTotal) {
    const Bytes some = Pop(77, &queue);
    carried.insert(carried.end(), some.begin(), some.end());
  }
  pusher.get();
  EXPECT_EQ(carried, all);
}

}  // namespace
}  // namespace quilon
