#!/usr/bin/env python3
"""A server of the tabular data stream protocol for tests: it reads what a driver sends and answers what the
statement itself says.

    tds_server.py LOG      prints its port; LOG gets a line of JSON for each statement that arrives

A line of a statement that begins with "--!" is an answer, in JSON, in the order of the lines:
    {"rows": [["a", "b"], ["x", null]]}   a head, and rows of NVARCHAR values
    {"echo": "name"}                      one row: the whole statement as it came
    {"params": true}                      one row: type and value of each parameter of a call
    {"print": "text"}   {"error": "text"}   {"count": 3}
    {"sleep": 5}                          waits, or ends at the driver's attention signal
    {"drop": true}                        closes the connection
"""
import datetime
import json
import select
import socket
import struct
import sys
import threading

PRELOGIN, LOGIN, BATCH, CALL, REPLY, ATTENTION = 0x12, 0x10, 0x01, 0x03, 0x04, 0x06
MORE, FAILED, COUNTED, ATTENDED = 0x01, 0x02, 0x10, 0x20
COLLATION = bytes.fromhex("0904d00034")


def wide(text):
    return text.encode("utf-16-le", "surrogatepass")


def short_text(text):
    return bytes([len(wide(text)) // 2]) + wide(text)


def long_text(text):
    return struct.pack("<H", len(wide(text)) // 2) + wide(text)


def token(kind, body):
    return bytes([kind]) + struct.pack("<H", len(body)) + body


def message(kind, number, severity, text):
    return token(kind, struct.pack("<IBB", number, 1, severity) + long_text(text) + short_text("tests")
                 + short_text("") + struct.pack("<I", 1))


def done(status, count=0):
    return b"\xfd" + struct.pack("<HHQ", status, 0, count)


def rows(table):
    """Columns of NVARCHAR(max), whose values come in chunks."""
    head, *values = table
    reply = b"\x81" + struct.pack("<H", len(head))
    for name in head:
        reply += struct.pack("<IH", 0, 0x09) + b"\xe7\xff\xff" + COLLATION + short_text(name)
    for row in values:
        reply += b"\xd1"
        for value in row:
            if value is None:
                reply += b"\xff" * 8
                continue
            data = wide(value)
            reply += struct.pack("<Q", len(data))
            reply += (struct.pack("<I", len(data)) + data if data else b"") + struct.pack("<I", 0)
    return reply


class Reader:
    """Takes the fields of a call off the front of its bytes."""

    def __init__(self, data):
        self.data, self.at = data, 0

    def take(self, size):
        self.at += size
        return self.data[self.at - size:self.at]

    def number(self, size):
        return int.from_bytes(self.take(size), "little")

    def text(self, size):
        return self.take(size).decode("utf-16-le", "surrogatepass")

    def chunks(self):
        total = self.number(8)
        if total == 0xFFFFFFFFFFFFFFFF:
            return None
        data = b""
        while size := self.number(4):
            data += self.take(size)
        return data

    def parameter(self):
        self.text(2 * self.number(1))  # its name
        self.take(1)
        kind = self.number(1)
        if kind in (0xE7, 0xEF):  # wide texts
            most = self.number(2)
            self.take(5)
            size = None if most == 0xFFFF else self.number(2)
            data = self.chunks() if size is None else None if size == 0xFFFF else self.take(size)
            return {"type": "nvarchar", "value": None if data is None else data.decode("utf-16-le")}
        if kind == 0x63:  # texts without a length
            self.take(9)
            size = self.number(4)
            return {"type": "ntext", "value": None if size == 0xFFFFFFFF else self.text(size)}
        if kind == 0x28:  # days since the year 1
            size = self.number(1)
            day = datetime.date.fromordinal(self.number(size) + 1) if size else None
            return {"type": "date", "value": None if day is None else str(day)}
        precision = self.number(1)
        if kind in (0x6A, 0x6C):  # decimals
            precision, scale = self.number(1), self.number(1)
            size = self.number(1)
            sign = 1 if self.number(1) else -1
            return {"type": f"decimal({precision},{scale})", "value": str(sign * self.number(size - 1))}
        size = self.number(1)
        names = {0x26: "int", 0x68: "bit", 0x6D: "float"}
        data = self.take(size)
        value = struct.unpack("<d", data)[0] if kind == 0x6D and size == 8 else int.from_bytes(data, "little", signed=True)
        return {"type": names.get(kind, hex(kind)) + str(8 * size), "value": str(value) if size else None}


class Connection:
    def __init__(self, link, log):
        self.link, self.log = link, log

    def receive(self, size):
        data = b""
        while len(data) < size:
            piece = self.link.recv(size - len(data))
            if not piece:
                raise EOFError
            data += piece
        return data

    def packet(self):
        kind, status, body = None, 0, b""
        while not status & 1:
            kind, status, size = struct.unpack(">BBH", self.receive(8)[:4])
            body += self.receive(size - 8)
        return kind, body

    def reply(self, body):
        step = 4088
        pieces = [body[i:i + step] for i in range(0, len(body), step)] or [b""]
        for i, piece in enumerate(pieces):
            last = 1 if i + 1 == len(pieces) else 0
            self.link.sendall(struct.pack(">BBHHBB", REPLY, last, len(piece) + 8, 0, i % 256, 0) + piece)

    def login(self):
        size = token(0xE3, b"\x04" + short_text("4096") + short_text(""))
        language = token(0xE3, b"\x07" + b"\x05" + COLLATION + b"\x00")
        name = token(0xAD, b"\x01" + b"\x74\x00\x00\x04" + short_text("Microsoft SQL Server") + b"\x0f\x00\x00\x00")
        self.reply(language + name + size + done(0))

    def serve(self):
        while True:
            kind, body = self.packet()
            if kind == PRELOGIN:
                self.reply(b"\x00\x00\x0b\x00\x06\x01\x00\x11\x00\x01\xff" + b"\x0f\x00\x00\x00\x00\x00" + b"\x02")
            elif kind == LOGIN:
                self.login()
            elif kind == ATTENTION:
                self.reply(done(ATTENDED))
            elif kind in (BATCH, CALL):
                data = Reader(body)
                data.take(struct.unpack("<I", body[:4])[0])  # headers of the request
                if not self.answer(*(self.call(data) if kind == CALL else (data.text(len(body)), []))):
                    return

    def call(self, data):
        """A call of a procedure by its number or name: the statement is its first text parameter."""
        size = data.number(2)
        procedure = data.number(2) if size == 0xFFFF else data.text(2 * size)
        data.take(2)
        params = []
        while data.at < len(data.data):
            params.append(data.parameter())
        texts = [p["value"] for p in params if p["type"] in ("nvarchar", "ntext") and p["value"] is not None]
        statement = max(texts, key=lambda text: text.count("--!"), default="")
        return statement, [{"procedure": procedure}] + params

    def answer(self, statement, params):
        print(json.dumps({"statement": statement, "params": params}), file=self.log, flush=True)
        lines = [json.loads(line.strip()[3:]) for line in statement.splitlines() if line.strip().startswith("--!")]
        reply = b""
        for i, what in enumerate(lines):
            more = MORE if i + 1 < len(lines) else 0
            if "drop" in what:
                self.link.sendall(struct.pack(">BBHHBB", REPLY, 0, len(reply) + 8, 0, 0, 0) + reply)
                self.link.shutdown(socket.SHUT_RDWR)
                return False
            if "sleep" in what:
                if select.select([self.link], [], [], what["sleep"])[0]:
                    self.packet()
                    self.reply(reply + done(ATTENDED))
                    return True
            elif "print" in what:
                reply += message(0xAB, 0, 0, what["print"]) + (b"" if more else done(0))
            elif "error" in what:
                reply += message(0xAA, 50000, 16, what["error"]) + done(more | FAILED)
            elif "count" in what:
                reply += done(more | COUNTED, what["count"])
            else:
                table = what.get("rows")
                if "echo" in what:
                    table = [[what["echo"]], [statement]]
                if "params" in what:
                    table = [["type", "value"]] + [[p["type"], p["value"]] for p in params[1:]]
                reply += rows(table) + done(more | COUNTED, len(table) - 1)
        self.reply(reply or done(0))
        return True


def serve(link, log):
    try:
        Connection(link, log).serve()
    except (EOFError, OSError):
        pass
    finally:
        link.close()


def main():
    with open(sys.argv[1], "w", encoding="ascii") as log, socket.create_server(("127.0.0.1", 0)) as server:
        print(server.getsockname()[1], flush=True)
        while True:
            threading.Thread(target=serve, args=(server.accept()[0], log), daemon=True).start()


main()
