// The page's texts in English.

export const name = "English";

export const words = {
  connected: "connected", gone: "not running", online: "online", offline: "offline", paperOut: "out of paper",
  paperIn: "paper", mechanismOk: "mechanism OK", mechanismError: "mechanism error", documentOpen: "document open",
  documentClosed: "no document open", documentCancelled: "last document not closed", commandOk: "last command obeyed",
  commandRefused: (error) => `last command refused: ${error}`,
  unknown: {
    online: "online unknown", paper: "paper unknown", error: "mechanism unknown", document: "document unknown",
    command: "last command unknown",
  },
  lostConnection:
    "The connection to the printer is lost. What is shown is from before; the page goes on when the printer is back.",
  language: "Language", theme: "Colours", themeSystem: "system", themeLight: "light", themeDark: "dark", zoom: "Size",
  paperTitle: "Paper", nothingPrinted: "Nothing printed yet.", tearOff: "Tear off",
  noToken: "To press buttons, open the page by the address that the program printed when it started.",
  buttons: "Buttons", runOut: "Out of paper", paperBack: "Paper back", goOffline: "Go offline", goOnline: "Go online",
  errorOn: "Lid open / error", errorOff: "Close lid / error off", refuseNext: "Refuse the next command with error",
  order: "Order", fault: "Fault: WHAT[=VALUE][@WHERE=N][xTIMES]", clearFaults: "Clear faults",
  orderFailed: (reason) => `Not done: ${reason}`,
  reasons: {
    "no-answer": () => "the printer does not answer",
    "no-token": () => "the page's address is from an earlier start of the program",
    "no-order": () => "this is no order",
    "unknown-order": ({ order }) => `there is no order "${order}"`,
    "error-out-of-bounds": ({ least, most }) => `the error should be ${least} to ${most}`,
    "not-a-fault": ({ fault }) => `not a fault: ${fault}`,
    "fault-out-of-bounds": ({ least, most, fault }) => `a number should be ${least} to ${most}: ${fault}`,
  },
  armed: "Ordered faults", times: (n) => `struck ${n}×`, over: "over", struck: (faults) => `fault: ${faults}`,
  display: "Customer display", totals: "Totals", rate: "Rate", receipts: "Receipts", invoices: "Invoices", sum: "Sum",
  number: "Number",
  counts: (s) => `Cancelled ${s.cancelled_count}, reports ${s.report_count}, drawer opened ${s.drawer_openings}`,
  traffic: "Traffic", filter: "Filter", hideStatus: "hide DLE, ENQ, SUB", onlyTrouble: "only refused, wrong, faulty",
  pause: "Pause", time: "Time", client: (n) => `client ${n}`, command: "Command, parameters, fields",
  answer: "Checksum, answer", right: "right", wrong: "wrong", missing: "none", refused: (error) => `refused: ${error}`,
  overflow: "frame too long", lost: "lost by a fault", strange: "unknown command",
  png: "PNG", text: "Text", print: "Print",
  kinds: { receipt: "receipt", invoice: "invoice", cancelled: "cancelled", slip: "slip", report: "report" },
  dle: ["error", "out of paper", "online"],
  enq: ["last document closed", "document open", "command OK", "fiscal"],
};
