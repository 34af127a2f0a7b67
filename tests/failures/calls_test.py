# SPDX-License-Identifier: MIT
"""Fails every call that loading and saving make on the program's files, one after the other."""

import collections
import concurrent.futures
import errno
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "smoke"))
from desktop import environment_at, wait_until  # noqa: E402

FOREVER = 1 << 30
# The errors of each call. Reading goes on after those that pass.
ERRORS = {
    "open": "EINTR EAGAIN EIO ENOMEM EMFILE ENFILE ENOSPC EROFS EPERM ENOENT EACCES",
    "openat": "EINTR EMFILE EIO EACCES", "opendir": "EINTR EMFILE ENOMEM EACCES", "readdir": "EINTR EIO ENOENT",
    "fstat": "EIO ENOMEM EINTR", "stat": "EIO ENOMEM EACCES", "lstat": "EIO ENOMEM EACCES",
    "read": "EINTR EAGAIN EIO ENOMEM short", "write": "EINTR EAGAIN EIO ENOSPC EDQUOT EFBIG short short,EIO short,kill",
    "fallocate": "EINTR ENOSPC EDQUOT EOPNOTSUPP ENOSYS EIO", "ftruncate": "EINTR EIO EPERM EINVAL",
    "close": "EINTR EIO ENOSPC EDQUOT", "symlink": "ENOSPC EPERM EACCES",
    "readlink": "EIO EACCES", "remove": "EIO EACCES EROFS",
}
FINAL = {"ENOENT", "EACCES"}
READING = {"open", "fstat", "read", "opendir", "readdir", "stat", "lstat"}
OLD = "".join(f"KS_PEN_{pen} = {number},2,3,255\n" for number, pen in enumerate(["TEXT", "BG_LOW", "BG_MED"])) + (
    "LANGUAGE = deutsch\nMOUSEHOLDTIME = 41000\n" + "".join(f"NOTE{n} = {'x' * 900}\n" for n in range(4)))


class Home:
    """A home with settings, languages of the user's and one that was uninstalled; and an installed program."""

    def __init__(self):
        self._directory = tempfile.TemporaryDirectory(prefix="nymbrel-failures-")
        self.path = pathlib.Path(self._directory.name)
        self.program = self.path / "bin/program"
        self.program.parent.mkdir()
        shutil.copy(os.environ["NYMBREL_LOAD_AND_SAVE"], self.program)
        self.installed = self.path / "share/nymbrel-config/Catalogs"
        (self.installed / "svenska").mkdir(parents=True)
        self.settings = self.path / ".config/Nymbrel_settings"
        self.catalogs = self.path / ".config/Kestrune/Catalogs"

    def furnish(self, settings):
        shutil.rmtree(self.path / ".config", ignore_errors=True)
        (self.catalogs / "deutsch").mkdir(parents=True)
        (self.catalogs / "deutsch/NymbrelConfig.catalog").write_text("1 Gut\n")
        (self.catalogs / "nihongo").symlink_to(self.installed / "nihongo")
        (self.catalogs / "own").symlink_to("/nowhere/own")
        if settings is not None:
            self.settings.write_text(settings)

    def run(self, settings=OLD, failure="", **more):
        """Returns the exit status and the settings file's text."""
        self.furnish(settings)
        status = self.start(failure, **more).wait(60)
        return status, self.settings.read_text() if self.settings.exists() else None

    def start(self, failure, **more):
        environment = environment_at(self.path) | more
        environment["ASAN_OPTIONS"] += ":detect_leaks=0"
        environment |= {"LD_PRELOAD": os.environ["NYMBREL_SHIM"], "NYMBREL_FAILURE": failure}
        return subprocess.Popen([self.program], env=environment)

    def run_interrupted(self):
        """Returns the file's text after two quit signals between the write and the cut."""
        self.furnish(OLD)
        log = self.path / "calls"
        log.write_text("")
        program = self.start("ftruncate 0 pause 1", NYMBREL_CALLS=str(log))
        wait_until(lambda: "ftruncate" in log.read_text(), "nothing is cut")
        for _ in range(2):
            program.send_signal(signal.SIGTERM)
            time.sleep(0.02)
        assert program.poll() is None, "the write was not waited for"
        assert program.wait(60) == 128 + signal.SIGTERM
        return self.settings.read_text()


def outcome_of(text, known):
    for name, expected in known.items():
        if text == expected:
            return name
    lines = set("".join(known.values()).splitlines(keepends=True))
    odd = [line for line in (text or "?").splitlines(keepends=True) if line not in lines]
    return "whole lines but for one" if len(odd) <= 1 else "BROKEN"


def coded(error):
    return ",".join(str(getattr(errno, word, word)) for word in error.split(","))


def allowed(call, error, count, reading):
    """What may become of the file."""
    if error.endswith("kill"):
        return {"old"} if reading else {"old", "new", "whole lines but for one"}
    if error == "short" or reading and call in READING and count == 1 and error not in FINAL:
        return {"new"}
    if call in READING and reading:
        return {"new", "defaults", "english"}
    return {"old", "new", "whole lines but for one"} if call in ("write", "ftruncate") else {"old", "new"}


def cases_of(calls, first_of_saving):
    seen = collections.Counter()
    for number, call in enumerate(calls):
        for error in ERRORS[call].split() + ["kill"]:
            for count in [FOREVER] if "," in error else [1] if error == "kill" else [1, FOREVER]:
                yield call, seen[call], error, count, number < first_of_saving
        seen[call] += 1


def main():
    home = Home()
    known = {"old": OLD, "new": home.run(NYMBREL_CALLS=str(home.path / "calls"))[1], "defaults": home.run(None)[1]}
    known["english"] = known["new"].replace("LANGUAGE = deutsch", "LANGUAGE = english")
    assert "LANGUAGE = deutsch\n" in known["new"] and "MOUSEHOLDTIME = 43000\n" in known["new"], known["new"]
    assert len(set(known.values())) == 4 and len(known["new"]) < len(OLD)
    assert sorted(entry.name for entry in home.catalogs.iterdir()) == ["deutsch", "own", "svenska"], "links"
    assert (home.catalogs / "svenska").readlink() == home.installed / "svenska"

    calls = [call for call in (home.path / "calls").read_text().splitlines() if call in ERRORS]
    first_of_saving = max(number for number, call in enumerate(calls) if call == "open")
    assert {"open", "fstat", "read", "close", "readdir", "lstat"} <= set(calls[:first_of_saving]), calls
    assert calls[first_of_saving:] == ["open", "fallocate", "write", "ftruncate", "close"], calls

    assert home.run_interrupted() == known["new"], "a signal broke a write"

    cases = list(cases_of(calls, first_of_saving))
    free = collections.deque(Home() for _ in range(os.cpu_count() or 1))

    def run(case):
        """Returns what went wrong."""
        call, which, error, count, reading = case
        own = free.popleft()
        status, text = own.run(failure=f"{call} {which} {coded(error)} {count}")
        free.append(own)
        outcome = outcome_of(text, known)
        # A call that always fails when it reads fails when it saves, too.
        fits = outcome in allowed(call, error, count, reading) | ({"old"} if count > 1 and call == "open" else set())
        is_well = fits and status == (-9 if error.endswith("kill") else 0)
        return "" if is_well else f"{call} {which} {error} x {count}, reading {reading}: {outcome}, status {status}"

    with concurrent.futures.ThreadPoolExecutor(len(free)) as pool:
        failures = list(filter(None, pool.map(run, cases)))
    print(f"{len(cases)} failures injected", *failures, sep="\n")
    return 1 if failures else 0


sys.exit(main())
