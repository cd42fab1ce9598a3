// The web server as a browser meets it, and as somebody who means no good does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/asio/connect.hpp>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>
#include <string>
#include <thread>

#include "printer/virtual_printer.h"
#include "printer/web/journal.h"
#include "printer/web/server.h"
#include "tests/printer/bench.h"

namespace quilon::printer {
namespace {

namespace asio = boost::asio;
namespace http = boost::beast::http;
using asio::ip::tcp;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Response = http::response<http::string_body>;

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
  std::string token() const {
    return server_.url().substr(server_.url().find('#') + 1);
  }
  std::uint16_t port() const {
    const std::string url = server_.url();
    return static_cast<std::uint16_t>(
        std::stoi(url.substr(url.rfind(':') + 1)));
  }

  tcp::socket connect() {
    tcp::socket socket(client_context_);
    socket.connect({asio::ip::address_v4::loopback(), port()});
    return socket;
  }

  Response ask(const http::request<http::string_body>& request) {
    tcp::socket socket = connect();
    http::write(socket, request);
    boost::beast::flat_buffer buffer;
    http::response_parser<http::string_body> parser;
    parser.body_limit(boost::none);
    http::read(socket, buffer, parser);
    return parser.release();
  }

  Response get(const std::string& target,
               const std::string& host = "127.0.0.1") {
    http::request<http::string_body> request(http::verb::get, target, 11);
    request.set(http::field::host, host);
    return ask(request);
  }

  Response post(const std::string& body, const std::string& token) {
    http::request<http::string_body> request(http::verb::post, "/orders", 11);
    request.set(http::field::host, "localhost:1");
    request.set("X-Token", token);
    request.body() = body;
    request.prepare_payload();
    return ask(request);
  }
  unsigned order(const std::string& body) {
    return post(body, token()).result_int();
  }

  void print(const std::string& bytes) {
    tcp::socket socket(client_context_);
    socket.connect({asio::ip::address_v4::loopback(), printer_.tcp_port()});
    asio::write(socket, asio::buffer(bytes + "\x10"));
    char answer = 0;
    asio::read(socket, asio::buffer(&answer, 1));
  }
  void print_receipt() {
    print(framed("0;0;0;1;0$h\r") + framed("1;0;0^lChleb\r2\rA/4.50/9/") +
          framed("1;0;0;0;0;0$e\r0/9/0/"));
  }

  static VirtualPrinter::Options options(Journal& journal) {
    VirtualPrinter::Options result;
    result.clock = bench_time;
    result.watchers = {&journal};
    return result;
  }

  asio::io_context client_context_;
  asio::io_context context_;
  asio::executor_work_guard<asio::io_context::executor_type> work_ =
      asio::make_work_guard(context_);
  Journal journal_;
  VirtualPrinter printer_{options(journal_)};
  WebServer server_{
      context_, {asio::ip::address_v4::loopback(), 0}, printer_, journal_};
  std::thread thread_;
};

// A stream of news, read as far as a test wants.
class NewsReader {
 public:
  explicit NewsReader(tcp::socket socket, const std::string& last_id = {})
      : socket_(std::move(socket)) {
    const std::string request =
        "GET /events HTTP/1.1\r\nHost: 127.0.0.1\r\n" +
        (last_id.empty() ? "" : "Last-Event-ID: " + last_id + "\r\n") + "\r\n";
    asio::write(socket_, asio::buffer(request));
  }

  // Everything up to and including the text.
  std::string read_to(const std::string& text) {
    const std::size_t count =
        asio::read_until(socket_, asio::dynamic_buffer(bytes_), text);
    std::string read = bytes_.substr(0, count);
    bytes_.erase(0, count);
    return read;
  }

 private:
  tcp::socket socket_;
  std::string bytes_;
};

TEST_F(Web, ServesThePageAndProtectsIt) {
  for (const char* target : {"/", "/page.css", "/page.js", "/words.js"}) {
    const Response response = get(target);
    EXPECT_EQ(response.result_int(), 200U) << target;
    EXPECT_FALSE(response.body().empty()) << target;
    EXPECT_THAT(std::string(response["Content-Security-Policy"]),
                StartsWith("default-src 'none'; script-src 'self'"));
    EXPECT_EQ(response["X-Content-Type-Options"], "nosniff");
  }
  // A TrueType font begins so.
  EXPECT_EQ(get("/font.ttf").body().substr(0, 4), std::string("\0\1\0\0", 4));
}

TEST_F(Web, HasNothingElse) {
  for (const char* target :
       {"/page.html", "//", "/../page.css", "/printouts/1.png",
        "/printouts/.png", "/printouts/x.txt", "/printouts/-1.txt",
        "/printouts/99999999999999999999.txt", "/printouts/", "/?"}) {
    EXPECT_EQ(get(target).result_int(), 404U) << target;
  }
  EXPECT_EQ(get("/orders").result_int(), 405U);
  http::request<http::string_body> request(http::verb::put, "/", 11);
  request.set(http::field::host, "127.0.0.1");
  EXPECT_EQ(ask(request).result_int(), 405U);
}

TEST_F(Web, IsCalledByAddressOnly) {
  for (const char* host : {"127.0.0.1", "127.0.0.1:80", "localhost",
                           "localhost:8080", "[::1]:80", "[::1]", "10.0.0.7"}) {
    EXPECT_EQ(get("/", host).result_int(), 200U) << host;
  }
  for (const char* host :
       {"", "printer.example", "127.0.0.1.example:80", "localhost.example"}) {
    EXPECT_EQ(get("/", host).result_int(), 403U) << host;
    EXPECT_EQ(get("/events", host).result_int(), 403U) << host;
  }
}

TEST_F(Web, GivesAReceiptAsPictureAndText) {
  print_receipt();
  EXPECT_EQ(get("/printouts/1.png").body().substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(get("/printouts/1.txt").body(),
            "            PARAGON FISKALNY\n"
            "Chleb\n"
            "  2 x 4,50                        9,00 A\n"
            "----------------------------------------\n"
            "SPRZEDAŻ OPODATK. A                 9,00\n"
            "PTU A 23,00%                        1,68\n"
            "SUMA PTU                            1,68\n"
            "SUMA PLN                            9,00\n"
            "1                       2024-01-31 12:05\n");
  EXPECT_EQ(get("/printouts/2.txt").result_int(), 404U);
}

TEST_F(Web, ObeysNobodyWithoutTheToken) {
  const std::string body = R"({"order": "paper-out"})";
  std::string wrong = token();
  wrong.back() = wrong.back() == '0' ? '1' : '0';
  for (const std::string& given :
       {std::string(), wrong, token() + "0", token().substr(1)}) {
    EXPECT_EQ(post(body, given).result_int(), 403U);
  }
  EXPECT_FALSE(printer_.snapshot().paper_out);
  EXPECT_EQ(token().size(), 32U);
}

TEST_F(Web, CarriesOutOrders) {
  EXPECT_EQ(order(R"({"order": "paper-out"})"), 204U);
  EXPECT_EQ(order(R"({"order": "offline"})"), 204U);
  EXPECT_EQ(order(R"({"order": "error-on"})"), 204U);
  Snapshot now = printer_.snapshot();
  EXPECT_TRUE(now.paper_out && !now.online && now.mechanism_error);
  EXPECT_EQ(order(R"({"order": "paper-back"})"), 204U);
  EXPECT_EQ(order(R"({"order": "online"})"), 204U);
  EXPECT_EQ(order(R"({"order": "error-off"})"), 204U);
  now = printer_.snapshot();
  EXPECT_TRUE(!now.paper_out && now.online && !now.mechanism_error);

  EXPECT_EQ(order(R"({"order": "refuse-next", "error": 1054})"), 204U);
  print_receipt();
  EXPECT_EQ(printer_.snapshot().books.receipt_count, 0);
  EXPECT_EQ(order(R"({"order": "fault", "fault": "book-nothing"})"), 204U);
  print_receipt();
  EXPECT_EQ(printer_.snapshot().books.receipt_count, 1);
  EXPECT_EQ(sum_of(printer_.books().receipts), 0);
  EXPECT_EQ(order(R"({"order": "fault", "fault": "book-nothing"})"), 204U);
  EXPECT_EQ(order(R"({"order": "clear-faults"})"), 204U);
  print_receipt();
  EXPECT_EQ(sum_of(printer_.books().receipts), 900);

  EXPECT_EQ(get("/printouts/1.txt").result_int(), 200U);
  EXPECT_EQ(order(R"({"order": "tear-off"})"), 204U);
  EXPECT_EQ(get("/printouts/1.txt").result_int(), 404U);
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
    EXPECT_EQ(order(body), 400U) << body;
  }
  EXPECT_THAT(
      post(R"({"order": "fault", "fault": "cut@line=1"})", token()).body(),
      HasSubstr("not a fault: cut@line=1"));
}

TEST_F(Web, TellsTheNewsAsItHappens) {
  NewsReader reader(connect());
  const std::string begin = reader.read_to("event: status\n");
  EXPECT_THAT(begin, HasSubstr("Content-Type: text/event-stream\r\n"));
  EXPECT_THAT(begin, HasSubstr("\r\n\r\nevent: reset\ndata: {}\n\n"));
  print(framed("0;0;0;1;0$h\r"));
  reader.read_to("event: line\n");
  EXPECT_THAT(reader.read_to("\n\n"),
              HasSubstr("data: \"            PARAGON FISKALNY\"\n\n"));
  reader.read_to("event: exchange\n");
  EXPECT_THAT(reader.read_to("\n\n"), HasSubstr("\"mnemonic\":\"$h\""));
  reader.read_to("\"document_open\":true");
  EXPECT_EQ(order(R"({"order": "offline"})"), 204U);
  reader.read_to("\"online\":false");
}

TEST_F(Web, TellsWhoComesLaterWhatIsKept) {
  print_receipt();
  NewsReader first(connect());
  first.read_to("event: reset\n");
  first.read_to("event: printout\n");
  const std::string printout = first.read_to("\n\n");
  EXPECT_THAT(printout, HasSubstr("\"total\":900"));
  const std::size_t id = printout.find("id: ") + 4;
  const std::string last_id = printout.substr(id, printout.find('\n') - id);

  NewsReader again(connect(), last_id);
  EXPECT_THAT(again.read_to("event: status\n"),
              Not(testing::AnyOf(HasSubstr("reset"), HasSubstr("printout"))));
  NewsReader other_run(connect(), "0123-5");
  other_run.read_to("event: reset\n");
  other_run.read_to("event: printout\n");
}

TEST_F(Web, OutlivesBrokenBrowsers) {
  for (const std::string& bytes :
       {std::string("GET / HTTP/1.1\r\n"), std::string("\0\x1B\xFF", 3),
        std::string("GET /events HTTP/1.1\r\nHost: localhost\r\n\r\n"),
        "GET /" + std::string(20'000, 'x'),
        std::string("POST /orders HTTP/1.1\r\nHost: localhost\r\n"
                    "Content-Length: 99999999\r\n\r\n")}) {
    for (int i = 0; i < 20; ++i) {
      tcp::socket socket = connect();
      asio::write(socket, asio::buffer(bytes));
    }
  }
  print_receipt();
  EXPECT_EQ(get("/printouts/1.txt").result_int(), 200U);
}

TEST_F(Web, AnswersSeveralRequestsOverOneConnection) {
  tcp::socket socket = connect();
  boost::beast::flat_buffer buffer;
  for (int i = 0; i < 3; ++i) {
    http::request<http::string_body> request(http::verb::get, "/page.css", 11);
    request.set(http::field::host, "127.0.0.1");
    http::write(socket, request);
    Response response;
    http::read(socket, buffer, response);
    EXPECT_EQ(response.result_int(), 200U);
  }
}

}  // namespace
}  // namespace quilon::printer
