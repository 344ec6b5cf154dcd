"""Accounts and charge rates: their records, their lines in the published files, and where sample ones come from."""

import dataclasses
import random

from textfiles import SEPARATOR, FormatError, check_field


@dataclasses.dataclass(frozen=True)
class Account:
    """One account. A sub-account carries the title of its main account, which stands somewhere before it in the list."""

    account_id: int
    is_main: bool
    main_title: str
    sub_title: str = ""
    is_active: bool = True
    allow_noninvoiceable: bool = True
    require_comment: int = 0
    password: str = ""

    @property
    def title(self):
        """The title that a notification carries."""
        return self.main_title if self.is_main else f"{self.main_title} / {self.sub_title}"

    def to_line(self):
        return SEPARATOR.join((
            str(self.account_id),
            _flag(self.is_main),
            check_field(self.main_title, "A title"),
            check_field(self.sub_title, "A title"),
            _flag(self.is_active),
            _flag(self.allow_noninvoiceable),
            str(self.require_comment),
            check_field(self.password, "A password"),
        ))

    @staticmethod
    def from_line(line):
        fields = line.split(SEPARATOR)
        if len(fields) < 8:
            raise FormatError(f"an account line needs eight fields: {line!r}")
        return Account(int(fields[0]), fields[1] != "0", fields[2], fields[3], fields[4] != "0", fields[5] != "0",
                       int(fields[6]), fields[7])


@dataclasses.dataclass(frozen=True)
class Rate:
    """A charge rate; the value is kept as text, with "." as the decimal point, so that it is published as written."""

    value: str
    description: str

    def to_line(self):
        return f"{self.value}{SEPARATOR}{check_field(self.description, 'A description')}"


SAMPLE_RATES = (Rate("100", "Standard"), Rate("80", "Discounted"), Rate("12.5", "Pro bono – Selbstkosten"))


def generate_accounts(count, seed):
    """Yields `count` accounts of an office that a law firm, an engineering company and a university share.

    The same count and seed always give the same accounts, ids rise from 1001 in list order, and nothing is held back,
    so a million is as good as ten.
    """
    chance = random.Random(seed)
    account_id = 1000
    remaining = count
    number = 0
    while remaining > 0:
        number += 1
        main_title, sub_titles = chance.choice(_SECTORS)(chance, number)
        account_id += 1
        remaining -= 1
        yield _with_rules(chance, Account(account_id, True, main_title))
        for sub_title in sub_titles[:remaining]:
            account_id += 1
            remaining -= 1
            yield _with_rules(chance, Account(account_id, False, main_title, sub_title))


def parse_accounts(lines):
    """Yields the accounts of a plain text list: "id | title | rules", a line with a leading blank being a sub-account.

    Rules, separated by commas: inactive, must-invoice, comment=0..2, password=TEXT. Empty lines and lines that begin
    with # are skipped.
    """
    main_title = None
    for number, line, fields in _plain_records(lines):
        if len(fields) < 2:
            raise FormatError(f"line {number}: an account is \"id | title | rules\", not {line!r}")
        is_main = not line[0].isspace()
        if is_main:
            main_title = fields[1]
        elif main_title is None:
            raise FormatError(f"line {number}: a sub-account needs a main account before it")
        rules = _parse_rules(number, fields[2] if len(fields) > 2 else "")
        yield Account(_parse_id(number, fields[0]), is_main, main_title, "" if is_main else fields[1], **rules)


def parse_rates(lines):
    """Yields the rates of a plain text list: "value | description"."""
    for number, line, fields in _plain_records(lines):
        if len(fields) != 2:
            raise FormatError(f"line {number}: a rate is \"value | description\", not {line!r}")
        yield Rate(*fields)


def _flag(value):
    return "1" if value else "0"


def _plain_records(lines):
    for number, line in enumerate(lines, 1):
        line = line.rstrip()
        if line and not line.lstrip().startswith("#"):
            yield number, line, [field.strip() for field in line.split("|")]


def _parse_id(number, text):
    try:
        return int(text)
    except ValueError:
        raise FormatError(f"line {number}: {text!r} is not an account id") from None


def _parse_rules(number, text):
    rules = {}
    for rule in filter(None, (rule.strip() for rule in text.split(","))):
        name, _, value = rule.partition("=")
        if rule == "inactive":
            rules["is_active"] = False
        elif rule == "must-invoice":
            rules["allow_noninvoiceable"] = False
        elif name == "comment" and value in ("0", "1", "2"):
            rules["require_comment"] = int(value)
        elif name == "password":
            rules["password"] = value
        else:
            raise FormatError(f"line {number}: there is no rule {rule!r}")
    return rules


def _with_rules(chance, account):
    return dataclasses.replace(
        account,
        is_active=chance.random() >= 0.04,
        allow_noninvoiceable=chance.random() >= 0.25,
        require_comment=chance.choices((0, 1, 2), (70, 20, 10))[0],
        password="geheim" if chance.random() < 0.01 else "",
    )


_FAMILY_NAMES = (
    "Abernathy", "Åkesson", "Bianchi", "Brontë", "Castañeda", "Çelik", "D’Angelo", "Dvořák", "Eriksson", "Fontaine",
    "García Márquez", "Grünwald", "Hawthorne", "Håkansson", "Ishikawa", "Jørgensen", "Kowalczyk", "Łukasiewicz",
    "MacAllister", "Müller-Lüdenscheidt", "Nakamura", "Núñez", "O’Brien", "Öztürk", "Papadopoulos", "Quinn", "Romero",
    "Šimić", "Smith", "Söderberg", "Thompson", "Țepeș", "Ueda", "Vögeli", "Weißmann", "Xenakis", "Yıldız", "Zürcher",
    "Иванов", "Παπαδάκης", "山田",
)
_BUSINESSES = ("Bank", "Brewery", "Foundation", "Freight", "Holdings", "Hôtels", "Insurance", "Möbelhaus", "Pharma",
               "Shipping", "Textiles", "& Söhne")
_LEGAL_FORMS = ("AG", "GmbH", "Inc.", "Ltd", "LLP", "S.A.", "S.p.A.", "A/S", "Oy", "plc")
_MATTERS = ("Acquisition", "Appeal", "Arbitration", "Audit", "Conveyance of land", "Employment", "Estate", "Insolvency",
            "Lease", "Licence negotiations", "Merger clearance", "Patent opposition", "Tax", "Trade mark", "Will")

_PLACES = ("Aarhus", "Besançon", "Coruña", "Dún Laoghaire", "Genève", "Göteborg", "Kraków", "Køge", "Leeds", "Malmö",
           "Nîmes", "Plzeň", "São Paulo", "Tromsø", "Winterthur", "Zürich")
_WORKS = ("bridge", "bypass", "district heating", "ferry terminal", "flood barrier", "hospital wing", "metro line 3",
          "power station", "sewage works", "stadium roof", "tunnel", "wind farm")
_PHASES = ("Feasibility study", "Survey", "Concept design", "Detailed design", "Structural analysis", "Tender documents",
           "Drawings A1", "Drawings A0", "Site supervision", "As-built documents", "Claims", "Archive")

_SUBJECTS = ("Astronomy", "Biochemistry", "Classics", "Dentistry", "Économie", "Germanistik", "History of Art", "Law",
             "Linguistics", "Mathematics", "Médecine", "Philosophy", "Physics", "Theology", "Zoology")
_UNITS = ("Department of {}", "Institute of {}", "Graduate School of {}", "Library, {}", "Students’ Union, {}")
_BUDGETS = ("Course handouts", "Dean’s office", "Doctoral theses", "Examination papers", "Grant", "Open day", "Posters",
            "Reading lists", "Staff printing", "Visiting fellows")


def _law_client(chance, number):
    family = chance.choice(_FAMILY_NAMES)
    if chance.random() < 0.3:
        client = family
    else:
        client = f"{family} {chance.choice(_BUSINESSES)} {chance.choice(_LEGAL_FORMS)}"
    matters = chance.sample(_MATTERS, chance.randint(0, 9))
    return f"{client} (K{number:04})", [f"{index:02} {matter}" for index, matter in enumerate(matters, 1)]


def _engineering_project(chance, number):
    phases = chance.sample(_PHASES, chance.randint(2, 12))
    phases.sort(key=_PHASES.index)
    return f"P{number:04} {chance.choice(_PLACES)} {chance.choice(_WORKS)}", phases


def _university_unit(chance, number):
    budgets = chance.sample(_BUDGETS, chance.randint(1, 8))
    unit = chance.choice(_UNITS).format(chance.choice(_SUBJECTS))
    return f"{unit} [{number:04}]", [f"{budget} {chance.randint(2019, 2026)}" for budget in budgets]


_SECTORS = (_law_client, _engineering_project, _university_unit)
