// Every error number and its message, in the bytes of CP1250 (octal).
#include "src/protocol/error_table.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

namespace quilon {
namespace {

// clang-format off
const std::map<int32_t, std::string> kMessages = {
    {1, "Niezaprogramowany zegar"},
    {2, "B\263\271d  transmisji"},
    {3, "B\263\271d  ilo\234ci parametr\363w"},
    {4, "B\263\271d  parametru"},
    {5, "B\263\271d  zegara"},
    {6, "B\263\271d  modulu fiskalnego"},
    {7, "B\263\271d  daty"},
    {8, "Sprzedaz musi byc zerowa"},
    {9, "B\263\271d  operacji I/O"},
    {10, "Niedozwolona zmiana czasu"},
    {11, "Zla ilosc stawek PTU"},
    {12, "Zmiana nagl\363wka niedozwolona"},
    {13, "Zmiana nagl\363wka niedozwolona"},
    {14, "Zmiana nagl\363wka niedozwolona"},
    {15, "B\263\271d  tekstu paragonu"},
    {16, "B\263\271d  nazwy towaru"},
    {17, "B\263\271d  ilosci towaru"},
    {18, "B\263\271d  stawki PTU towaru"},
    {19, "B\263\271d  ceny towaru"},
    {20, "B\263\271d  wartosci towaru"},
    {21, "Wylaczony tryb transakcji"},
    {22, "B\263\271d  operacji STORNO"},
    {23, "B\263\271d  liczby linii paragonu"},
    {24, "Przepelnienie bufora wydruku"},
    {25, "B\263\271d  danych kasjera lub tekstu"},
    {26, "B\263\271d  kwoty WPLATA"},
    {27, "B\263\271d  kwoty SUMA lub OBNIZKA"},
    {28, "Przepelnienie totalizera"},
    {29, "Brak paragonu do zakonczenia"},
    {30, "B\263\271d  kwoty WPLATA"},
    {31, "Przepelnienie stanu got\363wki"},
    {32, "Ujemny stan kasy wyzerowany"},
    {33, "B\263\271d  tekstu zmiany kasjera"},
    {34, "B\263\271d  kwoty lub tekstu"},
    {35, "Sprzedaz zerowa"},
    {36, "Istnieje zapis o tej dacie"},
    {37, "Operacja anulowana"},
    {38, "B\263\271d  nazwy"},
    {39, "B\263\271d  symbolu PTU"},
    {40, "Brak nagl\363wka"},
    {41, "B\263\271d  numeru kasy"},
    {42, "B\263\271d  numeru kasjera"},
    {43, "B\263\271d  numeru pararagonu"},
    {44, "B\263\271d  pola Kontrahent"},
    {45, "B\263\271d  pola Terminal"},
    {46, "B\263\271d  pola Nazwa Karty"},
    {47, "B\263\271d  pola Numer karty"},
    {48, "B\263\271d  pola Data miesiac"},
    {49, "B\263\271d  pola Data rok"},
    {50, "B\263\271d  pola Kod Autoryzacji"},
    {51, "B\263\271d  pola Kwota"},
    {82, "Niedozwolony rozkaz"},
    {83, "Zla wartosc kaucji"},
    {84, "Przekroczona liczba wyslanych napisow"},
    {99, "Niedozwolony rozkaz"},
    {1000, "B\263\271d  inicjalizacji"},
    {1001, "B\263\271d  pamieci RAM"},
    {1002, "Paragon juz rozpoczety"},
    {1003, "Brak numeru NIP"},
    {1004, "B\263\271d  obnizki"},
    {1005, "B\263\271d  danych"},
    {1006, "Tryb niefiskalny"},
    {1007, "Brak zaprogramowanych stawek"},
    {1008, "Koniec pamieci fiskalnej"},
    {1009, "B\263\271d  pamieci RAM"},
    {1010, "B\263\271d  bazy PLU"},
    {1011, "B\263\271d  nagl\363wka"},
    {1012, "B\263\271d  danych kasjera"},
    {1013, "B\263\271d  stanu kasy"},
    {1014, "B\263\271d  aktualizacji danych"},
    {1015, "Brak numeru unikatowego"},
    {1016, "Brak pamieci fiskalnej"},
    {1017, "Brak drukarki"},
    {1018, "Brak wyswietlacza klienta"},
    {1019, "Pamiec fiskalna z innego urzadzenia"},
    {1020, "Stawki PTU juz zaprogramowane"},
    {1021, "Tryb TYLKO ODCZYT"},
    {1022, "Nieznany rozkaz"},
    {1023, "B\263\271d  danych rozkazu"},
    {1024, "B\263\271d  zakresu raportu"},
    {1025, "Brak raport\363w w tym zakresie"},
    {1026, "Przepelniony bufor komunikacji"},
    {1027, "Tryb fiskalny niezakonczony"},
    {1028, "B\263\271d  danych w\012pamieci fisk."},
    {1029, "Przekroczony limit pam. fisk."},
    {1030, "B\263\271d  mapy pam. fiskalnej"},
    {1031, "Rozkaz zakazany w tym trybie"},
    {1032, "B\263\271d  transmisji"},
    {1033, "B\263\271d  magistrali pamieci fisk."},
    {1034, "Drukarka jest zajeta"},
    {1035, "B\263\271d  loga graficznego"},
    {1036, "B\263\271d  nieprawidlowe logo graficzne"},
    {1037, "Brak papieru"},
    {1046, "Brak danych"},
    {1054, "Brak dostepu"},
    {1070, "B\263\271d  graficznego nagl\363wka wydruku"},
    {1071, "Niezako\361czony miesiac"},
    {1072, "Dane z nieobslugiwanego urzadzenia"},
    {1073, "B\263\271d  grafik wydruku"},
    {1074, "Bledna grafika\012wydruku"},
    {1075, "Bledna grafika"},
    {1076, "Grafika juz zaprogramowana"},
    {1078, "B\263\271d  transakcji SQL"},
    {1079, "Pamiec na reklamy pelna"},
    {1080, "Lista reklam pelna"},
    {1081, "B\263\271d  zapisu kopii el. animacji"},
    {1082, "B\263\271d  bazy PLU"},
    {1083, "Reklama w uzyciu"},
    {1084, "Niedozwolona wersja programu"},
    {1085, "Niezgodnosc daty/czasu z ostatnim zapisem w p.f."},
    {1086, "B\263\271d  obslugi wydruku"},
    {1087, "B\263\271d  stanu pamieci chronionej"},
    {1088, "Brak pamieci chronionej"},
    {1089, "B\263\271d  pamieci chronionej"},
    {1090, "Brak miejsca w pliku wymiany"},
    {1091, "B\263\271d  bazy spisu tresci"},
    {1092, "Brak pozycjina paragonie"},
    {1093, "B\263\271d  stanu statusu proces\363w"},
    {1094, "B\263\271d  konfiguracji harmonogram\363w"},
    {1095, "B\263\271d  fiskalizacji"},
    {1096, "B\263\271d  polaczenia z TPM"},
    {1097, "B\263\271d  serwera DNS"},
    {1098, "Brak/bledny numer NIP nabywcy"},
    {1099, "B\263\271d  zapisu pamieci chronionej"},
    {1100, "Blokada sprzedazy"},
    {1101, "Brak danych nabywcy"},
    {1102, "B\263\271d  dostepu do pamieci chronionej"},
    {1103, "Brak certyfikatow w MK"},
    {1104, "Brak nazwy nabywcy"},
    {1105, "Bledna suma kontrolna programu/programu PF"},
    {1106, "Brak aktualizacji do pobrania"},
    {1107, "Brak aktualizacji do zainstalowania"},
    {1108, "Brak podlaczonego zasilania"},
    {1109, "B\263\271d  numeru faktury"},
    {1110, "B\263\271d  zapisu certyfikatow"},
    {1111, "Osiagnieto limit zerowan RAM"},
    {1112, "Proces fiskalizacji zakonczony"},
    {1113, "Proces fiskalizacji niezakonczony"},
    {1114, "B\263\271d  zapisu do pamieci fiskalnej"},
    {1115, "Narzut zabroniony"},
    {1116, "Wykonaj zalegly raport dobowy"},
    {1117, "Obnizka/Narzut zabronion(a/y)"},
    {1118, "Osiagnieto maks. liczbe pozycji biletowych"},
    {1119, "Wydruk z pamieci chronionej jest otwarty"},
    {1120, "Wydruk z pamieci chronionej nie jest otwarty"},
    {1121, "Identyczne stawki juz zaprogramowane"},
    {1500, "B\263\271d  bazy zapasowej\012pisu tre\234ci"},
    {1501, "B\263\271d  pami\352\346\012chroniona pe\263na"},
    {1502, "B\263\271d  weryfikacji\012pami\352ci chronionej"},
    {1503, "Zmiana adresu serwera zablokowana"},
    {1504, "Obs\263uga eDokument\363w nie jest aktywna"},
    {1505, "B\263\352dna suma kontrolna programu PF"},
};
// clang-format on

TEST(ErrorTableTest, KnowsEveryMessageAndNoOther) {
  EXPECT_EQ(kMessages.size(), 152U);
  for (int32_t code = -10; code < 2000; ++code) {
    const auto found = kMessages.find(code);
    EXPECT_EQ(ErrorMessage(code),
              found == kMessages.end() ? std::string() : found->second)
        << code;
  }
  EXPECT_STREQ(ErrorMessage(INT32_MIN), "");
  EXPECT_STREQ(ErrorMessage(INT32_MAX), "");
}

TEST(ErrorTableTest, FillsTheMessageAndNothingElse) {
  LastErrorRecord record;
  std::memset(&record, 0x55, sizeof(record));
  LastErrorRecord expected = record;
  record.error_code = expected.error_code = 1003;
  std::memset(expected.message, 0, sizeof(expected.message));
  std::strcpy(expected.message, "Brak numeru NIP");
  FillErrorText(&record);
  EXPECT_EQ(std::memcmp(&record, &expected, sizeof(record)), 0);
  record.error_code = 60;
  FillErrorText(&record);
  EXPECT_STREQ(record.message, "");
}

}  // namespace
}  // namespace quilon
