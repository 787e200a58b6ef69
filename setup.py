"""Builds the package's modules with CMake; everything else stands in pyproject.toml."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

PROJECT = pathlib.Path(__file__).resolve().parent
VERSION = re.search(r"^project\(Quarvel VERSION (\S+)", (PROJECT / "CMakeLists.txt").read_text(), re.M)[1]
# The target of CMake that each module is.
MODULES = {"quarvel._core": "quarvel_python_core", "quarvel._component": "quarvel_python_component"}


class CMakeBuild(build_ext):
    def run(self):
        build = pathlib.Path(self.build_temp).resolve() / "cmake"
        options = ["-DCMAKE_BUILD_TYPE=Release", "-DQUARVEL_PYTHON=ON", "-DQUARVEL_QT=OFF", "-DQUARVEL_TESTS=OFF",
                   "-DQUARVEL_INSTALL=OFF", f"-DPython_EXECUTABLE={sys.executable}"]
        try:
            import pybind11
            options.append(f"-Dpybind11_DIR={pybind11.get_cmake_dir()}")
        except ImportError:
            pass  # CMake looks where the system has it
        maker = ["-G", "Ninja"] if shutil.which("ninja") else []
        subprocess.run(["cmake", "-S", PROJECT, "-B", build, *maker, *options], check=True)
        subprocess.run(["cmake", "--build", build, "--parallel", str(os.cpu_count() or 1),
                        "--target", *MODULES.values()], check=True)
        for extension in self.extensions:
            made = pathlib.Path(self.get_ext_fullpath(extension.name))
            made.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(build / "python/quarvel" / made.name, made)


setup(version=VERSION, ext_modules=[Extension(name, []) for name in MODULES], cmdclass={"build_ext": CMakeBuild})
