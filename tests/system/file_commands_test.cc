// Files that are sent to the printer, block by block.
#include <filesystem>
#include <thread>

#include "tests/support/checksum.h"
#include "tests/support/driver_test.h"
#include "tests/support/test_file.h"

namespace quilon::testing {
namespace {

constexpr std::string_view kAccepted = "\x64";
constexpr std::string_view kRefused = "\x62";

class FileCommandsTest : public DriverTest {
 protected:
  void SetUp() override {
    DriverTest::SetUp();
    Fill("logo.bin", transfer_.name);
  }

  void SetFile(std::string_view bytes, std::string_view name = "file") {
    file_.reset();  // the new one has the same path
    file_ = std::make_unique<TestFile>(bytes, name);
    Fill(file_->path(), transfer_.path);
  }

  int32_t Send() { return Ioctl(QUIL_SEND_FILE, &transfer_); }

  // Expects the next thing sent to be the frame with this body and an ENQ.
  void ExpectBlock(std::string_view body) {
    EXPECT_EQ(peer().ReceiveFrame(), "\x1BP" + Summed(body) + "\x1B\\");
    EXPECT_EQ(peer().Receive(1), "\x05");
  }

  const TestFile& file() const { return *file_; }

  FileTransfer transfer_ = {};

 private:
  std::unique_ptr<TestFile> file_;
};

std::string Repeat(size_t count, std::string_view text) {
  std::string all;
  for (size_t i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

TEST_F(FileCommandsTest, SmallFileIsOneBlock) {
  SetFile(std::string_view("\x00\x7F\xAB", 3));
  transfer_.continued = 9;  // not read
  peer().Send(kAccepted);
  EXPECT_EQ(FrameOf(QUIL_SEND_FILE, &transfer_),
            Summed("0;0@A3/6/logo.bin\r007fab\r"));
  EXPECT_EQ(peer().Receive(1), "\x05");
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, LaterBlocksAreContinuations) {
  SetFile(std::string(1024, 'a') + std::string(1024, 'b') + "c");
  peer().Send("\x64\x64\x64");
  EXPECT_EQ(Send(), 0);
  ExpectBlock("0;0@A2049/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectBlock("1;0@A2049/2048/logo.bin\r" + Repeat(1024, "62") + "\r");
  ExpectBlock("1;0@A2049/2/logo.bin\r63\r");
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, FullBlockIsTheLast) {
  SetFile(std::string(1024, 'a'));
  peer().Send(kAccepted);
  EXPECT_EQ(Send(), 0);
  ExpectBlock("0;0@A1024/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, EmptyFileSendsNothing) {
  SetFile("");
  EXPECT_EQ(Send(), 0);
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, NameIsSentAsItIs) {
  SetFile("x");
  const std::string name = FillAll('\xB3', transfer_.name);
  peer().Send(kAccepted);
  EXPECT_EQ(Send(), 0);
  ExpectBlock("0;0@A1/2/" + name + "\r78\r");
}

TEST_F(FileCommandsTest, PathIsInTheProcessesEncoding) {
  SetFile("x", "plik \xB3");
  peer().Send(kAccepted);
  EXPECT_EQ(Send(), 0);
  ExpectBlock("0;0@A1/2/logo.bin\r78\r");
}

TEST_F(FileCommandsTest, WhatCannotBeOpenedFails) {
  EXPECT_EQ(Send(), -1);  // no path
  Fill("no such file", transfer_.path);
  EXPECT_EQ(Send(), -1);
  Fill(".", transfer_.path);
  EXPECT_EQ(Send(), -1);
  FillAll('x', transfer_.path);
  EXPECT_EQ(Send(), -1);
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, RefusedBlockEndsTheTransfer) {
  SetFile(std::string(3000, 'a'));
  peer().Send(kAccepted);
  peer().Send(kRefused);
  peer().Send(kAccepted);
  EXPECT_EQ(Send(), -1);
  ExpectBlock("0;0@A3000/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectBlock("1;0@A3000/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, SilenceAfterAnAcceptedBlockFails) {
  Connect(20);
  SetFile(std::string(3000, 'a'));
  peer().Send(kAccepted);
  EXPECT_EQ(Send(), -1);
  ExpectBlock("0;0@A3000/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectBlock("1;0@A3000/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, WithoutConnectionFails) {
  SetFile("x");
  quil_close();
  EXPECT_EQ(Send(), -1);
  SetFile("");
  EXPECT_EQ(Send(), 0);
}

TEST_F(FileCommandsTest, SizeBeyond32BitsIsSent) {
  SetFile("");
  file().Resize(uint64_t{5} << 30);  // takes no room: it has nothing but zeros
  peer().Send(kRefused);
  EXPECT_EQ(Send(), -1);
  ExpectBlock("0;0@A5368709120/2048/logo.bin\r" + Repeat(1024, "00") + "\r");
  ExpectNothingSent();
}

// Takes the first block, changes the file's size and accepts the block.
TEST_F(FileCommandsTest, FileThatShrinksFails) {
  SetFile(std::string(2000, 'a'));
  std::thread printer([this] {
    ExpectBlock("0;0@A2000/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
    file().Resize(1500);
    peer().Send(kAccepted);
  });
  EXPECT_EQ(Send(), -1);
  printer.join();
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, FileThatGrowsIsSentAsLongAsItWas) {
  SetFile(std::string(1025, 'a'));
  std::thread printer([this] {
    ExpectBlock("0;0@A1025/2048/logo.bin\r" + Repeat(1024, "61") + "\r");
    file().Resize(5000);
    peer().Send(kAccepted);
    ExpectBlock("1;0@A1025/2/logo.bin\r61\r");
    peer().Send(kAccepted);
  });
  EXPECT_EQ(Send(), 0);
  printer.join();
  ExpectNothingSent();
}

TEST_F(FileCommandsTest, EmptyFileFrame) {
  Fill("a", transfer_.name);
  // Pairs of "0", "/" and CR cancel: FF ^ 3B ';' = C4, ^ 40 '@' = 84, ^ 41 'A'
  // = C5, ^ 61 'a' = A4.
  EXPECT_EQ(FrameOf(QUIL_SEND_EMPTY_FILE, &transfer_), "0;0@A0/0/a\r\ra4");
  transfer_.continued = INT32_MIN;
  const std::string name = FillAll('\xB3', transfer_.name);
  Fill("not sent", transfer_.path);
  EXPECT_EQ(FrameOf(QUIL_SEND_EMPTY_FILE, &transfer_),
            Summed("-2147483648;0@A0/0/" + name + "\r\r"));
}

}  // namespace
}  // namespace quilon::testing
