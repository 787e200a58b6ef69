#!/usr/bin/env python3
"""Has the tools of a desktop read what an installation of the viewer gives them.

    tests/desktop_files.py BUILD    installs the component `viewer` of BUILD into a folder of its own

Status 77: these tools are not here.
"""

import configparser
import pathlib
import shutil
import subprocess
import sys
import tempfile
import xml.dom.minidom

TOOLS = ("desktop-file-validate", "update-desktop-database", "update-mime-database")
NAMES = {"diet.mps": "application/x-mps"}
NAMES.update({f"diet.mps.{end}": "application/x-mps-compressed" for end in ("gz", "bz2", "xz", "zst")})


def run(*words):
    result = subprocess.run([str(word) for word in words], capture_output=True, text=True, timeout=60)
    told = result.stdout + result.stderr
    if result.returncode != 0:
        sys.exit(f"{words[0]}: status {result.returncode}\n{told}")
    return told


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: expected {wanted}, found {found}")


def type_of(globs, name):
    """By the longest pattern that fits, as desktops do."""
    fitting = [(len(pattern), kind) for kind, pattern in globs if pathlib.PurePath(name).match(pattern)]
    return max(fitting)[1] if fitting else ""


def check_entry(share, prefix):
    path = share / "applications/quarvel-view.desktop"
    expect("what the validator says", run("desktop-file-validate", path), "")
    entry = configparser.ConfigParser(interpolation=None)
    entry.optionxform = str
    entry.read(path)
    entry = entry["Desktop Entry"]
    program, argument = entry["Exec"].split()
    if not (prefix / "bin" / program).exists():
        sys.exit(f"{program} is not installed")
    expect("argument of the viewer", argument, "%f")
    icon = share / f"icons/hicolor/scalable/apps/{entry['Icon']}.svg"
    expect("the icon", xml.dom.minidom.parse(str(icon)).documentElement.tagName, "svg")


def check_types(share):
    run("update-mime-database", share / "mime")
    lines = (share / "mime/globs2").read_text().splitlines()
    globs = [line.split(":")[1:3] for line in lines if not line.startswith("#")]
    run("update-desktop-database", share / "applications")
    cache = (share / "applications/mimeinfo.cache").read_text().splitlines()
    for name, kind in NAMES.items():
        expect(f"type of {name}", type_of(globs, name), kind)
        if f"{kind}=quarvel-view.desktop;" not in cache:
            sys.exit(f"nothing opens {kind}")


def main(build):
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print(f"{', '.join(missing)} not installed (cmake/setup.sh desktop): not tested")
        sys.exit(77)
    with tempfile.TemporaryDirectory(dir=build) as made:
        prefix = pathlib.Path(made)
        run("cmake", "--install", build, "--prefix", prefix, "--component", "viewer")
        check_entry(prefix / "share", prefix)
        check_types(prefix / "share")
    print(f"{len(NAMES)} names of files are opened by the viewer")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve())
