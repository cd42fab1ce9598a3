#include "desk/profile/profile.h"

#include "desk/document/reader.h"

namespace quilon::desk {
namespace {

constexpr int64_t kMostNumber = 1'000'000;

PaymentCommand ReadPayment(const Reader& payments, const char* form) {
  constexpr int64_t kFirstCode = 207;
  constexpr int64_t kLastCode = 210;
  const Reader given = payments.Object(form);
  given.AllowOnly({"code", "number"});
  if (!given.Has("code")) {
    given.Fail("code", "is missing");
  }
  return {static_cast<int32_t>(given.Integer("code", kFirstCode, kLastCode, 0)),
          static_cast<int32_t>(given.Integer("number", 0, kMostNumber, 0))};
}

TextPlace ReadPlace(const Reader& texts, const char* name) {
  constexpr size_t kMostBefore = 20;
  using Where = TextPlace::Where;
  static const std::map<std::string, Where> names = {
      {"nowhere", Where::kNowhere},
      {"code_text", Where::kCodeText},
      {"footer", Where::kFooter},
      {"header_end", Where::kHeaderEnd},
  };
  if (!texts.Has(name)) {
    return {};
  }
  const Reader given = texts.Object(name);
  given.AllowOnly({"place", "before"});
  const auto place = names.find(given.Text("place"));
  if (place == names.end()) {
    given.Fail("place", "has to be nowhere, code_text, footer or header_end");
  }
  return {place->second, given.Printable("before", kMostBefore)};
}

int BuyerText(const Reader& reader, const char* field,
              const std::string& text) {
  const std::string prefix = "buyer_text";
  if (text.size() != prefix.size() + 1 || !text.starts_with(prefix) ||
      text.back() < '1' || text.back() > '5') {
    reader.Fail(field, "has to be buyer_text1 to buyer_text5");
  }
  return text.back() - '0';
}

void ReadInvoiceBuyer(const Reader& reader, Profile& profile) {
  const Reader given = reader.Object("invoice_buyer");
  given.AllowOnly({"nip", "name_and_address"});
  profile.invoice_nip = BuyerText(given, "nip", given.Text("nip"));
  constexpr size_t kTexts = 4;
  constexpr size_t kNameLetters = 11;
  for (const std::string& text :
       given.PrintableList("name_and_address", kTexts, kNameLetters)) {
    profile.invoice_name_and_address.push_back(
        BuyerText(given, "name_and_address", text));
  }
}

}  // namespace

Profile ReadProfile(const nlohmann::json& value) {
  const Reader reader(value);
  reader.AllowOnly({"name", "note", "payments", "line_adjustments", "texts",
                    "invoice_buyer", "slip_number", "counters"});
  Profile profile;
  profile.name = reader.Text("name");
  const Reader payments = reader.Object("payments");
  payments.AllowOnly({"cash", "card", "other", "currency"});
  profile.payments = {
      ReadPayment(payments, "cash"), ReadPayment(payments, "card"),
      ReadPayment(payments, "other"), ReadPayment(payments, "currency")};
  const Reader modes = reader.Object("line_adjustments");
  const auto mode = [&](const char* name) {
    return static_cast<int32_t>(modes.Integer(name, 0, kMostNumber, 0));
  };
  modes.AllowOnly({"percent_off", "percent_on", "amount_off", "amount_on"});
  profile.line_adjustments = {0, mode("percent_off"), mode("percent_on"),
                              mode("amount_off"), mode("amount_on")};
  const Reader texts = reader.Object("texts");
  texts.AllowOnly({"cash_desk", "cashier", "buyer_nip"});
  profile.cash_desk = ReadPlace(texts, "cash_desk");
  profile.cashier = ReadPlace(texts, "cashier");
  profile.buyer_nip = ReadPlace(texts, "buyer_nip");
  ReadInvoiceBuyer(reader, profile);
  profile.slip_number =
      static_cast<int32_t>(reader.Integer("slip_number", 0, kMostNumber, 0));
  if (reader.Has("counters")) {
    const Reader counters = reader.Object("counters");
    for (const auto& [name, field] : value.at("counters").items()) {
      const auto kind = KindOf(name);
      if (!kind) {
        counters.Fail(name, "is no kind of document");
      }
      profile.counters[*kind] = counters.Text(name.c_str());
    }
  }
  return profile;
}

}  // namespace quilon::desk
