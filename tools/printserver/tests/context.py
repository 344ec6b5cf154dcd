"""Lets the tests import the modules beside this folder, and gives each a folder of its own."""

import os
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


class FolderTest(unittest.TestCase):
    """A test with an empty folder in self.folder."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="print server ")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def content(self, *names):
        with open(self.path(*names), "rb") as file:
            return file.read()
