#include "printer/watch/outputs.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "printer/watch/json.h"

namespace quilon::printer {
namespace {

constexpr int kNumberWidth = 6;

void Complain(const std::string& where) {
  std::cerr << "quilon-printer: cannot write " << where << std::endl;
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) {
    Complain(path.string());
  }
}

int64_t LeadingNumber(const std::string& name) {
  int64_t number = 0;
  std::istringstream(name) >> number;
  return number;
}

}  // namespace

LineFile::LineFile(const std::filesystem::path& path)
    : path_(path), file_(path, std::ios::binary | std::ios::app) {
  if (!file_) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

void LineFile::Write(const std::string& line) {
  if (file_ && !(file_ << line << std::endl)) {
    Complain(path_.string());
  }
}

void PaperOutput::OnLine(const PaperLine& line) {
  if (std::cout && !(std::cout << line.text << std::endl)) {
    Complain("the standard output");
  }
}

void TrafficLog::OnExchange(const Exchange& exchange) {
  file_.Write(JsonOf(exchange));
}

PrintoutFolder::PrintoutFolder(std::filesystem::path folder, std::string suffix,
                               Render render)
    : folder_(std::move(folder)), suffix_(std::move(suffix)), render_(render) {
  std::filesystem::create_directories(folder_);
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    last_ = std::max(last_, LeadingNumber(entry.path().stem().string()));
  }
  worker_ = std::thread([this] { Work(); });
}

PrintoutFolder::~PrintoutFolder() {
  {
    const std::scoped_lock lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  worker_.join();
}

void PrintoutFolder::OnPrintout(const Printout& printout) {
  std::ostringstream name;
  name << std::setfill('0') << std::setw(kNumberWidth) << ++last_ << "-"
       << NameOf(printout.kind) << suffix_;
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return orders_.size() < kMostWaiting; });
    orders_.push_back({folder_ / name.str(), printout});
  }
  changed_.notify_all();
}

void PrintoutFolder::Work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || !orders_.empty(); });
    if (orders_.empty()) {
      return;
    }
    const Order order = std::move(orders_.front());
    orders_.pop_front();
    lock.unlock();
    changed_.notify_all();
    WriteFile(order.path, render_(order.printout));
    lock.lock();
  }
}

}  // namespace quilon::printer
