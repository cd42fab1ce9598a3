#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): posix_openpt and its kin
#include <termios.h>
#include <unistd.h>

#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/steady_timer.hpp>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "printer/wire/session.h"
#include "printer/wire/wire.h"

namespace quilon::printer {
namespace {

void Check(bool done, const char* what) {
  if (!done) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

// A link that appears at once in its place, whatever link stood there.
class Link {
 public:
  Link(std::filesystem::path link, const std::string& target)
      : link_(std::move(link)) {
    if (link_.empty()) {
      return;
    }
    const auto found = std::filesystem::symlink_status(link_);
    if (std::filesystem::exists(found) && !std::filesystem::is_symlink(found)) {
      throw std::system_error(std::make_error_code(std::errc::file_exists),
                              link_.string());
    }
    const std::filesystem::path fresh = link_.string() + ".new";
    std::filesystem::remove(fresh);
    std::filesystem::create_symlink(target, fresh);
    std::filesystem::rename(fresh, link_);
  }
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link() {
    std::error_code ignored;
    if (!link_.empty()) {
      std::filesystem::remove(link_, ignored);
    }
  }

 private:
  std::filesystem::path link_;
};

using Master = boost::asio::posix::stream_descriptor;

class PseudoTerminal : public Wire {
 public:
  PseudoTerminal(Switchboard switchboard, const std::string& link,
                 uint32_t baud)
      : switchboard_(std::move(switchboard)),
        master_(std::make_shared<Master>(switchboard_.context, OpenMaster())),
        pause_(switchboard_.context),
        baud_(baud),
        path_(SlavePath()),
        link_(link, path_) {
    MakeRaw();
    ServeClient();
  }

  std::string address() const override { return path_; }

 private:
  static int OpenMaster() {
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    Check(master >= 0, "posix_openpt");
    return master;
  }

  std::string SlavePath() {
    Check(grantpt(master_->native_handle()) == 0, "grantpt");
    Check(unlockpt(master_->native_handle()) == 0, "unlockpt");
    std::array<char, 128> path{};
    Check(ptsname_r(master_->native_handle(), path.data(), path.size()) == 0,
          "ptsname_r");
    return path.data();
  }

  void MakeRaw() {
    termios state{};
    Check(tcgetattr(master_->native_handle(), &state) == 0, "tcgetattr");
    cfmakeraw(&state);
    Check(tcsetattr(master_->native_handle(), TCSANOW, &state) == 0,
          "tcsetattr");
  }

  void ServeClient() {
    Serve(master_, switchboard_, baud_, [this] { WaitForClient(); });
  }

  // Without a client at the other end every read fails at once, so the line is
  // looked at from time to time.
  void WaitForClient() {
    pollfd line{master_->native_handle(), POLLIN, 0};
    const bool hung_up = poll(&line, 1, 0) == 1 &&
                         (line.revents & (POLLHUP | POLLIN)) == POLLHUP;
    if (!hung_up) {
      ServeClient();
      return;
    }
    pause_.expires_after(std::chrono::milliseconds(5));
    pause_.async_wait([this](const boost::system::error_code& failure) {
      if (!failure) {
        WaitForClient();
      }
    });
  }

  Switchboard switchboard_;
  std::shared_ptr<Master> master_;
  boost::asio::steady_timer pause_;
  uint32_t baud_;
  std::string path_;
  Link link_;
};

}  // namespace

std::unique_ptr<Wire> MakePseudoTerminal(const Switchboard& switchboard,
                                         const std::string& link,
                                         uint32_t baud) {
  return std::make_unique<PseudoTerminal>(switchboard, link, baud);
}

}  // namespace quilon::printer
