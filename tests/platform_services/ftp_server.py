"""A real FTP server on loopback for one test. Prints its port, then serves until it is killed.

usage: ftp_server.py FOLDER [FAULT=WHERE] [certificate=FILE]

The account is "ann". WHERE is a command of
the protocol, or "greeting", or "data" for the first bytes of a file. Faults:
  silent=WHERE   the server takes it and never says anything more
  dies=WHERE     the server process ends there
  drops=data     the server ends the session behind each file, and takes visitors all the same
"""
import os
import socket
import sys
import time

PASSWORD = "päss word"


def announce(port):
    print(port, flush=True)


def never_greet():
    listener = socket.create_server(("127.0.0.1", 0))
    announce(listener.getsockname()[1])
    taken = []
    while True:
        taken.append(listener.accept())


def main():
    folder = sys.argv[1]
    options = dict(word.split("=", 1) for word in sys.argv[2:])
    silent, dies = options.get("silent"), options.get("dies")
    if silent == "greeting":
        never_greet()

    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.handlers import DTPHandler, FTPHandler
    from pyftpdlib.servers import FTPServer
    import pyftpdlib.log
    import logging

    pyftpdlib.log.config_logging(level=logging.CRITICAL)
    base = FTPHandler
    if "certificate" in options:
        from pyftpdlib.handlers import TLS_FTPHandler

        base = TLS_FTPHandler

    class Handler(base):
        def pre_process_command(self, line, cmd, arg):
            if cmd == dies:
                os._exit(0)
            if cmd != silent:
                super().pre_process_command(line, cmd, arg)

        def on_file_received(self, file):
            if "drops" in options:
                self.socket.shutdown(socket.SHUT_RDWR)

    class Faulty(DTPHandler):
        def handle_read(self):
            if dies == "data":
                os._exit(0)
            time.sleep(3600)

        handle_read_event = handle_read

    if "certificate" in options:
        from pyftpdlib.handlers import TLS_DTPHandler

        # Else a handshake that comes before the command counts as a client that has gone.
        class PatientData(TLS_DTPHandler):
            def readable(self):
                return self._ssl_accepting or super().readable()

        Handler.dtp_handler = PatientData
        Handler.certfile = options["certificate"]
        Handler.tls_control_required = True
        Handler.tls_data_required = True
        Handler.ssl_context = Handler.get_ssl_context()
        Handler.ssl_context.set_session_id(b"pantry")  # else no session is taken up again
    elif "data" in (silent, dies):
        Handler.dtp_handler = Faulty
    Handler.authorizer = DummyAuthorizer()
    Handler.authorizer.add_user("ann", PASSWORD, folder, perm="elradfmwMT")
    Handler.auth_failed_timeout = 0
    server = FTPServer(("127.0.0.1", 0), Handler)
    announce(server.address[1])
    server.serve_forever()


main()
