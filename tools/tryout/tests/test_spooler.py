import unittest

import context  # noqa: F401 - makes the modules importable
from spooler import Calls

LOG = """\
10:00:00.000\t240\tOpenPrinterA \\\\SRV\\Laser, defaults 0 = 0, error 5
10:00:01.000\t240\tOpenPrinterA \\\\SRV\\Laser, defaults 0 = 1, handle 0x10004
10:00:01.001\t240\tEnumJobsA 0x10004 (\\\\SRV\\Laser), first 0, count 4294967295, level 1, size 0 = 1, needed 0, returned 0
10:00:02.000\t240\tOpenPrinterA \\\\SRV\\Laser, defaults 0 = 1, handle 0x1000c
10:00:03.000\t240\tFindNextPrinterChangeNotification 84, of \\\\SRV\\Laser, changes 0, options 0, information 0 = 1
10:00:03.001\t240\tEnumJobsA 0x1000c (\\\\SRV\\Laser), first 0, count 4294967295, level 1, size 106 = 1, needed 106, returned 1
10:00:04.000\t240\tSetJobA 0x1000c (\\\\SRV\\Laser), job 8, level 0, information 0, command 3 = 0, error 5
10:00:04.001\t240\tSetJobA 0x1000c (\\\\SRV\\Laser), job 7, level 0, information 0, command 3 = 1
10:00:05.000\t240\tSetJobA 0x1000c (\\\\SRV\\Laser), job 9, level 0, inform"""


class CallLogs(unittest.TestCase):
    def setUp(self):
        self.calls = Calls(LOG)

    def test_the_newest_handle_counts(self):
        self.assertEqual(self.calls.handle_of("\\\\SRV\\Laser"), 0x1000c)
        self.assertEqual(self.calls.handle_of("\\\\SRV\\Other"), 0)

    def test_signals_and_lists_are_found_behind_the_calls_before(self):
        self.assertTrue(self.calls.was_rearmed("\\\\SRV\\Laser", 4))
        self.assertFalse(self.calls.was_rearmed("\\\\SRV\\Laser", 5))
        self.assertTrue(self.calls.has_listed("\\\\SRV\\Laser", 5))
        self.assertFalse(self.calls.has_listed("\\\\SRV\\Laser", 6))

    def test_an_empty_queue_is_not_listed(self):
        self.assertFalse(Calls("\n".join(LOG.split("\n")[:4])).has_listed("\\\\SRV\\Laser", 0))

    def test_only_cancels_that_were_done_count_and_half_a_line_waits(self):
        self.assertEqual(self.calls.cancelled(), [(0x1000c, "\\\\SRV\\Laser", 7)])
        self.assertEqual(len(self.calls), 8)


if __name__ == "__main__":
    unittest.main()
