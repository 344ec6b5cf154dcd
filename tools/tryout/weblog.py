"""The access log of the web service: which files of which server were asked for, and what each request cost."""

import dataclasses
import re

_LINE = re.compile(r'\S+ (?P<server>\S+) "(?P<method>\S+) /TLXData/(?P<name>\S+) \S+" (?P<status>\d+) '
                   r'(?P<received>\d+) (?P<sent>\d+)')


@dataclasses.dataclass(frozen=True)
class Request:
    """One request; the bytes are those of head and body together, without what carries them through the network."""

    server: str
    name: str
    status: int
    received: int
    sent: int


def requests(path):
    """Yields the requests for files of the data share, oldest first; other lines are passed over."""
    with open(path, encoding="utf-8", errors="replace") as file:
        for line in file:
            match = _LINE.fullmatch(line.rstrip("\n"))
            if match:
                yield Request(match["server"], match["name"], int(match["status"]), int(match["received"]),
                              int(match["sent"]))


def fetched_files(path):
    """Returns the files that were delivered, as pairs of server and name."""
    return {(request.server, request.name) for request in requests(path) if request.status == 200}
