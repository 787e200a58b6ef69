#!/usr/bin/env python3
"""tests/python/run.py FOLDER [ARGUMENT OF PYTEST...]: the tests of the package that stands in the folder.

Exit status 77 where pytest or numpy is missing (cmake/setup.sh python)."""

import importlib.util
import os
import pathlib
import subprocess
import sys

missing = [name for name in ("pytest", "numpy") if importlib.util.find_spec(name) is None]
if missing:
    print("skipped: without " + " and ".join(missing))
    sys.exit(77)
environment = {**os.environ, "PYTHONPATH": str(pathlib.Path(sys.argv[1]).resolve()), "PYTHONDONTWRITEBYTECODE": "1"}
tests = pathlib.Path(__file__).resolve().parent
sys.exit(subprocess.run([sys.executable, "-m", "pytest", "-q", "-rs", "-p", "no:cacheprovider", *sys.argv[2:], tests],
                        env=environment, cwd=tests.parent.parent, check=False).returncode)
