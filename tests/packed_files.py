#!/usr/bin/env python3
"""tests/packed_files.py QUARVEL [DATA]

Packs every model under the folder DATA (shared/data beside the project, or QUARVEL_DATA) by each of gzip, bzip2,
xz and zstd, each under a name with the packer's suffix and one without, and has a single `quarvel info` read them
all. It must print the sizes and the warnings of the plain files, count the files, and end with their status.

Status 1 when it does not. 77 where the folder or one of the packers is missing; the others are tried all the same.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
BESIDE = pathlib.Path(__file__).resolve().parent.parent.parent / "shared" / "data"
# What packs a file to standard output, fast.
PACKERS = {".gz": ["gzip", "-1c"], ".bz2": ["bzip2", "-1c"], ".xz": ["xz", "-0c"], ".zst": ["zstd", "-1qc"]}


def info(program, files):
    """One call: its exit status, the sizes in each line of its table, its last line, its warnings."""
    run = subprocess.run([program, "info", *files], stdin=subprocess.DEVNULL, capture_output=True, check=False,
                         timeout=300)
    lines = run.stdout.decode().splitlines()
    sizes = [line.split()[:4] for line in lines[1:-1]]
    return run.returncode, sizes, lines[-1:], run.stderr.decode().splitlines()


def pack(models, packers, folder):
    """The packed files, each with its model."""
    made = []
    for suffix, packer in packers.items():
        for number, model in enumerate(models):
            named = os.path.join(folder, f"{number}.mps{suffix}")
            with open(named, "wb") as file:
                subprocess.run([*packer, model], stdout=file, check=True, timeout=300)
            nameless = os.path.join(folder, f"{number}{suffix[1:]}.mps")
            os.link(named, nameless)
            made += [(named, model), (nameless, model)]
    return made


def differences(program, models, made):
    """What one call about all packed files prints otherwise than one about the plain ones."""
    status, sizes, total, warnings = info(program, models)
    if status != 0 or len(sizes) != len(models) or total != [f"{len(models)} files"]:
        return [f"the plain files: status {status}, {len(sizes)} lines, {total}, {warnings}"]
    size_of = dict(zip(models, sizes))
    expected_warnings = []
    for file, model in made:
        about = f"quarvel: {model}: "
        expected_warnings += [f"quarvel: {file}: {line[len(about):]}" for line in warnings
                              if line.startswith(about)]
    found = info(program, [file for file, _ in made])
    expected = (0, [size_of[model] for _, model in made], [f"{len(made)} files"], expected_warnings)
    return [f"{what}: {one}\n  instead of {other}" for what, one, other
            in zip(("status", "sizes", "summary", "warnings"), found, expected) if one != other]


def main():
    program = sys.argv[1]
    data = sys.argv[2] if len(sys.argv) > 2 else os.environ.get("QUARVEL_DATA") or BESIDE
    models = sorted(str(path) for path in pathlib.Path(data).rglob("*.mps"))
    packers = {suffix: packer for suffix, packer in PACKERS.items() if shutil.which(packer[0])}
    missing = [packer[0] for packer in PACKERS.values() if packer not in packers.values()]
    missing += [] if models else [f"model in {data}"]
    for thing in missing:
        print(f"skipped: there is no {thing}")
    if not models or not packers:
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        made = pack(models, packers, folder)
        found = differences(program, models, made)
    print(*found, f"{len(made)} packed files of {len(models)} models in one call, {len(found)} differences",
          sep="\n")
    if found:
        return 1
    return SKIPPED if missing else 0


if __name__ == "__main__":
    sys.exit(main())
