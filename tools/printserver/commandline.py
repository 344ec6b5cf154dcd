"""The commands of the print server."""

import argparse
import dataclasses
import datetime
import json
import socket
import sys

import accounts
import collecting
import jobs
from organisation import SAMPLE_PRINTERS, Organisation, parse_printer
from settings import SETTINGS, client_settings
from textfiles import FormatError

SAMPLE_ACCOUNTS = 2000
SAMPLE_SEED = 1


def main(arguments=None):
    options = _parser().parse_args(arguments)
    try:
        return options.run(options, Organisation(options.folder)) or 0
    except (FormatError, OSError) as error:
        print(f"printserver: {error}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 130


def _parser():
    parser = argparse.ArgumentParser(
        prog="printserver",
        description="A print server to try the client with. It works on a folder that plays the network: "
                    "\\\\SERVER\\Share$ is FOLDER/SERVER/Share$ in it, as in dosdevices/unc of a Wine prefix.")
    commands = parser.add_subparsers(required=True, metavar="COMMAND", dest="command")
    _add_publish(commands)
    _add_job(commands)
    _add_collect(commands)
    _add_command(commands, "jobs", _jobs, "list the jobs that wait for an account")
    _add_command(commands, "charges", _charges, "print what each account owes")
    _add_command(commands, "forget", _forget, "remove all jobs, notifications and charges; published lists stay")
    return parser


def _add_command(commands, name, run, help_text):
    command = commands.add_parser(name, help=help_text, description=help_text[0].upper() + help_text[1:] + ".")
    command.add_argument("--folder", required=True, help="the folder that plays the network")
    command.set_defaults(run=run)
    return command


def _add_publish(commands):
    command = _add_command(commands, "publish", _publish,
                           "make servers with their shares and publish printers, accounts, rates and client settings")
    command.add_argument("--primary", metavar="SERVER", help="the primary server (default: that of the first printer)")
    command.add_argument("--printer", action="append", metavar="SERVER/PRINTER",
                         help="a printer; give it as often as needed (default: four printers on two servers)")
    command.add_argument("--printers-file", metavar="FILE", help="printers from a text file, one SERVER/PRINTER per line")
    command.add_argument("--accounts", type=int, metavar="N", default=SAMPLE_ACCOUNTS,
                         help="number of made-up accounts (default %(default)s)")
    command.add_argument("--seed", type=int, default=SAMPLE_SEED, help="another seed makes up others (default %(default)s)")
    command.add_argument("--accounts-file", metavar="FILE",
                         help="accounts from a text file, one \"id | title | rules\" per line, sub-accounts indented; "
                              "rules: inactive, must-invoice, comment=0..2, password=TEXT")
    command.add_argument("--rates-file", metavar="FILE", help="rates from a text file, one \"value | description\" per line")
    group = command.add_argument_group("client settings")
    for name, sample, _, meaning in SETTINGS:
        shown = sample.replace("%", "%%") or "empty"
        group.add_argument(f"--{name}", metavar="VALUE", dest=f"setting_{name}", help=f"{meaning} (default {shown})")


def _add_job(commands):
    command = _add_command(commands, "job", _job, "announce print jobs to a user's client")
    command.add_argument("--user", required=True, help="the user who prints")
    command.add_argument("--printer", required=True, metavar="SERVER/PRINTER", help="a published printer")
    command.add_argument("--machine", default=_machine_name(), help="the machine printed from (default %(default)s)")
    command.add_argument("--document", default="Document", help="the document's name (default %(default)s)")
    command.add_argument("--job-id", type=int, help="the spooler's number of the job (default: the next one)")
    command.add_argument("--handle", type=int, help="the spooler's handle of the printer (default: one for each printer)")
    command.add_argument("--time", metavar="TIME", help="time of submission, such as 2026-03-01T14:05:30.250 (default: now)")
    command.add_argument("--count", type=int, default=1, help="so many jobs, a millisecond apart (default %(default)s)")
    command.add_argument("--json", action="store_true", help="print each job as a line of JSON")


def _add_collect(commands):
    command = _add_command(commands, "collect", _collect,
                           "take the notifications from the shares, show them, keep them and release their jobs")
    command.add_argument("--count", type=int, metavar="N", help="wait until N have come")
    command.add_argument("--seconds", type=float, metavar="S",
                         help="wait no longer than this (default: 60 with --count, else do not wait)")
    command.add_argument("--json", action="store_true", help="print each notification as a line of JSON")


def _publish(options, organisation):
    printers = [parse_printer(text) for text in options.printer or []]
    if options.printers_file:
        printers += [parse_printer(line) for line in _plain_lines(options.printers_file) if line]
    printers = printers or list(SAMPLE_PRINTERS)
    chosen = {name: getattr(options, f"setting_{name}") for name, *_ in SETTINGS
              if getattr(options, f"setting_{name}") is not None}
    rates = list(accounts.parse_rates(_plain_lines(options.rates_file))) if options.rates_file else accounts.SAMPLE_RATES
    if options.accounts_file:
        listed = accounts.parse_accounts(_plain_lines(options.accounts_file))
    else:
        listed = accounts.generate_accounts(options.accounts, options.seed)
    primary = options.primary or printers[0][0]
    counted = _Counted(account.to_line() for account in listed)
    organisation.publish(printers, primary, client_settings(chosen), counted, (rate.to_line() for rate in rates))
    print(f"Primary server {primary}: {counted.count} accounts, {len(rates)} charge rates.")
    for server, printer in organisation.printers():
        print(f"  \\\\{server}\\{printer}")


def _job(options, organisation):
    server, printer = organisation.find_printer(options.printer)
    moment = jobs.parse_moment(options.time) if options.time else datetime.datetime.now()
    first_id = options.job_id if options.job_id is not None else _next_job_id(organisation, server, options.count)
    handle = options.handle if options.handle is not None else _handle(organisation, server, printer)
    for index in range(options.count):
        document = options.document if options.count == 1 else f"{options.document} {index + 1}"
        job = jobs.Job(first_id + index, printer, options.machine, options.user, document, f"\\\\{server}\\{printer}",
                       handle, *jobs.time_words(moment + datetime.timedelta(milliseconds=index)))
        name = jobs.announce(organisation.jobs_folder(server), options.user, job)
        if options.json:
            print(json.dumps({"server": server, "file": name, **dataclasses.asdict(job)}, ensure_ascii=False), flush=True)
        else:
            print(f"\\\\{server}\\{printer}: job {job.job_id} of {options.user}, {document!r}, announced in {name}", flush=True)


def _jobs(_, organisation):
    problems = 0
    for server in organisation.servers():
        for name, job in jobs.pending(organisation.jobs_folder(server)):
            if isinstance(job, FormatError):
                problems += 1
                print(f"{server}: {name} cannot be read: {job}")
            else:
                print(f"{server}: {name}: job {job.job_id} of {job.user} on {job.machine}, {job.document!r} "
                      f"on {job.full_printer}")
    return 1 if problems else 0


def _collect(options, organisation):
    seconds = options.seconds if options.seconds is not None else (0 if options.count is None else 60)
    taken = problems = 0
    for arrival in collecting.collect(organisation, options.count, seconds):
        if arrival.notification is None:
            problems += 1
            print(f"printserver: {arrival.path} cannot be read: {arrival.problem}", file=sys.stderr)
            continue
        taken += 1
        if options.json:
            fields = dataclasses.asdict(arrival.notification)
            print(json.dumps({"server": arrival.server, "file": arrival.name, **fields}, ensure_ascii=False), flush=True)
        else:
            print(_readable(arrival), flush=True)
    if options.count is not None and taken < options.count:
        print(f"printserver: {taken} of {options.count} notifications came within {seconds:g} seconds", file=sys.stderr)
        return 1
    return 1 if problems else 0


def _charges(_, organisation):
    rows = [("Account", "Title", "Jobs", "Invoiced", "Pages", "Rates")]
    for charge in collecting.charges(organisation):
        rows.append((str(charge.account_id), charge.title, str(charge.jobs), str(charge.invoiced), "unknown",
                     f"{charge.rate_sum:g}"))
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        print("  ".join(text.ljust(width) if column == 1 else text.rjust(width)
                        for column, (text, width) in enumerate(zip(row, widths))).rstrip())


def _forget(_, organisation):
    organisation.forget_the_past()


def _readable(arrival):
    notification = arrival.notification
    rate = f"{notification.rate_description} ({notification.rate_value:g})" if notification.rate_description else "none"
    return (f"\\\\{arrival.server}\\{notification.printer}: job {notification.job_id} of {notification.user} on "
            f"{notification.machine}, {notification.document!r}\n"
            f"  account {notification.account_id} {notification.account_title!r}, "
            f"{'to be invoiced' if notification.invoiceable else 'not to be invoiced'}, "
            f"comment {notification.comment!r}, rate {rate}, announced in {notification.job_file or 'no file'}")


def _plain_lines(path):
    with open(path, encoding="utf-8-sig") as file:
        for line in file:
            yield line.rstrip("\n")


def _machine_name():
    # As Windows has it: the host's own name in capitals, at most fifteen characters.
    return socket.gethostname().partition(".")[0][:15].upper()


def _handle(organisation, server, printer):
    return 4096 + 16 * organisation.printers().index((server, printer))


def _next_job_id(organisation, server, count):
    path = organisation.own_file("spooler.json")
    try:
        with open(path, encoding="utf-8") as file:
            last_ids = json.load(file)
    except FileNotFoundError:
        last_ids = {}
    first_id = last_ids.get(server, 0) + 1
    last_ids[server] = first_id + count - 1
    with open(path, "w", encoding="utf-8") as file:
        json.dump(last_ids, file)
    return first_id


class _Counted:
    """An iterable that knows how many elements went by."""

    def __init__(self, elements):
        self._elements = elements
        self.count = 0

    def __iter__(self):
        for element in self._elements:
            self.count += 1
            yield element
