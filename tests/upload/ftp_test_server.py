"""FTP server for the upload tests, on 127.0.0.1 and a port the system picks.

Prints "READY <port>" once listening. With --cert/--key it requires TLS on the control and data
channels; with --cut-after N it drops the session once N bytes of an upload have arrived; with
--busy it refuses every session with 421, as a server that has too many.
"""
import argparse
import logging

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import DTPHandler, FTPHandler, TLS_DTPHandler, TLS_FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--root", required=True)
    parser.add_argument("--user", required=True)
    parser.add_argument("--password", required=True)
    parser.add_argument("--cert")
    parser.add_argument("--key")
    parser.add_argument("--cut-after", type=int, default=0)
    parser.add_argument("--busy", action="store_true")
    args = parser.parse_args()
    logging.basicConfig(level=logging.WARNING)

    secure = bool(args.cert)
    base_dtp = TLS_DTPHandler if secure else DTPHandler
    cut_after = args.cut_after

    class Dtp(base_dtp):
        def readable(self):
            # A data channel opened before its transfer command is dropped at once, but curl
            # starts the channel's TLS handshake right after connecting: let that happen first.
            if secure and not self.receive and not self._initialized:
                return self._ssl_accepting or self._ssl_want_read
            return super().readable()

        def handle_read_event(self):
            super().handle_read_event()
            if cut_after and self.tot_bytes_received >= cut_after:
                self.cmd_channel.close()

    class Handler(TLS_FTPHandler if secure else FTPHandler):
        pass

    authorizer = DummyAuthorizer()
    authorizer.add_user(args.user, args.password, args.root, perm="elradfmwMT")
    Handler.authorizer = authorizer
    Handler.dtp_handler = Dtp
    if secure:
        Handler.certfile = args.cert
        Handler.keyfile = args.key
        Handler.tls_control_required = True
        Handler.tls_data_required = True
        # Clients resume the control channel's TLS session on the data channel; the server
        # accepts that only with a session id context.
        Handler.get_ssl_context().set_session_id(b"velmora-tests")

    server = FTPServer(("127.0.0.1", 0), Handler)
    if args.busy:
        server.max_cons = 1  # the listening socket alone fills it
    print("READY %d" % server.socket.getsockname()[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
