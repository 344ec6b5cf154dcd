"""Account notification files, as the client drops them into TLXActN$: thirteen lines, read strictly."""

import dataclasses
import os
import re

from textfiles import LINE_END, FormatError, read_text

SUFFIX = ".tlx"


@dataclasses.dataclass(frozen=True)
class Notification:
    """The account that a user chose for a job."""

    job_id: int
    machine: str
    printer: str
    user: str
    document: str
    printer_handle: int
    account_id: int
    account_title: str
    invoiceable: bool
    comment: str
    job_file: str
    rate_description: str
    rate_value: float

    @property
    def file_name(self):
        """The name under which a client must have written it."""
        return f"{self.machine}.{self.printer_handle}.{self.job_id}{SUFFIX}"


def read_notification(path):
    """Reads one file; raises FormatError when anything about it is not exactly as it must be, its name included."""
    notification = parse_notification(read_text(path))
    name = os.path.basename(path)
    if name != notification.file_name:
        raise FormatError(f"its content belongs into a file named {notification.file_name}")
    return notification


def parse_notification(text):
    lines = text.split(LINE_END)
    if lines.pop() != "":
        raise FormatError("its last line does not end with CR LF")
    if len(lines) != 13:
        raise FormatError(f"it has {len(lines)} lines and not 13")
    for number, line in enumerate(lines, 1):
        if "\r" in line or "\n" in line:
            raise FormatError(f"line {number} holds a lone CR or LF")
    return Notification(
        job_id=_integer(lines, 1),
        machine=lines[1],
        printer=lines[2],
        user=lines[3],
        document=lines[4],
        printer_handle=_integer(lines, 6),
        account_id=_integer(lines, 7),
        account_title=lines[7],
        invoiceable=_flag(lines, 9),
        comment=lines[9],
        job_file=lines[10],
        rate_description=lines[11],
        rate_value=_decimal(lines, 13),
    )


def _integer(lines, number):
    text = lines[number - 1]
    if not re.fullmatch(r"0|-?[1-9][0-9]*", text) or not -2**31 <= int(text) < 2**31:
        raise FormatError(f"line {number} is not a 32-bit number in decimal: {text!r}")
    return int(text)


def _flag(lines, number):
    text = lines[number - 1]
    if text not in ("0", "1"):
        raise FormatError(f"line {number} is neither 0 nor 1: {text!r}")
    return text == "1"


def _decimal(lines, number):
    # Written in the number format of the user's country, so with either decimal mark.
    text = lines[number - 1]
    if not re.fullmatch(r"-?([0-9]+([.,][0-9]+)?|[.,][0-9]+)(E[+-]?[0-9]+)?", text):
        raise FormatError(f"line {number} is not a decimal number: {text!r}")
    return float(text.replace(",", "."))
