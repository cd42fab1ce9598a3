// The page's texts in Polish.

export const name = "Polski";

export const words = {
  connected: "połączono", gone: "nie działa", online: "online", offline: "offline", paperOut: "brak papieru",
  paperIn: "papier", mechanismOk: "mechanizm sprawny", mechanismError: "błąd mechanizmu",
  documentOpen: "dokument otwarty", documentClosed: "brak otwartego dokumentu",
  documentCancelled: "ostatni dokument niezamknięty", commandOk: "ostatni rozkaz wykonany",
  commandRefused: (error) => `ostatni rozkaz odrzucony: ${error}`,
  unknown: {
    online: "online: nie wiadomo", paper: "papier: nie wiadomo", error: "mechanizm: nie wiadomo",
    document: "dokument: nie wiadomo", command: "ostatni rozkaz: nie wiadomo",
  },
  lostConnection:
    "Utracono połączenie z drukarką. Widać stan sprzed utraty; strona podejmie pracę, gdy drukarka wróci.",
  language: "Język", theme: "Kolory", themeSystem: "systemowe", themeLight: "jasne", themeDark: "ciemne",
  zoom: "Rozmiar", paperTitle: "Papier", nothingPrinted: "Nic jeszcze nie wydrukowano.", tearOff: "Oderwij",
  noToken: "Aby naciskać przyciski, otwórz stronę pod adresem, który program podał przy uruchomieniu.",
  buttons: "Przyciski", runOut: "Wyjmij papier", paperBack: "Włóż papier", goOffline: "Przejdź offline",
  goOnline: "Przejdź online", errorOn: "Otwórz pokrywę / błąd", errorOff: "Zamknij pokrywę / bez błędu",
  refuseNext: "Odrzuć następny rozkaz z błędem", order: "Zleć", fault: "Usterka: CO[=WARTOŚĆ][@GDZIE=N][xRAZY]",
  clearFaults: "Usuń usterki", orderFailed: (reason) => `Nie wykonano: ${reason}`,
  reasons: {
    "no-answer": () => "drukarka nie odpowiada",
    "no-token": () => "adres strony pochodzi z wcześniejszego uruchomienia programu",
    "no-order": () => "to nie jest zlecenie",
    "unknown-order": ({ order }) => `nie ma zlecenia „${order}”`,
    "error-out-of-bounds": ({ least, most }) => `numer błędu powinien wynosić od ${least} do ${most}`,
    "not-a-fault": ({ fault }) => `to nie jest usterka: ${fault}`,
    "fault-out-of-bounds": ({ least, most, fault }) => `liczba powinna wynosić od ${least} do ${most}: ${fault}`,
  },
  armed: "Zlecone usterki", times: (n) => `wystąpiła ${n}×`, over: "skończona",
  struck: (faults) => `usterka: ${faults}`,
  display: "Wyświetlacz klienta", totals: "Totalizery", rate: "Stawka", receipts: "Paragony", invoices: "Faktury",
  sum: "Razem", number: "Liczba",
  counts: (s) =>
    `Anulowane ${s.cancelled_count}, raporty ${s.report_count}, otwarcia szuflady ${s.drawer_openings}`,
  traffic: "Transmisja", filter: "Filtr", hideStatus: "ukryj DLE, ENQ, SUB",
  onlyTrouble: "tylko odrzucone, błędne, z usterką",
  pause: "Wstrzymaj", time: "Czas", client: (n) => `klient ${n}`,
  command: "Rozkaz, parametry, pola", answer: "Suma kontrolna, odpowiedź", right: "zgodna", wrong: "błędna",
  missing: "brak", refused: (error) => `odrzucono: ${error}`, overflow: "za długa ramka",
  lost: "stracone przez usterkę", strange: "nieznany rozkaz", png: "PNG",
  text: "Tekst", print: "Drukuj",
  kinds: { receipt: "paragon", invoice: "faktura", cancelled: "anulowany", slip: "wydruk niefiskalny", report: "raport" },
  dle: ["błąd", "brak papieru", "online"],
  enq: ["ostatni dokument zamknięty", "dokument otwarty", "rozkaz OK", "fiskalna"],
};
