"""Pictures of the client's windows."""

import subprocess
import time

_CLASS = "korvantaclient"


def visible_windows():
    """The X window ids of the client's visible windows."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", _CLASS], capture_output=True, text=True,
                           check=False)
    return set(found.stdout.split())


def photograph_new_window(known, path, seconds=10):
    """Saves a picture of the client's largest window that is not among `known`, once it is fully drawn.

    Returns whether there was such a window within the time.
    """
    deadline = time.monotonic() + seconds
    before = None
    while time.monotonic() < deadline:
        pictures = {window: _picture(window) for window in visible_windows() - known}
        largest = max(pictures, key=lambda window: len(pictures[window]), default=None)
        # Drawn means: two pictures in a row show the same, and not just the background.
        if largest and pictures[largest] == before and len(set(before[-3000:])) + len(set(before[:6000])) > 4:
            subprocess.run(["import", "-frame", "-window", largest, path], check=True, capture_output=True)
            return True
        before = pictures[largest] if largest else None
        time.sleep(0.1)
    return False


def photograph_screen(path):
    """Saves a picture of the whole screen."""
    subprocess.run(["import", "-window", "root", path], check=False, capture_output=True)


def _picture(window):
    return subprocess.run(["import", "-window", window, "ppm:-"], capture_output=True, check=False).stdout
