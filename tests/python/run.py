#!/usr/bin/env python3
"""tests/python/run.py FOLDER [ARGUMENT OF PYTEST...]: the tests of the package that stands in the folder.

QUARVEL_SANITIZER in the environment is the library of the address sanitizer that the modules were built for.
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
sanitizer = os.environ.get("QUARVEL_SANITIZER")
if sanitizer:
    # Python's own blocks are looked after too where each is one of the system's. Of where a block was allocated the
    # innermost function is kept, so that only what the interpreter itself allocates is its own.
    leaks = pathlib.Path(__file__).resolve().parent.parent.parent / "cmake/interpreter_leaks.txt"
    environment |= {"LD_PRELOAD": sanitizer, "PYTHONMALLOC": "malloc",
                    "ASAN_OPTIONS": "strict_string_checks=1:detect_stack_use_after_return=1:malloc_context_size=2",
                    "LSAN_OPTIONS": f"suppressions={leaks}:print_suppressions=0",
                    "UBSAN_OPTIONS": "print_stacktrace=1"}
tests = pathlib.Path(__file__).resolve().parent
sys.exit(subprocess.run([sys.executable, "-m", "pytest", "-q", "-rs", "-p", "no:cacheprovider", *sys.argv[2:], tests],
                        env=environment, cwd=tests.parent.parent, check=False).returncode)
