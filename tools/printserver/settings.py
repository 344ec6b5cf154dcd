"""The thirteen client settings, in the order of their lines in ClientSet.txt."""

from textfiles import FormatError, check_field

_MATCH_METHODS = {"user-and-machine": 0, "machine": 1, "user": 2}
_DETECTION_METHODS = {"file": 0, "printer": 1, "http": 2}


def _number(words=None):
    def convert(text):
        if words and text in words:
            return str(words[text])
        try:
            return str(int(text))
        except ValueError:
            expected = "a number" if not words else "a number or one of " + ", ".join(words)
            raise FormatError(f"{text!r} is not {expected}") from None
    return convert


def _boolean(text):
    values = {"yes": "-1", "true": "-1", "-1": "-1", "1": "-1", "no": "0", "false": "0", "0": "0"}
    try:
        return values[text.lower()]
    except KeyError:
        raise FormatError(f"{text!r} is neither yes nor no") from None


def _text(text):
    return check_field(text, "A setting")


# Name, sample value, conversion of a value given by the user, meaning. The sample polls every second, so that whoever
# tries the client need not wait.
SETTINGS = (
    ("job-match-method", "0", _number(_MATCH_METHODS), "user-and-machine, machine or user"),
    ("job-detection-method", "0", _number(_DETECTION_METHODS), "file, printer or http"),
    ("job-detection-method-win9x", "0", _number(_DETECTION_METHODS), "the same for Windows 95, 98 and Me"),
    ("server-health-test-interval", "31", _number(), "seconds between tests of the servers' health"),
    ("full-refresh-interval", "60", _number(), "minutes between full refreshes"),
    ("printer-list-refresh-interval", "44", _number(), "seconds between readings of the printer lists"),
    ("server-down-full-refresh-interval", "30", _number(), "seconds to the next full refresh while a server is down"),
    ("printer-polling-interval", "2", _number(), "ticks between polls of the printers"),
    ("file-polling-interval", "1", _number(), "ticks between polls of the servers"),
    ("client-popup-on-top", "0", _boolean, "yes keeps the account dialog above all other windows"),
    ("users-do-not-require-account", "", _text, "carried to the clients unchanged"),
    ("default-comment", "", _text, "initial comment in the account dialog"),
    ("show-on-invoice-label", "", _text, "caption of the account dialog's invoice box"),
)


def client_settings(chosen):
    """Returns the thirteen lines, with the values in the dictionary `chosen` (by name) in place of the sample's."""
    unknown = set(chosen) - {name for name, *_ in SETTINGS}
    if unknown:
        raise FormatError(f"there is no client setting {sorted(unknown)[0]!r}")
    lines = []
    for name, sample, convert, _ in SETTINGS:
        try:
            lines.append(convert(chosen[name]) if name in chosen else sample)
        except FormatError as error:
            raise FormatError(f"{name}: {error}") from None
    return lines
