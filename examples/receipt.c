/*
 * Prints a receipt over TCP or over a serial port, and tells whether it was
 * printed. The small examples in tasks/ have one task each.
 *
 *     receipt ADDRESS PORT [LOG_DIRECTORY]
 *     receipt --serial NAME BAUD [threaded] [LOG_DIRECTORY]
 *
 * The exit status is 0 when the receipt was printed, 1 when not, 3 when nobody
 * can tell, 2 when the arguments make no sense.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "tasks/till.h"

static DocumentHeader header = {
    .line_count = 2,
    .lines = {"Sklep \"Pod Źródłem\"", "ul. Żółkiewskiego 7, 31-539 Kraków"},
};

/* Quantities count 10^-8, amounts hundredths. A quantity may also be given as
 * text. */
static DocumentLine lines[] = {
    {
        .name = "Chleb żytni",
        .second_name = "na zakwasie, krojony",
        .quantity = 200000000,
        .rate_group = "C",
        .unit = "szt",
        .price = 649,
        .value = 1298,
    },
    {
        .name = "Ser wędzony gołka",
        .quantity_text = "0.755",
        .rate_group = "C",
        .unit = "kg",
        .price = 3890,
        .value = 2937, /* 0.755 * 38.90 = 29.3695 */
    },
    {
        .name = "Kubek błękitny \"Cześć!\"",
        .quantity = 100000000,
        .rate_group = "A",
        .unit = "szt",
        .price = 2450,
        .value = 2450,
    },
};

static Payment cash = {.amount = 7000, .number = 1};

static DocumentEnd end = {
    .extra_line_count = 1,
    .code_text = "Kasa 1",
    .extra_lines = {"Dziękujemy, zapraszamy ponownie"},
    .paid = 7000,
    .total = 6685, /* 12.98 + 29.37 + 24.50 */
};

static const Step receipt[] = {
    {"header", QUIL_DOCUMENT_HEADER, &header},
    {"bread", QUIL_DOCUMENT_LINE, &lines[0]},
    {"cheese", QUIL_DOCUMENT_LINE, &lines[1]},
    {"mug", QUIL_DOCUMENT_LINE, &lines[2]},
    {"payment", QUIL_PAYMENT_6, &cash},
    {"closing", QUIL_DOCUMENT_END, &end},
};

/* How to reach the printer. */
typedef struct Arguments {
  int is_serial; /* over a serial port; else over TCP */
  TcpParams tcp;
  SerialParams serial;
  const char* log_directory; /* NULL: no log */
} Arguments;

static int read_number(const char* text, unsigned long last, uint32_t* number) {
  char* rest = NULL;
  const unsigned long value = strtoul(text, &rest, 10);
  *number = (uint32_t)value;
  if (*rest == '\0' && value >= 1 && value <= last) {
    return 1;
  }
  printf("receipt: %s is no number from 1 to %lu\n", text, last);
  return 0;
}

/* Returns 0, and says why, when the arguments make no sense. */
static int read_arguments(int argc, char** argv, Arguments* arguments) {
  char** next = argv + 1;
  char** const last = argv + argc;
  arguments->is_serial = next < last && strcmp(*next, "--serial") == 0;
  next += arguments->is_serial;
  if (last - next < 2) {
    printf(
        "usage: receipt ADDRESS PORT [LOG_DIRECTORY]\n"
        "       receipt --serial NAME BAUD [threaded] [LOG_DIRECTORY]\n");
    return 0;
  }
  snprintf(arguments->tcp.address, sizeof arguments->tcp.address, "%s", *next);
  snprintf(arguments->serial.port_name, sizeof arguments->serial.port_name,
           "%s", *next);
  ++next;
  if (!(arguments->is_serial
            ? read_number(*next, 4000000, &arguments->serial.baud_rate)
            : read_number(*next, 65535, &arguments->tcp.port))) {
    return 0;
  }
  ++next;
  if (arguments->is_serial && next < last && strcmp(*next, "threaded") == 0) {
    arguments->serial.threaded = 1;
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

int main(int argc, char** argv) {
  static Arguments arguments = {
      .tcp = {.reply_timeout = 5000},
      .serial =
          {
              .data_bits = 8,
              .write_timeout = 10000,
              .reply_timeout = 5000,
          },
  };
  if (!read_arguments(argc, argv, &arguments)) {
    return 2;
  }
  if (arguments.is_serial) {
    till_use_serial(&arguments.serial);
  } else {
    till_use_tcp(&arguments.tcp);
  }
  if (arguments.log_directory != NULL &&
      quil_enable_log(arguments.log_directory) == 0) {
    printf("receipt: the log's directory has too long a name\n");
    return 2;
  }
  return till_tell("receipt", "printed", till_print(receipt, 6, 6685));
}
