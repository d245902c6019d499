"""Flashes on two servers of Octave's package parallel:  test_servers.py OCTAVE TOOLBOX VERDANTH

The servers run on this machine in a network of their own, where nobody else can reach them, so that they need no keys.
They refuse to serve root, who is someone else there.
"""

import fcntl
import glob
import os
import pathlib
import signal
import socket
import struct
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
SERVER = "/usr/libexec/octave-pserver"
SKIPPED = 77


def start_loopback():
    get_flags, set_flags, up = 0x8913, 0x8914, 1
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as any_socket:
        flags = struct.unpack("16sh14x", fcntl.ioctl(any_socket, get_flags, struct.pack("16sh14x", b"lo", 0)))[1]
        fcntl.ioctl(any_socket, set_flags, struct.pack("16sh14x", b"lo", flags | up))


def wait_for(condition, what):
    for _ in range(100):
        if condition():
            return
        time.sleep(0.1)
    raise AssertionError(what)


def run(octave, toolbox, verdanth):
    pid_file = pathlib.Path(f"/tmp/.octave-{socket.gethostname()}.pid") # where the server writes it
    logs = set(glob.glob("/tmp/octave_error-*"))
    assert not pid_file.exists(), f"{pid_file}: a server runs on this machine, or did"
    subprocess.run([SERVER, f"--octave-binary={octave}", "--no-auth"], check=True, timeout=20, stdin=subprocess.DEVNULL)
    try:
        wait_for(pid_file.exists, "the server does not start")
        time.sleep(0.5)
        return subprocess.run([octave, "--quiet", "--norc", "--no-history", HERE / "test_parallel.m",
                               "on_servers_results_are_the_same", toolbox, verdanth], check=False, timeout=200).returncode
    finally:
        os.kill(int(pid_file.read_text()), signal.SIGTERM)
        pid_file.unlink()
        for log in set(glob.glob("/tmp/octave_error-*")) - logs:
            os.unlink(log)


def main(arguments):
    if arguments[-1] == "--servers":
        return run(*arguments[:3])
    if arguments[-1] == "--loopback":
        start_loopback()
        return subprocess.run(["unshare", "-U", "--map-user=12345", "--map-group=12345", sys.executable, "-B", __file__,
                               *arguments[:3], "--servers"], check=False).returncode
    if subprocess.run(["unshare", "-rn", "true"], check=False).returncode:
        print("This machine does not let users have a network of their own.")
        return SKIPPED
    return subprocess.run(["unshare", "-rn", sys.executable, "-B", __file__, *arguments, "--loopback"],
                          check=False).returncode


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
