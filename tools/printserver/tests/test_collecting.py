import os
import threading
import time
import unittest

import jobs
from collecting import charges, collect
from context import FolderTest
from organisation import Organisation
from test_notifications import LINES, changed, text
from textfiles import write_text


class Collecting(FolderTest):
    def setUp(self):
        super().setUp()
        self.organisation = Organisation(self.folder)
        self.organisation.publish([("SRV1", "laser"), ("SRV2", "plotter")], "SRV1", [], [], [])

    def notify(self, server, job_id, lines=None):
        lines = lines or LINES
        write_text(self.path(server, "TLXActN$", f"WS17.1234.{job_id}.tlx"), text([str(job_id)] + lines[1:]))

    def test_takes_what_is_there_from_all_servers_and_keeps_it_in_the_archive(self):
        self.notify("SRV1", 1)
        self.notify("SRV2", 2)
        self.assertEqual([(arrival.server, arrival.notification.job_id) for arrival in collect(self.organisation)],
                         [("SRV1", 1), ("SRV2", 2)])
        self.assertEqual(os.listdir(self.path("SRV1", "TLXActN$")), [])
        self.assertEqual(os.listdir(self.organisation.archive_folder("SRV2")), ["WS17.1234.2.tlx"])
        self.assertEqual(list(collect(self.organisation)), [])

    def test_waits_until_the_wanted_number_has_come(self):
        began = time.monotonic()
        writer = threading.Timer(0.2, self.notify, ("SRV2", 2))
        writer.start()
        self.addCleanup(writer.join)
        self.assertEqual(len(list(collect(self.organisation, count=1, seconds=30))), 1)
        self.assertLess(time.monotonic() - began, 10)

    def test_the_deadline_ends_the_wait(self):
        self.notify("SRV1", 1)
        self.assertEqual(len(list(collect(self.organisation, count=2, seconds=0.1))), 1)

    def test_a_file_still_being_written_is_taken_when_it_is_complete(self):
        with open(self.path("SRV1", "TLXActN$", "WS17.1234.3.tlx"), "wb") as file:
            content = text(["3"] + LINES[1:]).encode("utf-16")
            file.write(content[:20])
            file.flush()
            finisher = threading.Timer(0.2, lambda: (file.write(content[20:]), file.close()))
            finisher.start()
            (arrival,) = collect(self.organisation, count=1, seconds=30)
            finisher.join()
        self.assertEqual(arrival.notification.job_id, 3)

    def test_an_unreadable_file_is_told_at_the_end_and_stays(self):
        self.notify("SRV1", 1, changed(9, "perhaps"))
        (arrival,) = collect(self.organisation)
        self.assertIsNone(arrival.notification)
        self.assertIn("line 9", arrival.problem)
        self.assertTrue(os.path.exists(arrival.path))

    def test_files_of_another_kind_are_left_alone(self):
        write_text(self.path("SRV1", "TLXActN$", "WS17.tmp"), "")
        self.assertEqual(list(collect(self.organisation)), [])

    def test_the_job_is_released(self):
        job = jobs.Job(1, "laser", "WS17", "jsmith", "Brief.doc", "\\\\SRV1\\laser", 1234, 1, 2, 3)
        jobs.announce(self.organisation.jobs_folder("SRV1"), "jsmith", job)
        self.notify("SRV1", 1)
        list(collect(self.organisation))
        self.assertEqual(os.listdir(self.organisation.jobs_folder("SRV1")), ["jsmith.tlu"])

    def test_charges_add_up_also_when_a_name_comes_twice(self):
        for _ in range(2):
            self.notify("SRV1", 1)
            list(collect(self.organisation))
        self.notify("SRV2", 7, changed(9, "0"))
        self.notify("SRV2", 8, changed(7, "5"))
        list(collect(self.organisation))
        table = {charge.account_id: charge for charge in charges(self.organisation)}
        self.assertEqual(list(table), [5, 1001])
        self.assertEqual((table[1001].jobs, table[1001].invoiced, table[1001].rate_sum), (3, 2, 37.5))
        self.assertEqual(table[5].jobs, 1)

    def test_forgetting_leaves_what_is_published(self):
        self.notify("SRV1", 1)
        list(collect(self.organisation))
        self.organisation.forget_the_past()
        self.assertEqual(charges(self.organisation), [])
        self.assertEqual(self.organisation.printers(), [("SRV1", "laser"), ("SRV2", "plotter")])


if __name__ == "__main__":
    unittest.main()
