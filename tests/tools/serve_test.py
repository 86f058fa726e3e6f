#!/usr/bin/env python3
"""The phone in a browser: the real phone, the real server, and a browser's part of the talk.

    serve_test.py VELA-PHONE [TEST…]
"""
import base64
import os
import re
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

SERVE = Path(__file__).resolve().parents[2] / "tools" / "serve-to-browser"
LIMIT = 60  # seconds that a loaded machine may take
# More than any page or handshake: only the picture of the phone takes this many bytes.
LEAST_PICTURE = 20_000


class ServeTest(unittest.TestCase):
    program = None

    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.folder = Path(directory.name)
        self.runtime = self.folder / "runtime"
        self.runtime.mkdir(mode=0o700)

    def serve(self, *command):
        environment = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment["XDG_RUNTIME_DIR"] = str(self.runtime)
        process = subprocess.Popen([str(SERVE), *map(str, command)], env=environment, text=True,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return process

    def port_of(self, process):
        for line in process.stderr:
            if match := re.search(r"http://127\.0\.0\.1:(\d+)/", line):
                return int(match.group(1))
        self.fail("no address was printed")

    def until(self, holds, what):
        end = time.monotonic() + LIMIT
        while not (result := holds()):
            self.assertLess(time.monotonic(), end, what)
            time.sleep(0.05)
        return result

    def open_socket(self, port):
        """What the served page does: asks for the picture over a web socket."""
        connection = socket.create_connection(("127.0.0.1", port), timeout=LIMIT)
        self.addCleanup(connection.close)
        key = base64.b64encode(os.urandom(16)).decode()
        connection.sendall(
            ("GET /socket HTTP/1.1\r\nHost: 127.0.0.1\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
             f"Origin: http://127.0.0.1:{port}\r\nSec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n"
             "Sec-WebSocket-Protocol: broadway\r\n\r\n").encode())
        return connection

    def test_a_browser_is_shown_the_phone(self):
        process = self.serve(self.program, "--root", self.folder / "root")
        connection = self.open_socket(self.port_of(process))
        received = b""
        while len(received) < LEAST_PICTURE:
            part = connection.recv(65536)
            self.assertTrue(part, f"the server hung up after {len(received)} bytes")
            received += part
        self.assertTrue(received.startswith(b"HTTP/1.1 101"), received[:100])
        self.assertIn(b"\x89PNG", received)

    def test_nobody_else_on_the_network_can_reach_it(self):
        port = self.port_of(self.serve("sleep", str(LIMIT)))
        listening = []
        for table in ("/proc/net/tcp", "/proc/net/tcp6"):
            if Path(table).exists():
                for line in Path(table).read_text().splitlines()[1:]:
                    address, state = line.split()[1], line.split()[3]
                    if state == "0A" and int(address.split(":")[1], 16) == port:
                        listening.append(address.split(":")[0])
        self.assertEqual(listening, ["0100007F"])  # 127.0.0.1, in the table's order of bytes

    def test_two_phones_get_addresses_of_their_own(self):
        first, second = self.serve("sleep", str(LIMIT)), self.serve("sleep", str(LIMIT))
        self.assertNotEqual(self.port_of(first), self.port_of(second))

    def test_the_server_ends_with_the_program_whose_exit_code_counts(self):
        process = self.serve("sh", "-c", "sleep 0.2; exit 7")
        port = self.port_of(process)
        self.assertEqual(process.wait(LIMIT), 7)
        self.assertNotEqual(self.connect(port), 0)
        self.assertEqual(list(self.runtime.iterdir()), [])

    def test_ending_it_ends_the_program_and_the_server(self):
        process = self.serve("sh", "-c", f"echo $$ > '{self.folder}/child'; exec sleep {LIMIT}")
        port = self.port_of(process)
        child = int(self.until(lambda: self.written("child"), "the program does not start"))
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(LIMIT), 143)
        self.assertNotEqual(self.connect(port), 0)
        with self.assertRaises(ProcessLookupError):
            os.kill(child, 0)

    def written(self, name):
        file = self.folder / name
        return file.read_text().strip() if file.exists() else ""

    @staticmethod
    def connect(port):
        with socket.socket() as probe:
            return probe.connect_ex(("127.0.0.1", port))


if __name__ == "__main__":
    ServeTest.program = sys.argv.pop(1)
    unittest.main()
