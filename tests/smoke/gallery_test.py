# SPDX-License-Identifier: MIT
"""A program of the toolkit follows Apply of the preferences program, and both follow a change from the shell."""

import os
import unittest

from desktop import TITLE, Desktop, wait_until


class Gallery(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)
        self.desktop.start_bus()
        self.desktop.settings_file.parent.mkdir()

    def corner(self, window=None):
        return self.desktop.output("import", "-window", window or self.window, "-crop", "1x1+2+2", "-depth", "8", "txt:-")

    def test_it_follows_apply(self):
        self.desktop.settings_file.write_text("KS_PEN_BG_LOW = 10,20,30,255\n")
        gallery = self.desktop.start(os.environ["NYMBREL_GALLERY"])
        self.window = wait_until(
            lambda: self.desktop.output("xdotool", "search", "--onlyvisible", "--name", "^Gallery$"), "no window").strip()
        wait_until(lambda: "#0A141E" in self.corner(), "the settings are not worn at the start")

        self.desktop.settings_file.write_text("KS_PEN_BG_LOW = 200,100,50,255\n")
        self.desktop.start_program()
        self.assertIn("#0A141E", self.corner(), "nothing has been announced")
        self.desktop.press("alt+a")
        wait_until(lambda: "#C86432" in self.corner(), "Apply is not followed")
        self.assertIsNone(self.desktop.program.poll())

        window = self.desktop.output("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}$").strip()
        self.assertIn("#C86432", self.corner(window))
        self.desktop.output(os.environ["NYMBREL_SETTINGS"], "set", "KS_PEN_BG_LOW", "#123456")
        for follower in (self.window, window):
            wait_until(lambda: "#123456" in self.corner(follower), "the shell is not followed")
        gallery.terminate()
        self.assertEqual(gallery.wait(), 0)


unittest.main()
