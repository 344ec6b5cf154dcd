"""The folder that plays the network: \\\\SERVER\\Share$ is FOLDER/SERVER/Share$ in it."""

import os
import shutil

from textfiles import FormatError, check_field, read_lines, write_lines

DATA_SHARE = "TLXData$"
NOTIFICATION_SHARE = "TLXActN$"
PREFERENCES_SHARE = "TLXPrefs$"
JOBS_FOLDER = "jobs"

# What the print server keeps for itself; no server name begins with a dot.
_OWN_FOLDER = ".printserver"

SAMPLE_PRINTERS = (
    ("PRINTSRV1", "Reception Laser"),
    ("PRINTSRV1", "Library Color"),
    ("PRINTSRV2", "Drawing Office A1 Plotter"),
    ("PRINTSRV2", "Empfang Süd"),
)


def parse_printer(text):
    r"""Returns server and printer of a name written \\SERVER\Printer or SERVER/Printer."""
    server, separator, printer = text.replace("/", "\\").lstrip("\\").partition("\\")
    if not (server and separator and printer) or "\\" in printer or server.startswith("."):
        raise FormatError(f"a printer is written \\\\SERVER\\Printer or SERVER/Printer, not {text!r}")
    return check_field(server, "A server name"), check_field(printer, "A printer name")


class Organisation:
    """The servers in one folder."""

    def __init__(self, folder):
        self._folder = os.path.abspath(folder)

    def publish(self, printers, primary, settings, accounts, rates):
        """Makes the servers of the printers, given as (server, printer) pairs, and the lists of the primary server.

        Jobs, notifications and preferences that are there stay. `settings`, `accounts` and `rates` are lines; they may
        be any iterable.
        """
        settings = list(settings)
        servers = list(dict.fromkeys([primary, *(server for server, _ in printers)]))
        for server in servers:
            for share in (os.path.join(DATA_SHARE, JOBS_FOLDER), NOTIFICATION_SHARE, PREFERENCES_SHARE):
                os.makedirs(os.path.join(self._folder, server, share), exist_ok=True)
            write_lines(self._data_file(server, "Printers.txt"), (printer for owner, printer in printers if owner == server))
            # The primary server's is the one that is read; with HTTP monitoring a server is healthy that has one.
            write_lines(self._data_file(server, "ClientSet.txt"), settings)
        # Clients put the primary server first by themselves, and would list it twice if it were named here.
        write_lines(self._data_file(primary, "Servers.txt"), (server for server in servers if server != primary))
        write_lines(self._data_file(primary, "Accounts.txt"), accounts)
        write_lines(self._data_file(primary, "ChargeRates.txt"), rates)

    def servers(self):
        """The names of the servers that publish printers, sorted."""
        if not os.path.isdir(self._folder):
            raise FormatError(f"there is no folder {self._folder}; publish makes one")
        return sorted(name for name in os.listdir(self._folder)
                      if not name.startswith(".") and os.path.isdir(os.path.join(self._folder, name, DATA_SHARE)))

    def find_printer(self, text):
        """Returns server and printer as published for a name in any letter case."""
        server, printer = parse_printer(text)
        for known_server, known_printer in self.printers():
            if (known_server.lower(), known_printer.lower()) == (server.lower(), printer.lower()):
                return known_server, known_printer
        published = "".join(f"\n  \\\\{server}\\{printer}" for server, printer in self.printers())
        raise FormatError(f"no printer {text} is published; there are:{published}")

    def printers(self):
        """All published printers as (server, printer) pairs, by server, each server's in the order of its list."""
        return [(server, printer) for server in self.servers()
                for printer in read_lines(self._data_file(server, "Printers.txt")) if printer]

    def jobs_folder(self, server):
        return os.path.join(self._folder, server, DATA_SHARE, JOBS_FOLDER)

    def notification_folder(self, server):
        return os.path.join(self._folder, server, NOTIFICATION_SHARE)

    def archive_folder(self, server):
        """Where the notifications go that the server has taken; made when it is not there."""
        folder = os.path.join(self._folder, _OWN_FOLDER, "archive", server)
        os.makedirs(folder, exist_ok=True)
        return folder

    def own_file(self, name):
        """A file of the print server's own, which no client sees."""
        folder = os.path.join(self._folder, _OWN_FOLDER)
        os.makedirs(folder, exist_ok=True)
        return os.path.join(folder, name)

    def forget_the_past(self):
        """Removes every job, notification and charge; what is published and the preferences stay."""
        for server in self.servers():
            for folder in (self.jobs_folder(server), self.notification_folder(server)):
                for name in os.listdir(folder):
                    os.remove(os.path.join(folder, name))
        shutil.rmtree(os.path.join(self._folder, _OWN_FOLDER), ignore_errors=True)

    def _data_file(self, server, name):
        return os.path.join(self._folder, server, DATA_SHARE, name)
