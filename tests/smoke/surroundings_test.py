# SPDX-License-Identifier: MIT
"""The program in surroundings good and bad: buses, signals, and places where its file cannot be."""

import os
import shutil
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

    def test_ok_stores_without_a_bus(self):
        self.expect_enter_stores()

    def test_ok_stores_where_nothing_listens(self):
        self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.desktop.home}/bus"
        self.expect_enter_stores()

    def test_ok_stores_beside_a_mute_bus(self):
        self.desktop.start_mute_bus()
        self.expect_enter_stores()

    def test_ok_stores_when_the_bus_falls_silent(self):
        self.desktop.start_bus()
        self.desktop.start_program()
        self.desktop.bus.send_signal(signal.SIGSTOP)
        self.expect_enter_quits()
        self.assertIn("LANGUAGE = english\n", self.desktop.settings())

    def test_ok_announces_once(self):
        self.desktop.start_bus()
        listener = self.desktop.start(os.environ["NYMBREL_LISTENER"])
        self.assertEqual(listener.stdout.readline(), "ready\n")
        self.expect_enter_stores()
        self.desktop.output(os.environ["NYMBREL_LISTENER"], "DONE")
        self.assertEqual([listener.stdout.readline() for _ in range(2)], ["fAPL\n", "DONE\n"])

    def test_signals_are_quit_requests(self):
        for number in signal.SIGTERM, signal.SIGINT:
            self.desktop.start_program()
            self.desktop.program.send_signal(number)
            self.assertEqual(self.desktop.program.wait(PATIENCE), 0, number)
            self.assertIsNone(self.desktop.settings())

    def expect_place_is_kept(self, spoil):
        """Spoils the settings file's place; OK must quit all the same, and leave what is there."""
        self.desktop.start_program()
        file = self.desktop.settings_file
        spoil(file)
        self.addCleanup(lambda: file.parent.exists() and file.parent.chmod(0o700))

        def described():
            return file.parent.exists() and list(file.parent.iterdir()), file.is_file() and file.read_text()

        before = described()
        self.expect_enter_quits()
        self.assertEqual(described(), before)

    def test_a_missing_directory(self):
        self.expect_place_is_kept(lambda file: shutil.rmtree(file.parent))

    def test_an_unwritable_directory(self):
        self.expect_place_is_kept(lambda file: file.parent.chmod(0o500))

    def test_a_read_only_file(self):
        def spoil(file):
            file.write_text("MOUSEHOLDTIME = 40000\n")
            file.chmod(0o400)

        self.expect_place_is_kept(spoil)

    def test_a_directory_in_the_place_of_the_file(self):
        self.expect_place_is_kept(lambda file: file.mkdir())

    def test_no_home(self):
        del self.desktop.environment["HOME"]
        self.desktop.start_program()
        self.expect_enter_quits()


unittest.main()
