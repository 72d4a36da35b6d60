"""An FTP server for one test: one user with full rights on a root directory, on a free loopback port.

Prints "listening on PORT" once it accepts connections and serves until it is terminated.
usage: ftp_server.py ROOT USER PASSWORD
"""
import logging
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    root, user, password = sys.argv[1:4]
    logging.basicConfig(level=logging.ERROR)
    authorizer = DummyAuthorizer()
    authorizer.add_user(user, password, root, perm="elradfmwMT")
    handler = FTPHandler
    handler.authorizer = authorizer
    server = FTPServer(("127.0.0.1", 0), handler)
    print("listening on %d" % server.address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
