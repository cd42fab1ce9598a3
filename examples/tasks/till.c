#include "till.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Asked for together, they tell the printer's reason when it refuses. */
static const uint32_t checked = QUIL_CHECK_STATUS | QUIL_QUERY_ERROR;

static struct {
  const TcpParams* tcp;
  const SerialParams* serial;
  int opened; /* There is a connection, perhaps a broken one. */
  int clean;  /* It works, and no answer is outstanding on it. */
} connection;

static void hang_up(void) { quil_close(); }

static void use(const TcpParams* tcp, const SerialParams* serial) {
  connection.tcp = tcp;
  connection.serial = serial;
  connection.opened = connection.clean = 0;
  quil_init(0);
  quil_ioctrl(QUIL_TEXT_UTF8, NULL, NULL, 0);
  atexit(hang_up);
}

void till_use_tcp(const TcpParams* params) { use(params, NULL); }
void till_use_serial(const SerialParams* params) { use(NULL, params); }

/* Returns 0 when the text is no number from 1 to `most`. */
static uint32_t number(const char* text, unsigned long most) {
  char* rest = NULL;
  const unsigned long value = strtoul(text, &rest, 10);
  return *rest == '\0' && value <= most ? (uint32_t)value : 0;
}

int till_use_arguments(int argc, char** argv) {
  static TcpParams params;
  if (argc == 3 || argc == 4) {
    snprintf(params.address, sizeof params.address, "%s", argv[1]);
    params.port = number(argv[2], 65535);
    params.reply_timeout = argc == 4 ? number(argv[3], 600000) : 5000;
  }
  if (params.port == 0 || params.reply_timeout == 0) {
    printf("usage: %s ADDRESS PORT [REPLY_TIMEOUT]\n", argv[0]);
    return 0;
  }
  till_use_tcp(&params);
  return 1;
}

/* The driver's messages are CP1250; most terminals want UTF-8. */
static void print_cp1250(const char* text) {
  static const struct {
    unsigned char byte;
    const char* utf8;
  } letters[] = {
      {0xA5, "Ą"}, {0xC6, "Ć"}, {0xCA, "Ę"}, {0xA3, "Ł"}, {0xD1, "Ń"},
      {0xD3, "Ó"}, {0x8C, "Ś"}, {0x8F, "Ź"}, {0xAF, "Ż"}, {0xB9, "ą"},
      {0xE6, "ć"}, {0xEA, "ę"}, {0xB3, "ł"}, {0xF1, "ń"}, {0xF3, "ó"},
      {0x9C, "ś"}, {0x9F, "ź"}, {0xBF, "ż"},
  };
  for (; *text != '\0'; ++text) {
    const char ascii[] = {*text, '\0'};
    const char* utf8 = (unsigned char)*text < 0x80 ? ascii : "?";
    for (size_t i = 0; i < sizeof letters / sizeof letters[0]; ++i) {
      if (letters[i].byte == (unsigned char)*text) {
        utf8 = letters[i].utf8;
      }
    }
    printf("%s", utf8);
  }
}

static void say_state(const char* name, const DleStatus* dle) {
  const char* state = "the answer makes no sense";
  if (!dle->valid) {
    state = "no answer";
  } else if (dle->paper_out) {
    state = "no paper";
  } else if (dle->printer_error || !dle->online) {
    state = "out of order";
  }
  printf("%s: %s\n", name, state);
}

/* Tells why the command that just ended so did not succeed. */
static void say_why(const char* name, int32_t result) {
  LastErrorRecord error;
  quil_get_last_error(&error);
  if (result > 0) {
    printf("%s: refused, error %d: ", name, (int)result);
    print_cp1250(error.message);
    printf("\n");
  } else {
    say_state(name, &error.dle);
  }
}

/* Runs a step; returns 0, the number of the printer's reason to refuse it, or
 * -1 when there is no knowing what became of it. */
static int32_t run(const Step* step, uint32_t flags) {
  const int32_t result = quil_ioctrl(step->code, step->record, NULL, flags);
  if (result != 0) {
    connection.clean = connection.clean && result > 0;
    say_why(step->name, result);
  }
  return result;
}

/* Makes sure of a connection on which the next answer belongs to the next
 * question: the one there is, or else a new one. What was asked on the old one
 * may still be answered, so that one is first heard out, until it has been
 * silent for a reply time-out. */
static int connect_anew(void) {
  if (connection.clean) {
    return 1;
  }
  DleStatus dropped;
  int most = connection.opened ? 10 : 0;
  while (most-- > 0 && quil_ioctrl(QUIL_READ_DLE, &dropped, NULL, 0) == 0) {
  }
  quil_close();
  connection.opened = 1;
  connection.clean =
      (connection.tcp != NULL ? quil_open_tcpip_ex(connection.tcp)
                              : quil_open_serial_ex(connection.serial)) == 1;
  if (!connection.clean) {
    printf("there is no connection to the printer\n");
  }
  return connection.clean;
}

static int ask_dle(DleStatus* dle) {
  *dle = (DleStatus){0};
  return quil_ioctrl(QUIL_SEND_DLE, NULL, NULL, 0) == 0 &&
         quil_ioctrl(QUIL_READ_DLE, dle, NULL, 0) == 0 && dle->valid;
}

static int ask_enq(EnqStatus* enq) {
  return quil_ioctrl(QUIL_SEND_ENQ, NULL, NULL, 0) == 0 &&
         quil_ioctrl(QUIL_READ_ENQ, enq, NULL, 0) == 0;
}

/* Whether the printer could print now. */
static int is_ready(void) {
  DleStatus dle;
  connection.clean = ask_dle(&dle);
  const int ready =
      connection.clean && dle.online && !dle.paper_out && !dle.printer_error;
  if (!ready) {
    say_state("printer", &dle);
  }
  return ready;
}

/* Brings the printer to rest: connected, answering, and no document open.
 * Returns 0 when that failed. With `cancelled` it tells why the last command
 * was refused if a document is open, and sets it to 1 when that is cancelled.
 */
static int reach_rest(int32_t* cancelled) {
  DocumentShortEnd nothing = {.first_text = ""};
  const Step cancelling = {"cancelling", QUIL_DOCUMENT_SHORT_END, &nothing};
  const Step last = {"last command", QUIL_NOTHING, NULL};
  DleStatus dle;
  EnqStatus enq;
  if (!connect_anew()) {
    return 0;
  }
  connection.clean = ask_dle(&dle) && ask_enq(&enq);
  if (!connection.clean) {
    say_state("printer", &dle);
    return 0;
  }
  if (!enq.flag1) {
    return 1;
  }
  printf("cancelling the document that is open\n");
  if (!is_ready()) {
    return 0;
  }
  if (cancelled != NULL) {
    run(&last, checked);
  }
  if (connect_anew() && run(&cancelling, checked) == 0 && cancelled != NULL) {
    *cancelled = 1;
  }
  connection.clean = connection.clean && ask_enq(&enq);
  return connection.clean && !enq.flag1;
}

static int read_totals_once(int32_t invoice, Identity* identity) {
  SingleNumber mode = {invoice};
  EnqStatus enq;
  return quil_ioctrl(QUIL_SET_TOTALS_MODE, &mode, NULL, 0) == 0 &&
         ask_enq(&enq) && enq.last_command_ok &&
         quil_ioctrl(invoice ? QUIL_SEND_TOTALS : QUIL_SEND_IDENTITY, NULL,
                     NULL, 0) == 0 &&
         quil_ioctrl(QUIL_READ_TOTALS, identity, NULL, 0) == 0;
}

/* Reads the printer's totals and believes them when it says them twice. */
static int read_totals(int32_t invoice, int32_t totals[7]) {
  Identity first = {{0}};
  Identity second = {{0}};
  connection.clean =
      read_totals_once(invoice, &first) && read_totals_once(invoice, &second) &&
      memcmp(first.totals, second.totals, sizeof first.totals) == 0;
  if (!connection.clean) {
    printf("the printer's totals cannot be read\n");
    return 0;
  }
  memcpy(totals, second.totals, sizeof second.totals);
  return 1;
}

int till_cancel(void) { return reach_rest(NULL); }

int till_begin(Sale* sale, const Step* steps, size_t count, int64_t total) {
  *sale = (Sale){.invoice = steps[0].code >= QUIL_BUYER_HEADER, .total = total};
  if (total <= 0) {
    printf("the totals cannot prove a document of nothing\n");
    return 0;
  }
  if (!till_cancel() || !read_totals(sale->invoice, sale->totals_before) ||
      !is_ready()) {
    return 0;
  }
  for (size_t i = 0; i < count; ++i) {
    /* The driver compares the totals, too, when the opening says so. On any
     * other command that flag would make it forget the document. */
    if (run(&steps[i], i == 0 ? checked | QUIL_COMPARE_TOTALS : checked) != 0) {
      till_cancel();
      return 0;
    }
  }
  return 1;
}

Outcome till_end(Sale* sale, const Step* closing) {
  if (quil_ioctrl(closing->code, closing->record, NULL, checked) == 0) {
    return kPrinted;
  }
  /* The last error is still that of the command before, and an answer may be
   * on its way: what happened can only be asked anew. */
  printf("%s: failed; looking what became of the document\n", closing->name);
  connection.clean = 0;
  return till_find_out(sale);
}

static int64_t growth(const int32_t before[7], const int32_t after[7]) {
  int64_t sum = 0;
  for (int i = 0; i < 7; ++i) {
    /* Each total is the low 32 bits of the printer's. */
    sum += (int32_t)((uint32_t)after[i] - (uint32_t)before[i]);
  }
  return sum;
}

Outcome till_find_out(Sale* sale) {
  int32_t totals[7];
  int attempts = 3;
  do {
    if (reach_rest(&sale->cancelled) && read_totals(sale->invoice, totals)) {
      const int64_t grown = growth(sale->totals_before, totals);
      if (grown == sale->total) {
        return kPrinted;
      }
      /* Unless it was still open and could be cancelled, the printer obeyed the
       * closing, or lost the document with its power, or still works on it. */
      return grown == 0 && sale->cancelled ? kNotPrinted : kUnknown;
    }
    /* On a clean connection another attempt would end as this one did. */
  } while (--attempts > 0 && !connection.clean);
  return kUnknown;
}

Outcome till_print(const Step* steps, size_t count, int64_t total) {
  Sale sale;
  if (!till_begin(&sale, steps, count - 1, total)) {
    return kNotPrinted;
  }
  return till_end(&sale, &steps[count - 1]);
}

/* Has the printer refuse something harmless. Its verdict is on the last command
 * that it heard: if the next one gets lost, that of the one before must not be
 * "accepted". */
static int have_refused(void) {
  DocumentShortEnd nothing = {.first_text = ""};
  EnqStatus enq;
  connection.clean =
      quil_ioctrl(QUIL_DOCUMENT_SHORT_END, &nothing, NULL, 0) == 0 &&
      ask_enq(&enq);
  if (!connection.clean || enq.last_command_ok) {
    printf("the printer does not hear what it is told\n");
    return 0;
  }
  return 1;
}

Outcome till_do(const Step* step) {
  if (!till_cancel() || !is_ready() || !have_refused()) {
    return kNotPrinted;
  }
  const int32_t result = run(step, checked);
  return result == 0 ? kPrinted : result > 0 ? kNotPrinted : kUnknown;
}

int till_tell(const char* name, const char* printed, Outcome outcome) {
  switch (outcome) {
    case kPrinted:
      printf("%s: %s\n", name, printed);
      return 0;
    case kNotPrinted:
      printf("%s: not %s\n", name, printed);
      return 1;
    default:
      printf("%s: unknown; look at the printer before you go on\n", name);
      return 3;
  }
}
