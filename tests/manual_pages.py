#!/usr/bin/env python3
"""tests/manual_pages.py QUARVEL [BUILD]: the manual and the project's other pages are true.

- each page of docs/ stands once in the order of mkdocs.yml;
- each link and picture leads to a file that is there, and to a heading of it;
- each ```console block prints what stands there, in a folder with examples/; "(exit status 1)" is its own line.
  With QUARVEL_WRITE_PAGES=1 in the environment what is printed goes into the pages instead;
- each ```sh block names presets, scripts, parts of the set-up and tests that there are;
- each block of another language stands, as it is, in the file that the last link before it names;
- tables that repeat a table of the sources have all of it; README's figures are those of docs/performance.md;
- where mkdocs is there, the manual is made, whole, and asks nothing of a network.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import textwrap
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent
DOCS = sorted((PROJECT / "docs").glob("*.md"))
PAGES = DOCS + [PROJECT / name for name in (
    "README.md", "HACKING.md", "CONTRIBUTING.md", "CHANGELOG.md", "SECURITY.md", "bench/README.md",
    "examples/README.md", "examples/automation/README.md")]
# problems.md and README.md have tests of their own, which run them within the tests' program.
RUN_ELSEWHERE = ("problems.md", "README.md")
BLOCK = re.compile(r"^```(\S+)\n(.*?)^```$", re.S | re.M)
CODE = re.compile(r"^```.*?^```$|`[^`\n]+`", re.S | re.M)
LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
PROGRAM = ""
BUILD = None


def blocks(page, *kinds):
    return [match for match in BLOCK.finditer(page.read_text()) if match[1] in kinds]


def anchors(page):
    """The headings of a page as links name them."""
    text = re.sub(r"^```.*?^```$", "", page.read_text(), flags=re.S | re.M)
    return {re.sub(r"[^\w\- ]", "", title.lower()).strip().replace(" ", "-")
            for title in re.findall(r"^#+ (.+)$", text, re.M)}


class Links(unittest.TestCase):
    def test_every_page_stands_once_in_the_order(self):
        listed = re.findall(r"(\S+\.md)$", (PROJECT / "mkdocs.yml").read_text(), re.M)
        self.assertEqual(sorted(listed), [page.name for page in DOCS])

    def test_every_link_and_picture_leads_somewhere(self):
        looked = 0
        for page in PAGES:
            for target in LINK.findall(CODE.sub("", page.read_text())):
                if re.match(r"https?:", target):
                    continue
                name, _, anchor = target.partition("#")
                file = (page.parent / name).resolve() if name else page
                self.assertTrue(file.exists(), f"{page.name} links to {target}")
                if anchor:
                    self.assertIn(anchor, anchors(file), f"{page.name} links to {target}")
                looked += 1
        self.assertGreater(looked, 60)


class Commands(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quarvel_pages_"))
        self.addCleanup(shutil.rmtree, self.folder)
        (self.folder / "bin").mkdir()
        (self.folder / "bin/quarvel").symlink_to(PROGRAM)

    def output(self, line, folder):
        environment = {"PATH": f"{self.folder}/bin:/usr/bin:/bin", "HOME": str(folder), "LC_ALL": "C.UTF-8"}
        run = subprocess.run(["sh", "-c", line], cwd=folder, env=environment, stdin=subprocess.DEVNULL, timeout=60,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        text = run.stdout.decode().replace("\r", "")
        if text and not text.endswith("\n"):
            text += "\n"
        return text + (f"(exit status {run.returncode})\n" if run.returncode else "")

    def run_page(self, page):
        """The page with what its command lines print, and how many there are."""
        folder = self.folder / page.stem
        folder.mkdir()
        shutil.copytree(PROJECT / "examples", folder / "examples")
        count = 0

        def anew(block):
            nonlocal count
            text = block[2]
            if block[1] == "mps" and (name := re.findall(r"`([\w-]+\.mps)`:\n*$", block.string[:block.start()])):
                (folder / name[0]).write_text(text)
            if block[1] != "console":
                return block[0]
            lines = [line[2:] for line in text.splitlines() if line.startswith("$ ")]
            count += len(lines)
            return "```console\n" + "".join(f"$ {line}\n{self.output(line, folder)}" for line in lines) + "```"

        return BLOCK.sub(anew, page.read_text()), count

    def test_console_blocks_print_what_stands_there(self):
        count = 0
        for page in DOCS:
            if page.name in RUN_ELSEWHERE:
                continue
            made, lines = self.run_page(page)
            count += lines
            if "QUARVEL_WRITE_PAGES" in os.environ:
                page.write_text(made)
            else:
                self.maxDiff = None
                self.assertEqual(page.read_text(), made, page.name)
        self.assertGreater(count, 25)

    def test_shell_blocks_name_what_there_is(self):
        presets = {preset["name"] for preset in
                   json.loads((PROJECT / "CMakePresets.json").read_text())["configurePresets"]}
        parts = set(re.findall(r"^ +(\w+)\) wanted", (PROJECT / "cmake/setup.sh").read_text(), re.M))
        looked = 0
        for page in PAGES:
            for block in blocks(page, "sh"):
                text = block[2]
                for preset in re.findall(r"--preset (\S+)", text) + re.findall(r"build/([\w-]+)/", text):
                    self.assertIn(preset, presets, page.name)
                for file in re.findall(r"(?:^|\s)((?:cmake|tools|packaging|bench)/\w+(?:\.sh)?)", text):
                    self.assertTrue((PROJECT / file).exists(), f"{page.name}: {file}")
                for given in re.findall(r"cmake/setup\.sh ([\w ]+)", text):
                    self.assertLessEqual(set(given.split()), parts, page.name)
                looked += 1
        self.assertGreater(looked, 6)

    def test_named_tests_exist(self):
        looked = 0
        for page in PAGES:
            for program, chosen in re.findall(r"build/linux(?:-\w+)?/(\w+_tests) --gtest_filter='([^']+)'",
                                              page.read_text()):
                file = BUILD / program if BUILD else None
                if not file or not file.exists():
                    continue
                listed = subprocess.run([file, "--gtest_list_tests", f"--gtest_filter={chosen}"], check=True,
                                        capture_output=True, text=True,
                                        env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout
                self.assertRegex(listed, r"(?m)^  \w", f"{page.name}: no test fits {chosen}")
                looked += 1
        if not looked:
            self.skipTest("no test program is built")

    def test_code_stands_in_the_file_that_is_named(self):
        looked = 0
        for page in DOCS:
            if page.name in ("members.md", "python.md"):
                continue  # tests of the component and of the Python package run their examples
            for block in blocks(page, "vb", "js", "python", "cpp"):
                named = re.findall(r"\]\(\.\./([\w./]+)\)", block.string[:block.start()])
                self.assertTrue(named, f"{page.name}: no file is named before {block[2]}")
                source = textwrap.dedent((PROJECT / named[-1]).read_text())
                plain = "\n".join(line.strip() for line in source.splitlines())
                code = "\n".join(line.strip() for line in block[2].splitlines())
                self.assertIn(code, plain, f"{page.name}: not in {named[-1]}")
                looked += 1
        self.assertGreater(looked, 4)


class Tables(unittest.TestCase):
    def test_viewer_has_every_command_with_its_key(self):
        source = (PROJECT / "viewer/viewer_menu.cpp").read_text()
        page = (PROJECT / "docs/viewer.md").read_text()
        entries = re.findall(r'\{"mnu\w*", "mnu\w+", "([^"]+)", \'\w\', (\w+(?:\(\'\w\'\))?)', source)
        self.assertGreater(len(entries), 20)
        for caption, key in entries:
            key = re.sub(r"(Ctrl)(Shift)?\('(\w)'\)", lambda m: "+".join(filter(None, m.groups())), key)
            key = {"kNoKey": "-", "kDelete": "Delete", "kF1": "F1", "kF2": "F2"}.get(key, key)
            if caption in ("Row", "Column"):
                continue
            self.assertTrue(f"| {caption} | {key} |" in page, f"{caption}, {key}")

    def test_dialect_has_each_refusal_of_the_component_with_its_text(self):
        source = (PROJECT / "mps/read_problem.cpp").read_text()
        page = (PROJECT / "docs/dialect.md").read_text()
        texts = re.findall(r'\{k\w+, "([\w-]+)",\s+"([^"]+)",', source)
        self.assertEqual(len(texts), 20)
        for name, text in texts:
            self.assertTrue(f"| `{name}` | {text.strip()}" in page, text)

    def test_questions_has_every_option_with_its_answers(self):
        source = (PROJECT / "hosts/questions.cpp").read_text()
        page = (PROJECT / "docs/questions.md").read_text()
        options = re.findall(r'\.name = "(--[\w-]+)",\s+\.values = "([^"]*)"', source)
        self.assertGreater(len(options), 2)
        for name, values in options:
            self.assertTrue(f"`{name}`" in page, name)
            for value in filter(None, values.split("|")):
                self.assertTrue(f"`{value}`" in page, f"{name} {value}")

    def test_readme_has_the_figures_of_the_table(self):
        claims = (PROJECT / "README.md").read_text().split("- **Fast.**")[1].split("\n## ")[0]
        table = (PROJECT / "docs/performance.md").read_text()
        figures = re.findall(r"\d+\.\d+|\d{3}", re.sub(r"\([^)]*\)", "", claims))
        self.assertGreaterEqual(len(figures), 6)
        for figure in figures:
            self.assertTrue(figure in table, figure)
        for job, word in (("read", "read in"), ("write", "written")):
            seconds, times = re.search(word + r"\s+(?:in )?([\d.]+) s, ([\d.]+) times", claims).groups()
            self.assertRegex(table, rf"\| {job} \| {re.escape(seconds)} \| CoinUtils [^|]* \| {re.escape(times)} \|")


@unittest.skipUnless(shutil.which("mkdocs"), "there is no mkdocs: cmake/setup.sh manual installs it")
class Html(unittest.TestCase):
    def test_manual_is_whole_and_needs_no_network(self):
        site = pathlib.Path(tempfile.mkdtemp(prefix="quarvel_manual_"))
        self.addCleanup(shutil.rmtree, site)
        run = subprocess.run(["mkdocs", "build", "--quiet", "--strict", "--site-dir", str(site)], cwd=PROJECT,
                             capture_output=True, text=True, check=False, timeout=120)
        self.assertEqual((run.returncode, run.stdout + run.stderr), (0, ""))
        for page in DOCS:
            made = (site / page.with_suffix(".html").name).read_text()
            self.assertIn("<nav", made)
            for target in re.findall(r'(?:src|href)="([^"]*)"', made):
                if target.startswith("http"):
                    self.assertIn(f'<a href="{target}"', made, "only links for readers lead out")
                    continue
                name = target.partition("#")[0]
                self.assertTrue(not name or (site / name).exists(), f"{page.name}: {target}")
            self.assertNotIn("<script", made)
        self.assertNotRegex((site / "style.css").read_text(), r"url\(|@import")
        self.check_paper((site / "print.html").read_text(), (PROJECT / "mkdocs.yml").read_text())

    def check_paper(self, page, configuration):
        """All pages stand in one, in the order of the contents, and its links lead to places within it."""
        order = re.findall(r"- ([\w-]+)\.md$", configuration, re.M)
        self.assertGreater(len(order), 20)
        self.assertEqual(re.findall(r'<section id="([^"]*)">', page), order)
        self.assertEqual(re.findall(r'<li><a href="#([^"]*)">', page)[:len(order)], order)
        places = re.findall(r'\bid="([^"]*)"', page)
        self.assertEqual(len(places), len(set(places)))
        for target in re.findall(r'href="#([^"]*)"', page):
            self.assertIn(target, places)


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
    BUILD = pathlib.Path(sys.argv[1]).resolve().parent
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
