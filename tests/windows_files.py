#!/usr/bin/env python3
"""tests/windows_files.py [--delivered] FILE...

Reads programs and libraries of Windows and tells what they lack of what a delivered file has: a whole
version resource, an icon, the flags of the loader, and nothing of when or where it was built. With
--delivered also that it is stripped. Status 1 when anything is found.
"""
import struct
import sys
from pathlib import Path

from hardening import Pe

TEXTS = ("CompanyName", "FileDescription", "FileVersion", "InternalName", "LegalCopyright",
         "OriginalFilename", "ProductName", "ProductVersion")
ICON, ICON_GROUP, VERSION = 3, 14, 16
EXPORTS, RESOURCES, DEBUG = 0, 2, 6
SIZES = {16, 24, 32, 48, 64, 256}
PROJECT = Path(__file__).resolve().parent.parent


class Resources:
    """The tree of resources of a file: by kind, number or name, language."""

    def __init__(self, pe):
        self.pe = pe
        self.times = set()
        start, size = pe.directory(RESOURCES)
        self.start = pe.file_offset(start) if size else None

    def entries(self, at):
        self.times.add(struct.unpack_from("<I", self.pe.data, at + 4)[0])
        named, numbered = struct.unpack_from("<HH", self.pe.data, at + 12)
        for i in range(named + numbered):
            yield struct.unpack_from("<II", self.pe.data, at + 16 + i * 8)

    def leaves(self, at):
        for _, place in self.entries(at):
            if place & 0x80000000:
                yield from self.leaves(self.start + (place & 0x7FFFFFFF))
            else:
                address, size = struct.unpack_from("<II", self.pe.data, self.start + place)
                offset = self.pe.file_offset(address)
                yield self.pe.data[offset:offset + size]

    def of_kind(self, kind):
        if self.start is None:
            return []
        return [leaf for number, place in self.entries(self.start) if number == kind
                for leaf in self.leaves(self.start + (place & 0x7FFFFFFF))]


def version_texts(block):
    """Name and text of each of TEXTS that the block of a version resource has."""
    found = {}
    for name in TEXTS:
        key = name.encode("utf-16-le") + b"\0\0"
        at = block.find(key)
        if at < 0:
            continue
        at = (at + len(key) + 3) & ~3
        end = at
        while block[end:end + 2] not in (b"\0\0", b""):
            end += 2
        found[name] = block[at:end].decode("utf-16-le")
    return found


def icon_sizes(group):
    count, = struct.unpack_from("<H", group, 4)
    return {group[6 + i * 14] or 256 for i in range(count)}


def lacks_of_version(path, blocks):
    if len(blocks) != 1:
        yield f"has {len(blocks)} version resources"
        return
    texts = version_texts(blocks[0])
    for name in TEXTS:
        if not texts.get(name):
            yield f"says nothing of its {name}"
    if texts.get("OriginalFilename") != path.name:
        yield f"calls itself {texts.get('OriginalFilename')}"
    numbers = struct.unpack_from("<HHHH", blocks[0], blocks[0].find(b"\xbd\x04\xef\xfe") + 8)
    written = [int(part) for part in texts.get("FileVersion", "0").split(".")]
    if [numbers[1], numbers[0], numbers[2] or numbers[3]] != written:
        yield f"has the version {texts.get('FileVersion')} in words and {numbers} in numbers"


def lacks_of_time(pe, resources):
    header, = struct.unpack_from("<I", pe.data, 0x3C)
    times = {struct.unpack_from("<I", pe.data, header + 8)[0]} | resources.times
    for directory in (EXPORTS, DEBUG):
        address, size = pe.directory(directory)
        if size:
            times.add(struct.unpack_from("<I", pe.data, pe.file_offset(address) + 4)[0])
    if times != {0}:
        yield f"says when it was built: {sorted(times - {0})}"


def lacks_of(path, delivered):
    data = path.read_bytes()
    pe = Pe(data)
    resources = Resources(pe)
    yield from lacks_of_version(path, resources.of_kind(VERSION))
    groups = resources.of_kind(ICON_GROUP)
    if not groups or icon_sizes(groups[0]) != SIZES or len(resources.of_kind(ICON)) < len(SIZES):
        yield "has no whole icon"
    if not pe.flags & pe.DYNAMIC_BASE or not pe.flags & pe.NX:
        yield f"may not be placed by chance, or lets data be executed: {pe.flags:#x}"
    if pe.wide and not pe.flags & pe.HIGH_ENTROPY:
        yield "keeps to the low addresses"
    yield from lacks_of_time(pe, resources)
    for name in (str(PROJECT), str(Path.home()) + "/"):
        if name.encode() in data or name.encode("utf-16-le") in data:
            yield f"says where it was built: {name}"
    if delivered and pe.symbol_count:
        yield f"is not stripped: {pe.symbol_count} symbols"


def main(words):
    delivered = "--delivered" in words
    paths = [Path(word) for word in words if word != "--delivered"]
    if not paths:
        sys.exit(__doc__.strip())
    found = [f"{path} {what}" for path in paths for what in lacks_of(path, delivered)]
    print("\n".join(found) or f"{len(paths)} files as they should be")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
