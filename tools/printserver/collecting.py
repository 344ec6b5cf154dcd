"""Taking notifications from the shares into the archive, and the charges that the archive adds up to."""

import dataclasses
import os
import time

import jobs
from notifications import SUFFIX, Notification, parse_notification, read_notification
from textfiles import FormatError, read_text
from watching import FolderWatch


@dataclasses.dataclass(frozen=True)
class Arrival:
    """A notification file in a share: what it says, or (problem) why it cannot be read."""

    server: str
    path: str
    notification: Notification = None
    problem: str = ""

    @property
    def name(self):
        return os.path.basename(self.path)


@dataclasses.dataclass
class Charge:
    """What one account owes. How many pages a job has only the server's spooler knows, so jobs and rates are counted."""

    account_id: int
    title: str
    jobs: int = 0
    invoiced: int = 0
    rate_sum: float = 0.0


def arrivals(organisation):
    """Yields everything that lies in the notification shares, by server and name."""
    for server in organisation.servers():
        folder = organisation.notification_folder(server)
        for name in sorted(os.listdir(folder)):
            if name.lower().endswith(SUFFIX):
                yield _read_arrival(server, os.path.join(folder, name))


def collect(organisation, count=None, seconds=0.0):
    """Yields arrivals as they come, each moved to the archive and its job released.

    Ends when `count` have come (if a count is given), at the latest when `seconds` have passed; what is there already
    is yielded in any case. A file that cannot be read may be in the middle of being written, so it is looked at again
    after each arrival, and yielded with its problem (and left where it is) only at the end.
    """
    deadline = time.monotonic() + seconds
    taken = 0
    with FolderWatch([organisation.notification_folder(server) for server in organisation.servers()]) as watch:
        while True:
            unreadable = []
            for arrival in arrivals(organisation):
                if arrival.notification is None:
                    unreadable.append(arrival)
                    continue
                _archive(organisation, arrival)
                taken += 1
                yield arrival
            if (count is not None and taken >= count) or not watch.wait(deadline):
                yield from unreadable
                return


def charges(organisation):
    """The charges of every account that has any, by account id."""
    table = {}
    for server in organisation.servers():
        folder = organisation.archive_folder(server)
        for name in sorted(os.listdir(folder)):
            # An archived file can have a number behind its name, so the name is not compared again.
            _add_charge(table, parse_notification(read_text(os.path.join(folder, name))))
    return [table[account_id] for account_id in sorted(table)]


def _read_arrival(server, path):
    try:
        return Arrival(server, path, notification=read_notification(path))
    except FormatError as error:
        return Arrival(server, path, problem=str(error))


def _archive(organisation, arrival):
    folder = organisation.archive_folder(arrival.server)
    target = os.path.join(folder, arrival.name)
    number = 1
    while os.path.exists(target):
        number += 1
        target = os.path.join(folder, f"{arrival.name}.{number}")
    os.replace(arrival.path, target)
    jobs.release(organisation.jobs_folder(arrival.server), arrival.notification.job_file, arrival.notification.job_id)


def _add_charge(table, notification):
    charge = table.setdefault(notification.account_id, Charge(notification.account_id, notification.account_title))
    charge.title = notification.account_title
    charge.jobs += 1
    charge.invoiced += notification.invoiceable
    charge.rate_sum += notification.rate_value
