import datetime
import os
import unittest

import jobs
from context import FolderTest
from jobs import Job, announce, pending, read_counter, release, time_words
from textfiles import FormatError, read_text, write_text


def job(job_id=1):
    return Job(job_id, "laser", "WS01", "JSmith", "Brief.doc", "\\\\SRV\\laser", 4096, 65537, 2, 3)


class Jobs(FolderTest):
    def test_text_has_ten_lines_in_order(self):
        self.assertEqual(job(56).to_text().split("\r\n"),
                         ["56", "laser", "WS01", "JSmith", "Brief.doc", "\\\\SRV\\laser", "4096", "65537", "2", "3"])
        self.assertEqual(Job.from_text(job(56).to_text()), job(56))

    def test_text_with_too_few_lines_or_no_number_is_refused(self):
        for text in ("", "\r\n".join(job().to_text().split("\r\n")[:9]), "x" + job().to_text()):
            with self.subTest(text), self.assertRaises(FormatError):
                Job.from_text(text)

    def test_time_words_hold_low_and_high_halves(self):
        sunday = datetime.datetime(2026, 3, 1, 14, 5, 30, 250999)
        self.assertEqual(time_words(sunday), (1 << 16 | 0, 5 << 16 | 14, 250 << 16 | 30))

    def test_first_job_is_number_zero_and_counter_names_the_next(self):
        self.assertEqual(announce(self.folder, "JSmith", job()), "jsmith.000")
        self.assertEqual(sorted(os.listdir(self.folder)), ["jsmith.000", "jsmith.tlu"])
        self.assertEqual(self.content("jsmith.tlu"), b"\xff\xfe1\x00")
        self.assertEqual(read_text(self.path("jsmith.000")), job().to_text())

    def test_the_job_file_is_there_before_the_counter_is_raised(self):
        written = []
        original = jobs.write_text
        self.addCleanup(setattr, jobs, "write_text", original)
        jobs.write_text = lambda path, text: written.append(os.path.basename(path))
        announce(self.folder, "jsmith", job())
        self.assertEqual(written, ["jsmith.000", "jsmith.tlu"])

    def test_numbers_wrap_after_999_and_old_files_do_not_come_back(self):
        write_text(self.path("jsmith.tlu"), "998")
        write_text(self.path("jsmith.000"), "left from the last round")
        self.assertEqual(announce(self.folder, "jsmith", job(1)), "jsmith.998")
        self.assertEqual(announce(self.folder, "jsmith", job(2)), "jsmith.999")
        self.assertFalse(os.path.exists(self.path("jsmith.000")))
        self.assertEqual(read_counter(self.folder, "jsmith"), 0)
        self.assertEqual(announce(self.folder, "jsmith", job(3)), "jsmith.000")

    def test_users_have_counters_of_their_own(self):
        announce(self.folder, "anna", job())
        self.assertEqual(announce(self.folder, "berta", job()), "berta.000")

    def test_a_counter_without_a_number_is_an_error(self):
        write_text(self.path("jsmith.tlu"), "seven")
        with self.assertRaises(FormatError):
            read_counter(self.folder, "jsmith")

    def test_pending_lists_jobs_and_says_which_cannot_be_read(self):
        announce(self.folder, "jsmith", job(5))
        write_text(self.path("jsmith.001"), "broken")
        (first, good), (second, bad) = pending(self.folder)
        self.assertEqual((first, good), ("jsmith.000", job(5)))
        self.assertEqual(second, "jsmith.001")
        self.assertIsInstance(bad, FormatError)

    def test_release_removes_only_the_file_of_that_job(self):
        announce(self.folder, "JSmith", job(5))
        self.assertFalse(release(self.folder, "JSmith.000", 6))
        self.assertFalse(release(self.folder, "JSmith.001", 5))
        self.assertFalse(release(self.folder, "", 5))
        self.assertFalse(release(self.folder, "../jsmith.000", 5))
        self.assertTrue(release(self.folder, "JSmith.000", 5))
        self.assertEqual(os.listdir(self.folder), ["jsmith.tlu"])


if __name__ == "__main__":
    unittest.main()
