// quilon-printer: a virtual fiscal printer.
#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <csignal>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "printer/acceptance.h"
#include "printer/address.h"
#include "printer/command_line.h"
#include "printer/outputs.h"
#include "printer/virtual_printer.h"
#include "printer/web/journal.h"
#include "printer/web/server.h"

namespace {

using namespace quilon::printer;  // NOLINT(google-build-using-namespace)

std::vector<std::unique_ptr<Watcher>> make_outputs(
    const CommandLine& command_line) {
  std::vector<std::unique_ptr<Watcher>> outputs;
  if (command_line.paper_file.empty()) {
    outputs.push_back(std::make_unique<PaperOutput>());
  } else {
    outputs.push_back(std::make_unique<PaperFile>(command_line.paper_file));
  }
  if (!command_line.picture_folder.empty()) {
    outputs.push_back(
        std::make_unique<PictureFolder>(command_line.picture_folder));
  }
  if (!command_line.log_file.empty()) {
    outputs.push_back(std::make_unique<TrafficLog>(command_line.log_file));
  }
  return outputs;
}

AcceptanceScript read_script(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return parse_script({std::istreambuf_iterator<char>(file), {}});
}

void tell_ways_in(const VirtualPrinter& printer,
                  const VirtualPrinter::Options& options) {
  if (!options.tcp.empty()) {
    auto endpoint = endpoint_of(options.tcp);
    endpoint.port(printer.tcp_port());
    std::cerr << "listening on " << text_of(endpoint) << std::endl;
  }
  if (!options.pty_link.empty()) {
    std::cerr << "listening on " << options.pty_link << " ("
              << printer.pty_path() << ")" << std::endl;
  }
  if (!options.serial.empty()) {
    std::cerr << "listening on " << options.serial << " at "
              << (options.baud == 0 ? VirtualPrinter::kUsualBaud : options.baud)
              << " baud" << std::endl;
  }
}

// Ends the context when the acceptance has seen enough.
void end_when_finished(boost::asio::steady_timer& timer,
                       const Acceptance& acceptance,
                       boost::asio::io_context& context) {
  constexpr std::chrono::milliseconds kLook(20);
  timer.expires_after(kLook);
  timer.async_wait([&](const boost::system::error_code& failure) {
    if (failure) {
      return;
    }
    if (acceptance.finished(Acceptance::Clock::now())) {
      context.stop();
    } else {
      end_when_finished(timer, acceptance, context);
    }
  });
}

int run(int argc, char** argv) {
  CommandLine command_line;
  int status = 0;
  if (!read_command_line(argc, argv, command_line, status)) {
    return status;
  }

  // From here on the signals are caught, so that whoever reads the addresses
  // below may send one at once.
  boost::asio::io_context context;
  boost::asio::signal_set signals(context, SIGINT, SIGTERM);
  signals.async_wait(
      [&](const boost::system::error_code&, int) { context.stop(); });

  const auto outputs = make_outputs(command_line);
  Journal journal;
  std::optional<Acceptance> acceptance;
  VirtualPrinter::Options& options = command_line.printer;
  for (const auto& output : outputs) {
    options.watchers.push_back(output.get());
  }
  if (!command_line.web_address.empty()) {
    options.watchers.push_back(&journal);
  }
  if (!command_line.script_file.empty()) {
    acceptance.emplace(read_script(command_line.script_file));
    options.watchers.push_back(&*acceptance);
  }

  VirtualPrinter printer(options);
  std::optional<WebServer> web;
  if (!command_line.web_address.empty()) {
    web.emplace(context, endpoint_of(command_line.web_address), printer,
                journal);
    std::cerr << "web page: " << web->url() << std::endl;
  }
  tell_ways_in(printer, options);

  boost::asio::steady_timer timer(context);
  if (acceptance) {
    end_when_finished(timer, *acceptance, context);
  }
  context.run();
  if (!acceptance) {
    return 0;
  }
  std::cerr << acceptance->report() << std::flush;
  return acceptance->passed() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "quilon-printer: " << failure.what() << std::endl;
    return 1;
  }
}
