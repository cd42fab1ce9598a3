// The news as server-sent events, to one browser. Each event has the news' kind
// as its name and its JSON as data; "reset" comes before all that is kept, when
// the browser does not go on with an earlier stream of this run, and "beat"
// whenever there was no news for two seconds.
#ifndef PRINTER_WEB_EVENT_STREAM_H_
#define PRINTER_WEB_EVENT_STREAM_H_

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quilon::printer {

class Journal;

// Keeps itself alive until the connection fails. A slow browser is sent what is
// still kept when it is ready for more. Belongs to the socket's context.
class EventStream : public std::enable_shared_from_this<EventStream> {
 public:
  // run tells this run of the printer from others; last_id is what the browser
  // says it has, "RUN-ID" or nothing.
  EventStream(boost::asio::ip::tcp::socket socket, const Journal& journal,
              std::string run, std::string_view last_id);

  // Sends the HTTP header, which the caller has prepared, and then the news.
  void Start(std::string header);
  // There is news.
  void Wake();

 private:
  void Send(std::string bytes);
  void Pause();
  void SendNews();
  void WaitForNews();

  boost::asio::ip::tcp::socket socket_;
  boost::asio::steady_timer timer_;
  const Journal& journal_;
  const std::string run_;
  uint64_t last_ = 0;
  std::string bytes_;  // being sent
  bool waiting_ = false;
};

}  // namespace quilon::printer

#endif  // PRINTER_WEB_EVENT_STREAM_H_
