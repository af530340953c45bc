"""A real SFTP server on loopback for one test. Prints its port, then serves until it is killed.

usage: sftp_server.py FOLDER KEY_FILE

The account is "ann". The host key is made when the file is missing.
"""
import asyncio
import os
import sys

import asyncssh

PASSWORD = "päss word"
FOLDER, KEY_FILE = sys.argv[1:3]


class Server(asyncssh.SSHServer):
    def begin_auth(self, username):
        return True

    def password_auth_supported(self):
        return True

    def validate_password(self, username, password):
        return username == "ann" and password == PASSWORD


async def main():
    if not os.path.exists(KEY_FILE):
        asyncssh.generate_private_key("ecdsa-sha2-nistp256").write_private_key(KEY_FILE)
    server = await asyncssh.create_server(
        Server,
        "127.0.0.1",
        0,
        server_host_keys=[KEY_FILE],
        sftp_factory=lambda channel: asyncssh.SFTPServer(channel, chroot=FOLDER.encode()),
    )
    print(server.sockets[0].getsockname()[1], flush=True)
    await asyncio.Event().wait()


asyncio.run(main())
