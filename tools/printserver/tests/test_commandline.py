import contextlib
import io
import json
import os
import unittest

from commandline import main
from context import FolderTest
from settings import SETTINGS, client_settings
from test_notifications import LINES, text
from textfiles import FormatError, read_lines, read_text, write_text


class Commands(FolderTest):
    def run_command(self, *arguments):
        """Returns exit code, output and errors."""
        output, errors = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(errors):
            code = main([arguments[0], "--folder", self.folder, *arguments[1:]])
        return code, output.getvalue(), errors.getvalue()

    def test_publish_makes_the_sample_organisation(self):
        code, output, _ = self.run_command("publish")
        self.assertEqual(code, 0)
        self.assertIn("2000 accounts, 3 charge rates", output)
        for server in ("PRINTSRV1", "PRINTSRV2"):
            self.assertEqual(sorted(os.listdir(self.path(server))), ["TLXActN$", "TLXData$", "TLXPrefs$"])
            self.assertTrue(os.path.isdir(self.path(server, "TLXData$", "jobs")))
        self.assertEqual(list(read_lines(self.path("PRINTSRV1", "TLXData$", "Servers.txt"))), ["PRINTSRV2"])
        self.assertEqual(len(list(read_lines(self.path("PRINTSRV1", "TLXData$", "Accounts.txt")))), 2000)
        self.assertEqual(read_text(self.path("PRINTSRV2", "TLXData$", "Printers.txt")),
                         "Drawing Office A1 Plotter\r\nEmpfang Süd\r\n")

    def test_publish_takes_lists_of_ones_own(self):
        with open(self.path("accounts"), "w", encoding="utf-8") as file:
            file.write("1 | Müller\n  2 | Küche | comment=1\n")
        with open(self.path("rates"), "w", encoding="utf-8") as file:
            file.write("1.5 | Hälfte\n")
        code, _, _ = self.run_command("publish", "--accounts-file", self.path("accounts"), "--rates-file",
                                      self.path("rates"), "--printer", "B/x", "--printer", "\\\\A\\y z", "--primary", "A")
        self.assertEqual(code, 0)
        self.assertEqual(read_text(self.path("A", "TLXData$", "Accounts.txt")),
                         "1\x011\x01Müller\x01\x011\x011\x010\x01\r\n2\x010\x01Müller\x01Küche\x011\x011\x011\x01\r\n")
        self.assertEqual(read_text(self.path("A", "TLXData$", "ChargeRates.txt")), "1.5\x01Hälfte\r\n")
        self.assertEqual(read_text(self.path("A", "TLXData$", "Servers.txt")), "B\r\n")

    def test_every_client_setting_can_be_set(self):
        chosen = {"job-match-method": "user", "job-detection-method": "http", "job-detection-method-win9x": "1",
                  "client-popup-on-top": "yes", "default-comment": "Bitte ausfüllen"}
        values = [chosen.get(name, sample if not sample.isdigit() else "77") for name, sample, *_ in SETTINGS]
        options = [part for (name, *_), value in zip(SETTINGS, values) for part in (f"--{name}", value)]
        self.assertEqual(self.run_command("publish", *options)[0], 0)
        self.assertEqual(list(read_lines(self.path("PRINTSRV1", "TLXData$", "ClientSet.txt"))),
                         ["2", "2", "1", "77", "77", "77", "77", "77", "77", "-1", "", "Bitte ausfüllen", ""])

    def test_every_server_has_the_settings_by_which_it_counts_as_healthy_over_http(self):
        self.assertEqual(self.run_command("publish", "--job-detection-method", "http")[0], 0)
        for server in ("PRINTSRV1", "PRINTSRV2"):
            self.assertEqual(list(read_lines(self.path(server, "TLXData$", "ClientSet.txt")))[:2], ["0", "2"])

    def test_settings_have_thirteen_lines_and_refuse_nonsense(self):
        self.assertEqual(len(client_settings({})), 13)
        for name, value in (("file-polling-interval", "soon"), ("client-popup-on-top", "maybe"),
                            ("default-comment", "two\r\nlines"), ("no-such-setting", "1")):
            with self.subTest(name), self.assertRaises(FormatError):
                client_settings({name: value})

    def test_job_goes_to_the_server_of_its_printer_in_any_letter_case(self):
        self.run_command("publish", "--accounts", "1")
        code, output, _ = self.run_command("job", "--user", "JSmith", "--printer", "printsrv2/empfang süd", "--machine",
                                           "WS01", "--document", "Größe", "--time", "2026-03-01T14:05:30.250", "--count",
                                           "2", "--json")
        self.assertEqual(code, 0)
        first, second = (json.loads(line) for line in output.splitlines())
        self.assertEqual((first["file"], first["job_id"], first["document"]), ("jsmith.000", 1, "Größe 1"))
        self.assertEqual((second["file"], second["job_id"], second["time3"] - first["time3"]), ("jsmith.001", 2, 1 << 16))
        self.assertEqual(read_text(self.path("PRINTSRV2", "TLXData$", "jobs", "jsmith.tlu")), "2")
        self.assertEqual(first["full_printer"], "\\\\PRINTSRV2\\Empfang Süd")

    def test_job_ids_go_on_from_call_to_call(self):
        self.run_command("publish", "--accounts", "1")
        for expected in (1, 2):
            _, output, _ = self.run_command("job", "--user", "a", "--printer", "PRINTSRV1/Library Color", "--json")
            self.assertEqual(json.loads(output)["job_id"], expected)

    def test_an_unknown_printer_is_an_error_that_names_the_known_ones(self):
        self.run_command("publish", "--accounts", "1")
        code, _, errors = self.run_command("job", "--user", "a", "--printer", "PRINTSRV1/Nowhere")
        self.assertEqual(code, 1)
        self.assertIn("\\\\PRINTSRV1\\Library Color", errors)

    def test_a_folder_that_is_not_there_is_an_error(self):
        self.folder = self.path("nowhere")
        self.assertEqual(self.run_command("jobs")[0], 1)

    def test_collect_prints_and_charges_adds_up(self):
        self.run_command("publish", "--accounts", "1")
        write_text(self.path("PRINTSRV1", "TLXActN$", "WS17.1234.56.tlx"), text(LINES))
        code, output, _ = self.run_command("collect", "--json", "--count", "1")
        self.assertEqual(code, 0)
        self.assertEqual(json.loads(output)["account_title"], "Smith / Audit")
        self.assertIn("Smith / Audit", self.run_command("charges")[1])

    def test_collect_fails_when_too_few_come_or_one_cannot_be_read(self):
        self.run_command("publish", "--accounts", "1")
        self.assertEqual(self.run_command("collect", "--count", "1", "--seconds", "0.1")[0], 1)
        write_text(self.path("PRINTSRV1", "TLXActN$", "WS17.1234.56.tlx"), "nonsense")
        code, _, errors = self.run_command("collect")
        self.assertEqual(code, 1)
        self.assertIn("WS17.1234.56.tlx", errors)

    def test_jobs_lists_what_waits(self):
        self.run_command("publish", "--accounts", "1")
        self.run_command("job", "--user", "anna", "--printer", "PRINTSRV1/Library Color", "--document", "Brief")
        code, output, _ = self.run_command("jobs")
        self.assertEqual(code, 0)
        self.assertIn("anna.000", output)
        self.assertIn("Brief", output)


if __name__ == "__main__":
    unittest.main()
