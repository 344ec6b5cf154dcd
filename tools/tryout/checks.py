"""What an account notification must say about its job, field by field."""

import datetime
import re

COMMENT_START = "Comment at "

# A date and a time of day as Windows writes them in most countries.
_MOMENT = re.compile(r"\d{1,4}[./-] ?\d{1,2}[./-] ?\d{1,4}\.? (\d{1,2}):(\d\d):(\d\d)( [AaPp][Mm])?")


def problems_of(arrival, announced, accounts, rates, now):
    """Returns a sentence for each thing that is wrong with the notification; none when all is right.

    `announced` is what the server announced, `accounts` the published accounts by id, `rates` the published rates.
    """
    notification = arrival.notification
    job = announced.job
    problems = []

    def expect(what, actual, expected):
        if actual != expected:
            problems.append(f"{what} is {actual!r} and should be {expected!r}")

    expect("the server", arrival.server, announced.server)
    expect("the job's number", notification.job_id, job.job_id)
    expect("the machine", notification.machine, job.machine)
    expect("the printer", notification.printer, job.printer)
    expect("the user", notification.user, job.user)
    expect("the document", notification.document, job.document)
    expect("the printer's handle", notification.printer_handle, job.printer_handle)
    expect("the job file", notification.job_file, announced.file_name)

    account = accounts.get(notification.account_id)
    if account is None:
        problems.append(f"there is no account {notification.account_id}")
    else:
        problems += _account_problems(notification, account, now)
    if not _is_published_rate(notification, rates):
        problems.append(f"no rate {notification.rate_description!r} of {notification.rate_value:g} is published")
    return problems


def _account_problems(notification, account, now):
    problems = []
    if not account.is_active:
        problems.append(f"account {account.account_id} is not active")
    if notification.account_title != account.title:
        problems.append(f"the account's title is {notification.account_title!r} and should be {account.title!r}")
    if not account.allow_noninvoiceable and not notification.invoiceable:
        problems.append(f"account {account.account_id} must be invoiced")
    if account.require_comment == 0:
        if notification.comment:
            problems.append(f"the comment is {notification.comment!r}, but the account takes none")
    elif not _is_test_comment(notification.comment, now):
        problems.append(f"the comment is {notification.comment!r} and should be "
                        f"\"{COMMENT_START}\" with date and time")
    return problems


def _is_test_comment(comment, now):
    if not comment.startswith(COMMENT_START):
        return False
    match = _MOMENT.fullmatch(comment.removeprefix(COMMENT_START))
    if not match:
        return False
    hour, minute, second = (int(group) for group in match.groups()[:3])
    if match.group(4):
        hour = hour % 12 + (12 if match.group(4).strip().lower() == "pm" else 0)
    if hour > 23 or minute > 59 or second > 59:
        return False
    written = now.replace(hour=hour, minute=minute, second=second)
    apart = abs(now - written)
    return min(apart, datetime.timedelta(days=1) - apart) < datetime.timedelta(minutes=2)


def _is_published_rate(notification, rates):
    if notification.rate_description == "":
        return notification.rate_value == 0
    return any(rate.description == notification.rate_description and float(rate.value) == notification.rate_value
               for rate in rates)
