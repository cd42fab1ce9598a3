// The programs that the page's test needs: the printer, the shop's program, the browser. Where they are is told by the
// environment: QUILON_PRINTER, QUILON_CASHIER and QUILON_RECEIPT, each a command, its words divided by blanks.

import { spawn } from "node:child_process";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { createInterface } from "node:readline";

import { chromium } from "playwright-core";

const browserOptions = [
  "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync",
];

// A program whose lines of output can be waited for.
class Program {
  constructor(variable, options, stream) {
    const [command, ...words] = process.env[variable].split(" ");
    this.process = spawn(command, [...words, ...options], { stdio: ["pipe", "pipe", "pipe"] });
    this.ended = new Promise((resolve) => this.process.on("exit", resolve));
    this.lines = createInterface({ input: this.process[stream] })[Symbol.asyncIterator]();
    this.process[stream === "stdout" ? "stderr" : "stdout"].resume();
  }

  async line() {
    const { value, done } = await this.lines.next();
    if (done) {
      throw new Error("the program ended");
    }
    return value;
  }

  async stop() {
    this.process.kill();
    await this.ended;
  }
}

export class Printer extends Program {
  // Its process stands still, but keeps its connections, until it goes on.
  hang() {
    this.process.kill("SIGSTOP");
  }

  goOn() {
    this.process.kill("SIGCONT");
  }

  static async start(page = "127.0.0.1:0") {
    const printer = new Printer("QUILON_PRINTER", ["--tcp", "127.0.0.1:0", "--web", page], "stderr");
    for (const [name, pattern] of [["url", /^web page: (.*)$/], ["port", /^listening on 127\.0\.0\.1:(.*)$/]]) {
      printer[name] = pattern.exec(await printer.line())[1].trim();
    }
    return printer;
  }
}

export class Cashier extends Program {
  static start() {
    return new Cashier("QUILON_CASHIER", [], "stdout");
  }

  // What became of a step.
  async take(step) {
    this.process.stdin.write(`${step}\n`);
    return JSON.parse(await this.line());
  }
}

// Prints the demo receipt; returns its exit status.
export function printDemoReceipt(port) {
  return new Program("QUILON_RECEIPT", ["127.0.0.1", port], "stderr").ended;
}

// A browser without memory; stop() ends it.
export async function startBrowser() {
  const folder = await mkdtemp(join(tmpdir(), "page-"));
  const context = await chromium.launchPersistentContext(folder, {
    executablePath: "/usr/bin/chromium",
    args: browserOptions,
    locale: "en-US",
    viewport: { width: 1280, height: 800 },
    acceptDownloads: true,
  });
  context.stop = async () => {
    await context.close();
    await rm(folder, { recursive: true, force: true });
  };
  return context;
}
