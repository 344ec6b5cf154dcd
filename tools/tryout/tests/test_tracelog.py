import os
import tempfile
import unittest

import context  # noqa: F401 - makes the modules importable
from tracelog import TraceLog


class TraceLogs(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.path = os.path.join(folder.name, "tlxlog.txt")
        self.trace = TraceLog(self.path)

    def add(self, text):
        with open(self.path, "ab") as file:
            file.write(text.encode("cp1252"))
        self.trace.follow()

    def test_a_log_that_is_not_there_yet_is_no_error(self):
        self.trace.follow()
        self.assertFalse(self.trace.has_detected("a", "b"))

    def test_jobs_are_detected_then_shown_in_order(self):
        self.add("3/1/2026 2:05:29 PM Loading accounts ... \r\n")
        self.add("3/1/2026 2:05:29 PM Adding Job to pending list: Prüfung, 1.doc,Laser\r\n"
                 "3/1/2026 2:05:29 PM Adding Job to pending list: b,Laser\r\n")
        self.assertTrue(self.trace.has_detected("Prüfung, 1.doc", "Laser"))
        self.assertFalse(self.trace.has_shown("Prüfung, 1.doc", "Laser"))
        self.add("3/1/2026 2:05:30 PM Loading accounts ... \r\n")
        self.assertTrue(self.trace.has_shown("Prüfung, 1.doc", "Laser"))
        self.assertFalse(self.trace.has_shown("b", "Laser"))

    def test_half_a_line_waits_for_its_other_half(self):
        self.add("x Adding Job to pen")
        self.assertFalse(self.trace.has_detected("a", "b"))
        self.add("ding list: a,b\r")
        self.assertFalse(self.trace.has_detected("a", "b"))
        self.add("\n")
        self.assertTrue(self.trace.has_detected("a", "b"))


if __name__ == "__main__":
    unittest.main()
