// quilon-printer: a virtual fiscal printer. Its paper appears on the standard
// output.
#include <CLI/CLI.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>

#include "printer/outputs.h"
#include "printer/virtual_printer.h"

namespace {

using quilon::printer::VirtualPrinter;

int run(int argc, char** argv) {
  CLI::App app(
      "A virtual fiscal printer. Its paper appears on the standard output.");
  VirtualPrinter::Options options;

  const auto* tcp =
      app.add_option("--tcp", options.tcp,
                     "Listen on ADDRESS:PORT; port 0 takes any free one. "
                     "Without --tcp and --pty: 127.0.0.1:6001");
  app.add_option("--pty", options.pty_link,
                 "Make a pseudo-terminal and this symbolic link to it");

  app.add_option("--state", options.state_file,
                 "Keep the printer's memory in this file");
  app.add_option("--fault", options.faults,
                 "Misbehave on purpose: WHAT[=VALUE][@WHERE=N][xTIMES], "
                 "repeatable; see below");
  app.footer(
      "Faults, each at the N-th document, byte, ... and TIMES times (\"*\": "
      "without end):\n" +
      quilon::printer::fault_help() +
      "For example: --fault book-other=-100@document=2 --fault late=800x3");
  CLI11_PARSE(app, argc, argv);
  options.pty = !options.pty_link.empty();
  if (tcp->empty()) {
    options.tcp = options.pty ? "" : "127.0.0.1:6001";
  }

  // From here on the signals are caught, so that whoever reads the address
  // below may send one at once.
  boost::asio::io_context context;
  boost::asio::signal_set signals(context, SIGINT, SIGTERM);
  signals.async_wait([](const boost::system::error_code&, int) {});

  quilon::printer::PaperOutput paper;
  options.watchers = {&paper};
  const std::string address = options.tcp.substr(0, options.tcp.rfind(':'));
  const std::string link = options.pty_link;
  const VirtualPrinter printer(std::move(options));
  if (printer.tcp_port() != 0) {
    std::cerr << "listening on " << address << ":" << printer.tcp_port()
              << std::endl;
  }
  if (!link.empty()) {
    std::cerr << "listening on " << link << " (" << printer.pty_path() << ")"
              << std::endl;
  }
  context.run();
  return 0;
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
