#include "desk/printing/answers.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "quilon/quilon.h"

namespace quilon::desk {
namespace {

struct Field {
  std::string_view name;
  size_t offset;
  size_t size;  // 4 or 8
  size_t count;
};

constexpr int32_t kWithoutParameter = -1;

struct Row {
  std::string_view name;
  int32_t question;
  int32_t parameter;
  int32_t answer;
  std::array<Field, 3> fields;  // those without a name are none
};

constexpr size_t kLargestRecord = 1024;

constexpr std::array kRows = {
    Row{"InfoBlock43",
        QUIL_SEND_INFO_BLOCK,
        43,
        QUIL_READ_INFO_43,
        {{{"numbers", offsetof(InfoBlock43, numbers), 4, 9}}}},
    Row{"InfoBlock53",
        QUIL_SEND_INFO_BLOCK,
        53,
        QUIL_READ_INFO_53,
        {{{"numbers", offsetof(InfoBlock53, numbers), 4, 4}}}},
    Row{"InfoBlock54",
        QUIL_SEND_INFO_BLOCK,
        54,
        QUIL_READ_INFO_54,
        {{{"numbers1", offsetof(InfoBlock54, numbers1), 4, 3},
          {"numbers2", offsetof(InfoBlock54, numbers2), 4, 10}}}},
    Row{"InfoBlock56",
        QUIL_SEND_INFO_BLOCK,
        56,
        QUIL_READ_INFO_56,
        {{{"numbers", offsetof(InfoBlock56, numbers), 4, 5}}}},
    Row{"InfoBlock60",
        QUIL_SEND_INFO_BLOCK,
        60,
        QUIL_READ_INFO_60,
        {{{"numbers1", offsetof(InfoBlock60, numbers1), 4, 3},
          {"numbers2", offsetof(InfoBlock60, numbers2), 4, 10}}}},
    Row{"Identity",
        QUIL_SEND_IDENTITY,
        kWithoutParameter,
        QUIL_READ_TOTALS,
        {{{"numbers1", offsetof(Identity, numbers1), 4, 4},
          {"numbers2", offsetof(Identity, numbers2), 4, 4},
          {"number", offsetof(Identity, number), 4, 1}}}},
    Row{"MemoryInfo",
        QUIL_SEND_MEMORY,
        kWithoutParameter,
        QUIL_READ_MEMORY,
        {{{"number1", offsetof(MemoryInfo, number1), 8, 1},
          {"number2", offsetof(MemoryInfo, number2), 4, 1}}}},
    Row{"ExtendedStatus",
        QUIL_SEND_EXTENDED_STATUS,
        kWithoutParameter,
        QUIL_READ_EXTENDED_STATUS,
        {{{"numbers", offsetof(ExtendedStatus, numbers), 4, 3}}}},
};

std::string NameOf(const Row& row, const Field& field, size_t index) {
  std::string name = std::string(row.name).append(".").append(field.name);
  if (field.count > 1) {
    name.append("[").append(std::to_string(index)).append("]");
  }
  return name;
}

std::vector<std::string> NamesOf(const Row& row) {
  std::vector<std::string> names;
  for (const Field& field : row.fields) {
    for (size_t i = 0; i < field.count; ++i) {
      names.push_back(NameOf(row, field, i));
    }
  }
  return names;
}

// Adds the answer's numbers; false when it does not come.
bool Read(Connection& connection, const Row& row, Numbers& numbers) {
  alignas(std::max_align_t) std::array<char, kLargestRecord> record = {};
  SingleNumber parameter = {row.parameter};
  const bool asks = row.parameter != kWithoutParameter;
  if (!connection.Ask(row.question, asks ? &parameter : nullptr, row.answer,
                      record.data())) {
    return false;
  }
  for (const Field& field : row.fields) {
    for (size_t i = 0; i < field.count; ++i) {
      const char* from = record.data() + field.offset + i * field.size;
      int32_t narrow = 0;
      int64_t wide = 0;
      if (field.size == sizeof wide) {
        std::memcpy(&wide, from, sizeof wide);
      } else {
        std::memcpy(&narrow, from, sizeof narrow);
        wide = narrow;
      }
      numbers[NameOf(row, field, i)] = wide;
    }
  }
  return true;
}

const Row* RowWith(const std::string& name) {
  for (const Row& row : kRows) {
    for (const std::string& one : NamesOf(row)) {
      if (one == name) {
        return &row;
      }
    }
  }
  return nullptr;
}

}  // namespace

bool IsNumber(const std::string& name) { return RowWith(name) != nullptr; }

std::optional<int64_t> ReadNumber(Connection& connection,
                                  const std::string& name) {
  Numbers numbers;
  const Row* row = RowWith(name);
  if (row == nullptr || !Read(connection, *row, numbers)) {
    return std::nullopt;
  }
  return numbers.at(name);
}

Numbers ReadAllNumbers(Connection& connection) {
  Numbers numbers;
  for (const Row& row : kRows) {
    if (!Read(connection, row, numbers)) {
      connection.Clean();
    }
  }
  return numbers;
}

}  // namespace quilon::desk
