import dataclasses
import datetime
import unittest

import context  # noqa: F401 - makes the modules importable
from accounts import Account, Rate
from checks import problems_of
from collecting import Arrival
from jobs import Job
from notifications import Notification
from report import AnnouncedJob

NOW = datetime.datetime(2026, 3, 1, 14, 5, 30)
ACCOUNTS = {
    1: Account(1, True, "Free"),
    2: Account(2, False, "Free", "Strict", allow_noninvoiceable=False, require_comment=2),
    3: Account(3, True, "Closed", is_active=False),
}
RATES = [Rate("100", "Standard"), Rate("12.5", "Pro bono")]


def announced():
    job = Job(101, "Laser", "WS17", "jsmith", "Brief.doc", "\\\\SRV\\Laser", 4096, 1, 2, 3)
    return AnnouncedJob("SRV", job, "jsmith.000", True)


def arrival(server="SRV", **changes):
    fields = dict(job_id=101, machine="WS17", printer="Laser", user="jsmith", document="Brief.doc", printer_handle=4096,
                  account_id=1, account_title="Free", invoiceable=False, comment="", job_file="jsmith.000",
                  rate_description="", rate_value=0.0)
    notification = Notification(**{**fields, **changes})
    return Arrival(server, f"/x/{notification.file_name}", notification)


def problems(given):
    return problems_of(given, announced(), ACCOUNTS, RATES, NOW)


STRICT = dict(account_id=2, account_title="Free / Strict", invoiceable=True, comment="Comment at 3/1/2026 2:05:29 PM")


class Checks(unittest.TestCase):
    def test_right_notifications_pass(self):
        for changes in ({}, {"invoiceable": True}, {"rate_description": "Pro bono", "rate_value": 12.5}, STRICT,
                        {**STRICT, "comment": "Comment at 01.03.2026 14:05:31"}):
            with self.subTest(changes):
                self.assertEqual(problems(arrival(**changes)), [])

    def test_each_field_of_the_job_is_compared(self):
        for changes in ({"job_id": 102}, {"machine": "ws17"}, {"printer": "laser"}, {"user": "JSmith"},
                        {"document": "Brief"}, {"printer_handle": 0}, {"job_file": "jsmith.001"}, {"job_file": ""}):
            with self.subTest(changes):
                self.assertEqual(len(problems(arrival(**changes))), 1)
        self.assertEqual(len(problems(arrival(server="SRV2"))), 1)

    def test_the_account_must_exist_be_active_and_have_its_title(self):
        for changes in ({"account_id": 9}, {"account_id": 3, "account_title": "Closed"}, {"account_title": "Free / Strict"}):
            with self.subTest(changes):
                self.assertEqual(len(problems(arrival(**changes))), 1)

    def test_an_account_that_must_be_invoiced_is(self):
        self.assertEqual(len(problems(arrival(**{**STRICT, "invoiceable": False}))), 1)

    def test_a_comment_is_there_exactly_when_the_account_takes_one(self):
        self.assertEqual(len(problems(arrival(comment="Comment at 3/1/2026 2:05:29 PM"))), 1)
        for comment in ("", "Comment at ", "Comment at noon", "comment at 3/1/2026 2:05:29 PM",
                        "Comment at 3/1/2026 5:05:29 PM", "Comment at 3/1/2026 99:05:29"):
            with self.subTest(comment):
                self.assertEqual(len(problems(arrival(**{**STRICT, "comment": comment}))), 1)

    def test_midnight_between_comment_and_check_is_no_problem(self):
        given = arrival(**{**STRICT, "comment": "Comment at 2/28/2026 11:59:59 PM"})
        self.assertEqual(problems_of(given, announced(), ACCOUNTS, RATES, datetime.datetime(2026, 3, 1, 0, 0, 1)), [])

    def test_the_rate_is_a_published_one_or_unset(self):
        for changes in ({"rate_value": 100.0}, {"rate_description": "Standard"}, {"rate_description": "Standard",
                        "rate_value": 12.5}, {"rate_description": "Other", "rate_value": 100.0}):
            with self.subTest(changes):
                self.assertEqual(len(problems(arrival(**changes))), 1)


class Reports(unittest.TestCase):
    def test_own_job_is_right_when_it_went_all_the_way(self):
        job = announced()
        for station in ("announced", "detected", "dialog", "account"):
            job.reach(station, 0)
            self.assertFalse(job.is_right)
        job.reach("notification", 0)
        self.assertTrue(job.is_right)
        self.assertFalse(dataclasses.replace(job, problems=["x"]).is_right)

    def test_foreign_job_is_right_when_nothing_follows(self):
        job = dataclasses.replace(announced(), is_own=False)
        job.reach("announced", 0)
        self.assertTrue(job.is_right)
        self.assertIn("as it must be", job.road())
        job.reach("detected", 0)
        self.assertFalse(job.is_right)
        self.assertIn("WRONG", job.road())


if __name__ == "__main__":
    unittest.main()
