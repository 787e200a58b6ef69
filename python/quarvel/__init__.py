"""Linear and mixed-integer models of MPS files: read, looked at, changed, simplified, compared, written."""

from ._core import version as _version
from .errors import (BusyError, Error, FileError, FullError, ModelAltered, NameRefused, NoSuchName, NumberError,
                     Problem, ReadError, UnreadFile, UnwrittenFile, ValueRefused, WriteError)
from .making import from_arrays
from .model import Column, Edit, Model, Row, Simplified
from .component import ConsoleDesktop, Desktop, LPModel, LPModelError, ScriptedDesktop
from .comparing import Difference, Differences, diff
from .reading import Check, check, read
from .writing import Loss, Receipt

__version__: str = _version()
__all__ = [
    "BusyError", "Check", "Column", "ConsoleDesktop", "Desktop", "Difference", "Differences", "Edit", "Error",
    "FileError", "FullError", "LPModel", "LPModelError", "Loss", "Model", "ModelAltered", "NameRefused",
    "NoSuchName", "NumberError", "Problem", "ReadError", "Receipt", "Row", "ScriptedDesktop", "Simplified",
    "UnreadFile", "UnwrittenFile", "ValueRefused", "WriteError", "check", "diff", "from_arrays", "read"]
