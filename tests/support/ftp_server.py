"""An FTP server for one test: one user with full rights on a root directory, on a free loopback port.

Prints "listening on PORT" once it accepts connections and serves until it is terminated.
With a PEM file of certificate and key it takes no login before the session switched to TLS (AUTH TLS).
usage: ftp_server.py ROOT USER PASSWORD [CERTFILE]
"""
import logging
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler, TLS_FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    root, user, password = sys.argv[1:4]
    certfile = sys.argv[4] if len(sys.argv) > 4 else None
    logging.basicConfig(level=logging.ERROR)
    authorizer = DummyAuthorizer()
    authorizer.add_user(user, password, root, perm="elradfmwMT")
    handler = TLS_FTPHandler if certfile else FTPHandler
    if certfile:
        handler.certfile = certfile
        handler.tls_control_required = True
    handler.authorizer = authorizer
    server = FTPServer(("127.0.0.1", 0), handler)
    print("listening on %d" % server.address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
