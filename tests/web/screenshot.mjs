// Takes a picture of the printer's page when it has something to show.   node screenshot.mjs FILE

import { connect } from "node:net";

import { Printer, printDemoReceipt, startBrowser } from "./processes.mjs";

// ESC "P", the body, its checksum, ESC "\": the XOR of all bytes from FF on.
function framed(body) {
  const bytes = Buffer.from(body, "latin1");
  const checksum = bytes.reduce((sum, byte) => sum ^ byte, 0xff);
  return Buffer.concat([Buffer.from("\x1bP"), bytes, Buffer.from(`${checksum.toString(16).padStart(2, "0")}\x1b\\`)]);
}

// What a display shows needs no checksum.
function shown(text) {
  return Buffer.from(`\x1bP3$d\f${text}\x1b\\`, "latin1");
}

// Sends frames, and an ENQ so that all of them have been obeyed in the end.
function send(port, ...frames) {
  return new Promise((resolve, reject) => {
    const socket = connect({ host: "127.0.0.1", port });
    socket.write(Buffer.concat([...frames, Buffer.from("\x05")]));
    socket.on("data", () => socket.end());
    socket.on("close", resolve);
    socket.on("error", reject);
  });
}

const printer = await Printer.start();
const browser = await startBrowser();
try {
  const page = await browser.newPage();
  await page.goto(printer.url);
  await printDemoReceipt(printer.port);
  // The display; a payment where no document is open; the first line of the next receipt.
  await send(
    printer.port,
    shown("Razem do zap\x92aty\r\n66,85 PLN"),
    framed("6$d10/1\r\r"),
    framed("0;0;0;1;0$h\r"),
    framed("1;0;0^lBu\x92ka kajzerka\r3 szt\rC/0.89/2.67/"),
  );
  await page.locator("#open-sheet", { hasText: "Bułka" }).waitFor();
  await page.screenshot({ path: process.argv[2] });
} finally {
  await browser.stop();
  await printer.stop();
}
