"""Job notification files: a server announces each job of a user in a numbered file and raises the user's counter."""

import dataclasses
import datetime
import os
import re

from textfiles import LINE_END, FormatError, check_field, read_text, write_text

# Numbers run from 0 to this and then start again.
LAST_NUMBER = 999


@dataclasses.dataclass(frozen=True)
class Job:
    """One print job in a server's queue. The time words are day and weekday, minute and hour, milliseconds and second."""

    job_id: int
    printer: str
    machine: str
    user: str
    document: str
    full_printer: str
    printer_handle: int
    time1: int
    time2: int
    time3: int

    def to_text(self):
        return LINE_END.join(check_field(str(value), "A job") for value in dataclasses.astuple(self))

    @staticmethod
    def from_text(text):
        lines = text.split(LINE_END)
        if len(lines) < 10:
            raise FormatError(f"a job has ten lines, not {len(lines)}")
        try:
            return Job(int(lines[0]), *lines[1:6], *(int(line) for line in lines[6:10]))
        except ValueError as error:
            raise FormatError(str(error)) from None


def time_words(moment):
    """The last three words of a spooler's time stamp, each with its first part in the low 16 bits."""
    weekday = moment.isoweekday() % 7
    return (
        weekday | moment.day << 16,
        moment.hour | moment.minute << 16,
        moment.second | (moment.microsecond // 1000) << 16,
    )


def counter_name(user):
    return f"{user.strip().lower()}.tlu"


def job_file_name(user, number):
    return f"{user.strip().lower()}.{number:03}"


def read_counter(folder, user):
    """The number of the user's next job file: 0 when the server has had no job of that user."""
    path = os.path.join(folder, counter_name(user))
    if not os.path.exists(path):
        return 0
    try:
        return int(read_text(path))
    except ValueError:
        raise FormatError(f"{path} does not hold a number") from None


def announce(folder, user, job):
    """Writes the job's file and then raises the counter; returns the file's name.

    A file left at the next number from the last time round is removed first: clients look for it by its name.
    """
    number = read_counter(folder, user)
    following = 0 if number >= LAST_NUMBER else number + 1
    stale = os.path.join(folder, job_file_name(user, following))
    if os.path.exists(stale):
        os.remove(stale)
    name = job_file_name(user, number)
    write_text(os.path.join(folder, name), job.to_text())
    write_text(os.path.join(folder, counter_name(user)), str(following))
    return name


def pending(folder):
    """Yields (file name, job) for each job file; the job is a FormatError when the file cannot be read as one."""
    names = [name for name in os.listdir(folder) if re.fullmatch(r".+\.\d{3,}", name)]
    for name in sorted(names):
        try:
            yield name, Job.from_text(read_text(os.path.join(folder, name)))
        except FormatError as error:
            yield name, error


def release(folder, name, job_id):
    """Removes the file of a job that has its account. The client names the file with the user name as Windows has it."""
    path = os.path.join(folder, name.lower())
    if not name or os.path.basename(name) != name or not os.path.isfile(path):
        return False
    try:
        if Job.from_text(read_text(path)).job_id != job_id:
            return False
    except FormatError:
        return False
    os.remove(path)
    return True


def parse_moment(text):
    """A submission time given by the user: ISO 8601, such as 2026-03-01T14:05:30.250."""
    try:
        return datetime.datetime.fromisoformat(text)
    except ValueError:
        raise FormatError(f"{text!r} is not a time such as 2026-03-01T14:05:30.250") from None
