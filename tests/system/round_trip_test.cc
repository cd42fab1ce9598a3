// Every device command there and back: the driver's exports and the virtual
// printer. What the printer answers of itself stands in printer/identity.h and
// in its commands; what was sent to it before is read back here.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <vector>

#include "printer/virtual_printer.h"
#include "tests/support/bitmap.h"
#include "tests/support/covered_codes.h"
#include "tests/support/documented_codes.h"
#include "tests/support/driver_test.h"
#include "tests/support/test_file.h"

namespace quilon::testing {
namespace {

using printer::Snapshot;
using printer::VirtualPrinter;
using Numbers = std::vector<int32_t>;

VirtualPrinter::Options OnAJanuaryDay() {
  VirtualPrinter::Options options;
  options.clock = [] {
    using std::chrono::local_days;
    using std::chrono::year;
    constexpr std::chrono::seconds kTimeOfDay{(12 * 60 + 5) * 60 + 6};
    return local_days(year(2024) / std::chrono::January / 31) + kTimeOfDay;
  };
  return options;
}

template <size_t kCount>
Numbers All(const int32_t (&numbers)[kCount]) {
  return {std::begin(numbers), std::end(numbers)};
}

class RoundTripTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(quil_init(0), 1);
    ASSERT_EQ(quil_open_tcpip("127.0.0.1", printer_.tcp_port()), 1);
  }
  void TearDown() override { EXPECT_EQ(quil_close(), 1); }

  // Sends a command that the printer must accept.
  static void Send(int32_t code, void* record = nullptr) {
    EXPECT_EQ(Ioctl(code, record, QUIL_CHECK_STATUS), 0)
        << "code " << code << ", error " << LastError().error_code;
  }

  // Asks with one command and reads the answer with another.
  static void Ask(int32_t code, void* question, int32_t reading_code,
                  void* answer) {
    EXPECT_EQ(Ioctl(code, question), 0) << "code " << code;
    EXPECT_EQ(Ioctl(reading_code, answer), 0) << "code " << reading_code;
  }

  template <typename Record>
  static Record AskForBlock(int32_t reading_code) {
    SingleNumber block = {reading_code};
    Record record = {};
    Ask(QUIL_SEND_INFO_BLOCK, &block, reading_code, &record);
    return record;
  }

  // A receipt of one line at rate A.
  static void SellFor(int64_t amount) {
    DocumentHeader header = {};
    Send(QUIL_DOCUMENT_HEADER, &header);
    DocumentLine line = {
        .quantity = 100000000, .price = amount, .value = amount};
    Fill("Kubek", line.name);
    Fill("szt", line.unit);
    Fill("A", line.rate_group);
    Send(QUIL_DOCUMENT_LINE, &line);
    DocumentEnd end = {.paid = amount, .total = amount};
    Send(QUIL_DOCUMENT_END, &end);
  }

  VirtualPrinter& printer() { return printer_; }

 private:
  VirtualPrinter printer_{OnAJanuaryDay()};
};

TEST_F(RoundTripTest, Status) {
  DleStatus dle = {};
  Ask(QUIL_SEND_DLE, nullptr, QUIL_READ_DLE, &dle);
  EXPECT_EQ(dle.online, 1);
  EnqStatus enq = {};
  Ask(QUIL_SEND_ENQ, nullptr, QUIL_READ_ENQ, &enq);
  EXPECT_EQ(enq.last_command_ok, 1);
  ExtendedStatus extended = {};
  Ask(QUIL_SEND_EXTENDED_STATUS, nullptr, QUIL_READ_EXTENDED_STATUS, &extended);
  Send(QUIL_NOTHING);
  printer().RefuseNext(1005);
  SingleNumber anything = {1};
  EXPECT_EQ(Ioctl(QUIL_HASH_L, &anything), 0);
  ErrorNumber error = {};
  Ask(QUIL_SEND_ERROR_NUMBER, nullptr, QUIL_READ_ERROR_NUMBER, &error);
  EXPECT_EQ(error.number, 1005);
}

TEST_F(RoundTripTest, DeviceInfoPortAndMemory) {
  PrinterVersion version = {};
  Ask(QUIL_SEND_DEVICE_INFO, nullptr, QUIL_READ_DEVICE_INFO, &version);
  EXPECT_STREQ(version.name, "Quilon Virtual");
  EXPECT_STREQ(version.version, "1.00");
  PortInfo port = {};
  Ask(QUIL_SEND_PORT, nullptr, QUIL_READ_PORT, &port);
  EXPECT_STREQ(port.port, "TCP");
  MemoryInfo memory = {};
  Ask(QUIL_SEND_MEMORY, nullptr, QUIL_READ_MEMORY, &memory);
  EXPECT_STREQ(memory.text2, "QVP0000000001");
  EXPECT_EQ(memory.free_space, 30000);
  EXPECT_EQ(memory.capacity, 30000);
  ProcInfo proc = {};
  Ask(QUIL_SEND_PROC, nullptr, QUIL_READ_PROC, &proc);
  EXPECT_STREQ(proc.text1, "SERWER");
  EXPECT_EQ(proc.numbers[0], 100);
  SingleNumber log = {42};
  SingleNumber logged = {};
  Ask(QUIL_SEND_LOG, &log, QUIL_READ_LOG, &logged);
  EXPECT_EQ(logged.number, 42);
}

TEST_F(RoundTripTest, IdentityTellsRatesAndTotals) {
  SellFor(2450);
  SingleNumber mode = {0};
  Send(QUIL_SET_TOTALS_MODE, &mode);
  Identity identity = {};
  Ask(QUIL_SEND_IDENTITY, nullptr, QUIL_READ_IDENTITY, &identity);
  EXPECT_EQ(All(identity.numbers1), (Numbers{1, 0, 1, 0}));
  EXPECT_EQ(All(identity.numbers2), (Numbers{2024, 1, 31, 0}));
  EXPECT_EQ(All(identity.amounts),
            (Numbers{2300, 800, 500, 0, 10000, 700, 400}));
  EXPECT_EQ(identity.number, 1);
  EXPECT_EQ(All(identity.totals), (Numbers{2450, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(identity.last_amount, 2450);
  EXPECT_STREQ(identity.unique_number, "QVP0000000001");

  mode.number = 1;
  Send(QUIL_SET_TOTALS_MODE, &mode);
  Identity invoices = {};
  Ask(QUIL_SEND_TOTALS, nullptr, QUIL_READ_TOTALS, &invoices);
  EXPECT_EQ(All(invoices.totals), Numbers(7, 0));
  EXPECT_EQ(invoices.number, 0);
}

TEST_F(RoundTripTest, ClockIsSetAndTold) {
  SixNumbers clock = {};
  Ask(QUIL_SEND_CLOCK, nullptr, QUIL_READ_CLOCK, &clock);
  EXPECT_EQ(All(clock.numbers), (Numbers{2024, 1, 31, 12, 5, 6}));
  DollarC set = {.numbers = {24, 1, 31, 13, 59, 58}};
  Send(QUIL_DOLLAR_C, &set);
  Ask(QUIL_SEND_CLOCK, nullptr, QUIL_READ_CLOCK, &clock);
  EXPECT_EQ(All(clock.numbers), (Numbers{2024, 1, 31, 13, 59, 58}));
}

TEST_F(RoundTripTest, InformationBlocksOfTexts) {
  const auto owner = AskForBlock<InfoBlock53>(QUIL_READ_INFO_53);
  EXPECT_STREQ(owner.first_text, "Quilon Virtual");
  EXPECT_STREQ(owner.texts[3], "000-000-00-00");
  const auto state = AskForBlock<InfoBlock54>(QUIL_READ_INFO_54);
  EXPECT_EQ(All(state.numbers1), (Numbers{1, 1, 0}));
  EXPECT_STREQ(state.texts1[0], "QVP0000000001");
  // The rates, of which the fifth and seventh are dropped, then counters.
  EXPECT_EQ(All(state.numbers2),
            (Numbers{2300, 800, 500, 0, 0, 700, 0, 0, 0, 0}));
  EXPECT_STREQ(state.texts2[0], "2024-01-31 12:05");
  EXPECT_STREQ(state.texts2[2], "0000001");
  const auto versions = AskForBlock<InfoBlock55>(QUIL_READ_INFO_55);
  EXPECT_STREQ(versions.texts[2], "QVP0000000001");
  const auto memories = AskForBlock<InfoBlock56>(QUIL_READ_INFO_56);
  EXPECT_STREQ(memories.text, "QVP0000000001");
  EXPECT_EQ(memories.numbers[0], 30000);
  const auto server = AskForBlock<InfoBlock60>(QUIL_READ_INFO_60);
  EXPECT_STREQ(server.text1, "127.0.0.1");
  EXPECT_STREQ(server.text2, "serwer");
  EXPECT_EQ(All(server.numbers2), (Numbers{0, 1, 2, 3, 4, 5, 0, 7, 0, 0}));
  EXPECT_STREQ(server.texts[4], "0000001");
  const auto network = AskForBlock<InfoBlock61>(QUIL_READ_INFO_61);
  EXPECT_STREQ(network.text, "eth0; 127.0.0.1/8");
  const auto certificate = AskForBlock<InfoBlock64>(QUIL_READ_INFO_64);
  EXPECT_STREQ(certificate.text1, "CERT-1");
  EXPECT_STREQ(certificate.text3, "CN=drukarka");
  EXPECT_STREQ(certificate.text4, "2024-01-31 12:05");
  EXPECT_EQ(All(certificate.numbers), (Numbers{0, 0, 1}));
}

TEST_F(RoundTripTest, InformationBlocksOfNumbers) {
  SellFor(2450);
  Send(QUIL_OPEN_DRAWER);
  const auto counters = AskForBlock<InfoBlock43>(QUIL_READ_INFO_43);
  EXPECT_EQ(All(counters.numbers), (Numbers{1, 0, 0, 0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(AskForBlock<SingleNumber>(QUIL_READ_INFO_57).number, 1);
  EXPECT_EQ(AskForBlock<SixNumbers>(QUIL_READ_INFO_58).numbers[2], 40);
  EXPECT_EQ(AskForBlock<SingleNumber>(QUIL_READ_INFO_59).number, 0);
  EXPECT_EQ(All(AskForBlock<SevenNumbers>(QUIL_READ_INFO_62).numbers),
            (Numbers{24, 0, 0, 0, 0, 0, 0}));
}

TEST_F(RoundTripTest, EparSetsAreKeptByTheirType) {
  EparSet common = {.values = {10, -20, 30}};
  Fill(
      "pierwszy; z/ko\x93"
      "cem",
      common.first_text);
  Fill("drugi", common.second_text);
  Send(QUIL_SET_EPAR_COMMON, &common);
  for (const int32_t type : {1, 2, 3}) {
    EparSet set = {.type = type,
                   .values = {type, 0, -1},
                   .tail_values = {11, 12, 13, 14, 15, 16, 17, 18, 19, 20}};
    Fill("typ", set.first_text);
    Fill("tekst", set.second_text);
    Send(QUIL_SET_EPAR, &set);
  }

  EparSet read = {};
  Ask(QUIL_SEND_EPAR, &read, QUIL_READ_EPAR, &read);
  EXPECT_STREQ(read.first_text, common.first_text);
  EXPECT_EQ(All(read.values), (Numbers{10, -20, 30}));
  EXPECT_STREQ(read.second_text, "drugi");

  // What type 1 does not send comes back as nothing.
  read = {.type = 1};
  Ask(QUIL_SEND_EPAR, &read, QUIL_READ_EPAR, &read);
  EXPECT_EQ(read.type, 1);
  EXPECT_STREQ(read.first_text, "typ");
  EXPECT_STREQ(read.second_text, "");
  EXPECT_EQ(All(read.tail_values), Numbers(10, 0));

  for (const int32_t type : {2, 3}) {
    read = {.type = type};
    Ask(QUIL_SEND_EPAR, &read, QUIL_READ_EPAR, &read);
    EXPECT_EQ(read.type, type);
    EXPECT_EQ(All(read.values), (Numbers{type, 0, -1}));
    EXPECT_STREQ(read.second_text, "tekst");
    EXPECT_EQ(All(read.tail_values),
              (Numbers{11, 12, 13, 14, type == 3 ? 15 : 0, 0, 0, 0, 0, 0}));
  }
}

TEST_F(RoundTripTest, SettingsAreReadBack) {
  NumberAndText service = {.number = -9};
  Fill(
      "\xB3\xB9"
      "cze",
      service.text);
  Send(QUIL_SET_SERW, &service);
  SingleNumber one = {1};
  Ask(QUIL_SEND_SERW, &one, QUIL_READ_SERW, &service);
  EXPECT_EQ(service.number, -9);
  EXPECT_STREQ(service.text,
               "\x92\x86"
               "cze");  // as the printer has it

  UsbSettings usb = {.number = 1, .numbers = {5, -6}};
  Fill("one", usb.long_texts[0]);
  Fill("two", usb.long_texts[1]);
  Fill("3333", usb.long_texts[2]);
  Fill("abc", usb.short_texts[3]);
  Send(QUIL_SET_USB, &usb);
  UsbSettings usb_read = {};
  Ask(QUIL_SEND_USB, nullptr, QUIL_READ_USB, &usb_read);
  EXPECT_STREQ(usb_read.long_texts[0], "one");
  EXPECT_STREQ(usb_read.long_texts[1], "two");
  EXPECT_STREQ(usb_read.long_texts[2], "3333");
  EXPECT_STREQ(usb_read.long_texts[3], "");
  EXPECT_EQ(All(usb_read.numbers), (Numbers{5, -6}));
  EXPECT_STREQ(usb_read.short_texts[3], "abc");

  EmfSettings emf = {.sends_value1 = 1, .value1 = 7, .value2 = 8};
  Fill("a/b;c", emf.text);
  Send(QUIL_SET_EMF, &emf);
  EmfSettings emf_read = {};
  Ask(QUIL_SEND_EMF, nullptr, QUIL_READ_EMF, &emf_read);
  EXPECT_STREQ(emf_read.text, "a/b;c");
  EXPECT_EQ(emf_read.value1, 7);
  EXPECT_EQ(emf_read.value2, 0);  // was not sent

  ThreeNumbers epng = {{1, -2, 3}};
  Send(QUIL_SET_EPNG, &epng);
  ThreeNumbers epng_read = {};
  Ask(QUIL_SEND_EPNG, nullptr, QUIL_READ_EPNG, &epng_read);
  EXPECT_EQ(All(epng_read.numbers), (Numbers{1, -2, 3}));
}

TEST_F(RoundTripTest, SettingsThatTheAnswersDoNotTellAreAccepted) {
  DollarP rates = {.number = 7, .values = {1, 2, 3, 4, 5, 6, 7}};
  Send(QUIL_DOLLAR_P, &rates);
  DollarCapitalP more = {.fields = rates, .parameters = {1, 2, 3, 4, 5, 6, 7}};
  Send(QUIL_DOLLAR_CAPITAL_P, &more);
  NumberAndText number_and_text = {.number = 1};
  Send(QUIL_CARET_C, &number_and_text);
  SingleText text = {"Sklep Ewa"};
  Send(QUIL_DOLLAR_Z, &text);
  SevenTexts seven = {};
  Send(QUIL_CARET_B_1, &seven);
  NumberAndSevenTexts numbered = {};
  Send(QUIL_CARET_B_0, &numbered);
  NumberAndFourTexts four = {};
  Send(QUIL_HASH_B, &four);
  SingleNumber number = {1};
  Send(QUIL_HASH_L, &number);
  Send(QUIL_DOLLAR_M);
  CertSettings certificate = {};
  Send(QUIL_SET_CERT, &certificate);
  Send(QUIL_EXCLAMATION_EDB, &number);
}

TEST_F(RoundTripTest, ReportsAreTold) {
  SellFor(2450);
  HashR daily = {};
  Send(QUIL_HASH_R, &daily);
  TwoTexts dates = {{"2024-01-01", "2024-01-31"}};
  Send(QUIL_DOLLAR_O_10, &dates);
  TwoNumbers range = {{1, 2}};
  Send(QUIL_DOLLAR_O_11, &range);
  HashX report = {};
  Ask(QUIL_DOLLAR_O_12, nullptr, QUIL_READ_HASH_X, &report);
  EXPECT_EQ(report.number, 1);
  EXPECT_STREQ(report.text, "2024-01-31 12:05");

  PmiCommand question = {.parameter = 0, .number = 7, .numbers = {1, 2, 3}};
  PmdAnswer protected_memory = {};
  Ask(QUIL_AT_PMI, &question, QUIL_READ_PMD, &protected_memory);
  EXPECT_EQ(All(protected_memory.numbers), (Numbers{1, 2, 3, 0}));
  EXPECT_EQ(protected_memory.number, 7);
  EXPECT_STREQ(protected_memory.data, "PARAGONY 1");
  EXPECT_STREQ(protected_memory.text, "0000001");

  TwoNumbers counts = {};
  Ask(QUIL_SEND_QUESTION_E, nullptr, QUIL_READ_QUESTION_E, &counts);
  EXPECT_EQ(All(counts.numbers), (Numbers{1, 0}));

  TwoTexts group = {};
  Fill("grupa", group.texts[0]);
  NumberAndText told = {};
  Ask(QUIL_DOLLAR_G, &group, QUIL_READ_DOLLAR_G, &told);
  EXPECT_STREQ(told.text, "grupa");

  for (const int32_t kind : {0, 1, 2}) {
    SixNumbers journal = {{kind, 20, 30, -1, -1, -1}};
    Ask(QUIL_SEND_EDB, &journal, QUIL_READ_EDB, &journal);
    EXPECT_EQ(All(journal.numbers), kind == 0
                                        ? (Numbers{0, 20, 30, 1, -1, -1})
                                        : (Numbers{kind, 20, 30, -1, 1, 0}));
  }
}

TEST_F(RoundTripTest, JournalBringsThePaper) {
  SellFor(2450);
  const auto journal = std::make_unique<ExclamationE>();
  journal->numbers[2] = 3;
  journal->numbers[3] = 4;
  Ask(QUIL_SEND_EXCLAMATION_E, journal.get(), QUIL_READ_EXCLAMATION_E,
      journal.get());
  EXPECT_EQ(journal->numbers[4], 0);
  EXPECT_EQ(journal->numbers[2], 3);
  EXPECT_EQ(journal->numbers[3], 4);
  EXPECT_NE(std::string_view(journal->text).find("PARAGON FISKALNY\n"),
            std::string_view::npos);
}

TEST_F(RoundTripTest, DrawerAndDisplay) {
  Send(QUIL_OPEN_DRAWER);
  EXPECT_EQ(printer().snapshot().drawer_openings, 1);
  DisplayText text = {.mode = 2};
  Fill("\fRazem\r\n12,50 z\xB3", text.text);
  Send(QUIL_DISPLAY, &text);
  DisplayText line = {.mode = 2};
  Fill("Dzi\xEAkujemy", line.text);
  Send(QUIL_EXCLAMATION_D, &line);
  const Snapshot now = printer().snapshot();
  EXPECT_EQ(now.display[0], "Razem");
  EXPECT_EQ(now.display[1], "12,50 zł");
  EXPECT_EQ(now.display[2], "Dziękujemy");
  FiveTexts told = {};
  Ask(QUIL_CARET_T_12, nullptr, QUIL_READ_CARET_T, &told);
  EXPECT_STREQ(told.texts[0], "Razem");
  EXPECT_STREQ(told.texts[1], "12,50 z\x92");
  EXPECT_STREQ(told.texts[2], "Dzi\x91kujemy");
}

TEST_F(RoundTripTest, RefusalsAreReportedOnRequest) {
  HashE mode = {.number = 1};
  Send(QUIL_HASH_E, &mode);
  RawCommand unknown = {.mode = 1};
  Fill("7#unknown", unknown.text);
  Ask(QUIL_SEND_RAW, &unknown, QUIL_READ_HASH_Z, &mode);
  EXPECT_STREQ(mode.number_z, "1022");  // an unknown command
}

TEST_F(RoundTripTest, RawCommandAndAnswer) {
  RawCommand question = {};
  Fill("#v", question.text);
  const auto answer = std::make_unique<RawAnswer>();
  Ask(QUIL_SEND_RAW, &question, QUIL_READ_RAW, answer.get());
  EXPECT_NE(std::string_view(answer->text).find("#RQuilon Virtual"),
            std::string_view::npos);
}

TEST_F(RoundTripTest, LogoAndItsChecksum) {
  const std::vector<uint8_t> bitmap = Bitmap{.pixels = {7, 0, 0, 0}}.File();
  const TestFile file(
      {reinterpret_cast<const char*>(bitmap.data()), bitmap.size()});
  Logo logo = {.number = 3};
  Fill(file.path(), logo.path);
  Send(QUIL_LOGO_FRAME_1, &logo);
  Send(QUIL_SEND_LOGO, &logo);
  // The checksum is worked out in logo_commands_test.cc.
  EXPECT_EQ(Ioctl(QUIL_LOGO_CHECKSUM, &logo), -1);
  EXPECT_STREQ(logo.checksum, "1e8a");
  NoteTested(QUIL_LOGO_CHECKSUM);
  Fill("", logo.checksum);
  Ask(QUIL_LOGO_FRAME_10, &logo, QUIL_READ_LOGO, &logo);
  EXPECT_EQ(logo.value, 5);  // bytes of the image
  EXPECT_STREQ(logo.checksum, "1e8a");
}

TEST_F(RoundTripTest, LogoOfManyBlocks) {
  Bitmap picture = {.width = 100, .height = 60};
  for (int i = 0; i < 16 * 60; ++i) {
    picture.pixels.push_back(static_cast<uint8_t>(i * 7));
  }
  const std::vector<uint8_t> bitmap = picture.File();
  const TestFile file(
      {reinterpret_cast<const char*>(bitmap.data()), bitmap.size()});
  Logo logo = {.number = 4};
  Fill(file.path(), logo.path);
  Send(QUIL_SEND_LOGO, &logo);
  Ask(QUIL_LOGO_FRAME_10, &logo, QUIL_READ_LOGO, &logo);
  EXPECT_EQ(logo.value, 4 + 60 * 13);
}

TEST_F(RoundTripTest, FilesAreStored) {
  std::string bytes;
  for (int i = 0; i < 70000; ++i) {
    bytes += static_cast<char>(i * 31 / 7);
  }
  const TestFile file(bytes);
  FileTransfer transfer = {};
  Fill("dane.bin", transfer.name);
  Fill(file.path(), transfer.path);
  Send(QUIL_SEND_FILE, &transfer);
  FileTransfer empty = {};
  Fill("pusty.bin", empty.name);
  Send(QUIL_SEND_EMPTY_FILE, &empty);
  const Snapshot now = printer().snapshot();
  ASSERT_EQ(now.files.size(), 2U);
  EXPECT_EQ(now.files.at("dane.bin"), bytes);
  EXPECT_EQ(now.files.at("pusty.bin"), "");
}

TEST_F(RoundTripTest, RefusedFileFails) {
  const TestFile file(std::string(3000, 'x'));
  FileTransfer transfer = {};
  Fill("dane.bin", transfer.name);
  Fill(file.path(), transfer.path);
  printer().RefuseNext(1079);
  EXPECT_EQ(Ioctl(QUIL_SEND_FILE, &transfer), -1);
  EXPECT_EQ(printer().snapshot().files.count("dane.bin"), 0U);
}

// Fails, after the last test, for each device command that the printer was not
// reached with.
class AllDeviceCommandsMadeTheTrip : public ::testing::Environment {
 public:
  void TearDown() override {
    const auto& program = *::testing::UnitTest::GetInstance();
    if (program.test_to_run_count() < program.total_test_count()) {
      return;
    }
    for (const DocumentedCode& code : DocumentedCodes()) {
      const bool is_device_command =
          code.code <= 93 || (code.code >= 400 && code.code <= 404);
      EXPECT_TRUE(!is_device_command || IsCovered(code.code, false))
          << code.name << " made no round trip";
    }
  }
};

// GoogleTest deletes it.
[[maybe_unused]] ::testing::Environment* const kAllDeviceCommandsMadeTheTrip =
    ::testing::AddGlobalTestEnvironment(new AllDeviceCommandsMadeTheTrip);

}  // namespace
}  // namespace quilon::testing
