"""Lets the tests import the modules beside this folder and those of the print server."""

import os
import sys

sys.dont_write_bytecode = True
_own = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path[:0] = [_own, os.path.join(os.path.dirname(_own), "printserver")]
