import os
import tempfile
import unittest

import context  # noqa: F401 - makes the modules importable
from weblog import Request, fetched_files, requests

LOG = """2026-11-20T20:06:03+00:00 127.0.0.81 "GET /TLXData/Printers.txt HTTP/1.1" 200 95 253
2026-11-20T20:06:03+00:00 127.0.0.82 "GET /TLXData/jobs/root.000 HTTP/1.1" 404 96 183
2026-11-20T20:06:04+00:00 127.0.0.82 "GET /favicon.ico HTTP/1.1" 404 96 183
"""


class WebLogTest(unittest.TestCase):
    def setUp(self):
        with tempfile.NamedTemporaryFile("w", delete=False) as file:
            file.write(LOG)
        self.path = file.name
        self.addCleanup(os.remove, file.name)

    def test_requests_for_shared_files_are_read_and_others_passed_over(self):
        self.assertEqual(list(requests(self.path)), [Request("127.0.0.81", "Printers.txt", 200, 95, 253),
                                                     Request("127.0.0.82", "jobs/root.000", 404, 96, 183)])

    def test_only_delivered_files_count_as_fetched(self):
        self.assertEqual(fetched_files(self.path), {("127.0.0.81", "Printers.txt")})


if __name__ == "__main__":
    unittest.main()
