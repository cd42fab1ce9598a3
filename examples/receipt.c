/*
 * Prints a receipt over TCP, command by command, and cancels it when the
 * printer refuses one.
 *
 *     receipt ADDRESS PORT [LOG_DIRECTORY]
 *
 * The exit status is 0 when the receipt was printed, 1 when not, 2 when the
 * arguments make no sense.
 */
#include <stdio.h>
#include <stdlib.h>

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
        .first_amount = 649,
        .second_amount = 1298,
    },
    {
        .name = "Ser wędzony gołka",
        .quantity_text = "0.755",
        .unit = "kg",
        .rate_group = "C",
        .first_amount = 3890,
        .second_amount = 2937, /* 0.755 * 38.90 = 29.3695 */
    },
    {
        .name = "Kubek błękitny \"Cześć!\"",
        .quantity = 100000000,
        .unit = "szt",
        .rate_group = "A",
        .first_amount = 2450,
        .second_amount = 2450,
    },
};

static Payment cash = {.amount = 7000, .integer = 1};

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
    end.second_amount += lines[i].second_amount;
  }
  return 1;
}

static int print_receipt(void) {
  /* The texts of this file are UTF-8. */
  if (!run("text encoding", QUIL_TEXT_UTF8, NULL) ||
      !run("header", QUIL_DOCUMENT_HEADER, &header)) {
    return 0;
  }
  end.first_amount = cash.amount;
  if (print_lines() && run("payment", QUIL_PAYMENT_6, &cash) &&
      run("closing", QUIL_DOCUMENT_END, &end)) {
    return 1;
  }
  DocumentShortEnd nothing = {.first_text = ""};
  run("cancelling", QUIL_DOCUMENT_SHORT_END, &nothing);
  return 0;
}

int main(int argc, char** argv) {
  if (argc < 3 || argc > 4) {
    printf("usage: receipt ADDRESS PORT [LOG_DIRECTORY]\n");
    return 2;
  }
  const char* address = argv[1];
  char* rest = NULL;
  const unsigned long port = strtoul(argv[2], &rest, 10);
  if (*rest != '\0' || port < 1 || port > 65535) {
    printf("receipt: %s is no TCP port\n", argv[2]);
    return 2;
  }

  quil_init(0);
  if (argc == 4 && quil_enable_log(argv[3]) == 0) {
    printf("receipt: the log's directory has too long a name\n");
    return 2;
  }
  int printed = 0;
  if (quil_open_tcpip(address, (uint32_t)port) == 1) {
    printed = print_receipt();
  } else {
    printf("receipt: no printer at %s, port %lu\n", address, port);
  }
  quil_close();
  printf(printed ? "receipt printed\n" : "no receipt\n");
  return printed ? 0 : 1;
}
