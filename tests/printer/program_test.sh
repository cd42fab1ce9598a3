#!/usr/bin/env bash
# Runs the program as a person would: a command over TCP, the paper on its output, the end at SIGTERM.
#   program_test.sh PROGRAM
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkfifo "$folder/messages"
"$1" --tcp 127.0.0.1:0 >"$folder/paper" 2>"$folder/messages" &
program=$!
exec 3<"$folder/messages"
read -r message <&3
[[ $message == "listening on 127.0.0.1:"* ]] || { echo "unexpected: $message"; exit 1; }

exec 4<>"/dev/tcp/127.0.0.1/${message##*:}"
# "0;0;0;1;0$h" and CR: the XOR of all bytes from FF on is 8f.
printf '\033P0;0;0;1;0$h\r8f\033\\\005' >&4
read -r -N 1 -t 10 status <&4
[[ $status == n ]] || { echo "ENQ answer is not 0x6E: $status"; exit 1; }

kill -TERM "$program"
wait "$program"
grep -q "PARAGON FISKALNY" "$folder/paper"
