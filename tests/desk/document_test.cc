// What a document says, in exact numbers, and what is refused before anything
// is sent.
#include "desk/document/document.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "desk/document/decimal.h"
#include "desk/document/printable.h"
#include "desk/document/read_document.h"
#include "desk/document/reader.h"

namespace quilon::desk {
namespace {

using nlohmann::json;

TEST(Decimal, IsReadAsItIsWritten) {
  EXPECT_EQ(ParseDecimal("12.98", 2), 1298);
  EXPECT_EQ(ParseDecimal("12.9", 2), 1290);
  EXPECT_EQ(ParseDecimal("12", 2), 1200);
  EXPECT_EQ(ParseDecimal("0.01", 2), 1);
  EXPECT_EQ(ParseDecimal("9999999999", 2), 999'999'999'900);
  EXPECT_EQ(ParseDecimal("0.00000001", 8), 1);
}

TEST(Decimal, IsNothingWhenWrittenOtherwise) {
  for (const char* text :
       {"", ".", "1.", ".5", "-1", "+1", "1,5", "01", "1.234", "1e2", " 1",
        "1 ", "12345678901", "1.2.3", "0x1"}) {
    EXPECT_EQ(ParseDecimal(text, 2), std::nullopt) << text;
  }
}

TEST(Decimal, IsWrittenInTheShortestForm) {
  EXPECT_EQ(AmountText(1298), "12.98");
  EXPECT_EQ(AmountText(5), "0.05");
  EXPECT_EQ(AmountText(-5), "-0.05");
  EXPECT_EQ(AmountText(0), "0.00");
  EXPECT_EQ(QuantityText(200'000'000), "2");
  EXPECT_EQ(QuantityText(75'500'000), "0.755");
  EXPECT_EQ(QuantityText(1), "0.00000001");
}

TEST(Decimal, ValuesAreRoundedHalfUp) {
  EXPECT_EQ(ValueOf(75'500'000, 3890), 2937);  // 29.3695
  EXPECT_EQ(ValueOf(50'000'000, 1), 1);        // 0.005
  EXPECT_EQ(ValueOf(49'999'999, 1), 0);        // 0.00499...
  EXPECT_EQ(ValueOf(INT64_MAX, INT64_MAX), std::nullopt);
  EXPECT_EQ(PercentOf(1000, 2350), 235);
  EXPECT_EQ(PercentOf(999, 5005), 500);  // 4.999995
  EXPECT_EQ(PercentOf(101, 5000), 51);   // 0.505
}

TEST(Printable, KeepsAsciiAndThePolishLetters) {
  EXPECT_EQ(ToPrintable("Zażółć gęślą JAŹŃ!"),
            "Za\xBF\xF3\xB3\xE6 g\xEA\x9Cl\xB9 JA\x8F\xD1!");
  EXPECT_EQ(FirstUnprintable("Zażółć"), "");
}

TEST(Printable, KnowsNoOtherLetter) {
  EXPECT_EQ(ToPrintable("a—b"), std::nullopt);
  EXPECT_EQ(FirstUnprintable("a—b"), "U+2014");
  EXPECT_EQ(FirstUnprintable("a\tb"), "U+0009");
  EXPECT_EQ(FirstUnprintable("é"), "U+00E9");
  EXPECT_EQ(FirstUnprintable("😀"), "U+1F600");
}

// A receipt of 2 * 6.49 = 12.98 at C and 3 * 10.00 at A.
json Receipt() {
  return json::parse(R"({
    "id": "17", "kind": "receipt",
    "lines": [
      {"name": "Chleb", "quantity": "2", "price": "6.49", "rate": "C"},
      {"name": "Kubek", "quantity": "3", "price": "10", "rate": "A"}
    ]})");
}

TEST(Document, AddsUpItsLinesByRate) {
  const Document document = ReadDocument(Receipt());
  EXPECT_EQ(document.Sales(), (PerRate{3000, 0, 1298}));
  EXPECT_EQ(document.Total(), 4298);
  EXPECT_EQ(document.Sold(), document.Sales());
}

TEST(Document, TakesDiscountsOffAndPutsSurchargesOn) {
  json receipt = Receipt();
  receipt["lines"][0]["discount"] = {{"percent", "10"}};  // 1.298, 1.30
  receipt["lines"][1]["surcharge"] = {{"amount", "0.50"}};
  receipt["discount"] = {{"percent", "50"}};
  const Document document = ReadDocument(receipt);
  EXPECT_EQ(document.Sales(), (PerRate{3050, 0, 1168}));
  // Half of 42.18; the shares are 15.25 and 5.84.
  EXPECT_EQ(document.Total(), 2109);
  EXPECT_EQ(document.Sold(), (PerRate{1525, 0, 584}));
}

TEST(Document, SharesOutEveryGrosz) {
  json receipt = Receipt();
  receipt["discount"] = {{"amount", "0.01"}};
  const Document document = ReadDocument(receipt);
  // 42.97 * 3000 / 4298 = 29.993..., * 1298 / 4298 = 12.976...
  EXPECT_EQ(document.Sold(), (PerRate{2999, 0, 1298}));
}

TEST(Document, TheSameDocumentHasTheSameSource) {
  const json other = json::parse(
      R"({"lines": [{"rate": "C", "price": "6.49", "quantity": "2", "name": "Chleb"},
                    {"name": "Kubek", "quantity": "3", "price": "10", "rate": "A"}],
          "kind": "receipt", "id": "17"})");
  EXPECT_EQ(ReadDocument(other).source, ReadDocument(Receipt()).source);
}

// What is put where, and the path that is to be named.
struct Wrong {
  const char* patch;
  const char* path;
};

class WrongReceipt : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongReceipt, IsRefusedWithItsPath) {
  json receipt = Receipt();
  receipt.merge_patch(json::parse(GetParam().patch));
  try {
    ReadDocument(receipt);
    FAIL() << GetParam().patch;
  } catch (const Invalid& invalid) {
    EXPECT_EQ(invalid.path, GetParam().path)
        << GetParam().patch << ": " << invalid.what();
    EXPECT_STRNE(invalid.what(), "");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Document, WrongReceipt,
    ::testing::Values(
        Wrong{R"({"id": null})", "/id"}, Wrong{R"({"id": ""})", "/id"},
        Wrong{R"({"id": 17})", "/id"}, Wrong{R"({"id": "a\nb"})", "/id"},
        Wrong{R"({"kind": "bill"})", "/kind"},
        Wrong{R"({"kind": "slip"})", "/lines"},
        Wrong{R"({"colour": "red"})", "/colour"},
        Wrong{R"({"a/b~c": 1})", "/a~1b~0c"},
        Wrong{R"({"lines": []})", "/lines"},
        Wrong{R"({"lines": {}})", "/lines"},
        Wrong{R"({"lines": [7]})", "/lines/0"},
        Wrong{R"({"lines": [{"name": "A", "quantity": "1", "price": "1"}]})",
              "/lines/0/rate"},
        Wrong{R"({"total": "42.99"})", "/total"},
        Wrong{R"({"total": 42.98})", "/total"},
        Wrong{R"({"change": "1"})", "/change"},
        Wrong{R"({"discount": {"percent": "5", "amount": "1"}})", "/discount"},
        Wrong{R"({"discount": {"percent": "100.01"}})", "/discount/percent"},
        Wrong{R"({"discount": {"amount": "42.99"}})", "/discount"},
        Wrong{R"({"discount": {"amount": "0"}})", "/discount/amount"},
        Wrong{R"({"discount": {"amount": "1"}, "surcharge": {"amount": "1"}})",
              "/surcharge"},
        Wrong{R"({"payments": [{"form": "gold", "amount": "50"}]})",
              "/payments/0/form"},
        Wrong{R"({"payments": [{"form": "cash", "amount": "42.97"}]})",
              "/payments"},
        Wrong{R"({"payments": [{"form": "card", "amount": "50"}]})",
              "/payments"},
        Wrong{R"({"payments": [{"form": "cash", "amount": "50"}],
                  "change": "7.01"})",
              "/change"},
        Wrong{R"({"header": ["a", "b", "c", "d"]})", "/header"},
        Wrong{R"({"footer": ["Dziękujemy", "żółw — ryba"]})", "/footer/1"},
        Wrong{R"({"cashier": "ананас"})", "/cashier"},
        Wrong{R"({"buyer": {"nip": "999-000-00-09"}})", "/buyer/nip"},
        Wrong{R"({"buyer": {}})", "/buyer/nip"}));

class WrongLine : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongLine, IsRefusedWithItsPath) {
  json receipt = Receipt();
  receipt["lines"][1].merge_patch(json::parse(GetParam().patch));
  try {
    ReadDocument(receipt);
    FAIL() << GetParam().patch;
  } catch (const Invalid& invalid) {
    EXPECT_EQ(invalid.path, std::string("/lines/1").append(GetParam().path))
        << invalid.what();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Document, WrongLine,
    ::testing::Values(
        Wrong{R"({"name": "  "})", "/name"},
        // 61 letters.
        Wrong{
            R"({"name": "1234567890123456789012345678901234567890123456789012345678901"})",
            "/name"},
        Wrong{R"({"quantity": "0"})", "/quantity"},
        Wrong{R"({"quantity": 3})", "/quantity"},
        // Eleven letters, and the fraction begins with a zero.
        Wrong{R"({"quantity": "12.04567891"})", "/quantity"},
        Wrong{R"({"price": "10.005"})", "/price"},
        Wrong{R"({"price": "10000000"})", "/price"},
        Wrong{R"({"rate": "H"})", "/rate"}, Wrong{R"({"rate": "AB"})", "/rate"},
        Wrong{R"({"value": "30.01"})", "/value"},
        Wrong{R"({"discount": {"amount": "30.01"}})", "/discount"},
        Wrong{R"({"discount": {}})", "/discount"},
        Wrong{R"({"discount": "10"})", "/discount"},
        Wrong{R"({"unit": 5})", "/unit"}));

TEST(Document, InvoicesNeedNumberAndBuyer) {
  json invoice = Receipt();
  invoice["kind"] = "invoice";
  invoice["buyer"] = {{"name", "Zofia Łącka"}};
  EXPECT_THROW(ReadDocument(invoice), Invalid);
  invoice["number"] = "17/2024";
  EXPECT_EQ(ReadDocument(invoice).number, "17/2024");
  invoice.erase("buyer");
  EXPECT_THROW(ReadDocument(invoice), Invalid);
}

TEST(Document, ReportsTakeADay) {
  const auto report = [](const char* date) {
    return json{{"id", "r"}, {"kind", "daily_report"}, {"date", date}};
  };
  EXPECT_EQ(ReadDocument(report("2024-02-29")).date, "2024-02-29");
  for (const char* date : {"2023-02-29", "2024-13-01", "24-01-01", "2024-1-31",
                           "2024-01-3a", "1924-01-31"}) {
    EXPECT_THROW(ReadDocument(report(date)), Invalid) << date;
  }
}

TEST(ParseText, RefusesWhatIsNoJson) {
  EXPECT_THROW(ParseText(nullptr), Invalid);
  for (const char* text :
       {"", "{", "{\"a\":}", "\xFF", "{\"a\": \"\xC5\"}", "1 2",
        "[[[[[[[[[[[[[[[[[[[[1]]]]]]]]]]]]]]]]]]]]", R"({"a": 1, "a": 2})",
        R"({"b": {"a": 1, "a": 1}})"}) {
    EXPECT_THROW(ParseText(text), Invalid) << text;
  }
  EXPECT_THROW(ParseText(std::string(2 << 20U, ' ').c_str()), Invalid);
  EXPECT_EQ(ParseText(R"([{"a": 1}, {"a": 1}])").size(), 2U);
}

}  // namespace
}  // namespace quilon::desk
