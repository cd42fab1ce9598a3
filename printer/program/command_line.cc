#include "printer/program/command_line.h"

#include <CLI/CLI.hpp>
#include <chrono>

#include "printer/fiscal/fault_table.h"

namespace quilon::printer {
namespace {

constexpr const char* kDefaultTcp = "127.0.0.1:6001";
constexpr const char* kDefaultWeb = "127.0.0.1:8080";

void AddWaysIn(CLI::App& app, VirtualPrinter::Options& options) {
  app.option_defaults()->group("Ways in");
  app.add_option("--tcp", options.tcp,
                 "Listen on ADDRESS:PORT; port 0 takes any free one. Without "
                 "any way in: " +
                     std::string(kDefaultTcp));
  app.add_option("--pty", options.pty_link,
                 "Make a pseudo-terminal and this symbolic link to it (Linux)");
  app.add_option("--serial", options.serial,
                 "Serve this serial port: COM5, /dev/ttyUSB0");
}

void AddOutputs(CLI::App& app, CommandLine& command_line) {
  app.option_defaults()->group("What to see");
  app.add_option("--paper", command_line.paper_file,
                 "Append the paper to this file instead of showing it on the "
                 "standard output");
  app.add_option("--png", command_line.picture_folder,
                 "Put every printout as a picture into this folder");
  app.add_option("--pdf", command_line.pdf_folder,
                 "Put every printout as PDF into this folder");
  app.add_option("--json", command_line.json_folder,
                 "Put what every printout tells as JSON into this folder");
  app.add_option("--log", command_line.log_file,
                 "Append the traffic to this file, one JSON object a line");
  app.add_option("--web", command_line.web_address,
                 "Show the printer as a web page at ADDRESS:PORT; without a "
                 "value at " +
                     std::string(kDefaultWeb))
      ->expected(0, 1);
}

void AddBehaviour(CLI::App& app, CommandLine& command_line) {
  app.option_defaults()->group("Behaviour");
  VirtualPrinter::Options& options = command_line.printer;
  app.add_option("--state", options.state_file,
                 "Keep the printer's memory in this file");
  app.add_flag("--lenient", options.lenient,
               "Refuse only what cannot be obeyed, not what a fiscal printer "
               "refuses beyond that");
  app.add_option_function<int>(
         "--latency",
         [&options](int milliseconds) {
           options.latency = std::chrono::milliseconds(milliseconds);
         },
         "Answer so many milliseconds later, up to 60000")
      ->check(CLI::Range(0, 60'000));
  app.add_option("--baud", options.baud,
                 "Pace bytes as a serial line would, 300 to 4000000 baud; a "
                 "serial port's own rate (9600)")
      ->check(CLI::Range(300, 4'000'000));
  app.add_option("--fault", options.faults,
                 "Misbehave on purpose; repeatable. See below");
  app.add_option(
      "--seed", options.seed,
      "Choose what happens by chance; the same seed chooses the same");
  app.add_option("--script", command_line.script_file,
                 "Expect the documents that this acceptance script lists, end "
                 "when they came, and fail when they differ");
}

std::string FaultText() {
  std::string text =
      "Faults: WHAT[=VALUE][@WHERE=N][xTIMES] happens at the N-th document, "
      "byte, ... (1),\n"
      "then at every N-th again, TIMES times in all (1); \"x*\": without "
      "end, \"x5%\":\n"
      "without end, but each time by that chance.\n";
  for (const FaultRow& row : kFaultTable) {
    text.append("  ").append(FormOf(row)).append("\n      ");
    text.append(row.effect).append(": ").append(row.example).append("\n");
  }
  return text;
}

}  // namespace

bool ReadCommandLine(int argc, char** argv, CommandLine& command_line,
                     int& status) {
  CLI::App app(
      "A virtual fiscal printer. Its paper appears on the standard output.");
  VirtualPrinter::Options& options = command_line.printer;
  options.tcp.clear();
  AddWaysIn(app, options);
  AddOutputs(app, command_line);
  AddBehaviour(app, command_line);
  app.footer(FaultText());
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& wrong) {
    status = app.exit(wrong);
    return false;
  }
  options.pty = !options.pty_link.empty();
  if (options.tcp.empty() && !options.pty && options.serial.empty()) {
    options.tcp = kDefaultTcp;
  }
  if (app.count("--web") > 0 && command_line.web_address.empty()) {
    command_line.web_address = kDefaultWeb;
  }
  return true;
}

}  // namespace quilon::printer
