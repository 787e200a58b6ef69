#!/usr/bin/env python3
"""Builds the programs of examples/native from outside, and compares what they print.

    tests/consumers.py installed BUILD      with what BUILD installs, moved to another folder: by
                                            find_package and by pkg-config; BUILD may be for Windows, 64 bits
    tests/consumers.py part BUILD           with the checkout as a part of another project, as a shared
                                            library, built in BUILD; nothing but its interface is seen

Status 77: there is no pkg-config here.
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = SOURCE / "examples"
PROGRAMS = ("tour", "asking")
TIME = 600

TOUR = """\
COST N BREAD=18 MILK=11 CHEESE=95 BEANS=32 CABBAGE=9
CALORIES G BREAD=250 MILK=64 CHEESE=380 BEANS=120 CABBAGE=25
PROTEIN G BREAD=9 MILK=3.3 CHEESE=25 BEANS=8.5 CABBAGE=1.3
CALCIUM G BREAD=30 MILK=120 CHEESE=750 BEANS=55 CABBAGE=40
WEIGHT L BREAD=1 MILK=1 CHEESE=1 BEANS=1 CABBAGE=1
1 row simplified away
column-lower: 0 -> 1
column-upper: 35 -> 10
5 of 5 rows read back equal
"""
ASKING = """\
Set Default Bounds
  0 to +1E10
  -1E10 to +1E10
"""


def run(*words, **options):
    result = subprocess.run([str(word) for word in words], capture_output=True, text=True,
                            timeout=TIME, **options)
    if result.returncode != 0:
        sys.exit(f"{shlex.join(map(str, words))}\nstatus {result.returncode}\n"
                 f"{result.stdout}{result.stderr}")
    return result.stdout


def cached(build, name):
    found = re.search(rf"^{name}(?::\w+)?=(.*)$", (build / "CMakeCache.txt").read_text(), re.M)
    return found.group(1) if found else ""


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: expected\n{wanted}\nfound\n{found}")


def try_programs(folder, work, emulator=(), suffix=""):
    """Runs both programs in a folder of files, so that their names are the same on every system."""
    files = pathlib.Path(tempfile.mkdtemp(dir=work))
    for name in ("diet.mps", "mistakes.mps"):
        shutil.copy(EXAMPLES / name, files)
    def program(name, *words, text=""):
        # Wine's own processes would keep the output open.
        result = subprocess.run([*emulator, str(folder / (name + suffix)), *words], cwd=files,
                                env={**os.environ, "QUARVEL_WINE_LATE": "1"},
                                input=text, capture_output=True, text=True, timeout=TIME)
        return result.returncode, result.stdout.replace("\r\n", "\n")
    expect("tour", program("tour", "diet.mps", "out.mps"), (0, TOUR))
    if "AT_LEAST" in (files / "out.mps").read_text() or "UP BOUND" not in (files / "out.mps").read_text():
        sys.exit("tour has written another model")
    status, told = program("tour", "mistakes.mps", "none.mps")
    if status != 1 or not re.search(r"^line \d+: E\d+: ", told, re.M) or (files / "none.mps").exists():
        sys.exit(f"tour does not list problems: {status}\n{told}")
    status, told = program("asking", "diet.mps", "asked.mps", text="1\nn\n")
    if status != 0 or not told.startswith(ASKING) or "5 rows, 5 columns\n" not in told:
        sys.exit(f"asking: {status}\n{told}")
    if not (files / "asked.mps").exists():
        sys.exit("asking has saved nothing")


def refuse_newer(package, work):
    """A newer version is asked for: CMake has to name the one that is there."""
    project = work / "newer"
    project.mkdir()
    (project / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.25)\nproject(Newer LANGUAGES CXX)\n"
                                            "find_package(Quarvel ${WANTED} REQUIRED)\n")
    version = re.search(r"VERSION ((\d+)\.(\d+)\.\d+) ", (SOURCE / "CMakeLists.txt").read_text())
    for wanted, taken in ((f"{version[2]}.{version[3]}", True), (f"{version[2]}.{int(version[3]) + 1}", False),
                          (str(int(version[2]) + 1), False)):
        result = subprocess.run(["cmake", "-S", project, "-B", project / wanted, "-G", "Ninja", f"-DWANTED={wanted}",
                                 f"-DQuarvel_DIR={package}"], capture_output=True, text=True, timeout=TIME)
        told = result.stderr
        if (result.returncode == 0) != taken or (not taken and f"version: {version[1]}" not in told):
            sys.exit(f"version {wanted} of {version[1]}: status {result.returncode}\n{told}")


def installed(build):
    if not shutil.which("pkg-config"):
        print("pkg-config is not installed (cmake/setup.sh native): not tested")
        sys.exit(77)
    windows = cached(build, "CMAKE_TOOLCHAIN_FILE") != ""
    emulator = (str(SOURCE / "cmake/wine.sh"),) if windows else ()
    suffix = ".exe" if windows else ""
    with tempfile.TemporaryDirectory(dir=build) as made:
        work = pathlib.Path(made)
        run("cmake", "--install", build, "--prefix", work / "first")
        prefix = work / "moved quarvel"
        (work / "first").rename(prefix)
        headers = {path.name for path in (prefix / "include/quarvel").iterdir()}
        expect("headers", headers, {path.name for path in (SOURCE / "include/quarvel").iterdir()})
        expect("other headers", [path.name for path in (prefix / "include").iterdir()], ["quarvel"])

        toolchain = [f"-DCMAKE_TOOLCHAIN_FILE={cached(build, 'CMAKE_TOOLCHAIN_FILE')}"] if windows else []
        found = work / "found"
        run("cmake", "-S", EXAMPLES / "native", "-B", found, "-G", "Ninja", *toolchain,
            f"-DQuarvel_DIR={next(prefix.glob('**/cmake/Quarvel'))}")
        run("cmake", "--build", found)
        if not windows:
            refuse_newer(next(prefix.glob("**/cmake/Quarvel")), work)
        try_programs(found, work, emulator, suffix)

        compiler = "x86_64-w64-mingw32-g++-win32" if windows else "c++"
        pc = next(prefix.glob("**/pkgconfig/quarvel.pc")).parent
        flags = shlex.split(run("pkg-config", "--cflags", "--libs", "quarvel",
                                env={"PKG_CONFIG_LIBDIR": str(pc), "PATH": "/usr/bin:/bin"}))
        plain = work / "plain"
        plain.mkdir()
        for name in PROGRAMS:
            run(compiler, "-std=c++20", *(["-static"] if windows else []),
                EXAMPLES / f"native/{name}.cpp", *flags, "-o", plain / (name + suffix))
        try_programs(plain, work, emulator, suffix)
    print("find_package and pkg-config: both programs run")


def part(build):
    run("cmake", "-S", SOURCE / "tests/consumers", "-B", build, "-G", "Ninja", "-DBUILD_SHARED_LIBS=ON",
        "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0", f"-DQUARVEL_SOURCE={SOURCE}")
    run("cmake", "--build", build, "--target", *PROGRAMS, "outside")
    programs = build / "programs"
    run(programs / "outside")
    with tempfile.TemporaryDirectory(dir=build) as work:
        try_programs(programs, work)
    library = next(build.glob("**/libquarvel.so")).resolve()
    version = re.search(r"VERSION (\d+\.\d+)\.\d+ ", (SOURCE / "CMakeLists.txt").read_text()).group(1)
    if f"libquarvel.so.{version}]" not in run("readelf", "-d", library):
        sys.exit(f"no SO version {version}")
    shown = run("nm", "-DC", "--defined-only", library)
    inner = re.findall(r"^.*\bquarvel::(?:text|platform|model|mps|simplify|inspect|api)::.*$", shown, re.M)
    if inner or "quarvel::ReadFile(" not in shown:
        sys.exit("symbols of the inside are seen:\n" + "\n".join(inner[:20]))
    print("a part of another project, shared: both programs run")


if __name__ == "__main__":
    {"installed": installed, "part": part}[sys.argv[1]](pathlib.Path(sys.argv[2]).resolve())
