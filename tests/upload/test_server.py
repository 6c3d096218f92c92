"""Servers for the upload tests on 127.0.0.1 at ports the system picks; prints its pid, port and TLS port (0: none).

CERTS is a folder for cert.pem and key.pem, a self-signed certificate for 127.0.0.1 made there on first use.
ftp ROOT MODE: ROOT for "velmora", password "s3cret"; MODE "-" plain, "busy" refusing every session (421), or
    CERTS: TLS required on both channels.
http DIR CERTS: plain HTTP and HTTPS. Routes from DIR/routes.txt, "METHOD PATH STATUS BODYFILE [Header:Value ...]"
    a line (PATH without query, BODYFILE in DIR or "-", STATUS "close" drops the connection; lines of one route
    answer in turn, the last for good). Requests are saved first as DIR/requests/1, 2, ...: scheme, request line,
    headers as received, blank line, body.
"""
import os
import ssl
import subprocess
import sys
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer


def certificate(folder):
    if not os.path.exists(folder + "/cert.pem"):
        command = "openssl req -x509 -newkey rsa:2048 -nodes -subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1 "
        subprocess.run((command + "-keyout key.pem -out cert.pem").split(), cwd=folder, check=True, capture_output=True)
    return folder + "/cert.pem", folder + "/key.pem"


def ftp(root, mode):
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.handlers import DTPHandler, FTPHandler, TLS_DTPHandler, TLS_FTPHandler
    from pyftpdlib.servers import FTPServer
    from OpenSSL import SSL

    secure = mode not in ("-", "busy")

    class Dtp(TLS_DTPHandler if secure else DTPHandler):
        def readable(self):
            # A data channel opened before its transfer command is dropped at once, but curl
            # starts the channel's TLS handshake right after connecting: let that happen first.
            if secure and not self.receive and not self._initialized:
                return self._ssl_accepting or self._ssl_want_read
            return super().readable()

    class Handler(TLS_FTPHandler if secure else FTPHandler):
        authorizer = DummyAuthorizer()
        dtp_handler = Dtp

    Handler.authorizer.add_user("velmora", "s3cret", root, perm="elradfmwMT")
    if secure:
        Handler.certfile, Handler.keyfile = certificate(mode)
        Handler.tls_control_required = Handler.tls_data_required = True
        # Clients resume the control channel's TLS session on the data channel; the server
        # accepts that only with a session id context.
        Handler.get_ssl_context().set_session_id(b"velmora-tests")
        # TLS 1.3 sends session tickets after the handshake, which a client that only uploads never
        # reads: closing with them unread resets the connection and loses data still on its way.
        Handler.get_ssl_context().set_max_proto_version(SSL.TLS1_2_VERSION)
    server = FTPServer(("127.0.0.1", 0), Handler)
    if mode == "busy":
        server.max_cons = 1  # the listening socket alone fills it
    print(os.getpid(), server.socket.getsockname()[1], 0, flush=True)
    server.serve_forever()


def http(folder, certs):
    served = {"count": 0}  # the requests come one at a time
    os.makedirs(folder + "/requests", exist_ok=True)

    def handler(scheme):
        class Handler(BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def answer(self):
                body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
                path = self.path.split("?", 1)[0]
                served["count"] += 1
                turn = served[(self.command, path)] = served.get((self.command, path), -1) + 1
                head = "".join("%s: %s\r\n" % item for item in self.headers.items())
                with open("%s/requests/%d" % (folder, served["count"]), "wb") as out:
                    out.write(("%s %s\r\n%s\r\n" % (scheme, self.requestline, head)).encode("latin-1") + body)
                with open(folder + "/routes.txt") as routes:
                    lines = [line.split() for line in routes if line.split()[:2] == [self.command, path]]
                route = lines[min(turn, len(lines) - 1)] if lines else ["", "", "404", "-"]
                if route[2] == "close":
                    self.close_connection = True
                    self.connection.close()
                    return
                content = open(folder + "/" + route[3], "rb").read() if route[3] != "-" else b""
                self.send_response(int(route[2]))
                self.send_header("Content-Length", str(len(content)))
                for extra in route[4:]:
                    self.send_header(*extra.split(":", 1))
                self.end_headers()
                self.wfile.write(content)

            do_GET = do_POST = answer

        return Handler

    plain = ThreadingHTTPServer(("127.0.0.1", 0), handler("http"))
    secure = ThreadingHTTPServer(("127.0.0.1", 0), handler("https"))
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(*certificate(certs))
    secure.socket = context.wrap_socket(secure.socket, server_side=True)
    threading.Thread(target=secure.serve_forever, daemon=True).start()
    print(os.getpid(), plain.server_address[1], secure.server_address[1], flush=True)
    plain.serve_forever()


if __name__ == "__main__":
    {"ftp": ftp, "http": http}[sys.argv[1]](*sys.argv[2:])
