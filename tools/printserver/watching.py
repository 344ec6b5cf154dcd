"""Waiting for files to arrive in folders, woken by the system (Linux inotify) and not by the clock."""

import ctypes
import os
import select
import time

_MODIFY = 0x00000002
_CLOSE_WRITE = 0x00000008
_MOVED_TO = 0x00000080


class FolderWatch:
    """Watches folders from its creation on: whatever is written or moved there later ends a wait.

    Use as a context manager.
    """

    def __init__(self, folders):
        self._libc = ctypes.CDLL(None, use_errno=True)
        self._descriptor = self._libc.inotify_init1(os.O_CLOEXEC | os.O_NONBLOCK)
        if self._descriptor < 0:
            raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))
        for folder in folders:
            if self._libc.inotify_add_watch(self._descriptor, os.fsencode(folder), _MODIFY | _CLOSE_WRITE | _MOVED_TO) < 0:
                error = ctypes.get_errno()
                self.close()
                raise OSError(error, os.strerror(error), folder)

    def wait(self, deadline):
        """Returns True as soon as something has arrived since the last wait, False at the deadline (time.monotonic)."""
        remaining = max(0, deadline - time.monotonic())
        if not select.select([self._descriptor], [], [], remaining)[0]:
            return False
        try:
            while os.read(self._descriptor, 65536):
                pass
        except BlockingIOError:
            pass
        return True

    def close(self):
        if self._descriptor >= 0:
            os.close(self._descriptor)
            self._descriptor = -1

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
