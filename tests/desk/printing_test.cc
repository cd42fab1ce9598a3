// What the printer's books prove of a document, and what a profile may say.
#include "desk/printing/printing.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "desk/document/read_document.h"
#include "desk/document/reader.h"
#include "desk/printing/answers.h"
#include "desk/printing/commands.h"
#include "desk/printing/station.h"
#include "desk/profile/profile.h"
#include "desk/profile/settings.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

Document Read(const char* text) { return ReadDocument(json::parse(text)); }

// 12.98 at C.
Document Receipt() {
  return Read(R"({"id": "1", "kind": "receipt", "lines": [
      {"name": "Chleb", "quantity": "2", "price": "6.49", "rate": "C"}]})");
}

Books At(std::array<int32_t, kRates> totals, int64_t counter = 0) {
  return {"QVP", totals, counter};
}

TEST(Growth, ByExactlyTheDocumentIsBooked) {
  EXPECT_EQ(GrowthOf(Receipt(), At({5, 6, 7}), At({5, 6, 1305}, 1)),
            Growth::kBooked);
  // The totals prove it, whatever the counter says.
  EXPECT_EQ(GrowthOf(Receipt(), At({}), At({0, 0, 1298})), Growth::kBooked);
}

TEST(Growth, OfNothingIsNone) {
  EXPECT_EQ(GrowthOf(Receipt(), At({5, 6, 7}), At({5, 6, 7})), Growth::kNone);
}

TEST(Growth, ByAnythingElseIsForAPerson) {
  // Another rate, twice, a grosz more, less, and counted but not summed up.
  for (const Books& after :
       {At({0, 1298, 0}), At({0, 0, 2596}), At({0, 0, 1299}), At({0, 0, 1297}),
        At({1, 0, 1298}), At({-1298, 0, 2596}), At({}, 1)}) {
    EXPECT_EQ(GrowthOf(Receipt(), At({}), after), Growth::kOther);
  }
}

TEST(Growth, OfAnotherPrinterSaysNothing) {
  Books other = At({0, 0, 1298}, 1);
  other.printer = "QVX";
  EXPECT_EQ(GrowthOf(Receipt(), At({}), other), Growth::kOtherPrinter);
}

TEST(Growth, PassesTheEndOfThirtyTwoBits) {
  constexpr int32_t kLast = INT32_MAX;
  EXPECT_EQ(
      GrowthOf(Receipt(), At({0, 0, kLast}), At({0, 0, INT32_MIN + 1297})),
      Growth::kBooked);
  EXPECT_EQ(GrowthOf(Receipt(), At({0, 0, -1}), At({0, 0, 1297})),
            Growth::kBooked);
}

TEST(Growth, SharesOfAWholeDiscountMayBeRoundedInAnyWay) {
  const Document document = Read(R"({"id": "1", "kind": "receipt",
      "discount": {"amount": "0.01"}, "lines": [
      {"name": "Chleb", "quantity": "2", "price": "6.49", "rate": "C"},
      {"name": "Kubek", "quantity": "3", "price": "10", "rate": "A"}]})");
  EXPECT_EQ(GrowthOf(document, At({}), At({2999, 0, 1298})), Growth::kBooked);
  EXPECT_EQ(GrowthOf(document, At({}), At({3000, 0, 1297})), Growth::kBooked);
  EXPECT_EQ(GrowthOf(document, At({}), At({3000, 0, 1298})), Growth::kOther);
  EXPECT_EQ(GrowthOf(document, At({}), At({2998, 1, 1298})), Growth::kOther);
  EXPECT_EQ(GrowthOf(document, At({}), At({4297, 0, 0})), Growth::kOther);
}

TEST(Growth, CountersTellWhatTotalsCannot) {
  const Document report = Read(R"({"id": "r", "kind": "daily_report"})");
  EXPECT_EQ(GrowthOf(report, At({}, 3), At({}, 4)), Growth::kBooked);
  EXPECT_EQ(GrowthOf(report, At({}, 3), At({}, 3)), Growth::kNone);
  EXPECT_EQ(GrowthOf(report, At({}, 3), At({}, 5)), Growth::kOther);
  EXPECT_EQ(GrowthOf(report, At({}, 3), At({1}, 4)), Growth::kOther);
  EXPECT_EQ(GrowthOf(report, Books(), Books()), Growth::kUnknown);
}

TEST(Growth, OfNothingSoldIsToldByTheCounterOnly) {
  const Document nothing = Read(R"({"id": "1", "kind": "receipt", "lines": [
      {"name": "Chleb", "quantity": "2", "price": "6.49", "rate": "C",
       "discount": {"percent": "100"}}]})");
  EXPECT_EQ(GrowthOf(nothing, At({}, 3), At({}, 4)), Growth::kBooked);
  EXPECT_EQ(GrowthOf(nothing, Books(), Books()), Growth::kUnknown);
}

Profile Usual() { return ReadProfile(ParseText(UsualProfile())); }

TEST(Commands, FractionsGoAsText) {
  const Document document = Read(R"({"id": "1", "kind": "receipt", "lines": [
      {"name": "Ser", "quantity": "1.05", "price": "10", "rate": "A"},
      {"name": "Chleb", "quantity": "3", "price": "10", "rate": "A"},
      {"name": "Złoto", "quantity": "1234.56789012", "price": "1", "rate": "A"}
      ]})");
  const Commands commands = CommandsFor(document, Usual());
  const auto line = [&](size_t index) {
    return std::get<DocumentLine>(commands.opening.at(index).record);
  };
  EXPECT_STREQ(line(1).quantity_text, "1.05");
  EXPECT_STREQ(line(2).quantity_text, "");
  EXPECT_EQ(line(2).quantity, 300'000'000);
  // Too long for the text; as a number it arrives whole.
  EXPECT_STREQ(line(3).quantity_text, "");
  EXPECT_EQ(line(3).quantity, 123'456'789'012);
}

TEST(Commands, NameAndAddressAreBrokenAtBlanks) {
  const Document document = Read(R"({"id": "1", "kind": "invoice",
      "number": "7", "lines": [
      {"name": "Ser", "quantity": "1", "price": "10", "rate": "A"}],
      "buyer": {"nip": "9990000008", "name": "Hurtownia Nabiału Świt sp. z o.o.",
                "address": ["00-123 Warszawa"]}})");
  const Commands commands = CommandsFor(document, Usual());
  const auto& header = std::get<BuyerHeader>(commands.opening.at(0).record);
  EXPECT_STREQ(header.buyer_text1, "9990000008");
  EXPECT_STREQ(header.buyer_text2, "Hurtownia Nabia\xB3u");  // 17 letters
  EXPECT_STREQ(header.buyer_text3, "\x8Cwit sp. z o.o.");
  EXPECT_STREQ(header.buyer_text4, "00-123 Warszawa");
  EXPECT_STREQ(header.buyer_text5, "");
}

TEST(Commands, WhatHasNoRoomIsRefusedWithItsPath) {
  const Document document = Read(R"({"id": "1", "kind": "receipt", "lines": [
      {"name": "Ser", "quantity": "1", "price": "10", "rate": "A"}],
      "footer": ["1", "2", "3"], "cashier": "Anna"})");
  try {
    CommandsFor(document, Usual());
    FAIL();
  } catch (const Invalid& invalid) {
    EXPECT_EQ(invalid.path, "/cashier");
  }
}

TEST(Profile, TheUsualOneNamesNumbersOfThePrinter) {
  const Profile profile = Usual();
  EXPECT_EQ(profile.counters.size(), 4U);
  for (const auto& [kind, field] : profile.counters) {
    EXPECT_TRUE(IsNumber(field)) << field;
  }
  EXPECT_FALSE(IsNumber("InfoBlock43.numbers[9]"));
  EXPECT_FALSE(IsNumber(""));
}

class WrongProfile : public ::testing::TestWithParam<const char*> {};

TEST_P(WrongProfile, IsRefused) {
  json profile = ParseText(UsualProfile());
  profile.merge_patch(json::parse(GetParam()));
  EXPECT_THROW(ReadProfile(profile), Invalid);
}

INSTANTIATE_TEST_SUITE_P(
    Profile, WrongProfile,
    ::testing::Values(R"({"name": null})", R"({"colour": 1})",
                      R"({"payments": {"cash": {"code": 200}}})",
                      R"({"payments": {"cash": {"code": null}}})",
                      R"({"texts": {"cashier": {"place": "sky"}}})",
                      R"({"invoice_buyer": {"nip": "buyer_text6"}})",
                      R"({"invoice_buyer": {"name_and_address": ["x"]}})",
                      R"({"counters": {"bill": "Identity.number"}})",
                      R"({"slip_number": "200"})"));

TEST(Settings, TakeEveryWait) {
  const Settings settings = ReadSettings(json::parse(R"({
      "printer": {"serial": {"name": "COM3", "baud": 19200, "threaded": true,
                             "flow": "hardware"}},
      "journal": "j",
      "limits": {"reply_ms": 1, "closing_ms": 2, "call_ms": 3, "attempts": 4}
      })"));
  const auto& serial = std::get<SerialParams>(settings.printer);
  EXPECT_STREQ(serial.port_name, "COM3");
  EXPECT_EQ(serial.baud_rate, 19200U);
  EXPECT_EQ(serial.threaded, 1U);
  EXPECT_EQ(serial.reply_timeout, 1U);
  EXPECT_EQ(serial.flow_control, 1U);
  EXPECT_EQ(settings.limits.closing.count(), 2);
  EXPECT_EQ(settings.limits.call.count(), 3);
  EXPECT_EQ(settings.limits.attempts, 4);
}

class WrongSettings : public ::testing::TestWithParam<const char*> {};

TEST_P(WrongSettings, AreRefused) {
  json settings = json::parse(
      R"({"printer": {"tcp": {"address": "127.0.0.1", "port": 1}},
          "journal": "j"})");
  settings.merge_patch(json::parse(GetParam()));
  EXPECT_THROW(ReadSettings(settings), Invalid) << settings;
}

INSTANTIATE_TEST_SUITE_P(
    Settings, WrongSettings,
    ::testing::Values(R"({"journal": ""})", R"({"journal": null})",
                      R"({"printer": null})",
                      R"({"printer": {"serial": {"name": "COM1"}}})",
                      R"({"printer": {"tcp": {"address": ""}}})",
                      R"({"printer": {"tcp": {"port": 65536}}})",
                      R"({"printer": {"tcp": {"port": "6001"}}})",
                      R"({"limits": {"reply_ms": 0}})",
                      R"({"limits": {"reply_ms": 18446744073709551615}})",
                      R"({"limits": {"attempts": 1.5}})",
                      R"({"profile": "no such file"})", R"({"speed": 1})"));

}  // namespace
}  // namespace quilon::desk
