# SPDX-License-Identifier: MIT
"""The program where it cannot start, and where it is told to end while nothing answers."""

import os
import pathlib
import resource
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "smoke"))
from desktop import Desktop, environment_at  # noqa: E402

# A program that ends at once joins no thread; ThreadSanitizer would let it sleep for a second, too.
ENDS_AT_ONCE = ":report_thread_leaks=0:atexit_sleep_ms=0"
IS_SANITIZED = any(name.endswith("SAN_OPTIONS") for name in os.environ)
ENDS_WITHIN = 2  # seconds


class Program(unittest.TestCase):
    def start(self, limit=None, **environment):
        """Starts the program without a display, a bus and settings."""
        home = tempfile.mkdtemp(prefix="nymbrel-ends-")
        self.addCleanup(shutil.rmtree, home)
        environment = environment_at(home) | {"DBUS_SESSION_BUS_ADDRESS": "disabled:"} | environment
        environment["TSAN_OPTIONS"] += ENDS_AT_ONCE
        program = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "env", "--default-signal=HUP,INT", os.environ["NYMBREL_PROGRAM"]],
            env=environment, stderr=subprocess.PIPE, text=True, preexec_fn=limit)
        self.addCleanup(program.stderr.close)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        return program

    def expect_one_sentence(self, what, program):
        self.assertEqual(program.wait(60), 1, what)
        self.assertRegex(program.stderr.read(), r"\ANymbrelConfig cannot [^\n]+\n\Z", what)

    def expect_end(self, program, *signals):
        """Returns after how many seconds the program ended with the first signal's status."""
        start = time.monotonic()
        for number in signals:
            program.send_signal(number)
            time.sleep(0.1)
        self.assertEqual(program.wait(60), 128 + signals[0])
        return time.monotonic() - start

    def test_without_a_display(self):
        for environment in {}, {"DISPLAY": ":99999"}, {"QT_QPA_PLATFORM": "none"}:
            self.expect_one_sentence(environment, self.start(**environment))

    @unittest.skipIf(IS_SANITIZED, "the sanitizers do not bear it")
    def test_without_room(self):
        for what, most in ((resource.RLIMIT_NOFILE, 7), (resource.RLIMIT_NOFILE, 20), (resource.RLIMIT_AS, 80 << 20),
                           (resource.RLIMIT_AS, 150 << 20), (resource.RLIMIT_AS, 250 << 20)):
            self.expect_one_sentence((what, most), self.start(
                lambda: resource.setrlimit(what, (most, most)), QT_QPA_PLATFORM="offscreen"))

    def test_failing_calls(self):
        """Each of the first calls fails once: one sentence, or the program goes on."""
        running = 0
        for call, error, count in ("eventfd", 24, 3), ("pthread_create", 11, 3):
            programs = [self.start(QT_QPA_PLATFORM="offscreen", LD_PRELOAD=os.environ["NYMBREL_SHIM"],
                                   NYMBREL_FAILURE=f"{call} {which} {error} 1") for which in range(count)]
            time.sleep(5 if IS_SANITIZED else 1)
            for which, program in enumerate(programs):
                if program.poll() is None:
                    running += 1
                    program.send_signal(signal.SIGHUP)
                    self.assertEqual(program.wait(60), 0, (call, which))
                else:
                    self.expect_one_sentence((call, which), program)
        self.assertEqual(running, 1, "only the thread that reads the fonts can be spared")

    def test_beside_a_mute_screen(self):
        with socket.socket(socket.AF_UNIX) as mute:
            number = 1000 + os.getpid()
            path = pathlib.Path(f"/tmp/.X11-unix/X{number}")
            path.parent.mkdir(exist_ok=True)
            self.addCleanup(path.unlink, missing_ok=True)
            mute.bind(str(path))
            mute.listen()
            for signals in (signal.SIGTERM,), (signal.SIGINT,), (signal.SIGHUP,), (signal.SIGINT, signal.SIGINT):
                program = self.start(DISPLAY=f":{number}")
                connection = mute.accept()[0]
                self.assertLess(self.expect_end(program, *signals), ENDS_WITHIN if len(signals) == 1 else 1)
                connection.close()

    def test_beside_a_stopped_screen(self):
        desktop = Desktop()
        self.addCleanup(desktop.close)
        desktop.environment["TSAN_OPTIONS"] += ENDS_AT_ONCE
        desktop.start_program()
        desktop.screen.send_signal(signal.SIGSTOP)
        start = time.monotonic()
        desktop.program.send_signal(signal.SIGTERM)
        self.assertIn(desktop.program.wait(60), (0, 128 + signal.SIGTERM))
        self.assertLess(time.monotonic() - start, ENDS_WITHIN)


unittest.main()
