import itertools
import unittest

import context  # noqa: F401 - makes the modules importable
from accounts import SAMPLE_RATES, Account, generate_accounts, parse_accounts, parse_rates
from textfiles import FormatError


class AccountLines(unittest.TestCase):
    def test_eight_fields_in_order(self):
        account = Account(7, False, "Smith", "Audit", is_active=False, allow_noninvoiceable=True, require_comment=2,
                          password="pw")
        self.assertEqual(account.to_line(), "7\x010\x01Smith\x01Audit\x010\x011\x012\x01pw")
        self.assertEqual(Account.from_line(account.to_line()), account)

    def test_title_joins_main_and_sub(self):
        self.assertEqual(Account(1, True, "Smith").title, "Smith")
        self.assertEqual(Account(2, False, "Smith", "Audit").title, "Smith / Audit")

    def test_a_separator_in_a_title_is_refused(self):
        with self.assertRaises(FormatError):
            Account(1, True, "a\x01b").to_line()


class GeneratedAccounts(unittest.TestCase):
    def test_as_many_as_asked_for_with_ids_in_order(self):
        for count in (0, 1, 2, 17, 2000):
            ids = [account.account_id for account in generate_accounts(count, 1)]
            self.assertEqual(ids, list(range(1001, 1001 + count)))

    def test_same_seed_same_accounts_other_seed_others(self):
        self.assertEqual(list(generate_accounts(300, 5)), list(generate_accounts(300, 5)))
        self.assertNotEqual(list(generate_accounts(300, 5)), list(generate_accounts(300, 6)))

    def test_sub_accounts_follow_their_main_account(self):
        main_title = None
        for account in generate_accounts(2000, 1):
            if account.is_main:
                main_title = account.main_title
            self.assertEqual(account.main_title, main_title)
            self.assertEqual(account.is_main, account.sub_title == "")

    def test_titles_are_unique(self):
        titles = [account.title for account in generate_accounts(20000, 1)]
        self.assertEqual(len(set(titles)), len(titles))

    def test_every_rule_occurs_and_names_are_not_only_ascii(self):
        accounts = list(generate_accounts(2000, 1))
        self.assertEqual({account.require_comment for account in accounts}, {0, 1, 2})
        self.assertEqual({account.is_active for account in accounts}, {True, False})
        self.assertEqual({account.allow_noninvoiceable for account in accounts}, {True, False})
        self.assertTrue(any(account.is_main for account in accounts))
        self.assertTrue(any(not account.title.isascii() for account in accounts))

    def test_nothing_is_held_back(self):
        self.assertEqual(len(list(itertools.islice(generate_accounts(10**12, 1), 100))), 100)


class PlainLists(unittest.TestCase):
    def test_accounts_with_rules_and_indented_sub_accounts(self):
        accounts = list(parse_accounts(["# ours", "", "1 | Smith & Söhne | must-invoice",
                                        "  2 | Audit | comment=2, inactive, password=x y", "3|Jones"]))
        self.assertEqual(accounts, [
            Account(1, True, "Smith & Söhne", allow_noninvoiceable=False),
            Account(2, False, "Smith & Söhne", "Audit", is_active=False, require_comment=2, password="x y"),
            Account(3, True, "Jones"),
        ])

    def test_bad_account_lines_are_named(self):
        for lines in (["1"], ["x | Smith"], ["  2 | Audit"], ["1 | Smith | free"], ["1 | Smith | comment=3"]):
            with self.subTest(lines), self.assertRaisesRegex(FormatError, "line 1"):
                list(parse_accounts(lines))

    def test_rates(self):
        rates = list(parse_rates(["100 | Standard", "# none", "12.5 | Pro bono"]))
        self.assertEqual([rate.to_line() for rate in rates], ["100\x01Standard", "12.5\x01Pro bono"])
        with self.assertRaises(FormatError):
            list(parse_rates(["100"]))

    def test_three_sample_rates(self):
        self.assertEqual(len(SAMPLE_RATES), 3)


if __name__ == "__main__":
    unittest.main()
