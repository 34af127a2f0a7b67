# SPDX-License-Identifier: MIT
"""The program in surroundings good and bad: buses, and places where its file cannot be."""

import os
import signal
import time
import unittest

from desktop import PATIENCE, Desktop

QUITS_WITHIN = 10  # seconds; what waits for a bus in vain waits for 25


class Surroundings(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)

    def expect_enter_quits(self):
        start = time.monotonic()
        self.desktop.press("Return")
        self.assertEqual(self.desktop.program.wait(PATIENCE), 0)
        self.assertLess(time.monotonic() - start, QUITS_WITHIN)

    def expect_enter_stores(self):
        self.desktop.start_program()
        self.expect_enter_quits()
        self.assertIn("LANGUAGE = english\n", self.desktop.settings())
        self.desktop.settings_file.unlink()

    def test_ok_stores_while_no_bus_answers(self):
        self.expect_enter_stores()
        self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.desktop.home}/bus"
        self.expect_enter_stores()
        self.desktop.start_mute_bus()
        self.expect_enter_stores()

    def test_ok_stores_when_the_bus_falls_silent(self):
        self.desktop.start_bus()
        self.desktop.start_program()
        self.desktop.bus.send_signal(signal.SIGSTOP)
        self.expect_enter_quits()
        self.assertIn("LANGUAGE = english\n", self.desktop.settings())

    def test_a_file_that_cannot_be_written_stays(self):
        file = self.desktop.settings_file
        for place, before in (file.parent, None), (file, "MOUSEHOLDTIME = 40000\n"):
            self.desktop.start_program()
            if before:
                file.write_text(before)
            place.chmod(0o500)
            self.expect_enter_quits()
            self.assertEqual(self.desktop.settings(), before)
            place.chmod(0o700)

    def test_no_home(self):
        del self.desktop.environment["HOME"]
        self.desktop.start_program()
        self.expect_enter_quits()


unittest.main()
