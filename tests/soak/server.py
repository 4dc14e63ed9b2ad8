"""A server of web pages on this machine that behaves, hangs or breaks off, as it is told."""
import http.server
import threading

PAGE = ("<!DOCTYPE html><html lang='de'><head><meta charset='utf-8'><title>Neues vom Frosch</title></head><body><article>"
        "<h1>Neues vom Frosch</h1>" + "<p>Der Frosch sitzt am Brunnen und wartet darauf, dass die Kugel wieder hineinfällt, "
        "wie sie es jeden Tag tut.</p>" * 6 + "</article></body></html>").encode()


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self):
        self.mode = "serves"
        self.ended = threading.Event()
        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, request, client_address):
        pass  # whoever asked has gone


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        mode = self.server.mode
        if mode == "hangs":
            self.server.ended.wait(20)
            return
        self.send_response(200)
        self.send_header("Content-Type", "text/html; charset=utf-8")
        self.send_header("Content-Length", str(len(PAGE)))
        self.end_headers()
        self.wfile.write(PAGE if mode == "serves" else PAGE[:200])

    def log_message(self, *_):
        pass
