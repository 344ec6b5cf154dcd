"""The played print spooler, worked by its command under Wine, and what its log tells of the calls it got."""

import os
import re
import subprocess
import tempfile

CANCEL = 3

_OPENED = re.compile(r"OpenPrinterA (?P<printer>.*), defaults 0 = 1, handle (?P<handle>0x[0-9a-f]+)")
_REARMED = re.compile(r"FindNextPrinterChangeNotification \d+, of (?P<printer>.*), changes 0, options 0, "
                      r"information 0 = 1")
_LISTED = re.compile(r"EnumJobsA (?P<handle>0x[0-9a-f]+) \((?P<printer>.*)\), first 0, count 4294967295, level 1, "
                     r"size [0-9]+ = 1, needed [0-9]+, returned (?P<returned>[0-9]+)")
_SET = re.compile(r"SetJobA (?P<handle>0x[0-9a-f]+) \((?P<printer>.*)\), job (?P<job>[0-9]+), level 0, "
                  r"information 0, command (?P<command>[0-9]+) = 1")


class SpoolerError(Exception):
    """The spooler's command failed; the text says why."""


class Spooler:
    """One spooler; its files lie in `folder`, beside the library winspool.drv."""

    def __init__(self, command, folder):
        self._command = command
        self._calls = os.path.join(folder, "calls.log")

    def do(self, *arguments):
        """Runs a command and returns the lines that it prints."""
        # Into files and not pipes: what Wine starts along with a program holds a pipe open long after its end.
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            code = subprocess.run(["wine", self._command, *map(str, arguments)], stdin=subprocess.DEVNULL,
                                  stdout=output, stderr=errors, timeout=60, check=False).returncode
            output.seek(0)
            errors.seek(0)
            if code != 0:
                raise SpoolerError(f"spooler {arguments[0]} failed: {errors.read().decode(errors='replace').strip()}")
            return output.read().decode("utf-8").replace("\r\n", "\n").splitlines()

    def jobs(self):
        """The jobs that are queued, as (printer, number)."""
        return [(fields[0], int(fields[1])) for fields in (line.split("\t") for line in self.do("jobs"))]

    def commands(self):
        """What programs asked for, as (printer, number, command)."""
        return [(fields[0], int(fields[1]), int(fields[2]))
                for fields in (line.split("\t") for line in self.do("commands"))]

    def calls(self):
        """What the log tells so far."""
        try:
            with open(self._calls, "rb") as file:
                return Calls(file.read().decode("cp1252", errors="replace"))
        except FileNotFoundError:
            return Calls("")


class Calls:
    """The lines of the log, which are time, process and call, separated by tabs."""

    def __init__(self, text):
        # The last piece is a line that is still being written, or nothing.
        self._calls = [line.split("\t", 2)[2] for line in text.split("\n")[:-1]]

    def __len__(self):
        return len(self._calls)

    def handle_of(self, printer):
        """The handle that the printer was opened under most recently; 0 when it never was."""
        handles = [int(match["handle"], 16) for match in self._matches(_OPENED) if match["printer"] == printer]
        return handles[-1] if handles else 0

    def was_rearmed(self, printer, after):
        """Whether a signal of the printer was answered behind the first `after` calls."""
        return any(match["printer"] == printer for match in self._matches(_REARMED, after))

    def has_listed(self, printer, after):
        """Whether jobs of the printer were read behind the first `after` calls."""
        return any(match["printer"] == printer and match["returned"] != "0"
                   for match in self._matches(_LISTED, after))

    def cancelled(self):
        """The jobs that were cancelled, as (handle, printer, number)."""
        return [(int(match["handle"], 16), match["printer"], int(match["job"])) for match in self._matches(_SET)
                if int(match["command"]) == CANCEL]

    def _matches(self, pattern, after=0):
        return filter(None, map(pattern.fullmatch, self._calls[after:]))
