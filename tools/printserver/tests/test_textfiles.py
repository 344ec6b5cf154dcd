import os
import unittest

from context import FolderTest
from textfiles import FormatError, check_field, read_lines, read_text, write_lines, write_text


class TextFiles(FolderTest):
    def test_lines_are_utf16_with_mark_and_cr_lf_after_each(self):
        write_lines(self.path("a.txt"), ["ä", "b"])
        self.assertEqual(self.content("a.txt"), b"\xff\xfe\xe4\x00\r\x00\n\x00b\x00\r\x00\n\x00")

    def test_no_lines_leave_only_the_mark(self):
        write_lines(self.path("a.txt"), [])
        self.assertEqual(self.content("a.txt"), b"\xff\xfe")

    def test_text_is_written_as_it_stands(self):
        write_text(self.path("a.txt"), "57")
        self.assertEqual(self.content("a.txt"), b"\xff\xfe5\x007\x00")

    def test_many_lines_come_back_in_order(self):
        lines = [f"line {number} 山田 \U0001f5a8" for number in range(10000)]
        write_lines(self.path("a.txt"), iter(lines))
        self.assertEqual(list(read_lines(self.path("a.txt"))), lines)

    def test_failing_lines_leave_the_old_file_and_no_other(self):
        def lines():
            yield "new"
            raise FormatError("no more")
        write_lines(self.path("a.txt"), ["old"])
        with self.assertRaises(FormatError):
            write_lines(self.path("a.txt"), lines())
        self.assertEqual(list(read_lines(self.path("a.txt"))), ["old"])
        self.assertEqual(os.listdir(self.folder), ["a.txt"])

    def test_reading_demands_the_mark_and_whole_characters(self):
        for content in (b"", b"a\r\n", b"\xfe\xff\x00a", b"\xef\xbb\xbfa", b"\xff\xfea", b"\xff\xfe\x00\xd8"):
            with open(self.path("a.txt"), "wb") as file:
                file.write(content)
            with self.subTest(content), self.assertRaises(FormatError):
                read_text(self.path("a.txt"))

    def test_fields_refuse_what_would_split_them(self):
        for text in ("a\x01b", "a\rb", "a\nb"):
            with self.subTest(text), self.assertRaises(FormatError):
                check_field(text, "A title")


if __name__ == "__main__":
    unittest.main()
