"""The client's trace log, read while it is being written: how far each job has come."""

_DETECTED = "Adding Job to pending list: "
_DIALOG = "Loading accounts ... "


class TraceLog:
    """Follows tlxlog.txt from its beginning.

    The dialog takes the jobs in the order in which they were detected, one at a time, and loads the accounts each time
    it is shown; so the n-th loading belongs to the n-th detected job.
    """

    def __init__(self, path):
        self._path = path
        self._read = 0
        self._rest = b""
        self._detected = []
        self._dialogs = 0

    def follow(self):
        """Reads what was added since the last call."""
        try:
            with open(self._path, "rb") as file:
                file.seek(self._read)
                added = file.read()
        except FileNotFoundError:
            return
        self._read += len(added)
        *lines, self._rest = (self._rest + added).split(b"\r\n")
        for line in lines:
            self._take(line.decode("cp1252", errors="replace"))

    def has_detected(self, document, printer):
        return self._index(document, printer) is not None

    def has_shown(self, document, printer):
        index = self._index(document, printer)
        return index is not None and self._dialogs > index

    def _take(self, line):
        if _DETECTED in line:
            self._detected.append(line.split(_DETECTED, 1)[1])
        elif _DIALOG in line and self._detected:
            self._dialogs += 1

    def _index(self, document, printer):
        wanted = f"{document},{printer}"
        return self._detected.index(wanted) if wanted in self._detected else None
