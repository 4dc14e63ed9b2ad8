#!/usr/bin/env python3
"""Serves voices for the tests: voiceServer.py VOICES FOLDER. Writes FOLDER/catalogue.tsv and FOLDER/port, and what was
asked for to FOLDER/asked.

Below /gut/ all is as it should be; below /langsam/ the models come slowly, below /reisst/ the connection breaks in the
middle of a model, below /falsch/ a byte of it is another, /ohne/ cannot begin in the middle, and below /fehlt/ there is nothing.
"""
import hashlib
import http.server
import os
import pathlib
import re
import sys
import time

voices, folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
files = {}
lines = []
for model in sorted(voices.glob("*.onnx")):
    description = pathlib.Path(str(model) + ".json")
    name = model.stem
    language, speaker, quality = name.split("-")
    path = f"de/{language}/{speaker}/{quality}/{name}.onnx"
    files[path] = model.read_bytes()
    files[path + ".json"] = description.read_bytes()
    files[os.path.dirname(path) + "/MODEL_CARD"] = f"# {name}\n\n* License: CC0 (Probe)\n".encode()
    columns = [name, language, speaker, quality, "1", path]
    for kept in (path, path + ".json"):
        columns += [str(len(files[kept])), hashlib.md5(files[kept]).hexdigest()]
    lines.append("\t".join(columns))
(folder / "catalogue.tsv").write_text("# Probe\n" + "\n".join(lines) + "\n", encoding="utf-8")


class Handler(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_GET(self):
        with open(folder / "asked", "a", encoding="utf-8") as asked:
            asked.write(f"{self.path} {self.headers.get('Range', '')}\n")
        mode, _, path = self.path.lstrip("/").partition("/")
        content = files.get(path)
        if content is None or mode == "fehlt":
            return self.send_error(404)
        isModel = path.endswith(".onnx")
        if mode == "falsch" and isModel:
            content = content[:-1] + bytes([content[-1] ^ 1])
        begin = 0
        found = re.fullmatch(r"bytes=(\d+)-", self.headers.get("Range", ""))
        if found and mode != "ohne":
            begin = int(found[1])
            if begin >= len(content):
                return self.send_error(416)
            self.send_response(206)
            self.send_header("Content-Range", f"bytes {begin}-{len(content) - 1}/{len(content)}")
        else:
            self.send_response(200)
        self.send_header("Content-Length", str(len(content) - begin))
        self.end_headers()
        self.send_body(content[begin:], mode if isModel else "")

    def send_body(self, content, mode):
        if mode == "reisst":
            content = content[:len(content) // 2]
        step = 100 if mode == "langsam" else len(content) or 1
        for place in range(0, len(content), step):
            try:
                self.wfile.write(content[place:place + step])
                self.wfile.flush()
            except OSError:
                return
            if mode == "langsam":
                time.sleep(0.05)


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
(folder / "port.part").write_text(str(server.server_port), encoding="utf-8")
os.rename(folder / "port.part", folder / "port")
server.serve_forever()
