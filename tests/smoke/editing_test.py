# SPDX-License-Identifier: MIT
"""Somebody edits settings with keyboard and mouse, and with an assistive tool; the file holds what they chose."""

import os
import unittest

from desktop import PATIENCE, TITLE, Desktop, wait_until

desktop = Desktop()
unittest.addModuleCleanup(desktop.close)
desktop.start_bus()
desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
os.environ.update(desktop.environment)  # pyatspi connects when it is first asked for something

import pyatspi
from gi.repository import GLib


def showing(role, name):
    """The editor of this role and name as soon as it is on the screen."""

    def is_it(node):
        return (node.name, node.getRoleName()) == (name, role) and node.getState().contains(pyatspi.STATE_SHOWING)

    def find():
        try:
            for program in pyatspi.Registry.getDesktop(0):
                program.setCacheMask(pyatspi.Atspi.Cache.NONE)
                if found := pyatspi.findDescendant(program, is_it):
                    return found
        except (AttributeError, LookupError, RuntimeError, GLib.Error):
            pass  # it went while it was looked at
        return None

    return wait_until(find, f"no {role} {name}")


def click(role, name):
    frame = showing(role, name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    desktop.click(frame.x + frame.width // 2, frame.y + frame.height // 2)


class Editing(unittest.TestCase):
    def setUp(self):
        desktop.settings_file.parent.mkdir(exist_ok=True)
        desktop.settings_file.write_text("BUBBLEHELPTIME = 1500000\n")
        desktop.start_program()
        self.addCleanup(desktop.program.kill)

    def test_mouse_keyboard_and_an_assistive_tool(self):
        click("list item", "Options")
        showing("spin button", "Mouse hold time").queryValue().currentValue = 45000
        self.assertEqual(showing("spin button", "Bubblehelp wait time").queryValue().currentValue, 1500000)
        click("spin button", "Bubblehelp wait time")
        desktop.press("ctrl+a")
        desktop.type("3000000")
        desktop.press("Return")
        self.assertEqual(desktop.program.wait(PATIENCE), 0)
        self.assertLessEqual({"BUBBLEHELPTIME = 3000000", "MOUSEHOLDTIME = 45000"}, set(desktop.settings().splitlines()))

    def test_closing_stores_nothing(self):
        before = desktop.settings()
        click("color chooser", "Disabled Text")
        wait_until(lambda: desktop.focused_title() not in ("", TITLE), "no dialog")
        desktop.press("Escape")
        wait_until(lambda: desktop.focused_title() == TITLE, "the dialog stays")
        desktop.press("alt+F4")
        self.assertEqual(desktop.program.wait(PATIENCE), 0)
        self.assertEqual(desktop.settings(), before)


unittest.main(warnings="ignore")  # pyatspi itself uses what is deprecated
