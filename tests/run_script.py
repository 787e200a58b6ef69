#!/usr/bin/env python3
"""tests/run_script.py: what ./run says and where it builds, with a set-up and a build system that only take notes.

It is called by its path, by a link, from another folder, by somebody who cannot write in the checkout, and with
builds that fail.
"""

import os
import pathlib
import shutil
import stat
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent

CMAKE = """#!/bin/sh
echo "cmake $*" >>"$CALLS"
case "$1" in
  --preset) mkdir -p "$4" && : >"$4/build.ninja" ;;
  --build)
    for step in 1 2 3 4; do echo "[$step/4] Building something"; done
    if [ -n "${BROKEN:-}" ]; then echo "error: no such thing" >&2; exit 1; fi
    printf '#!/bin/sh\\necho "quarvel $*"\\n' >"$2/quarvel" && chmod +x "$2/quarvel" ;;
esac
"""


def script(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)
    path.chmod(0o755)


class Run(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quarvel run "))
        self.folder.chmod(0o777)
        self.addCleanup(shutil.rmtree, self.folder)
        self.checkout = self.folder / "check out"
        (self.checkout / "examples").mkdir(parents=True)
        shutil.copy(PROJECT / "run", self.checkout / "run")
        shutil.copy(PROJECT / "examples/diet.mps", self.checkout / "examples")
        script(self.checkout / "cmake/setup.sh", "#!/bin/sh\necho \"setup $*\" >>\"$CALLS\"\n")
        script(self.folder / "bin/cmake", CMAKE)
        self.calls = self.folder / "calls"
        self.calls.touch()
        self.calls.chmod(0o666)
        self.home = self.folder / "home"
        self.home.mkdir()
        self.home.chmod(0o777)

    def run_it(self, *words, command=None, stranger=False, cwd=None, **more):
        environment = {**os.environ, "PATH": f"{self.folder}/bin:{os.environ['PATH']}", "CALLS": str(self.calls),
                       "HOME": str(self.home), **more}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_CACHE_HOME"):
            if name not in more:
                environment.pop(name, None)
        who = {"user": 65534, "group": 65534, "extra_groups": []} if stranger and os.geteuid() == 0 else {}
        return subprocess.run([command or self.checkout / "run", *words], env=environment, cwd=cwd or self.folder,
                              capture_output=True, text=True, check=False, timeout=60, stdin=subprocess.DEVNULL, **who)

    def close_checkout(self):
        """Nobody but root writes in it any more."""
        for path in [self.checkout, *self.checkout.rglob("*")]:
            if path.is_dir():
                path.chmod(0o555)
        self.addCleanup(lambda: self.checkout.chmod(0o755))

    def test_tells_each_step_and_shows_rows_and_summary(self):
        run = self.run_it()
        build = self.checkout / "build/linux"
        model = self.checkout / "examples/diet.mps"
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(run.stdout, f"quarvel rows {model} --limit 5 --equations\n\nquarvel info {model}\n")
        self.assertEqual(run.stderr.splitlines(), [
            "run: set-up: looking for what the build needs",
            f"run: building in {build} (minutes the first time)",
            "run: building, step 1 of 4", "run: building, step 2 of 4", "run: building, step 3 of 4",
            "run: building, step 4 of 4",
            f"run: the program is {build}/quarvel; it reads {model}"])
        self.assertEqual(self.calls.read_text().splitlines(), [
            "setup native", f"cmake --preset linux -B {build}", f"cmake --build {build} --target quarvel quarvel-view"])

    def test_help_speaks_of_itself_and_does_nothing(self):
        for words in (["--help"], ["-h"], ["plan.mps", "--help"]):
            run = self.run_it(*words)
            self.assertEqual((run.returncode, run.stderr), (0, ""))
            self.assertTrue(run.stdout.startswith("usage: ./run [FILE.mps] [OPTION...]\n"), run.stdout)
            self.assertEqual(self.calls.read_text(), "")

    def test_gives_the_summary_no_options_about_the_list(self):
        run = self.run_it(self.checkout / "examples/diet.mps", "--limit", "3", "--on-error", "stop", "--limit=4")
        self.assertIn("--limit 5 --equations --limit 3 --on-error stop --limit=4\n", run.stdout)
        self.assertTrue(run.stdout.endswith("diet.mps --on-error stop\n"), run.stdout)

    def test_works_through_links_from_another_folder(self):
        link = self.folder / "a link"
        link.symlink_to(self.checkout / "run")
        second = self.home / "second"
        second.symlink_to("../a link")
        (self.home / "plan.mps").write_text("ROWS\n")
        run = self.run_it("plan.mps", command=second, cwd=self.home)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("quarvel info plan.mps\n", run.stdout)
        self.assertTrue((self.checkout / "build/linux/quarvel").exists())

    def test_names_a_file_that_cannot_be_read_before_anything_is_built(self):
        for name in ("gone.mps", str(self.folder)):
            run = self.run_it(name)
            self.assertEqual((run.returncode, run.stderr), (1, f"run: cannot read the file {name}\n"))
            self.assertEqual(self.calls.read_text(), "")

    def test_shows_the_log_of_a_build_that_fails(self):
        run = self.run_it(BROKEN="1")
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertIn("error: no such thing\n", run.stderr)
        self.assertTrue(run.stderr.endswith(f"stand in {self.checkout}/build/run.log\n"), run.stderr)

    def test_builds_in_a_folder_of_ones_own_where_the_checkout_cannot_be_written(self):
        self.close_checkout()
        run = self.run_it(stranger=True)
        self.assertEqual(run.returncode, 0, run.stderr)
        first = run.stderr.splitlines()[0]
        self.assertRegex(first, r"^run: you \(.+\) cannot write in .*/check out/build, whose checkout belongs to .+$")
        self.assertIn(f"run: building in {self.home}/.cache/quarvel/", run.stderr)
        self.assertFalse((self.checkout / "build").exists())
        self.assertIn("quarvel info", run.stdout)

    def test_says_what_is_wrong_where_nothing_can_be_written(self):
        self.close_checkout()
        self.home.chmod(0o555)
        run = self.run_it(stranger=True)
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertRegex(run.stderr, r"(?s)^run: you \(.+\) cannot write in .+\nrun: nor in .+: copy the checkout .+")
        self.assertEqual(self.calls.read_text(), "")


if __name__ == "__main__":
    assert stat.S_IXUSR & (PROJECT / "run").stat().st_mode
    sys.argv = sys.argv[:1]
    unittest.main()
