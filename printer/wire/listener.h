// Waits for TCP clients.
#ifndef PRINTER_WIRE_LISTENER_H_
#define PRINTER_WIRE_LISTENER_H_

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <functional>

namespace quilon::printer {

// Belongs to the thread that runs the context.
class Listener {
 public:
  using Handler = std::function<void(boost::asio::ip::tcp::socket socket)>;

  // Listens at once; throws std::runtime_error when it cannot, for example
  // because somebody else does. The handler is called for every client.
  Listener(boost::asio::io_context& context,
           const boost::asio::ip::tcp::endpoint& endpoint, Handler handler);

  // With the port that is really listened on.
  boost::asio::ip::tcp::endpoint endpoint() const {
    return acceptor_.local_endpoint();
  }

 private:
  void Accept();

  boost::asio::ip::tcp::acceptor acceptor_;
  boost::asio::steady_timer pause_;
  Handler handler_;
};

}  // namespace quilon::printer

#endif  // PRINTER_WIRE_LISTENER_H_
