#!/usr/bin/env python3
"""service_test.py RECORDER: what the recorder says to a service manager, and what SIGHUP does to one without a terminal.

Takes the place of the manager at the socket that it has its services talk to; the recorder and libsystemd are
the real ones.
"""
import os
import signal
import socket
import subprocess
import sys
import tempfile
import time


def main():
    recorder = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as directory, socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as manager:
        address = os.path.join(directory, "notify")
        manager.bind(address)
        manager.settimeout(20)
        environment = dict(os.environ, NOTIFY_SOCKET=address, WATCHDOG_USEC="600000", TZ="UTC")
        command = [recorder, directory, "--interval", "1", "--node", "n"]
        with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, text=True, start_new_session=True) as run:
            said = []

            def wait_for(text):
                while not (said and text in said[-1]):
                    said.append(manager.recv(4096).decode())

            wait_for("READY=1\nSTATUS=Recording into " + directory + "/qtxl_n_")
            began = time.monotonic()
            for _ in range(6):
                wait_for("WATCHDOG=1")
                said.append("")
            assert time.monotonic() - began < 6, "the watchdog waits longer"
            time.sleep(2)  # a sample or two for the first file
            run.send_signal(signal.SIGHUP)
            wait_for(".dat_2")
            time.sleep(2)
            run.send_signal(signal.SIGTERM)
            wait_for("STOPPING=1")
            files = run.stdout.read().split()
            assert run.wait(20) == 0, "status"
        assert [os.path.basename(name)[-6:] for name in files] == [".dat_1", ".dat_2"], files
        assert all(os.path.getsize(name) > 0 for name in files), files


main()
