"""Every link of the documents leads somewhere, and every file that they name is there."""
import pathlib
import re
import tempfile
import unittest

REPOSITORY = pathlib.Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)\s]+)\)")
# What a page calls a file of the repository: a path below one of its folders, alone or at the start of a command.
NAMED = re.compile(r"(?<![\w/.$-])(?:\./)?((?:src|tests|tools|bench|cmake|docs|packaging|\.ci)/[\w./-]*[\w-])")


def documents(root):
    return sorted(page for page in root.rglob("*.md")
                  if page.relative_to(root).parts[0] not in ("build", "dist", ".git"))


def without_code(text):
    return re.sub(r"`[^`\n]*`", "", re.sub(r"^```.*?^```", "", text, flags=re.M | re.S))


def anchors(page):
    """The names that a web view of the page gives to its headings."""
    found = set()
    for heading in re.findall(r"^#+ +(.+?)\s*$", re.sub(r"^```.*?^```", "", page.read_text("utf-8"), flags=re.M | re.S),
                              re.M):
        plain = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
        name = plain = re.sub(r"[^\w\- ]", "", plain).replace(" ", "-")
        count = 0
        while name in found:
            count += 1
            name = f"{plain}-{count}"
        found.add(name)
    return found


def broken_links(root):
    """Links to a file that is not there, or to a heading that its page lacks."""
    broken = []
    for page in documents(root):
        # A link may break its text over two lines, but not its target.
        for target in LINK.findall(without_code(page.read_text("utf-8"))):
            if re.match(r"[a-z]+:", target):
                continue
            path, _, anchor = target.partition("#")
            aim = (page.parent / path).resolve() if path else page
            if not aim.exists() or (anchor and (aim.suffix != ".md" or anchor not in anchors(aim))):
                broken.append(f"{page.relative_to(root)}: {target}")
    return broken


def missing_files(root):
    """Files of the repository that a page names and that are not there; a folder's part before * or < must be."""
    missing = []
    for page in documents(root):
        text = LINK.sub("]", page.read_text("utf-8"))
        for found in NAMED.finditer(text):
            name, rest = found[1], text[found.end():found.end() + 1]
            path = root / name
            if rest in ("<", "*", "{") or (rest == "/" and text[found.end() + 1:found.end() + 2] in ("<", "*", "{")):
                path = path if rest == "/" else path.parent
            # Header and source go by one name together.
            if not path.exists() and not path.with_name(path.name + ".h").exists():
                missing.append(f"{page.relative_to(root)}: {name}")
    return missing


def misplaced_names(root):
    """What HACKING says to live in a room (`- **`room/`**: ...`) and no file of that room knows."""
    misplaced = []
    bullets = re.findall(r"^ *- \*\*`([\w/]+)/`\*\*: (.*?)(?=^ *- |^$)", (root / "HACKING.md").read_text("utf-8"),
                         flags=re.M | re.S)
    for room, said in bullets:
        folder = root / "src" / room
        if not folder.is_dir():
            folder = root / "src" / "platform" / "win32" / room
        files = sorted(folder.glob("[!.]*.*")) or sorted(folder.rglob("[!.]*.*"))
        held = "\n".join(f"{file.stem} {file.read_text('utf-8', errors='replace')}" for file in files)
        misplaced += [f"{room}: {name}" for name in re.findall(r"`(\w+)`", said)
                      if not re.search(rf"\b{name}\b", held)]
    return misplaced


def missing_pages(root):
    """Pages that a comment in the code sends its reader to, and that are not there."""
    return [f"{source.relative_to(root)}: {name}"
            for folder in ("src", "tests", "bench") for source in sorted((root / folder).rglob("*.[hc]*"))
            for name in re.findall(r"\bdocs/[\w/.-]+\.md\b", source.read_text("utf-8", errors="replace"))
            if not (root / name).exists()]


class Documents(unittest.TestCase):
    def test_every_link_leads_to_a_file_and_its_heading(self):
        self.assertEqual(broken_links(REPOSITORY), [])

    def test_every_file_of_the_repository_that_a_page_names_is_there(self):
        self.assertEqual(missing_files(REPOSITORY), [])

    def test_every_page_that_the_code_names_is_there(self):
        self.assertEqual(missing_pages(REPOSITORY), [])

    def test_what_the_page_for_newcomers_says_of_a_room_lives_there(self):
        self.assertEqual(misplaced_names(REPOSITORY), [])

    def test_the_page_for_newcomers_fits_on_three_screens(self):
        lines = (REPOSITORY / "HACKING.md").read_text("utf-8").splitlines()
        self.assertLessEqual(len(lines), 150)
        self.assertLessEqual(max(len(line) for line in lines if not line.startswith("|")), 120)


class TheCheckItself(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "docs").mkdir()
        (self.root / "tools").mkdir()
        (self.root / "tools" / "hammer").touch()
        (self.root / "docs" / "other.md").write_text("# Any title\n\n## It's `So.txt`\n\n## Twice\n\n## Twice\n",
                                                     "utf-8")

    def page(self, text):
        (self.root / "page.md").write_text(text, "utf-8")

    def test_a_link_that_holds_is_none_of_its_finds(self):
        self.page("# Here\n[a](docs/other.md) [b](docs/other.md#its-sotxt) [c](#here) [d](https://example.com/x)\n"
                  "[e](docs/other.md#twice-1) `[f](no.md)`\n```\n# no heading\n[g](no.md)\n```\n")
        self.assertEqual(broken_links(self.root), [])

    def test_a_link_to_no_file_is_found(self):
        self.page("[a\nb](docs/none.md)")
        self.assertEqual(broken_links(self.root), ["page.md: docs/none.md"])

    def test_a_link_to_no_heading_is_found(self):
        self.page("```\n# not here\n```\n[a](docs/other.md#twice-2) [b](#not-here)")
        self.assertEqual(broken_links(self.root), ["page.md: docs/other.md#twice-2", "page.md: #not-here"])

    def test_a_file_that_is_not_there_is_found(self):
        self.page("`tools/hammer --hard`, tools/*, `tools/h*`, `build/tools/saw`, `./tools/saw`, docs/none.md.")
        self.assertEqual(missing_files(self.root), ["page.md: tools/saw", "page.md: docs/none.md"])

    def test_a_name_in_the_wrong_room_is_found(self):
        for room in ("ui", "platform/win32/peers"):
            (self.root / "src" / room).mkdir(parents=True)
        (self.root / "src" / "ui" / "Queue.h").write_text("class Queue {};\n", "utf-8")
        (self.root / "HACKING.md").write_text("- **`ui/`**: the `Queue`\n  and `Spooler`.\n"
                                              "  - **`peers/`**: `Queue`.\n\n`Elsewhere`\n", "utf-8")
        self.assertEqual(misplaced_names(self.root), ["ui: Spooler", "peers: Queue"])

    def test_a_page_that_is_not_there_is_found(self):
        (self.root / "src").mkdir()
        (self.root / "src" / "A.h").write_text("// See docs/other.md and docs/older.md.\n", "utf-8")
        self.assertEqual(missing_pages(self.root), ["src/A.h: docs/older.md"])


if __name__ == "__main__":
    unittest.main()
