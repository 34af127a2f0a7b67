# SPDX-License-Identifier: MIT
"""A person's desktop, made for one test: a screen, a window manager, a home directory, a session bus, and the
program on it."""

import ctypes
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import time

PATIENCE = 60  # seconds; only a failing test waits for so long
TITLE = "Nymbrel Config"
PR_SET_CHILD_SUBREAPER = 36


def wait_until(condition, what):
    """Returns what `condition` returns as soon as that is true."""
    deadline = time.monotonic() + PATIENCE
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise TimeoutError(what)
        time.sleep(0.005)
    return result


def environment_at(home):
    """What programs in this home are started with, also under a sanitizer."""
    known = {name: value for name, value in os.environ.items() if name == "PATH" or name.endswith("SAN_OPTIONS")}
    # The X11 keyboard library copies a text that has no end mark with strndup, which is no fault.
    known["ASAN_OPTIONS"] = known.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0:strict_string_checks=0"
    # Qt's bus thread, libdbus and glib are built without ThreadSanitizer, which does not see their locks.
    known["TSAN_OPTIONS"] = known.get("TSAN_OPTIONS", "") + ":ignore_noninstrumented_modules=1"
    return known | {"HOME": str(home), "XDG_RUNTIME_DIR": str(home)}


class Desktop:
    def __init__(self):
        if os.path.exists("/boot/home"):
            raise RuntimeError("/boot/home exists: the tests would change the settings there")
        # What a bus has started is a child of this process once the bus is gone.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="nymbrel-desktop-"))
        self.settings_file = self.home / ".config/Nymbrel_settings"
        self.environment = environment_at(self.home) | {"TMPDIR": str(self.home), "LANG": "C.UTF-8"}
        self._mute_bus = None
        self._children = []
        self._start_screen()

    def close(self):
        for child in reversed(self._children):
            child.kill()
            child.wait()
            child.stdout.close()
        self._end_adopted_children()
        if self._mute_bus:
            self._mute_bus.close()
        shutil.rmtree(self.home)

    @staticmethod
    def _end_adopted_children():
        children = pathlib.Path(f"/proc/self/task/{os.getpid()}/children")
        while adopted := children.read_text().split():
            for child in adopted:
                os.kill(int(child), signal.SIGKILL)
                os.waitpid(int(child), 0)

    def _start_screen(self):
        reader, writer = os.pipe()
        self.screen = self.start("Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
                                 "-noreset", pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            self.environment["DISPLAY"] = ":" + numbers.readline().strip()
        # Earlier than this it would leave new windows alone.
        manager = self.start("openbox", "--sm-disable", "--startup", "echo ready", stderr=subprocess.DEVNULL)
        manager.stdout.readline()

    def start(self, *command, **options):
        """Starts a program that dies with this one. Root is held to the permissions of files as anybody is."""
        setpriv = ["setpriv", "--pdeathsig", "KILL"]
        if os.geteuid() == 0:
            setpriv += ["--bounding-set", "-dac_override,-dac_read_search"]
        child = subprocess.Popen(setpriv + list(command), env=self.environment, stdout=subprocess.PIPE, text=True,
                                 **options)
        self._children.append(child)
        return child

    def output(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=PATIENCE).stdout

    def start_bus(self):
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address = f"unix:path={self.home}/bus"
        self.bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address", f"--address={address}",
                              stderr=subprocess.DEVNULL)
        self.bus.stdout.readline()

    def start_mute_bus(self):
        """A bus that takes connections and never answers."""
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.home}/bus"
        self._mute_bus = socket.socket(socket.AF_UNIX)
        self._mute_bus.bind(f"{self.home}/bus")
        self._mute_bus.listen()

    def start_program(self):
        wait_until(lambda: self.focused_title() != TITLE, "the window of the last program stays")
        self.program = self.start(os.environ["NYMBREL_PROGRAM"])
        wait_until(lambda: self.focused_title() == TITLE or self.program.poll() is not None, "no window")

    def focused_title(self):
        return self.output("xdotool", "getwindowfocus", "getwindowname").strip()

    def press(self, *keys):
        self.output("xdotool", "key", *keys)

    def type(self, text):
        self.output("xdotool", "type", text)

    def click(self, left, top):
        self.output("xdotool", "mousemove", str(left), str(top), "click", "1")

    def settings(self):
        return self.settings_file.read_text() if self.settings_file.is_file() else None
