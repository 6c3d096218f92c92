"""Scripted HTTP server for the upload and update-check tests, on 127.0.0.1.

Listens in plain HTTP and, with --cert/--key, also over TLS; prints "READY <plain> <tls>".
Answers come from <dir>/routes.txt, read at every request; one route a line:
    METHOD PATH STATUS BODYFILE [Header:Value ...]
PATH is matched without the query. Lines of the same route answer in turn, the last one for
good. BODYFILE is a file in <dir>, or "-" for none. STATUS "close" drops the connection unread
by any answer. Each request is saved, before it is answered, as <dir>/requests/NNNN-plain.req
or NNNN-tls.req: request line, headers as received, blank line, body bytes.
"""
import argparse
import os
import ssl
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

lock = threading.Lock()
served = {"count": 0, "routes": {}}


def make_handler(folder, tls):
    class Handler(BaseHTTPRequestHandler):
        protocol_version = "HTTP/1.1"

        def log_message(self, *args):
            pass

        def record(self, body):
            with lock:
                served["count"] += 1
                name = "%04d-%s.req" % (served["count"], "tls" if tls else "plain")
            head = self.requestline + "\r\n"
            head += "".join("%s: %s\r\n" % item for item in self.headers.items()) + "\r\n"
            with open(os.path.join(folder, "requests", name), "wb") as out:
                out.write(head.encode("latin-1") + body)

        def route(self):
            path = self.path.split("?", 1)[0]
            with open(os.path.join(folder, "routes.txt")) as routes:
                lines = [line.split() for line in routes if line.split()[:2] == [self.command, path]]
            if not lines:
                return ["", "", "404", "-"]
            with lock:
                turn = served["routes"].get((self.command, path), 0)
                served["routes"][(self.command, path)] = turn + 1
            return lines[min(turn, len(lines) - 1)]

        def answer(self):
            length = int(self.headers.get("Content-Length", 0))
            body = self.rfile.read(length) if length else b""
            self.record(body)
            route = self.route()
            if route[2] == "close":
                self.close_connection = True
                self.connection.close()
                return
            content = b""
            if route[3] != "-":
                with open(os.path.join(folder, route[3]), "rb") as source:
                    content = source.read()
            self.send_response(int(route[2]))
            self.send_header("Content-Type", "text/plain")
            self.send_header("Content-Length", str(len(content)))
            for extra in route[4:]:
                name, value = extra.split(":", 1)
                self.send_header(name, value)
            self.end_headers()
            self.wfile.write(content)

        do_GET = answer
        do_POST = answer

    return Handler


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--dir", required=True)
    parser.add_argument("--cert")
    parser.add_argument("--key")
    args = parser.parse_args()
    os.makedirs(os.path.join(args.dir, "requests"), exist_ok=True)

    servers = [ThreadingHTTPServer(("127.0.0.1", 0), make_handler(args.dir, False))]
    if args.cert:
        secure = ThreadingHTTPServer(("127.0.0.1", 0), make_handler(args.dir, True))
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(args.cert, args.key)
        secure.socket = context.wrap_socket(secure.socket, server_side=True)
        servers.append(secure)
    ports = [server.server_address[1] for server in servers] + [0]
    for server in servers[1:]:
        threading.Thread(target=server.serve_forever, daemon=True).start()
    print("READY %d %d" % (ports[0], ports[1]), flush=True)
    servers[0].serve_forever()


if __name__ == "__main__":
    main()
