#!/usr/bin/env python3
"""tests/exact_files.py [--seconds N] [--only TEXT ...] [--table FILE] QUARVEL [DATA]

Converts every model under the folder DATA (shared/data beside the project, or QUARVEL_DATA), or those whose
name holds a TEXT, in both layouts, has glpsol and lp_solve solve the original and what was written, and holds what the program promises:

  - an exact file (--layout free) converts to itself, byte for byte, and has the original's optimum;
  - where a --layout fixed file has another optimum, or none, the program told of a loss that may be why.

A solver gets N seconds (60) for each file; what it does not solve in that time, or refuses in the
original, says nothing. --table writes the table of docs/exact-files.md into FILE, between its two marks.
Status 1 when a promise is broken; 77, and nothing is tried, where a solver or the folder is missing.
"""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

BEGIN, END = "<!-- table: tests/exact_files.py -->", "<!-- end of table -->"
SKIPPED = 77
BESIDE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "shared", "data")
NUMBER = r"([-+]?\d[\d.]*(?:[eE][-+]?\d+)?)"


# A loss that no optimum depends on.
HARMLESS = re.compile(r"is called|in another order|stands before|description")


def run(words, seconds):
    """Exit status (None when the time was over), standard output, standard error."""
    try:
        done = subprocess.run(words, capture_output=True, timeout=seconds, errors="replace", text=True)
        return done.returncode, done.stdout, done.stderr
    except subprocess.TimeoutExpired:
        return None, "", ""


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Glpsol:
    columns = ("--mps", "--freemps")

    def __init__(self, seconds, folder):
        self.seconds, self.answer = seconds, os.path.join(folder, "answer")

    def solve(self, columns, path):
        """The optimum, and whether the time was too short for one."""
        if os.path.exists(self.answer):
            os.remove(self.answer)
        _, out, _ = run(["glpsol", columns, path, "--tmlim", str(self.seconds), "-o", self.answer],
                        self.seconds + 30)
        if not os.path.exists(self.answer):
            return None, "TIME LIMIT" in out
        with open(self.answer, errors="replace") as file:
            text = file.read(4096)
        found = re.search(r"^Objective:.*? = " + NUMBER, text, re.M)
        if found and re.search(r"^Status: +(INTEGER )?OPTIMAL$", text, re.M):
            return float(found.group(1)), False
        return None, "TIME LIMIT" in out


class LpSolve:
    columns = ("-mps", "-fmps")

    def __init__(self, seconds, _):
        self.seconds = seconds

    def solve(self, columns, path):
        words = ["lp_solve", columns, path, "-S3", "-timeout", str(self.seconds)]
        status, out, _ = run(words, self.seconds + 30)
        found = re.search(r"^Value of objective function: " + NUMBER, out, re.M)
        is_late = status is None or status == 1 or "is sub-optimal" in out
        return (float(found.group(1)) if status == 0 and found else None), is_late


SOLVERS = {"glpsol": Glpsol, "lp_solve": LpSolve}


def optimum_of(solver, path):
    """By fixed columns, or else by free ones."""
    for columns in solver.columns:
        optimum, is_late = solver.solve(columns, path)
        if optimum is not None or is_late:
            return optimum
    return None


def same(a, b):
    return b is not None and abs(a - b) <= 1e-6 * max(1.0, abs(a), abs(b))


class Model:
    """One file, and what became of it."""

    def __init__(self, quarvel, path, folder):
        self.quarvel, self.path, self.folder = quarvel, path, folder
        self.broken = []
        self.free = os.path.join(folder, "free.mps")
        self.fixed = os.path.join(folder, "fixed.mps")

    def convert(self, source, target, *options):
        if os.path.exists(target):
            os.remove(target)
        return run([self.quarvel, "convert", source, target, *options], 600)

    def comes_back(self):
        status, _, err = self.convert(self.path, self.free, "--layout=free")
        if status != 0:
            self.broken.append("not written: " + err.strip().splitlines()[-1])
            return False
        again = os.path.join(self.folder, "again.mps")
        self.convert(self.free, again, "--layout=free")
        if not os.path.exists(again) or read(self.free) != read(again):
            self.broken.append("does not convert to itself")
            return False
        return True

    def write_fixed(self):
        """Whether it was written, and the first loss that an optimum may depend on."""
        status, _, err = self.convert(self.path, self.fixed, "--layout=fixed", "--allow-loss")
        prefix = f"quarvel: {self.fixed}: "
        losses = [line[len(prefix):] for line in err.splitlines() if line.startswith(prefix)]
        return status == 0, next((loss for loss in losses if not HARMLESS.search(loss)), "")

    def solve(self, name, solver):
        """The cells of one solver, and whether the fixed file has another optimum (None: not compared)."""
        optimum = optimum_of(solver, self.path)
        if optimum is None:
            return ["-", "-"], None
        exact = optimum_of(solver, self.free)
        if not same(optimum, exact):
            self.broken.append(f"{name} finds {exact} in the exact file, {optimum} in the original")
        cells = [f"{optimum:.10g}", "same" if same(optimum, exact) else str(exact)]
        if not os.path.exists(self.fixed):
            return cells, None
        return cells, not same(optimum, optimum_of(solver, self.fixed))

    def row(self, solvers):
        cells = [os.path.basename(self.path), "yes" if self.comes_back() else "no"]
        is_written, loss = self.write_fixed()
        compared = []
        for name, solver in solvers.items():
            more, is_other = self.solve(name, solver)
            cells += more
            compared += [is_other] if is_other is not None else []
        differs = any(compared)
        if (differs or not is_written) and not loss:
            self.broken.append("--layout fixed does not keep the optimum, and no loss was told")
        same_or_none = "same" if compared else "-"
        cells.append("refused" if not is_written else "differs" if differs else same_or_none)
        return cells + [loss if differs or not is_written else "-"]


def all_models(folder, parts):
    return sorted(os.path.join(where, name) for where, _, names in os.walk(folder) for name in names
                  if name.endswith(".mps") and (not parts or any(part in name for part in parts)))


def write_table(path, lines):
    with open(path, encoding="utf-8") as file:
        head, rest = file.read().split(BEGIN)
    with open(path, "w", encoding="utf-8") as file:
        file.write(head + BEGIN + "\n" + "\n".join(lines) + "\n" + END + rest.split(END)[1])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--table")
    parser.add_argument("--only", nargs="*", default=[])
    parser.add_argument("quarvel")
    parser.add_argument("data", nargs="?", default=os.environ.get("QUARVEL_DATA", BESIDE))
    arguments = parser.parse_args()
    missing = [name for name in SOLVERS if shutil.which(name) is None]
    missing += [] if os.path.isdir(arguments.data) else ["folder of real models"]
    if missing:
        print("skipped: there is no " + ", no ".join(missing))
        return SKIPPED
    lines = ["| file | comes back | glpsol: optimum | exact file | lp_solve: optimum | exact file | "
             "fixed: optimum | what is told of it |", "|---|---|---|---|---|---|---|---|"]
    broken = []
    files = all_models(arguments.data, arguments.only)
    with tempfile.TemporaryDirectory() as folder:
        solvers = {name: make(arguments.seconds, folder) for name, make in SOLVERS.items()}
        for path in files:
            model = Model(arguments.quarvel, path, folder)
            lines.append("| " + " | ".join(model.row(solvers)) + " |")
            print(lines[-1], flush=True)
            broken += [f"{path}: {promise}" for promise in model.broken]
    if arguments.table:
        write_table(arguments.table, lines)
    print(*broken, f"{len(files)} files, {len(broken)} broken promises", sep="\n")
    return 1 if broken or not files else 0


if __name__ == "__main__":
    sys.exit(main())
