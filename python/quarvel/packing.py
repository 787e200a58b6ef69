"""Compressed files, by Python's own modules: what is packed is unpacked and packed in memory."""

from __future__ import annotations

import bz2
import gzip
import lzma
import os
import tempfile
from typing import Callable, Optional

from .errors import FileError

_PACKERS: dict[str, Callable[[bytes], bytes]] = {
    ".gz": lambda data: gzip.compress(data, mtime=0), ".bz2": bz2.compress, ".xz": lzma.compress}
_MARKS: tuple[tuple[bytes, Callable[[bytes], bytes]], ...] = (
    (b"\x1f\x8b", gzip.decompress), (b"BZh", bz2.decompress), (b"\xfd7zXZ\x00", lzma.decompress))
_ZSTD = b"\x28\xb5\x2f\xfd"


def unpacked(data: bytes) -> Optional[bytes]:
    """What is packed in the bytes; None where they are not packed. FileError for what is broken."""
    if data.startswith(_ZSTD):
        raise FileError("This Python has no module that unpacks zstd: unpack the file first")
    for mark, unpack in _MARKS:
        if data.startswith(mark):
            try:
                return unpack(data)
            except (OSError, EOFError, lzma.LZMAError) as error:
                raise FileError(f"The packed file is broken: {error}") from error
    return None


def unpacked_file(path: str) -> Optional[bytes]:
    """The same of a file. None also where it cannot be opened: whoever reads it tells why."""
    try:
        with open(path, "rb") as file:
            start = file.read(6)
            if not start.startswith(_ZSTD) and not any(start.startswith(mark) for mark, _ in _MARKS):
                return None
            return unpacked(start + file.read())
    except FileError:
        raise
    except OSError:
        return None


def packer(path: str) -> Optional[Callable[[bytes], bytes]]:
    """What packs a file of that name; None where it is a plain one."""
    return _PACKERS.get(os.path.splitext(path)[1].lower())


def replace_file(path: str, data: bytes) -> None:
    """The file is the old one or the new one, whole."""
    folder = os.path.dirname(path) or "."
    number, beside = tempfile.mkstemp(prefix=".quarvel-", dir=folder)
    try:
        with os.fdopen(number, "wb") as file:
            file.write(data)
            file.flush()
            os.fsync(file.fileno())
        mode = os.stat(path).st_mode & 0o7777 if os.path.exists(path) else 0o666 & ~_umask()
        os.chmod(beside, mode)
        os.replace(beside, path)
    except BaseException:
        os.unlink(beside)
        raise


def _umask() -> int:
    mask = os.umask(0)
    os.umask(mask)
    return mask
