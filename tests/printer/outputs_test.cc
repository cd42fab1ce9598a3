#include "printer/watch/outputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "printer/watch/picture.h"

namespace quilon::printer {
namespace {

Printout NumberedReport(int number) {
  Printout printout;
  printout.kind = PrintoutKind::kReport;
  printout.lines.push_back({"RAPORT " + std::to_string(number)});
  return printout;
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PrintoutFolder, HasDrawnAllWhenItEnds) {
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() /
      ("printer_pictures_" + std::to_string(std::random_device{}()));
  {
    PrintoutFolder folder(path, ".png", PictureOf);
    for (int number = 1; number <= 30; ++number) {
      folder.OnPrintout(NumberedReport(number));
    }
  }
  for (int number = 1; number <= 30; ++number) {
    const std::string name =
        (number < 10 ? "00000" : "0000") + std::to_string(number);
    EXPECT_EQ(BytesOf(path / (name + "-report.png")),
              PictureOf(NumberedReport(number)))
        << number;
  }
  std::filesystem::remove_all(path);
}

}  // namespace
}  // namespace quilon::printer
