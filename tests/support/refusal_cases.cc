#include "tests/support/refusal_cases.h"

namespace quilon::testing {
namespace {

using printer::Rule;
using Commands = std::vector<std::string>;

const std::string kOpen = "0;0;0;1;0$h\r";
// Two at 4.50 make 9.00.
const std::string kLine = "1;0;0^lChleb\r2\rA/4.50/9/";
const std::string kClose = "1;0;0;0;0;0$e\r0/9/0/";
const Commands kSale = {kOpen, kLine, kClose};
const Commands kOpenSale = {kOpen, kLine};
const std::string kReport = "0#r";
const Commands kReportedSale = {kOpen, kLine, kClose, kReport};
const Commands kLogo = {"0;^F0/10/0/10/0008000180\r7/"};

// 1x6+2x5+3x7+4x2+5x3+6x4+3x5+2x6+1x7 = 118, and 118 = 10x11 + 8
const std::string kTaxNumber = "123-456-32-18";

// An invoice's header with its number, the NIP and the name of the buyer.
std::string Invoice(const std::string& number, const std::string& tax_number,
                    const std::string& name) {
  return "1;0;1;0;0;0;0;0;0;0;0$h" + number + "\r" + tax_number + "\r" + name +
         "\r\r\r\r\r\r";
}

Commands operator+(Commands commands, const std::string& command) {
  commands.push_back(command);
  return commands;
}

Commands Times(size_t count, const Commands& commands) {
  Commands result;
  for (size_t i = 0; i < count; ++i) {
    result.insert(result.end(), commands.begin(), commands.end());
  }
  return result;
}

Commands After(Commands first, const Commands& then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

std::vector<RefusalCase> OfTheDay() {
  return {
      {Rule::kNoSuchTime, {}, "24;2;30;0;0;0$c\r\r"},
      {Rule::kSalesBeforeClock, kSale, "24;1;31;12;6;0$c\r\r"},
      {Rule::kClockTooFar, {}, "24;1;31;14;6;0$c\r\r"},
      {Rule::kClockTooFar, {}, "24;1;31;10;4;0$c\r\r"},
      {Rule::kClockBeforeRecord, kReportedSale, "24;1;31;12;4;0$c\r\r"},
      {Rule::kSalesBeforeRates, kSale, "1$p\r\r800/0/0/0/0/0/0/"},
      {Rule::kRateValues, {}, "0$p\r\r800/0/0/0/0/0/0/"},
      {Rule::kRateValues, {}, "8$p\r\r800/0/0/0/0/0/0/"},
      {Rule::kRateValues, {}, "1$p\r\r10001/0/0/0/0/0/0/"},
      {Rule::kRateValues, {}, "2$p\r\r800/-1/0/0/0/0/0/"},
      {Rule::kSameRates, {}, "7$p\r\r2300/800/500/0/10000/700/400/"},
      {Rule::kSameRates,
       {"1$p\r\r800/0/0/0/0/0/0/"},
       "1$p\r\r800/1/1/1/1/1/1/"},
      {Rule::kRatesTwice,
       {"1$p\r\r800/0/0/0/0/0/0/"},
       "1$p\r\r700/0/0/0/0/0/0/"},
      {Rule::kRateChanges,
       Times(15, {"1$p\r\r800/0/0/0/0/0/0/", kReport, "1$p\r\r700/0/0/0/0/0/0/",
                  kReport}),
       "1$p\r\r800/0/0/0/0/0/0/"},
      {Rule::kSalesBeforeHeader, kSale, "100;1$zSklep Ewa\r"},
      {Rule::kHeaderText, {}, "100;1$z" + std::string(41, 'x') + "\r"},
      {Rule::kNoHeader, {"100;1$z \r"}, kOpen},
      {Rule::kReportDue, kSale, kOpen, 1},
      {Rule::kReportDue, kSale, Invoice("17", kTaxNumber, "Jan"), 1},
      {Rule::kReportDue, After(kReportedSale, kSale), kOpen, 30},
      {Rule::kNothingToReport, {}, kReport},
      {Rule::kNothingToReport, kReportedSale, kReport},
      {Rule::kNothingToReport, kReportedSale, kReport, 1},
      {Rule::kReportDate, kSale, "1;30;1;24#r"},
      {Rule::kReportDate, kSale, "1;31;1;24#r", 1},
      {Rule::kReportDate, kSale, "1;31;2;24#r"},
      {Rule::kReportedDay, After(kReportedSale, kSale), "1;31;1;24#r"},
      {Rule::kReportDate, kReportedSale, "31;1;24;31;2;24;2#o"},
      {Rule::kReportDate, kReportedSale, "1$o2024-01-01\r2024-13-01\r"},
      {Rule::kReportDate, kReportedSale, "1$ood\rdo\r"},
      {Rule::kReportRange, kReportedSale, "1;2;24;31;1;24;2#o"},
      {Rule::kReportRange, kReportedSale, "1$o2024-02-01\r2024-01-31\r"},
      {Rule::kReportRange, kReportedSale, "2#o2/1/"},
      {Rule::kReportRange, kReportedSale, "2$o2/1/"},
      {Rule::kReportRange, kSale, "@PR1/0/a\rb\r"},
      {Rule::kNoReports, kReportedSale, "1;2;24;2;2;24;2#o"},
      {Rule::kNoReports, kReportedSale, "2#o2/3/"},
      {Rule::kNoReports, {}, "3$o"},
      {Rule::kDocumentNumber, kSale, "@PR1/2/a\rb\r"},
      {Rule::kDocumentNumber, kSale, "@PMR0/1/a\rb\r"},
  };
}

std::vector<RefusalCase> OfOpening() {
  return {
      {Rule::kDocumentOpen, {kOpen}, kOpen},
      {Rule::kDocumentOpen, {kOpen}, Invoice("17", kTaxNumber, "Jan")},
      {Rule::kForbiddenNow, {kOpen}, kReport},
      {Rule::kForbiddenNow, {"0;0;0;0;0;$w\r"}, kOpen},
      {Rule::kBuyerMissing, {}, Invoice("17", "", "")},
      {Rule::kBuyerMissing, {}, Invoice("17", " ", " ")},
      {Rule::kBuyerName, {}, Invoice("17", kTaxNumber, "")},
      {Rule::kBuyerNumber, {}, Invoice("17", "123-456-32-19", "Jan")},
      // 153 = 13x11 + 10: no tenth digit makes it a NIP
      {Rule::kBuyerNumber, {}, Invoice("17", "1234563260", "Jan")},
      {Rule::kBuyerNumber, {}, Invoice("17", "123456321", "Jan")},
      {Rule::kBuyerNumber, {}, Invoice("17", "12345632180", "Jan")},
      {Rule::kBuyerNumber, {}, "0;1;0;1;0$hNIP nabywcy 123-456-32-19\r\r"},
      {Rule::kBuyerNumber, {}, "0;0;0;1;0$hNIP nabywcy:\r"},
      {Rule::kCashDesk, {}, "0;0;0;1;0$hKasa 1000\r"},
      {Rule::kBuyerText, {}, Invoice("17", "", std::string(81, 'x'))},
      {Rule::kInvoiceNumber, {}, Invoice("", kTaxNumber, "Jan")},
      {Rule::kInvoiceNumber,
       {Invoice("17", kTaxNumber, "Jan"), kLine, kClose},
       Invoice("17", "", "Ewa")},
      {Rule::kText, {}, "0;1;0;1;0$hSklep\x07\r\r"},
      {Rule::kTextLength, {}, "0;0;0;1;0$h" + std::string(1001, 'x') + "\r"},
  };
}

std::vector<RefusalCase> OfLines() {
  const std::string long_name(81, 'x');
  return {
      {Rule::kNoTransaction, {}, kLine},
      {Rule::kNoTransaction, {}, "6$d5/1\r\r"},
      {Rule::kNoTransaction, {}, "1$ndodatek\r1/"},
      {Rule::kNoDocument, {}, "0$e"},
      {Rule::kNoDocument, {}, kClose},
      {Rule::kNoDocument, kSale, kClose},
      {Rule::kItemName, {kOpen}, "1;0;0^l\r2\rA/4.50/9/"},
      {Rule::kItemNameForm, {kOpen}, "1;0;0^l  \r2\rA/4.50/9/"},
      {Rule::kItemNameForm, {kOpen}, "1;0;0^l" + long_name + "\r2\rA/4.50/9/"},
      {Rule::kItemNameForm,
       {kOpen},
       "1;0;0^lChleb\r" + long_name + "\r2\rA/4.50/9/"},
      {Rule::kQuantity, {kOpen}, "1;0;0^lChleb\r0\rA/4.50/9/"},
      {Rule::kQuantity, {kOpen}, "1;0;0^lChleb\r\rA/4.50/9/"},
      {Rule::kUnit, {kOpen}, "1;0;0^lChleb\r2 opakowanie\rA/4.50/9/"},
      {Rule::kRateLetter, {kOpen}, "1;0;0^lChleb\r2\rH/4.50/9/"},
      {Rule::kUnusedRate,
       {"1$p\r\r800/0/0/0/0/0/0/", kOpen},
       "1;0;0^lChleb\r2\rB/4.50/9/"},
      {Rule::kSecondRate, kOpenSale, "1;0;0^lChleb\r2\rB/4.50/9/"},
      {Rule::kSecondRate, kSale + kOpen, "1;0;0^lChleb\r2\rB/4.50/9/"},
      {Rule::kPrice, {kOpen}, "1;0;0^lChleb\r2\rA/0/0/"},
      {Rule::kValue, {kOpen}, "1;0;0^lChleb\r2\rA/4.50/9.01/"},
      {Rule::kTakenBack, {kOpen}, "1;0;0^lChleb\r-2\rA/4.50/-9/"},
      {Rule::kTakenBack, kOpenSale, "1;0;0^lChleb\r2\rA/-4.-50/-9/"},
      {Rule::kTotalTooLarge, kOpenSale, "1;0;0^lDom\r1\rA/99999999/99999999/"},
      {Rule::kDeposit, {kOpen}, "1$l7\r3\rP/0.50/1.49/"},
      {Rule::kAdjustment, {kOpen}, "1;1;0^lChleb\r2\rA/4.50/9/100/rabat\r"},
      {Rule::kAdjustment, {kOpen}, "1;3;0^lChleb\r2\rA/4.50/9/-1/rabat\r"},
      {Rule::kNoAdjustment, {kOpen}, "1;0;0^lChleb\r2\rA/4.50/9/1/rabat\r"},
      {Rule::kSurcharge, {kOpen}, "1;2;0^lChleb\r2\rA/4.50/9/100.10/narzut\r"},
      {Rule::kSurcharge, {kOpen}, "1;4;0^lChleb\r2\rA/4.50/9/9.01/narzut\r"},
      {Rule::kSurcharge, kOpenSale, "1;0;0;0;2;0$e\r0/9/101/"},
      {Rule::kSubtotal, kOpenSale, "1;2$Y8/2/podsuma\r"},
      {Rule::kLineCount, After({kOpen}, Times(10'000, {kLine})), kLine},
      {Rule::kNoteCount, After({kOpen}, Times(1000, {"1$ndodatek\r1/"})),
       "1$ndodatek\r1/"},
      {Rule::kText,
       {kOpen},
       "1;0;0^lChl\x1F"
       "eb\r2\rA/4.50/9/"},
      {Rule::kFieldCount, {kOpen}, "1;0;0^lChleb\r2\rA/4.50/9"},
      {Rule::kParameter, {kOpen}, "x;0;0^lChleb\r2\rA/4.50/9/"},
  };
}

std::vector<RefusalCase> OfPaymentsAndClosing() {
  const std::string invoice = Invoice("17", kTaxNumber, "Jan");
  return {
      {Rule::kPayment, kOpenSale, "6$d0/1\r\r"},
      {Rule::kPayment, kOpenSale, "6$d-1/1\r\r"},
      {Rule::kPaymentBeforeLine, {kOpen}, "6$d5/1\r\r"},
      {Rule::kPaymentAfterAll, kOpenSale + "6$d9/1\r\r", "7$d1/1\r\r"},
      {Rule::kPaymentAfterAll, kOpenSale + "6$d20/1\r\r", "6$d20/1\r\r"},
      {Rule::kPaidDiffers, kOpenSale + "6$d10/1\r\r",
       "1;0;0;0;0;0$e\r9.50/9/0/"},
      {Rule::kPaymentsDiffer, kOpenSale + "6$d9/1\r\r",
       "5;0;1;0;0;0;0;0;1;0;0$x\r\r\r\r\r\r\r\r\r9/0/0/0/0/0/8/0/0/"},
      {Rule::kPaymentsDiffer, kOpenSale + "6$d9/1\r\r",
       "0;0;0;0;0;1;0;0;0;0;0;$ykod\rkasa\rwstep\r1\rgotowka\r"
       "9/0/0/0/0/8/"},
      {Rule::kPayment, kOpenSale,
       "0;0;0;0;0;1;0;0;0;0;0;$ykod\rkasa\rwstep\r1\rgotowka\r"
       "9/0/0/0/0/-9/"},
      {Rule::kChange, kOpenSale + "7$d10/1\r\r", kClose},
      {Rule::kChange, kOpenSale + "10$d9.01/1\r\r", kClose},
      {Rule::kNoLine, {kOpen}, "1;0;0;0;0;0$e\r0/0/0/"},
      {Rule::kOtherSeries, kOpenSale, "0;0;0;0;0;1;0;0;0$e\r\r\r\r9/0/"},
      {Rule::kOtherSeries,
       {invoice, kLine},
       "2;3;0;0;0;1;0;0;0;0;0;$ykod\rkasa\rwstep\r\r\r9/0/0/0/0/9/"},
      {Rule::kTotal, kOpenSale, "1;0;0;0;0;0$e\r0/8.99/0/"},
      {Rule::kUnpaid, kOpenSale, "1;0;0;0;0;0$e\r8.99/9/0/"},
      {Rule::kUnpaid, kOpenSale + "6$d8/1\r\r", kClose},
      {Rule::kBuyerNumber, kOpenSale,
       "1;0;0;0;0;0$eNIP nabywcy: 1234563219\r0/9/0/"},
      {Rule::kCashDesk, {invoice, kLine}, "1;0;0;0;0;0$eKasa -1\r0/9/0/"},
      {Rule::kUnpaid, kOpenSale + "1$l7\r3\rP/0.50/1.50/",
       "1;0;0;0;0;0$e\r9/9/0/"},
  };
}

std::vector<RefusalCase> OfAllElse() {
  return {
      {Rule::kUnknownCommand, {}, "1$Q"},
      {Rule::kCashierName, {}, "7#p\r007\r"},
      {Rule::kCashierNumber, {}, "1000#pJan\r\r"},
      {Rule::kCashierNumber, {}, "-1#pJan\r\r"},
      {Rule::kOtherCashier, {"7#pJan\r\r"}, "8#pEwa\r\r"},
      {Rule::kOtherCashier, {"7#pJan\r\r"}, "1#pEwa\r\r"},
      {Rule::kOtherCashier, {"7#pJan\r\r"}, "0#qEwa\r\r"},
      {Rule::kOtherCashier, {}, "0#qJan\r\r"},
      {Rule::kShiftText, {}, "5#k\r\r"},
      {Rule::kCashAmount, {}, "0#i0/"},
      {Rule::kCashDesk, {}, "1000#i5/"},
      {Rule::kCashDesk, kSale, "-1#d5/"},
      {Rule::kDrawerTooFull, {"0#i99999999.99/"}, "0#i0.01/"},
      {Rule::kDrawerTooEmpty, kSale, "0#d9.01/"},
      {Rule::kSlipLines,
       After({"0;0;0;0;0;$w\r"},
             Times(125, {"0;0;0;0;0;0;0$wa\rb\rc\rd\re\rf\rg\rh\r"})),
       "0;0;0;0;0;0;0$wa\r"},
      {Rule::kFileData, {}, "0;0@A1/4/plik\r5c\r"},
      {Rule::kFileName, {}, "0;0@A1/2/a/b\r5c\r"},
      {Rule::kFileSpace, {}, "0;0@A16777217/2/plik\r5c\r"},
      {Rule::kLogoData, {}, "0;^F0/10/2/2/80\r7/"},
      {Rule::kLogoImage, {}, "0;^F0/8/0/8/00080001\r7/"},
      {Rule::kEmptyLogo, {}, "0;^F0/8/0/8/00000000\r7/"},
      // 385 pixels are 49 bytes.
      {Rule::kWideLogo,
       {},
       "0;^F0/106/0/106/01810001" + std::string(98, '0') + "\r7/"},
      {Rule::kLogoKept, kLogo, "0;^F0/10/0/2/00\r7/"},
      {Rule::kNoLogo, {}, "10;^F0/0\r7/"},
  };
}

}  // namespace

std::vector<RefusalCase> RefusalCases() {
  std::vector<RefusalCase> all;
  for (const auto& some : {OfTheDay(), OfOpening(), OfLines(),
                           OfPaymentsAndClosing(), OfAllElse()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace quilon::testing
