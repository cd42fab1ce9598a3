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

#include "printer/program/command_line.h"
#include "printer/program/console.h"
#include "printer/virtual_printer.h"
#include "printer/watch/acceptance.h"
#include "printer/watch/outputs.h"
#include "printer/watch/pdf.h"
#include "printer/watch/picture.h"
#include "printer/watch/value_json.h"
#include "printer/web/journal.h"
#include "printer/web/server.h"

namespace {

using namespace quilon::printer;  // NOLINT(google-build-using-namespace)

std::vector<std::unique_ptr<Watcher>> MakeOutputs(
    const CommandLine& command_line) {
  std::vector<std::unique_ptr<Watcher>> outputs;
  if (command_line.paper_file.empty()) {
    UseUtf8Console();
    outputs.push_back(std::make_unique<PaperOutput>());
  } else {
    outputs.push_back(std::make_unique<PaperFile>(command_line.paper_file));
  }
  const auto add_folder = [&outputs](const std::string& folder,
                                     const char* suffix,
                                     PrintoutFolder::Render render) {
    if (!folder.empty()) {
      outputs.push_back(
          std::make_unique<PrintoutFolder>(folder, suffix, render));
    }
  };
  add_folder(command_line.picture_folder, ".png", PictureOf);
  add_folder(command_line.pdf_folder, ".pdf", PdfOf);
  add_folder(command_line.json_folder, ".json", ValueJson);
  if (!command_line.log_file.empty()) {
    outputs.push_back(std::make_unique<TrafficLog>(command_line.log_file));
  }
  return outputs;
}

AcceptanceScript ReadScript(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return ParseScript({std::istreambuf_iterator<char>(file), {}});
}

void TellWaysIn(const VirtualPrinter& printer,
                const VirtualPrinter::Options& options) {
  if (!options.tcp.empty()) {
    std::cerr << "listening on " << printer.tcp_address() << std::endl;
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
void EndWhenFinished(boost::asio::steady_timer& timer,
                     const Acceptance& acceptance,
                     boost::asio::io_context& context) {
  constexpr std::chrono::milliseconds kLook(20);
  timer.expires_after(kLook);
  timer.async_wait([&](const boost::system::error_code& failure) {
    if (failure) {
      return;
    }
    if (acceptance.Finished(Acceptance::Clock::now())) {
      context.stop();
    } else {
      EndWhenFinished(timer, acceptance, context);
    }
  });
}

int Run(int argc, char** argv) {
  CommandLine command_line;
  int status = 0;
  if (!ReadCommandLine(argc, argv, command_line, status)) {
    return status;
  }

  // From here on the signals are caught, so that whoever reads the addresses
  // below may send one at once.
  boost::asio::io_context context;
  boost::asio::signal_set signals(context, SIGINT, SIGTERM);
  signals.async_wait(
      [&](const boost::system::error_code&, int) { context.stop(); });

  const auto outputs = MakeOutputs(command_line);
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
    acceptance.emplace(ReadScript(command_line.script_file));
    options.watchers.push_back(&*acceptance);
  }

  VirtualPrinter printer(options);
  std::optional<WebServer> web;
  if (!command_line.web_address.empty()) {
    web.emplace(context, command_line.web_address, printer, journal);
    std::cerr << "web page: " << web->url() << std::endl;
  }
  TellWaysIn(printer, options);

  boost::asio::steady_timer timer(context);
  if (acceptance) {
    EndWhenFinished(timer, *acceptance, context);
  }
  context.run();
  if (!acceptance) {
    return 0;
  }
  std::cerr << acceptance->Report() << std::flush;
  return acceptance->Passed() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    SecureStandardStreams();
    return Run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "quilon-printer: " << failure.what() << std::endl;
    return 1;
  }
}
