/*
 * Prints a receipt over TCP or over a serial port, command by command, and
 * cancels it when the printer refuses one.
 *
 *     receipt ADDRESS PORT [LOG_DIRECTORY]
 *     receipt --serial NAME BAUD [threaded] [LOG_DIRECTORY]
 *
 * The exit status is 0 when the receipt was printed, 1 when not, 2 when the
 * arguments make no sense.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "quilon/quilon.h"

static DocumentHeader header = {
    .line_count = 3,
    .lines = {"Sklep \"Pod Źródłem\"", "ul. Żółkiewskiego 7, 31-539 Kraków",
              "NIP 123-456-32-18"},
};

/* Quantities count 10^-8, amounts hundredths. A quantity may also be given as
 * text. */
static DocumentLine lines[] = {
    {
        .name = "Chleb żytni",
        .second_name = "na zakwasie, krojony",
        .quantity = 200000000,
        .unit = "szt",
        .rate_group = "C",
        .price = 649,
        .value = 1298,
    },
    {
        .name = "Ser wędzony gołka",
        .quantity_text = "0.755",
        .unit = "kg",
        .rate_group = "C",
        .price = 3890,
        .value = 2937, /* 0.755 * 38.90 = 29.3695 */
    },
    {
        .name = "Kubek błękitny \"Cześć!\"",
        .quantity = 100000000,
        .unit = "szt",
        .rate_group = "A",
        .price = 2450,
        .value = 2450,
    },
};

static Payment cash = {.amount = 7000, .number = 1};

static DocumentEnd end = {
    .extra_line_count = 1,
    .code_text = "Kasa 1",
    .extra_lines = {"Dziękujemy, zapraszamy ponownie"},
};

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
    const unsigned char byte = (unsigned char)*text;
    if (byte < 0x80) {
      printf("%c", *text);
      continue;
    }
    const char* utf8 = "?";
    for (size_t i = 0; i < sizeof letters / sizeof letters[0]; ++i) {
      if (letters[i].byte == byte) {
        utf8 = letters[i].utf8;
      }
    }
    printf("%s", utf8);
  }
}

/* After a failed status check. */
static void print_last_error(void) {
  LastErrorRecord error;
  quil_get_last_error(&error);
  if (!error.dle.valid) {
    printf("the printer does not answer");
  } else if (error.dle.paper_out) {
    printf("the printer has no paper");
  } else if (error.dle.printer_error || !error.dle.online) {
    printf("the printer is out of order");
  } else if (error.enq.last_command_ok) {
    printf("the command did not reach the printer");
  } else {
    printf("refused, error %d: ", (int)error.error_code);
    print_cp1250(error.message);
  }
  printf("\n");
}

/* Runs a command and asks the printer whether it is content. */
static int run(const char* what, int32_t code, void* data) {
  if (quil_ioctrl(code, data, NULL, QUIL_CHECK_STATUS) == 0) {
    printf("%s: ok\n", what);
    return 1;
  }
  printf("%s: ", what);
  print_last_error();
  return 0;
}

static int print_lines(void) {
  for (size_t i = 0; i < sizeof lines / sizeof lines[0]; ++i) {
    if (!run("line", QUIL_DOCUMENT_LINE, &lines[i])) {
      return 0;
    }
    end.total += lines[i].value;
  }
  return 1;
}

static int print_receipt(void) {
  /* The texts of this file are UTF-8. */
  if (!run("text encoding", QUIL_TEXT_UTF8, NULL) ||
      !run("header", QUIL_DOCUMENT_HEADER, &header)) {
    return 0;
  }
  end.paid = cash.amount;
  if (print_lines() && run("payment", QUIL_PAYMENT_6, &cash) &&
      run("closing", QUIL_DOCUMENT_END, &end)) {
    return 1;
  }
  DocumentShortEnd nothing = {.first_text = ""};
  run("cancelling", QUIL_DOCUMENT_SHORT_END, &nothing);
  return 0;
}

/* How to reach the printer. */
typedef struct Arguments {
  int serial;                /* over a serial port; else over TCP */
  const char* name;          /* of the port, or the address */
  uint32_t number;           /* baud rate or TCP port */
  uint32_t threaded;         /* 1: threads serve the serial port */
  const char* log_directory; /* NULL: no log */
} Arguments;

static int read_number(const char* text, unsigned long last, uint32_t* number) {
  char* rest = NULL;
  const unsigned long value = strtoul(text, &rest, 10);
  *number = (uint32_t)value;
  return *rest == '\0' && value >= 1 && value <= last;
}

/* Returns 0, and says why, when the arguments make no sense. */
static int read_arguments(int argc, char** argv, Arguments* arguments) {
  char** next = argv + 1;
  char** const last = argv + argc;
  arguments->serial = next < last && strcmp(*next, "--serial") == 0;
  next += arguments->serial;
  if (last - next < 2) {
    printf(
        "usage: receipt ADDRESS PORT [LOG_DIRECTORY]\n"
        "       receipt --serial NAME BAUD [threaded] [LOG_DIRECTORY]\n");
    return 0;
  }
  arguments->name = *next++;
  if (!read_number(*next, arguments->serial ? 4000000 : 65535,
                   &arguments->number)) {
    printf("receipt: %s is no %s\n", *next,
           arguments->serial ? "baud rate" : "TCP port");
    return 0;
  }
  ++next;
  if (arguments->serial && next < last && strcmp(*next, "threaded") == 0) {
    arguments->threaded = 1;
    ++next;
  }
  if (next < last) {
    arguments->log_directory = *next++;
  }
  if (next < last) {
    printf("receipt: what is %s?\n", *next);
    return 0;
  }
  return 1;
}

static int32_t connect_to_printer(const Arguments* arguments) {
  return arguments->serial
             ? quil_open_serial(arguments->name, arguments->number,
                                arguments->threaded)
             : quil_open_tcpip(arguments->name, arguments->number);
}

int main(int argc, char** argv) {
  Arguments arguments = {0};
  if (!read_arguments(argc, argv, &arguments)) {
    return 2;
  }
  quil_init(0);
  if (arguments.log_directory != NULL &&
      quil_enable_log(arguments.log_directory) == 0) {
    printf("receipt: the log's directory has too long a name\n");
    return 2;
  }
  int printed = 0;
  if (connect_to_printer(&arguments) == 1) {
    printed = print_receipt();
  } else {
    printf("receipt: no printer at %s, %s %lu\n", arguments.name,
           arguments.serial ? "baud rate" : "port",
           (unsigned long)arguments.number);
  }
  quil_close();
  printf(printed ? "receipt printed\n" : "no receipt\n");
  return printed ? 0 : 1;
}
