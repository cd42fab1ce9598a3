#include "printer/watch/json.h"

#include <gtest/gtest.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using nlohmann::json;

// The exchange that some bytes bring about on a fresh printer.
json Heard(const std::string& bytes) {
  Bench bench;
  bench.Hear(bytes);
  EXPECT_EQ(bench.heard.size(), 1U);
  json entry = json::parse(JsonOf(bench.heard.at(0)));
  // 2024-01-31T12:05:00.000Z
  EXPECT_EQ(entry.at("time").get<std::string>().size(), 24U);
  entry.erase("time");
  return entry;
}

json Frame(const json& parameters, const std::string& mnemonic,
           const std::string& fields, const std::string& checksum,
           const std::string& answer, int error, const json& reason = {}) {
  json frame = {{"number", 0},          {"client", 0},
                {"kind", "frame"},      {"parameters", parameters},
                {"mnemonic", mnemonic}, {"fields", fields},
                {"checksum", checksum}, {"answer", answer},
                {"error", error}};
  if (!reason.is_null()) {
    frame["reason"] = reason;
  }
  return frame;
}

const json kWrongChecksum = {{"en", "its checksum is wrong or missing"},
                             {"pl", "suma kontrolna jest błędna lub jej brak"}};
const json kUnknown = {{"en", "its mnemonic is unknown"},
                       {"pl", "mnemonik jest nieznany"}};

TEST(ExchangeJson, TakesAFrameApart) {
  EXPECT_EQ(
      Heard(Framed("0;1;0;1;7$hSk\xA2r\rdobry\r")),
      Frame({"0", "1", "0", "1", "7"}, "$h", "Skór↵dobry↵", "right", "", 0));
}

TEST(ExchangeJson, TellsAWrongChecksumAndWhatCameInstead) {
  EXPECT_EQ(Heard(Bare("0;0;0;1;0$h\r00")),
            Frame({"0", "0", "0", "1", "0"}, "$h", "↵00", "wrong", "", 2,
                  kWrongChecksum));
  EXPECT_EQ(Heard(Bare("0;0;0;1;0$h")),
            Frame({"0", "0", "0", "1", "0"}, "$h", "", "wrong", "", 2,
                  kWrongChecksum));
}

TEST(ExchangeJson, TellsAChecksumThatMayBeMissing) {
  EXPECT_EQ(Heard(Bare("#n")), Frame(json::array(), "#n", "", "missing",
                                     // FF ^ "#E0/" = FF ^ 23 ^ 45 ^ 30 ^ 2F
                                     "#E0/86", 0));
  // FF ^ 23 ^ 6E = B2
  EXPECT_EQ(Heard(Bare("#nb2")).at("checksum"), "right");
  // What a display shows may end like a checksum.
  EXPECT_EQ(Heard(Framed("2$dabc")).at("checksum"), "missing");
}

TEST(ExchangeJson, ShowsAStrangeCommandWhole) {
  EXPECT_EQ(Heard(Framed("1;2$Q\x01")),
            Frame({"1", "2"}, "", "$Q☺", "right", "", 1022, kUnknown));
  EXPECT_EQ(Heard(Bare("hello")),
            Frame(json::array(), "", "", "wrong", "", 1022, kUnknown));
}

TEST(ExchangeJson, NamesControlBytes) {
  EXPECT_EQ(Heard("\x10"), (json{{"number", 0},
                                 {"client", 0},
                                 {"kind", "control"},
                                 {"mnemonic", "DLE"},
                                 {"answer", "74"}}));
  EXPECT_EQ(Heard("\x05").at("mnemonic"), "ENQ");
  EXPECT_EQ(Heard("\x05").at("answer"), "6d");
  EXPECT_EQ(Heard("\x1A").at("mnemonic"), "SUB");
}

TEST(ExchangeJson, TellsAFrameThatIsTooLong) {
  EXPECT_EQ(Heard(Bare(std::string(FrameParser::kMaxBody + 1, 'a'))),
            (json{{"number", 0},
                  {"client", 0},
                  {"kind", "overflow"},
                  {"answer", ""},
                  {"error", 1026},
                  {"reason",
                   {{"en", "its frame is longer than 1 MiB"},
                    {"pl", "ramka jest dłuższa niż 1 MiB"}}}}));
}

TEST(ExchangeJson, NamesTheFaultsThatStruck) {
  Bench bench;
  bench.device.OrderFault("late=800");
  bench.device.OrderFault("cut@byte=2");
  bench.Hear("\x05\x05");
  ASSERT_EQ(bench.heard.size(), 2U);
  const json late = json::parse(JsonOf(bench.heard[0]));
  EXPECT_EQ(late.at("faults"), json::array({"late=800"}));
  json cut = json::parse(JsonOf(bench.heard[1]));
  cut.erase("time");
  EXPECT_EQ(cut, (json{{"number", 0},
                       {"client", 0},
                       {"kind", "lost"},
                       {"answer", ""},
                       {"faults", json::array({"cut@byte=2"})}}));
}

TEST(ExchangeJson, TakesAnyBytes) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string body = std::string("2$d") + static_cast<char>(byte);
    Bench bench;
    bench.Hear(Bare(body));
    for (const Exchange& exchange : bench.heard) {
      EXPECT_NO_THROW(JsonOf(exchange)) << byte;
    }
  }
}

TEST(LineJson, NamesAStyleOnlyWhereThereIsOne) {
  EXPECT_EQ(JsonOf(PaperLine{"a \"quoted\" ą"}), R"("a \"quoted\" ą")");
  EXPECT_EQ(JsonOf(PaperLine{"FAKTURA", LineStyle::kBold}),
            R"({"style":"bold","text":"FAKTURA"})");
  EXPECT_EQ(JsonOf(PaperLine{"SUMA PLN 9,00", LineStyle::kDouble}),
            R"({"style":"double","text":"SUMA PLN 9,00"})");
}

TEST(LineJson, HoldsAPicture) {
  const auto logo = std::make_shared<Raster>(Raster{10, 1, "\x7F\xBF"});
  EXPECT_EQ(json::parse(JsonOf(PaperLine{"[grafika 1]", {}, logo})),
            json::parse(R"({"text": "[grafika 1]", "picture":
                            {"width": 10, "height": 1, "rows": "7fbf"}})"));
}

TEST(PrintoutJson, HoldsItsLinesWithTheirStyles) {
  Printout printout;
  printout.lines = {{"RAPORT", LineStyle::kBold}, {"Paragony 1"}};
  EXPECT_EQ(json::parse(JsonOf(printout)).at("lines"),
            json::parse(R"([{"text": "RAPORT", "style": "bold"},
                            "Paragony 1"])"));
}

TEST(StatusJson, HoldsTheTotalsOfBothSeries) {
  Bench bench;
  bench.device.books.receipts = {100, 0, 0, 0, 0, 0, 7};
  bench.device.books.receipt_count = 3;
  bench.device.paper.RunOut();
  const json status = json::parse(JsonOf(StatusOf(bench.device)));
  EXPECT_EQ(status.at("receipts"),
            (json{{"count", 3}, {"totals", {100, 0, 0, 0, 0, 0, 7}}}));
  EXPECT_EQ(status.at("invoices"),
            (json{{"count", 0}, {"totals", {0, 0, 0, 0, 0, 0, 0}}}));
  EXPECT_EQ(status.at("rates"),
            (json{"23%", "8%", "5%", "0%", "zw.", "7%", "4%"}));
  EXPECT_EQ(status.at("paper_out"), true);
  EXPECT_EQ(status.at("online"), true);
  EXPECT_EQ(status.at("display").size(), 8U);
  EXPECT_EQ(status.at("faults"), json::array());
}

TEST(StatusJson, ListsTheFaultsThatWereOrdered) {
  Bench bench;
  bench.device.OrderFault("garble");
  bench.device.OrderFault("late=5x2");
  bench.Hear("\x05");
  const json status = json::parse(JsonOf(StatusOf(bench.device)));
  EXPECT_EQ(status.at("faults"),
            (json{{{"fault", "garble"}, {"struck", 1}, {"over", true}},
                  {{"fault", "late=5x2"}, {"struck", 1}, {"over", false}}}));
}

}  // namespace
}  // namespace quilon::printer
