"""The client under Wine, and clientdriver.exe, which looks into its windows from a second process."""

import os
import subprocess
import tempfile


class ClientError(Exception):
    """The client does not do what it must; the text says what."""


class Client:
    """The client program in a folder of its own, in which it also writes its trace log; one process at a time."""

    def __init__(self, program, driver):
        self._program = program
        self._driver = driver
        self._process = None
        # What Wine has to say, above all when it ends the program.
        self._output = os.path.join(os.path.dirname(program), "wine.log")
        self.trace_log = os.path.join(os.path.dirname(program), "tlxlog.txt")

    def start(self, *arguments, wait=True):
        """Starts it and waits until it watches the servers, unless that has to be asked for first."""
        with open(self._output, "ab") as output:
            self._process = subprocess.Popen(["wine", self._program, *arguments], stdin=subprocess.DEVNULL,
                                             stdout=output, stderr=output)
        if wait:
            self.drive("wait-monitoring", "--seconds", "30")

    def drive(self, *arguments):
        """Runs a command of clientdriver.exe; raises ClientError when it fails."""
        # Into a file and not a pipe: what Wine starts along with a program holds a pipe open long after its end.
        with tempfile.TemporaryFile("w+", errors="replace") as errors:
            try:
                code = subprocess.run(["wine", self._driver, *arguments], stdin=subprocess.DEVNULL, stderr=errors,
                                      stdout=subprocess.DEVNULL, timeout=90, check=False).returncode
            except subprocess.TimeoutExpired:
                code = -1
            if code != 0:
                self.check_running()
                errors.seek(0)
                raise ClientError(f"The client does not do it: {' '.join(arguments)}. {errors.read().strip()}".rstrip())

    def check_running(self):
        if self._process.poll() is not None:
            raise ClientError(f"The client ended by itself with exit code {self._process.returncode}; "
                              f"Wine's words on it are in {self._output}.")

    def close(self):
        """Closes it as the Task Manager does."""
        self.drive("close")
        self._process.wait(10)

    def end(self):
        """Ends the process if it is still there."""
        if self._process and self._process.poll() is None:
            self._process.terminate()
            try:
                self._process.wait(10)
            except subprocess.TimeoutExpired:
                self._process.kill()
                self._process.wait()
