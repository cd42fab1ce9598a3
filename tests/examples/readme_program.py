#!/usr/bin/python3
"""Makes a program of the first C block of README.md, so that it can be tested as the examples are.

    readme_program.py README.md PROGRAM.c

The program takes the examples' arguments, ADDRESS PORT [REPLY_TIMEOUT], and tells the outcome as they do.
"""

import pathlib
import re
import sys

HEAD = """\
#include <stdio.h>
#include <stdlib.h>

"""
# Nobody's printer stands at the address that people read.
OPENING = 'quil_open_tcpip("10.0.0.7", 6001)'
OPEN = """
static TcpParams params = {.reply_timeout = 5000};
"""
MAIN = """
int main(int argc, char** argv) {
  if (argc < 3) {
    return 2;
  }
  snprintf(params.address, sizeof params.address, "%s", argv[1]);
  params.port = (uint32_t)strtoul(argv[2], NULL, 10);
  if (argc > 3) {
    params.reply_timeout = (uint32_t)strtoul(argv[3], NULL, 10);
  }
  const int printed = print_receipt();
  printf("receipt: %s\\n", printed == 1 ? "printed" : printed == 0 ? "not printed" : "unknown");
  return printed == 1 ? 0 : 1;
}
"""


def main():
    readme, program = map(pathlib.Path, sys.argv[1:])
    code = re.search(r"^```c\n(.*?)^```$", readme.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL).group(1)
    include, body = code.split("\n", 1)
    if OPENING not in body:
        sys.exit(f"{readme}: the example does not call {OPENING}")
    body = body.replace(OPENING, "quil_open_tcpip_ex(&params)").replace("int print_receipt", "static int print_receipt")
    program.write_text(HEAD + include + "\n" + OPEN + body + MAIN, encoding="utf-8")


if __name__ == "__main__":
    main()
