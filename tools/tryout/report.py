"""The jobs of a tryout, how far each has come along its road, and the lines that tell of it."""

import dataclasses
import time

from collecting import Arrival
from jobs import Job

STATIONS = ("announced", "detected", "dialog", "account", "notification")


@dataclasses.dataclass
class AnnouncedJob:
    """A job that a server has announced, and what became of it."""

    server: str
    job: Job
    file_name: str
    is_own: bool
    # Seconds from the beginning of the tryout at which each station was seen.
    stations: dict = dataclasses.field(default_factory=dict)
    arrival: Arrival = None
    problems: list = dataclasses.field(default_factory=list)

    def reach(self, station, began):
        self.stations.setdefault(station, time.monotonic() - began)

    @property
    def is_complete(self):
        return all(station in self.stations for station in STATIONS)

    @property
    def is_right(self):
        """Whether all happened to the job that must, and nothing else."""
        return not self.problems and (self.is_complete if self.is_own else set(self.stations) == {"announced"})

    def road(self):
        """One line: the stations, with the decoded notification behind them when there is one."""
        seen = [f"{station} {self.stations[station]:.1f} s" for station in STATIONS if station in self.stations]
        line = f"{self.job.document}: {', '.join(seen)}"
        if self.arrival:
            line += f" | {decoded(self.arrival)}"
        elif not self.is_own:
            verdict = "left alone, as it must be" if self.is_right else "WRONG: it is not this user's"
            line += f" | printed by {self.job.user}: {verdict}"
        elif not self.is_complete:
            line += " | MISSING: and then nothing"
        return "".join([line, *(f"\n    WRONG: {problem}" for problem in self.problems)])


def decoded(arrival):
    """One line: file and fields of a notification."""
    notification = arrival.notification
    rate = f"{notification.rate_description} {notification.rate_value:g}" if notification.rate_description else "none"
    job_file = f"job file {notification.job_file}" if notification.job_file else "no job file"
    comment = f"\"{notification.comment}\"" if notification.comment else "none"
    return (f"\\\\{arrival.server}\\TLXActN$\\{arrival.name}: {notification.user} on {notification.machine}, "
            f"\\{notification.printer}, {job_file}, account {notification.account_id} "
            f"\"{notification.account_title}\", {'invoiced' if notification.invoiceable else 'not invoiced'}, "
            f"comment {comment}, rate {rate}")
