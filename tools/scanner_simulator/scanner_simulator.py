#!/usr/bin/env python3
"""A CS1504 without the hardware: a serial port that answers as the scanner does.

Prints the name of the port, answers until it is interrupted, and tells on standard error what it
was asked. In another terminal, with the name that it printed:

    TAVERNOOK_SERIAL_PORTS=/dev/pts/3 ./dev run

and in Project Setup "Symbol CS1504 Scanner" at "Comm 1".
"""
import argparse
import os
import signal
import sys
import time
import tty

INTERROGATE, CLEAR, POWER_DOWN, UPLOAD, READ_PARAMETERS = 1, 2, 5, 7, 8
NAMES = {1: "interrogate", 2: "clear", 5: "power down", 7: "upload", 8: "read parameters"}
UNSUPPORTED, DONE, WRONG_CRC = 5, 6, 7
SEND_TYPE, STORE_TIME = 16, 35
CODE_39, UPC_A, UPC_E, EAN_8, EAN_13 = 1, 8, 9, 10, 11
SERIAL_NUMBER = bytes([0, 0, 0, 0, 1, 0x23, 0x45, 0x67])


def crc(message):
    value = 0xFFFF
    for byte in message:
        value ^= byte
        for _ in range(8):
            value = value >> 1 ^ (0xA001 if value & 1 else 0)
    return (value ^ 0xFFFF).to_bytes(2, "big")


def ended(message):
    message += b"\0"
    return message + crc(message)


def type_of(code):
    if not code.isdigit():
        return CODE_39
    return {12: UPC_A, 13: EAN_13, 8: EAN_8, 6: UPC_E}.get(len(code), CODE_39)


def packed_time(now):
    return (now.tm_sec << 26 | now.tm_min << 20 | now.tm_hour << 15 | now.tm_mday << 10
            | now.tm_mon << 6 | now.tm_year % 100).to_bytes(4, "big")


class Scanner:
    def __init__(self, options):
        self.options = options
        self.codes = list(options.codes)
        self.heard = b""

    def string_of(self, code):
        text = code.encode("latin-1")
        if not self.options.without_type:
            text = bytes([type_of(code)]) + text
        if not self.options.without_time:
            text += packed_time(time.localtime())
        return bytes([len(text)]) + text

    def reply_to(self, command):
        if ended(command[:-3]) != command:
            return bytes([WRONG_CRC])
        done = bytes([DONE, 2])
        if command[0] == INTERROGATE:
            return ended(done + bytes([1, 0]) + SERIAL_NUMBER + b"SIMULATE")
        if command[0] == UPLOAD:
            return ended(done + SERIAL_NUMBER + b"".join(map(self.string_of, self.codes)))
        if command[0] == READ_PARAMETERS and command[3] in (SEND_TYPE, STORE_TIME):
            off = self.options.without_type if command[3] == SEND_TYPE else self.options.without_time
            return ended(done + bytes([2, command[3], 0 if off else 1]))
        if command[0] == CLEAR:
            self.codes.clear()
        elif command[0] != POWER_DOWN:
            return bytes([UNSUPPORTED])
        return ended(done)

    def next_command(self):
        at = 2
        while at < len(self.heard) and self.heard[at]:
            at += 1 + self.heard[at]
        if at + 3 > len(self.heard):
            return None
        command, self.heard = self.heard[:at + 3], self.heard[at + 3:]
        return command

    def answers_to(self, data):
        self.heard += data
        answers = []
        while (command := self.next_command()) is not None:
            print(NAMES.get(command[0], "something else"), file=sys.stderr, flush=True)
            if not self.options.silent:
                reply = self.reply_to(command)
                if self.options.damaged:
                    reply = reply[:-1] + bytes([reply[-1] ^ 1])
                answers.append(reply)
        return b"".join(answers)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("codes", nargs="*", help="the codes that it holds")
    parser.add_argument("--silent", action="store_true", help="a port at which nothing answers")
    parser.add_argument("--damaged", action="store_true", help="every answer comes damaged")
    parser.add_argument("--without-type", action="store_true", help="codes are sent without type")
    parser.add_argument("--without-time", action="store_true", help="codes are sent without time")
    scanner = Scanner(parser.parse_args())

    far, near = os.openpty()  # the near end stays open, so that no hang-up is heard between two users
    tty.setraw(near)
    signal.signal(signal.SIGINT, lambda *_: sys.exit(0))
    print(os.ttyname(near), flush=True)
    while True:
        os.write(far, scanner.answers_to(os.read(far, 512)))


if __name__ == "__main__":
    main()
