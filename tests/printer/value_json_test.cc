#include "printer/watch/value_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

using json = nlohmann::ordered_json;

// The text that says the same, its names in their order.
std::string Written(const std::string& text) {
  return json::parse(text).dump(2) + "\n";
}

struct ValueJsonTest : testing::Test, Bench {
  ValueJsonTest() {
    device.paper.set_sinks({}, [this](const Printout& printout) {
      printed.push_back(ValueJson(printout));
    });
  }

  // Of what the last command has finished.
  std::string ValueOf(const std::string& body) {
    printed.clear();
    EXPECT_EQ(Verdict(body), 0) << body;
    return printed.empty() ? "" : printed.back();
  }

  // For 9.00, at 8 %.
  void SellBread() {
    Send("0;0;0;1;0$h\r");
    Send("1;0;0^lChleb\r2\rB/4.50/9/");
    EXPECT_EQ(Verdict("1;0;0;0;0;0$e\r0/9/0/"), 0);
  }

  std::vector<std::string> printed;
};

TEST_F(ValueJsonTest, TellsAReceiptWhole) {
  Send("3#pAnna\r1234\r");
  Send(
      "0;2;0;1;0$hSklep \x9C\xA2"
      "d\xA6\rNIP nabywcy 123-456-32-18\r\r");
  Send("1;1;0^lChleb\r2 szt\rB/4.50/9/10/sta\x92y\r");
  Send("2;0;0^lSer\rw plastrach\r0.755 kg\rC/38.90/29.37/");
  Send("1$l7\r3\rP/0.50/1.50/");
  Send("1$ndodatek\r1/");
  Send("7$d20/2\r\r");
  Send("6$d30/1\r\r");
  // 8.10 and 29.37 make 37.47; less 10 % or 3.75 that is 33.72, of which
  // 810 x 3372 / 3747 = 728.9 are at the rate B. The taxes are 7.28 x 8/108 =
  // 0.539 and 26.44 x 5/105 = 1.259.
  EXPECT_EQ(ValueOf("1;10;1;0;0;0$eKasa 3\rDo widzenia\r0/37.47/0/"),
            Written(R"({
    "kind": "receipt", "printout": 2, "running_number": 2, "number": 1,
    "invoice_number": "",
    "begun": "2024-01-31T12:05", "ended": "2024-01-31T12:05",
    "owner": "Sklep wzorcowy", "client": 1,
    "cashier": "Anna", "cash_desk": 3,
    "header_lines": ["Sklep Łódź"],
    "buyer": [], "buyer_number": "123-456-32-18", "remarks": [],
    "items": [
      {"name": "Chleb", "second_name": "", "quantity": "2", "unit": "szt",
       "price": "4.50", "value": "9.00", "rate": "B",
       "adjustment": {"mode": "percent_off", "value": "10.00",
                      "text": "stały", "changes": "-0.90"},
       "closing_text": ""},
      {"name": "Ser", "second_name": "w plastrach", "quantity": "0.755",
       "unit": "kg", "price": "38.90", "value": "29.37", "rate": "C",
       "adjustment": null, "closing_text": ""}],
    "deposits": [{"number": 7, "quantity": "3", "unit": "", "price": "0.50",
                  "value": "1.50"}],
    "notes": [{"title": "DODATEK", "fields": ["dodatek", {"amount": "1.00"}]}],
    "adjustment": {"mode": "percent_off", "value": "10.00", "text": "",
                   "changes": "-3.75"},
    "rates": [
      {"rate": "B", "net": "6.74", "tax": "0.54", "gross": "7.28",
       "percent": "8%"},
      {"rate": "C", "net": "25.18", "tax": "1.26", "gross": "26.44",
       "percent": "5%"}],
    "tax": "1.80", "total": "33.72", "due": "35.22",
    "payments": [{"form": "card", "number": 2, "amount": "20.00"},
                 {"form": "cash", "number": 1, "amount": "30.00"}],
    "change": "14.78",
    "closing_texts": ["Do widzenia"]})"));
}

TEST_F(ValueJsonTest, TellsAnInvoiceAndOneThatWasGivenUp) {
  const std::string open =
      "1;1;1;0;0;0;0;0;0;0;0$hFV 1\rSprzedawca\r123-456-32-18\rJan Nowak\r\r"
      "ul. Prosta 2\r\ruwaga\r\r";
  Send(open);
  Send("1;3;0^lPorada\r1\rE/50/50/10/\r");
  const json invoice = json::parse(ValueOf("0;0;0;0;0;1;0;0;0$e\r\r\r\r40/0/"));
  EXPECT_EQ(invoice.at("kind"), "invoice");
  EXPECT_EQ(invoice.at("invoice_number"), "FV 1");
  EXPECT_EQ(invoice.at("buyer"), (json{"Jan Nowak", "ul. Prosta 2"}));
  EXPECT_EQ(invoice.at("buyer_number"), "123-456-32-18");
  EXPECT_EQ(invoice.at("remarks"), json{"uwaga"});
  EXPECT_EQ(invoice.at("cash_desk"), json());
  EXPECT_EQ(invoice.at("items").at(0).at("adjustment"),
            json::parse(R"({"mode": "amount_off", "value": "10.00", "text": "",
                            "changes": "-10.00"})"));
  EXPECT_EQ(invoice.at("rates"),
            json::parse(R"([{"rate": "E", "net": "40.00", "tax": "0.00",
                             "gross": "40.00", "percent": "zw."}])"));
  EXPECT_EQ(invoice.at("payments"),
            json::parse(R"([{"form": "cash", "number": 0,
                             "amount": "40.00"}])"));

  Send("0;0;0;1;0$h\r");
  Send("1;0;0^lChleb\r2\rB/4.50/9/");
  Send("6$d5/1\r\r");
  const json cancelled = json::parse(ValueOf("0$e"));
  EXPECT_EQ(cancelled.at("kind"), "cancelled");
  EXPECT_EQ(cancelled.at("number"), 0);
  EXPECT_EQ(cancelled.at("items").at(0).at("value"), "9.00");
  EXPECT_EQ(cancelled.at("rates"), json::array());
  for (const char* name : {"tax", "total", "due", "change"}) {
    EXPECT_EQ(cancelled.at(name), "0.00") << name;
  }
}

TEST_F(ValueJsonTest, TellsADailyReport) {
  SellBread();
  now += std::chrono::minutes(90);
  SellBread();
  Send("0;0;0;1;0$h\r");
  Send("1;0;0^lMleko\r1\rC/7.99/7.99/");
  Send("0$e");
  // 18.00 x 8/108 = 1.333
  EXPECT_EQ(ValueOf("0#rKasa 1\rJan\r"), Written(R"({
    "kind": "report", "printout": 4,
    "title": "RAPORT DOBOWY 1", "running_number": 4,
    "made": "2024-01-31T13:35", "owner": "Sklep wzorcowy",
    "parameters": [], "fields": ["Kasa 1", "Jan"],
    "report": "daily", "number": 1,
    "first_sale": "2024-01-31T12:05", "last_sale": "2024-01-31T13:35",
    "rates_in_force": {"A": "23%", "B": "8%", "C": "5%", "D": "0%", "E": "zw.",
                       "F": "7%", "G": "4%"},
    "receipts": {"count": 2,
      "rates": [{"rate": "B", "net": "16.67", "tax": "1.33",
                 "gross": "18.00"}],
      "tax": "1.33", "total": "18.00"},
    "invoices": {"count": 0, "rates": [], "tax": "0.00", "total": "0.00"},
    "tax": "1.33", "total": "18.00",
    "cancelled": 1, "cancelled_value": "7.99",
    "non_fiscal": 0, "goods_changes": 2, "events": 0})"));
}

TEST_F(ValueJsonTest, TellsAPeriodicReport) {
  SellBread();
  Send("0#r");
  now += std::chrono::days(1);
  SellBread();
  SellBread();
  Send("0#r");
  // 0.67 and 1.33: the tax of each day, not of each document
  EXPECT_EQ(ValueOf("2#o1/2/"), Written(R"({
    "kind": "report", "printout": 6,
    "title": "RAPORT OKRESOWY", "running_number": 6,
    "made": "2024-02-01T12:05", "owner": "Sklep wzorcowy",
    "parameters": ["2"], "fields": ["1", "2"],
    "report": "periodic", "first_report": 1, "last_report": 2,
    "rates": [{"rate": "B", "net": "25.00", "tax": "2.00", "gross": "27.00"}],
    "tax": "2.00", "total": "27.00",
    "receipts": 3, "invoices": 0, "cancelled": 0})"));
}

TEST_F(ValueJsonTest, TellsTheOtherReportsByTheirNames) {
  SellBread();
  Send("3#pAnna\r1234\r");
  Send("0#i20/");
  Send("0#d5.50/");
  const json cash = json::parse(ValueOf("0#t"));
  EXPECT_EQ(cash.at("report"), "cash");
  EXPECT_EQ(cash.at("paid_in"), "20.00");
  EXPECT_EQ(cash.at("paid_out"), "5.50");
  EXPECT_EQ(cash.at("cash"), "23.50");
  const json shift = json::parse(ValueOf("1#kranna\rx\r"));
  EXPECT_EQ(shift.at("report"), "shift");
  EXPECT_EQ(shift.at("shift"), "ranna");
  EXPECT_EQ(shift.at("cashier"), "Anna");
  EXPECT_EQ(shift.at("cash"), "23.50");
  const json memory = json::parse(ValueOf("@PMR1/1/a\rb\r"));
  EXPECT_EQ(memory.at("report"), "memory");
  EXPECT_EQ(memory.at("protected"), true);
  EXPECT_EQ(memory.at("first_document"), 1);
  EXPECT_EQ(memory.at("last_document"), 1);
  EXPECT_EQ(json::parse(ValueOf("@PR1/1/a\rb\r")).at("protected"), false);
  EXPECT_EQ(ValueOf("0#i20/"), Written(R"({
    "kind": "report", "printout": 9,
    "title": "WPŁATA DO KASY", "running_number": 9,
    "made": "2024-01-31T12:05", "owner": "Sklep wzorcowy",
    "parameters": ["0"], "fields": [{"amount": "20.00"}],
    "report": "form"})"));
}

TEST_F(ValueJsonTest, TellsTheLinesOfASlip) {
  Send("0;0;0;0;0;$w\r");
  Send("0;0;0;0;0;0;0$wBon\r");
  EXPECT_EQ(ValueOf("1;0;0;0$w"), Written(R"({
    "kind": "slip", "printout": 1,
    "lines": ["            # NIEFISKALNY #", "Bon",
              "            # NIEFISKALNY #",
              "                        2024-01-31 12:05"]})"));
}

}  // namespace
}  // namespace quilon::printer
