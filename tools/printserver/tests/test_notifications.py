import unittest

from context import FolderTest
from notifications import Notification, parse_notification, read_notification
from textfiles import FormatError, write_text

LINES = ["56", "WS17", "laser", "jsmith", "Brief.doc", "1234", "1001", "Smith / Audit", "1", "Comment", "jsmith.000",
         "Standard", "12.5"]


def text(lines):
    return "".join(line + "\r\n" for line in lines)


def changed(number, line):
    return LINES[:number - 1] + [line] + LINES[number:]


class Notifications(FolderTest):
    def test_thirteen_lines_are_the_thirteen_fields(self):
        self.assertEqual(parse_notification(text(LINES)), Notification(
            56, "WS17", "laser", "jsmith", "Brief.doc", 1234, 1001, "Smith / Audit", True, "Comment", "jsmith.000",
            "Standard", 12.5))

    def test_a_decimal_comma_is_a_decimal_mark(self):
        self.assertEqual(parse_notification(text(changed(13, "0,15"))).rate_value, 0.15)
        self.assertEqual(parse_notification(text(changed(13, ",5"))).rate_value, 0.5)

    def test_more_or_fewer_lines_are_refused(self):
        for lines in ([], LINES[:12], LINES + ["more"], LINES + [""]):
            with self.subTest(len(lines)), self.assertRaises(FormatError):
                parse_notification(text(lines))

    def test_other_line_ends_are_refused(self):
        for wrong in (text(LINES)[:-2], text(LINES).replace("\r\n", "\n"), text(changed(10, "two\nlines")),
                      text(changed(10, "two\rlines"))):
            with self.subTest(wrong), self.assertRaises(FormatError):
                parse_notification(wrong)

    def test_wrong_numbers_and_flags_are_refused(self):
        for number, line in ((1, ""), (1, "x"), (1, "056"), (6, " 1"), (7, "2147483648"), (9, ""), (9, "True"),
                             (9, "-1"), (13, ""), (13, "1.2.3"), (13, "nan")):
            with self.subTest(f"line {number}: {line!r}"), self.assertRaisesRegex(FormatError, f"line {number}"):
                parse_notification(text(changed(number, line)))

    def test_the_name_must_agree_with_the_content(self):
        write_text(self.path("WS17.1234.56.tlx"), text(LINES))
        self.assertEqual(read_notification(self.path("WS17.1234.56.tlx")).job_id, 56)
        for name in ("WS17.1234.57.tlx", "WS18.1234.56.tlx", "WS17.0.56.tlx", "ws17.1234.56.tlx"):
            write_text(self.path(name), text(LINES))
            with self.subTest(name), self.assertRaisesRegex(FormatError, "WS17.1234.56.tlx"):
                read_notification(self.path(name))

    def test_another_encoding_is_refused(self):
        with open(self.path("WS17.1234.56.tlx"), "w", encoding="utf-8", newline="") as file:
            file.write(text(LINES))
        with self.assertRaises(FormatError):
            read_notification(self.path("WS17.1234.56.tlx"))


if __name__ == "__main__":
    unittest.main()
