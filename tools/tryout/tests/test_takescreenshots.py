import os
import subprocess
import sys
import unittest

import context
from accounts import parse_accounts


class Accounts(unittest.TestCase):
    def test_the_accounts_to_publish_are_what_the_pictures_need(self):
        tool = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(context.__file__))), "takescreenshots")
        listed = subprocess.run([sys.executable, "-B", tool, "--accounts"], capture_output=True, text=True, check=True)
        accounts = list(parse_accounts(listed.stdout.splitlines()))
        self.assertEqual(len(accounts), len({account.account_id for account in accounts}))
        self.assertEqual(sum("lease" in account.sub_title.lower() for account in accounts), 2)
        self.assertTrue(any(len(account.title) > 250 for account in accounts))
        self.assertTrue(any(not account.is_active for account in accounts))
        self.assertTrue(any(account.require_comment == 2 for account in accounts))


if __name__ == "__main__":
    unittest.main()
