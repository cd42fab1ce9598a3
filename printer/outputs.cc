#include "printer/outputs.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "printer/json.h"
#include "printer/picture.h"
#include "printer/platform.h"

namespace quilon::printer {
namespace {

constexpr int kNumberWidth = 6;

void complain(const std::filesystem::path& path) {
  std::cerr << "quilon-printer: cannot write " << path.string() << std::endl;
}

std::int64_t leading_number(const std::string& name) {
  std::int64_t number = 0;
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

void LineFile::write(const std::string& line) {
  if (file_ && !(file_ << line << std::endl)) {
    complain(path_);
  }
}

PaperOutput::PaperOutput() { use_utf8_console(); }

void PaperOutput::on_line(const std::string& line) {
  std::cout << line << std::endl;
}

void TrafficLog::on_exchange(const Exchange& exchange) {
  file_.write(to_json(exchange).dump());
}

PictureFolder::PictureFolder(std::filesystem::path folder)
    : folder_(std::move(folder)) {
  std::filesystem::create_directories(folder_);
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    last_ = std::max(last_, leading_number(entry.path().stem().string()));
  }
}

void PictureFolder::on_printout(const Printout& printout) {
  std::ostringstream name;
  name << std::setfill('0') << std::setw(kNumberWidth) << ++last_ << "-"
       << name_of(printout.kind) << ".png";
  const std::filesystem::path path = folder_ / name.str();
  std::ofstream file(path, std::ios::binary);
  file << picture_of(printout.lines);
  if (!file.flush()) {
    complain(path);
  }
}

}  // namespace quilon::printer
