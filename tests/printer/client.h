// A client of the printer's over TCP, and of whatever else listens on this
// machine.
#ifndef TESTS_PRINTER_CLIENT_H_
#define TESTS_PRINTER_CLIENT_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quilon::printer {

class Client {
 public:
  // Connects to a port of 127.0.0.1.
  explicit Client(uint16_t port);
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client();

  void Send(std::string_view bytes);

  // Waits for so many bytes; returns fewer when the connection ends.
  std::string Read(size_t count);

  // Everything up to and including the text; without it when the connection
  // ends.
  std::string ReadUpTo(std::string_view text);

 private:
  // Waits for more; returns false when the connection ends.
  bool Receive();
  std::string Take(size_t count);

  // Asio's headers take a compiler seconds, which every test would pay.
  struct Network;
  std::unique_ptr<Network> network_;
  std::string received_;
};

}  // namespace quilon::printer

#endif  // TESTS_PRINTER_CLIENT_H_
