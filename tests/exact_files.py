#!/usr/bin/env python3
"""tests/exact_files.py [--seconds N] [--table FILE] QUARVEL DATA

Converts every model under the folder DATA in both layouts, has glpsol and lp_solve solve the original
and what was written, and holds what the program promises:

  - an exact file (--layout free) converts to itself, byte for byte, and has the original's optimum;
  - where the optimum of a --layout fixed file differs, the program named a loss or `quarvel check` a problem.

A solver gets N seconds (60) for each model; what it does not solve in that time, or refuses in the
original, says nothing. --table writes the table of docs/exact-files.md into FILE, between its two marks.
Status 1 when a promise is broken; 77 where a solver is missing.
"""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

BEGIN, END = "<!-- table: tests/exact_files.py -->", "<!-- end of table -->"
NUMBER = r"([-+]?\d[\d.]*(?:[eE][-+]?\d+)?)"


def run(words, seconds):
    try:
        done = subprocess.run(words, capture_output=True, timeout=seconds, errors="replace", text=True)
        return done.returncode, done.stdout, done.stderr
    except subprocess.TimeoutExpired:
        return None, "", ""


def glpsol(path, seconds, folder):
    """The optimum, None where there is none to be had."""
    for columns in ("--mps", "--freemps"):
        answer = os.path.join(folder, "answer")
        if os.path.exists(answer):
            os.remove(answer)
        run(["glpsol", columns, path, "--tmlim", str(seconds), "-o", answer], seconds + 10)
        if not os.path.exists(answer):
            continue
        with open(answer, errors="replace") as file:
            text = file.read(4096)
        found = re.search(r"^Objective:.*? = " + NUMBER, text, re.M)
        if found and re.search(r"^Status: +(INTEGER )?OPTIMAL$", text, re.M):
            return float(found.group(1))
    return None


def lp_solve(path, seconds, folder):
    for columns in ("-mps", "-fmps"):
        status, out, _ = run(["lp_solve", columns, path, "-S1", "-S3", "-timeout", str(seconds)],
                             seconds + 10)
        found = re.search(r"^Value of objective function: " + NUMBER, out or "", re.M)
        if status == 0 and found:
            return float(found.group(1))
    return None


SOLVERS = {"glpsol": glpsol, "lp_solve": lp_solve}


def same(a, b):
    return abs(a - b) <= 1e-6 * max(1.0, abs(a), abs(b))


def read(path):
    with open(path, "rb") as file:
        return file.read()


class Model:
    def __init__(self, quarvel, path, seconds, folder):
        self.quarvel, self.path, self.seconds, self.folder = quarvel, path, seconds, folder
        self.broken = []
        self.free = os.path.join(folder, "free.mps")
        self.fixed = os.path.join(folder, "fixed.mps")
        for target in (self.free, self.fixed):
            if os.path.exists(target):
                os.remove(target)

    def convert(self, source, target, *options):
        return run([self.quarvel, "convert", source, target, *options], 600)

    def check_exact(self):
        status, out, err = self.convert(self.path, self.free, "--layout=free")
        if status != 0:
            self.broken.append("not written: " + err.strip().splitlines()[-1])
            return "no"
        again = os.path.join(self.folder, "again.mps")
        self.convert(self.free, again, "--layout=free")
        if not os.path.exists(again) or read(self.free) != read(again):
            self.broken.append("does not convert to itself")
            return "no"
        return "yes"

    def check_fixed(self):
        """The kinds of what was named."""
        status, _, err = self.convert(self.path, self.fixed, "--layout=fixed", "--allow-loss")
        _, out, _ = run([self.quarvel, "check", self.path], 600)
        return status == 0, bool(err.strip()) or not re.search(r"clean|no problems", out)

    def row(self):
        cells = [os.path.basename(self.path), self.check_exact()]
        is_written, is_named = self.check_fixed()
        differs = False
        for name, solve in SOLVERS.items():
            optimum = solve(self.path, self.seconds, self.folder)
            if optimum is None:
                cells += ["-", "-"]
                continue
            exact = solve(self.free, self.seconds, self.folder)
            if exact is None or not same(optimum, exact):
                self.broken.append(f"{name} finds {exact} for {optimum}")
            cells += [f"{optimum:.10g}", "same" if exact is not None and same(optimum, exact) else str(exact)]
            if is_written:
                fixed = solve(self.fixed, self.seconds, self.folder)
                differs = differs or fixed is None or not same(optimum, fixed)
        if differs and not is_named:
            self.broken.append("--layout fixed changes the optimum without a word")
        fixed_cell = ("refused" if not is_written else "differs" if differs else "same")
        return cells + [fixed_cell, "named" if is_named else "-"]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--table")
    parser.add_argument("--only", default="")
    parser.add_argument("quarvel")
    parser.add_argument("data")
    arguments = parser.parse_args()
    missing = [name for name in SOLVERS if shutil.which(name) is None]
    if missing:
        print("skipped: there is no " + ", no ".join(missing))
        return 77
    files = sorted(os.path.join(folder, name) for folder, _, names in os.walk(arguments.data)
                   for name in names if name.lower().endswith(".mps") and arguments.only in name)
    lines = ["| file | exact | glpsol: optimum | exact file | lp_solve: optimum | exact file | "
             "`--layout fixed`: optimum | told |", "|---|---|---|---|---|---|---|---|"]
    broken = 0
    with tempfile.TemporaryDirectory() as folder:
        for path in files:
            model = Model(arguments.quarvel, path, arguments.seconds, folder)
            lines.append("| " + " | ".join(model.row()) + " |")
            print(lines[-1], *model.broken, flush=True)
            broken += len(model.broken)
    if arguments.table:
        with open(arguments.table) as file:
            page = file.read()
        head, rest = page.split(BEGIN)
        with open(arguments.table, "w") as file:
            file.write(head + BEGIN + "\n" + "\n".join(lines) + "\n" + END + rest.split(END)[1])
    print(f"{len(files)} files, {broken} broken promises")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
