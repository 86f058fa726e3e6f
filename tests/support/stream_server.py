#!/usr/bin/env python3
"""A small server of radio streams for tests: sends an MP3 file over and over, as fast as it sounds, with titles.

    stream_server.py MP3FILE

Prints its port. The paths: "/radio" names "The Singer - First Song" and, a second later, "The Singer - Second Song";
"/silent" accepts and never answers; "/broken" ends after some bytes; "/missing" is not found; "/hostile"
names titles of damaged bytes and one that is too long; "/page" is a web page; "/file" is the file itself;
"/stations.pls" names "/missing" and then "/radio", "/stations.m3u" names "/radio", "/empty.m3u" nothing,
"/long.m3u" more than a list holds, and "/silent.pls" never comes.
"""
import http.server
import sys
import time

INTERVAL = 4096  # bytes of sound between two titles
TITLES = {
    "/radio": [b"StreamTitle='The Singer - First Song';", b"StreamTitle='The Singer - Second Song';"],
    "/hostile": [b"StreamTitle='\xff\xfe\xfd - \x80';", b"StreamTitle='", b"StreamTitle='" + b"A" * 4000 + b"';",
                 b"\x01\x02\x03", b"StreamTitle='Mended - Again';StreamUrl='';"],
}
LISTS = {
    "/stations.pls": "[playlist]\r\nNumberOfEntries=2\r\nFile1=missing\r\nTitle1=Gone\r\nFile2=/radio\r\nVersion=2\r\n",
    "/stations.m3u": "#EXTM3U\n#EXTINF:-1,Test Station\nradio\n",
    "/empty.m3u": "#EXTM3U\n",
    "/long.m3u": "radio\n" * 100_000,
}


def block(text):
    length = (len(text) + 15) // 16
    return bytes([length]) + text.ljust(length * 16, b"\0")


class Handler(http.server.BaseHTTPRequestHandler):
    def log_message(self, *arguments):
        pass

    def do_GET(self):
        if self.path in TITLES:
            self.stream(TITLES[self.path])
        elif self.path in LISTS:
            self.start("audio/x-mpegurl")
            self.wfile.write(LISTS[self.path].encode())
        elif self.path in ("/silent", "/silent.pls"):
            time.sleep(60)
        elif self.path == "/broken":
            self.start("audio/mpeg", len(SOUND))
            self.wfile.write(SOUND[: len(SOUND) // 2])
        elif self.path == "/page":
            self.start("text/html")
            self.wfile.write(b"<html><body>No music here</body></html>")
        elif self.path == "/file":
            self.start("audio/mpeg", len(SOUND))
            self.wfile.write(SOUND)
        else:
            self.send_error(404)

    def start(self, kind, length=None):
        self.send_response(200)
        self.send_header("Content-Type", kind)
        if length is not None:
            self.send_header("Content-Length", str(length))
        self.end_headers()

    def stream(self, titles):
        with_titles = self.headers.get("Icy-MetaData") == "1"
        self.send_response(200)
        self.send_header("Content-Type", "audio/mpeg")
        self.send_header("icy-name", "Test Station")
        if with_titles:
            self.send_header("icy-metaint", str(INTERVAL))
        self.end_headers()
        position, begin, shown = 0, time.monotonic(), -1
        while True:
            piece = bytes(SOUND[(position + index) % len(SOUND)] for index in range(INTERVAL))
            position += INTERVAL
            self.wfile.write(piece)
            if with_titles:
                now = min(int(time.monotonic() - begin), len(titles) - 1)
                self.wfile.write(block(titles[now]) if now != shown else b"\0")
                shown = now
            ahead = position / 16000 - (time.monotonic() - begin) - 4  # 128 kbit/s, four seconds in advance
            if ahead > 0:
                time.sleep(ahead)


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def handle_error(self, request, client_address):
        pass  # listeners go when they like


with open(sys.argv[1], "rb") as file:
    SOUND = file.read()
server = Server(("127.0.0.1", 0), Handler)
print(server.server_address[1], flush=True)
server.serve_forever()
