// The web server as a browser meets it, and as somebody who means no good does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <map>
#include <string>
#include <thread>

#include "printer/virtual_printer.h"
#include "printer/web/journal.h"
#include "printer/web/server.h"
#include "tests/printer/bench.h"
#include "tests/printer/client.h"

namespace quilon::printer {
namespace {

namespace asio = boost::asio;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Response {
  int status = 0;
  std::map<std::string, std::string> header;
  std::string body;
};

// "HTTP/1.1 200 OK", a line for each field of the header, a blank line, and as
// many bytes as "Content-Length" says.
Response ReadResponse(Client& client) {
  Response response;
  const std::string first = client.ReadUpTo("\r\n");
  response.status = std::stoi(first.substr(first.find(' ') + 1));
  std::string line = client.ReadUpTo("\r\n");
  while (line != "\r\n") {
    const size_t colon = line.find(": ");
    response.header[line.substr(0, colon)] =
        line.substr(colon + 2, line.size() - colon - 4);
    line = client.ReadUpTo("\r\n");
  }
  if (response.header.count("Content-Length") > 0) {
    response.body =
        client.Read(std::stoul(response.header.at("Content-Length")));
  }
  return response;
}

// A printer with a page.
class Web : public testing::Test {
 protected:
  Web() : thread_([this] { context_.run(); }) {}
  Web(const Web&) = delete;
  Web& operator=(const Web&) = delete;
  ~Web() override {
    context_.stop();
    thread_.join();
  }

  // "http://127.0.0.1:PORT/#TOKEN"
  std::string Token() const {
    return server_.url().substr(server_.url().find('#') + 1);
  }
  uint16_t Port() const {
    const std::string url = server_.url();
    return static_cast<uint16_t>(std::stoi(url.substr(url.rfind(':') + 1)));
  }

  Response Ask(const std::string& request) const {
    Client client(Port());
    client.Send(request);
    return ReadResponse(client);
  }

  Response Get(const std::string& target,
               const std::string& host = "127.0.0.1") const {
    return Ask("GET " + target + " HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
  }

  Response Post(const std::string& body, const std::string& token) const {
    return Ask("POST /orders HTTP/1.1\r\nHost: localhost:1\r\nX-Token: " +
               token + "\r\nContent-Length: " + std::to_string(body.size()) +
               "\r\n\r\n" + body);
  }
  int Order(const std::string& body) const {
    return Post(body, Token()).status;
  }

  void Print(const std::string& bytes) {
    Client client(printer_.tcp_port());
    client.Send(bytes + "\x10");
    client.Read(1);
  }
  void PrintReceipt() {
    Print(Framed("0;0;0;1;0$h\r") + Framed("1;0;0^lChleb\r2\rA/4.50/9/") +
          Framed("1;0;0;0;0;0$e\r0/9/0/"));
  }

  static VirtualPrinter::Options Options(Journal& journal) {
    VirtualPrinter::Options result;
    result.clock = BenchTime;
    result.watchers = {&journal};
    return result;
  }

  asio::io_context context_;
  asio::executor_work_guard<asio::io_context::executor_type> work_ =
      asio::make_work_guard(context_);
  Journal journal_;
  VirtualPrinter printer_{Options(journal_)};
  WebServer server_{context_, "127.0.0.1:0", printer_, journal_};
  std::thread thread_;
};

// A stream of news, read as far as a test wants.
class NewsReader : public Client {
 public:
  explicit NewsReader(uint16_t port, const std::string& last_id = {})
      : Client(port) {
    Send("GET /events HTTP/1.1\r\nHost: 127.0.0.1\r\n" +
         (last_id.empty() ? "" : "Last-Event-ID: " + last_id + "\r\n") +
         "\r\n");
  }
};

TEST_F(Web, ServesThePageAndProtectsIt) {
  for (const char* target : {"/", "/page.css", "/page.js", "/icon.svg",
                             "/languages/pl.js", "/readings.json"}) {
    Response response = Get(target);
    EXPECT_EQ(response.status, 200) << target;
    EXPECT_FALSE(response.body.empty()) << target;
    EXPECT_THAT(response.header["Content-Security-Policy"],
                StartsWith("default-src 'none'; script-src 'self'"));
    EXPECT_EQ(response.header["X-Content-Type-Options"], "nosniff");
  }
  // A TrueType font begins so.
  EXPECT_EQ(Get("/font.ttf").body.substr(0, 4), std::string("\0\1\0\0", 4));
}

TEST_F(Web, SaysWhatKindOfFileItServes) {
  const auto type_of = [this](const std::string& target) {
    return Get(target).header["Content-Type"];
  };
  EXPECT_EQ(type_of("/"), "text/html; charset=utf-8");
  EXPECT_EQ(type_of("/page.css"), "text/css; charset=utf-8");
  EXPECT_EQ(type_of("/languages/en.js"), "text/javascript; charset=utf-8");
  EXPECT_EQ(type_of("/readings.json"), "application/json");
  EXPECT_EQ(type_of("/icon.svg"), "image/svg+xml");
  EXPECT_EQ(type_of("/font.ttf"), "font/ttf");
}

TEST_F(Web, ListsLanguagesAndFaults) {
  EXPECT_THAT(Get("/languages.json").body, HasSubstr(R"("en","pl")"));
  EXPECT_THAT(Get("/faults.json").body,
              HasSubstr(R"({"effect":"send that answer so much later",)"
                        R"("example":"late=800@answer=1x10%",)"
                        R"("fault":"late=MILLISECONDS@answer=N"})"));
}

TEST_F(Web, HasNothingElse) {
  for (const char* target :
       {"/page.html", "//", "/languages", "/languages/", "/page", "*",
        "/../page.css", "/printouts/1.png", "/printouts/.png",
        "/printouts/x.txt", "/printouts/-1.txt",
        "/printouts/99999999999999999999.txt", "/printouts/", "/?"}) {
    EXPECT_EQ(Get(target).status, 404) << target;
  }
  EXPECT_EQ(Get("/orders").status, 405);
  EXPECT_EQ(Ask("PUT / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n").status, 405);
}

TEST_F(Web, IsCalledByAddressOnly) {
  for (const char* host : {"127.0.0.1", "127.0.0.1:80", "localhost",
                           "localhost:8080", "[::1]:80", "[::1]", "10.0.0.7"}) {
    EXPECT_EQ(Get("/", host).status, 200) << host;
  }
  for (const char* host :
       {"", "printer.example", "127.0.0.1.example:80", "localhost.example"}) {
    EXPECT_EQ(Get("/", host).status, 403) << host;
    EXPECT_EQ(Get("/events", host).status, 403) << host;
  }
}

TEST_F(Web, GivesAReceiptAsPictureAndText) {
  PrintReceipt();
  EXPECT_EQ(Get("/printouts/1.png").body.substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_THAT(Get("/printouts/1.json").body,
              testing::StartsWith("{\n  \"kind\": \"receipt\",\n"
                                  "  \"printout\": 1,\n"));
  EXPECT_EQ(Get("/printouts/1.txt").body,
            "             Sklep wzorcowy\n"
            "              ul. Prosta 1\n"
            "            00-001 Warszawa\n"
            "           NIP 000-000-00-00\n"
            "2024-01-31 12:05           wydruk 000001\n"
            "            PARAGON FISKALNY\n"
            "Chleb\n"
            "  2 x 4,50                        9,00 A\n"
            "----------------------------------------\n"
            "SPRZEDAŻ OPODATKOWANA A             9,00\n"
            "PTU A 23%                           1,68\n"
            "SUMA PTU                            1,68\n"
            "SUMA PLN                            9,00\n"
            "Gotówka                             9,00\n"
            "Paragon 1               2024-01-31 12:05\n"
            "     WYDRUK WIRTUALNY QVP0000000001\n");
  EXPECT_EQ(Get("/printouts/2.txt").status, 404);
}

TEST_F(Web, ObeysNobodyWithoutTheToken) {
  const std::string body = R"({"order": "paper-out"})";
  std::string wrong = Token();
  wrong.back() = wrong.back() == '0' ? '1' : '0';
  for (const std::string& given :
       {std::string(), wrong, Token() + "0", Token().substr(1)}) {
    EXPECT_EQ(Post(body, given).status, 403);
  }
  EXPECT_FALSE(printer_.snapshot().paper_out);
  EXPECT_EQ(Token().size(), 32U);
}

TEST_F(Web, CarriesOutOrders) {
  EXPECT_EQ(Order(R"({"order": "paper-out"})"), 204);
  EXPECT_EQ(Order(R"({"order": "offline"})"), 204);
  EXPECT_EQ(Order(R"({"order": "error-on"})"), 204);
  Snapshot now = printer_.snapshot();
  EXPECT_TRUE(now.paper_out && !now.online && now.mechanism_error);
  EXPECT_EQ(Order(R"({"order": "paper-back"})"), 204);
  EXPECT_EQ(Order(R"({"order": "online"})"), 204);
  EXPECT_EQ(Order(R"({"order": "error-off"})"), 204);
  now = printer_.snapshot();
  EXPECT_TRUE(!now.paper_out && now.online && !now.mechanism_error);

  EXPECT_EQ(Order(R"({"order": "refuse-next", "error": 1054})"), 204);
  PrintReceipt();
  EXPECT_EQ(printer_.snapshot().books.receipt_count, 0);
  EXPECT_EQ(Order(R"({"order": "fault", "fault": "book-nothing"})"), 204);
  PrintReceipt();
  EXPECT_EQ(printer_.snapshot().books.receipt_count, 1);
  EXPECT_EQ(SumOf(printer_.books().receipts), 0);
  EXPECT_EQ(Order(R"({"order": "fault", "fault": "book-nothing"})"), 204);
  EXPECT_EQ(Order(R"({"order": "clear-faults"})"), 204);
  PrintReceipt();
  EXPECT_EQ(SumOf(printer_.books().receipts), 900);

  EXPECT_EQ(Get("/printouts/1.txt").status, 200);
  EXPECT_EQ(Order(R"({"order": "tear-off"})"), 204);
  EXPECT_EQ(Get("/printouts/1.txt").status, 404);
}

TEST_F(Web, RefusesWhatIsNoOrder) {
  for (const char* body :
       {"", "{", "[]", "1", "\xFF", R"({"order": 1})", R"({"order": "dance"})",
        R"({"order": "refuse-next"})",
        R"({"order": "refuse-next", "error": 0})",
        R"({"order": "refuse-next", "error": 10000})",
        R"({"order": "refuse-next", "error": "1"})", R"({"order": "fault"})",
        R"({"order": "fault", "fault": "nonsense"})",
        R"({"order": "fault", "fault": 1})"}) {
    EXPECT_EQ(Order(body), 400) << body;
  }
}

TEST_F(Web, SaysWhyAnOrderIsRefused) {
  const auto why = [this](const std::string& body) {
    Response response = Post(body, Token());
    EXPECT_EQ(response.header["Content-Type"], "application/json");
    return response.body;
  };
  EXPECT_EQ(why("x"), R"({"error":"no-order","text":"this is no order"})"
                      "\n");
  EXPECT_EQ(why(R"({"order": "dance"})"),
            R"({"error":"unknown-order","order":"dance",)"
            R"("text":"there is no order \"dance\""})"
            "\n");
  EXPECT_EQ(why(R"({"order": "refuse-next", "error": 0})"),
            R"({"error":"error-out-of-bounds","least":1,"most":9999,)"
            R"("text":"the error should be 1 to 9999"})"
            "\n");
  EXPECT_EQ(why(R"({"order": "fault", "fault": "cut@line=1"})"),
            R"({"error":"not-a-fault","fault":"cut@line=1",)"
            R"("text":"not a fault: cut@line=1"})"
            "\n");
  EXPECT_EQ(why(R"({"order": "fault", "fault": "cutx101%"})"),
            R"({"error":"fault-out-of-bounds","fault":"cutx101%",)"
            R"("least":1,"most":100,)"
            R"("text":"the percentage is 1 to 100: cutx101%"})"
            "\n");
  EXPECT_EQ(Post(R"({"order": "paper-out"})", "").body,
            R"({"error":"no-token","text":"the token is missing or wrong"})"
            "\n");
}

TEST_F(Web, RefusesAnOrderThatIsNestedDeeply) {
  // As deep as a request has room for.
  const std::string order = R"({"order": "refuse-next", "error": )" +
                            std::string(8'000, '[') + std::string(8'000, ']') +
                            "}";
  const Response response = Post(order, Token());
  EXPECT_EQ(response.status, 400);
  EXPECT_EQ(
      response.body,
      "{\"error\":\"no-order\",\"text\":\"JSON nested deeper than 32\"}\n");
}

TEST_F(Web, TellsTheNewsAsItHappens) {
  NewsReader reader(Port());
  const std::string begin = reader.ReadUpTo("event: status\n");
  EXPECT_THAT(begin, HasSubstr("Content-Type: text/event-stream\r\n"));
  EXPECT_THAT(begin, HasSubstr("\r\n\r\nevent: reset\ndata: {}\n\n"));
  Print(Framed("0;0;0;1;0$h\r"));
  reader.ReadUpTo("event: line\n");
  EXPECT_THAT(reader.ReadUpTo("\n\n"),
              HasSubstr("data: \"             Sklep wzorcowy\"\n\n"));
  reader.ReadUpTo("event: exchange\n");
  EXPECT_THAT(reader.ReadUpTo("\n\n"), HasSubstr("\"mnemonic\":\"$h\""));
  reader.ReadUpTo("\"document_open\":true");
  EXPECT_EQ(Order(R"({"order": "offline"})"), 204);
  reader.ReadUpTo("\"online\":false");
}

TEST_F(Web, TellsWhoComesLaterWhatIsKept) {
  PrintReceipt();
  NewsReader first(Port());
  first.ReadUpTo("event: reset\n");
  first.ReadUpTo("event: printout\n");
  const std::string printout = first.ReadUpTo("\n\n");
  EXPECT_THAT(printout, HasSubstr("\"total\":900"));
  const size_t id = printout.find("id: ") + 4;
  const std::string last_id = printout.substr(id, printout.find('\n') - id);

  NewsReader again(Port(), last_id);
  EXPECT_THAT(again.ReadUpTo("event: status\n"),
              Not(testing::AnyOf(HasSubstr("reset"), HasSubstr("printout"))));
  NewsReader other_run(Port(), "0123-5");
  other_run.ReadUpTo("event: reset\n");
  other_run.ReadUpTo("event: printout\n");
}

TEST_F(Web, OutlivesBrokenBrowsers) {
  for (const std::string& bytes :
       {std::string("GET / HTTP/1.1\r\n"), std::string("\0\x1B\xFF", 3),
        std::string("GET /events HTTP/1.1\r\nHost: localhost\r\n\r\n"),
        "GET /" + std::string(20'000, 'x'),
        std::string("POST /orders HTTP/1.1\r\nHost: localhost\r\n"
                    "Content-Length: 99999999\r\n\r\n")}) {
    for (int i = 0; i < 20; ++i) {
      Client(Port()).Send(bytes);
    }
  }
  PrintReceipt();
  EXPECT_EQ(Get("/printouts/1.txt").status, 200);
}

TEST_F(Web, AnswersSeveralRequestsOverOneConnection) {
  Client client(Port());
  for (int i = 0; i < 3; ++i) {
    client.Send("GET /page.css HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n");
    EXPECT_EQ(ReadResponse(client).status, 200);
  }
}

}  // namespace
}  // namespace quilon::printer
