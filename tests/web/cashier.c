/*
 * A shop's program that does what it is told, step by step. It reads a step a
 * line and answers each with a line of JSON: the exported function's result,
 * and the printer's status as the driver saw it last.
 *
 *     open PORT     header     line NAME     end     display TEXT     quit
 *     sell COUNT
 *
 * The last one prints so many receipts as fast as the printer takes them, and
 * returns when it has.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "quilon/quilon.h"

static DocumentHeader header;
static DocumentLine line = {
    .quantity = 200000000,
    .unit = "szt",
    .rate_group = "A",
    .price = 450,
    .value = 900,
};
static DocumentEnd end;
static DisplayText display = {.mode = 3};

static int32_t Command(int32_t code, void* data) {
  return quil_ioctrl(code, data, NULL, QUIL_CHECK_STATUS);
}

static int32_t Sell(uint32_t count) {
  snprintf(line.name, sizeof line.name, "Chleb");
  end.total = line.value;
  for (uint32_t sold = 0; sold < count; ++sold) {
    quil_ioctrl(QUIL_DOCUMENT_HEADER, &header, NULL, 0);
    quil_ioctrl(QUIL_DOCUMENT_LINE, &line, NULL, 0);
    quil_ioctrl(QUIL_DOCUMENT_END, &end, NULL, 0);
  }
  snprintf(display.text, sizeof display.text, "%u", (unsigned)count);
  return Command(QUIL_DISPLAY, &display);
}

static int32_t TakeStep(const char* step) {
  if (strncmp(step, "open ", 5) == 0) {
    const int32_t opened =
        quil_open_tcpip("127.0.0.1", (uint32_t)strtoul(step + 5, NULL, 10));
    quil_ioctrl(QUIL_TEXT_UTF8, NULL, NULL, 0);
    return opened;
  }
  if (strcmp(step, "header") == 0) {
    end.total = 0;
    return Command(QUIL_DOCUMENT_HEADER, &header);
  }
  if (strncmp(step, "line ", 5) == 0) {
    snprintf(line.name, sizeof line.name, "%s", step + 5);
    const int32_t result = Command(QUIL_DOCUMENT_LINE, &line);
    end.total += result == 0 ? line.value : 0;
    return result;
  }
  if (strcmp(step, "end") == 0) {
    return Command(QUIL_DOCUMENT_END, &end);
  }
  if (strncmp(step, "sell ", 5) == 0) {
    return Sell((uint32_t)strtoul(step + 5, NULL, 10));
  }
  if (strncmp(step, "display ", 8) == 0) {
    snprintf(display.text, sizeof display.text, "%s", step + 8);
    return Command(QUIL_DISPLAY, &display);
  }
  return -1000;
}

static void Tell(int32_t result) {
  LastErrorRecord last;
  quil_get_last_error(&last);
  printf(
      "{\"result\": %d, \"error\": %d, \"online\": %d, \"paper_out\": %d, "
      "\"printer_error\": %d}\n",
      (int)result, (int)last.error_code, (int)last.dle.online,
      (int)last.dle.paper_out, (int)last.dle.printer_error);
  fflush(stdout);
}

int main(void) {
  char step[256];
  quil_init(0);
  while (fgets(step, sizeof step, stdin) != NULL) {
    step[strcspn(step, "\r\n")] = '\0';
    if (strcmp(step, "quit") == 0) {
      break;
    }
    Tell(TakeStep(step));
  }
  quil_close();
  return 0;
}
