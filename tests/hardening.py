#!/usr/bin/env python3
"""tests/hardening.py FILE...

Reads built programs and libraries as the system's loader does, and tells what they lack of what
cmake/hardening.cmake asks for. Status 1 when anything is missing. Checked buffers leave no trace in a
program that hands none of known size to the system's functions, so nothing is said of them.
"""
import struct
import sys

# The libraries that Windows takes from its own folder alone, whatever stands beside a program.
OF_THE_SYSTEM = {
    "advapi32", "comctl32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32",
    "rpcrt4", "shell32", "user32",
}


def text_at(data, offset):
    return data[offset:data.index(b"\0", offset)].decode("latin-1")


class Elf:
    """A program or library of Linux, 64 bits, low byte first."""

    DYNAMIC, GNU_STACK, GNU_RELRO, LOAD = 2, 0x6474E551, 0x6474E552, 1
    STRTAB, SYMTAB, TEXTREL, FLAGS, FLAGS_1 = 5, 6, 22, 30, 0x6FFFFFFB
    BIND_NOW, NOW, PIE = 8, 1, 0x08000000

    def __init__(self, data):
        self.data = data
        self.type, self.machine = struct.unpack_from("<HH", data, 16)
        start, = struct.unpack_from("<Q", data, 32)
        size, count = struct.unpack_from("<HH", data, 54)
        self.segments = [struct.unpack_from("<IIQQQQQQ", data, start + i * size)
                         for i in range(count)]
        self.dynamic = {}
        for kind, _, offset, _, _, length, _, _ in self.segments:
            if kind == self.DYNAMIC:
                for at in range(offset, offset + length, 16):
                    tag, value = struct.unpack_from("<QQ", data, at)
                    self.dynamic.setdefault(tag, value)

    def file_offset(self, address):
        for kind, _, offset, start, _, length, _, _ in self.segments:
            if kind == self.LOAD and start <= address < start + length:
                return address - start + offset
        raise ValueError("an address outside of the file")

    def imported(self):
        """The names of the dynamic symbols, which the system's linker stores before the names."""
        names = self.file_offset(self.dynamic[self.STRTAB])
        at = self.file_offset(self.dynamic[self.SYMTAB])
        found = set()
        for place in range(at, names, 24):
            name, = struct.unpack_from("<I", self.data, place)
            found.add(text_at(self.data, names + name))
        return found

    def lacks(self):
        flags = {segment[0]: segment[1] for segment in self.segments}
        names = self.imported()
        now = self.dynamic.get(self.FLAGS, 0) & self.BIND_NOW
        flags_1 = self.dynamic.get(self.FLAGS_1, 0)
        if self.type != 3 or not flags_1 & self.PIE:
            yield "is not position independent"
        if self.GNU_RELRO not in flags:
            yield "has tables that stay writable (no RELRO)"
        if not now and not flags_1 & self.NOW:
            yield "binds functions while it runs (no BIND_NOW)"
        if flags.get(self.GNU_STACK, 1) & 1:
            yield "has a stack that can be executed"
        if self.TEXTREL in self.dynamic:
            yield "has code that the loader changes"
        if "__stack_chk_fail" not in names:
            yield "does not check its stack"
        # The code of main begins with the mark of a place that may be jumped to.
        if self.machine == 62 and self.data.count(b"\xf3\x0f\x1e\xfa") < 100:
            yield "has no marks for the protection of control flow"


class Pe:
    """A program or library of Windows."""

    HIGH_ENTROPY, DYNAMIC_BASE, NX = 0x20, 0x40, 0x100

    def __init__(self, data):
        self.data = data
        header, = struct.unpack_from("<I", data, 0x3C)
        sections, = struct.unpack_from("<H", data, header + 6)
        self.symbols, self.symbol_count = struct.unpack_from("<II", data, header + 12)
        optional_size, = struct.unpack_from("<H", data, header + 20)
        self.file_flags, = struct.unpack_from("<H", data, header + 22)
        optional = header + 24
        self.wide = struct.unpack_from("<H", data, optional)[0] == 0x20B
        self.flags, = struct.unpack_from("<H", data, optional + 70)
        self.directories = optional + (112 if self.wide else 96)
        first = optional + optional_size
        self.sections = [struct.unpack_from("<IIII", data, first + i * 40 + 8)
                         for i in range(sections)]

    def directory(self, number):
        return struct.unpack_from("<II", self.data, self.directories + number * 8)

    def file_offset(self, address):
        for size, start, raw_size, raw in self.sections:
            if start <= address < start + max(size, raw_size):
                return address - start + raw
        raise ValueError("an address outside of the file")

    def libraries(self):
        at = self.file_offset(self.directory(1)[0])
        while True:
            name = struct.unpack_from("<IIIII", self.data, at)[3]
            if name == 0:
                return
            yield text_at(self.data, self.file_offset(name)).lower().removesuffix(".dll")
            at += 20

    def defined(self):
        """The names of the symbols; long ones stand behind the table."""
        names = self.symbols + self.symbol_count * 18
        place = 0
        while place < self.symbol_count:
            at = self.symbols + place * 18
            zeros, offset = struct.unpack_from("<II", self.data, at)
            short = self.data[at:at + 8].rstrip(b"\0").decode("latin-1")
            yield text_at(self.data, names + offset) if zeros == 0 else short
            place += 1 + self.data[at + 17]

    def lacks(self):
        if self.wide and not self.flags & self.HIGH_ENTROPY:
            yield "keeps to the low addresses"
        if not self.flags & self.DYNAMIC_BASE or self.file_flags & 1 or self.directory(5)[1] == 0:
            yield "has one place in memory"
        if not self.flags & self.NX:
            yield "lets data be executed"
        if not any(name.lstrip("_") == "stack_chk_fail" for name in self.defined()):
            yield "does not check its stack"
        for library in sorted(set(self.libraries()) - OF_THE_SYSTEM):
            yield f"needs {library}.dll, which may be taken from a folder that is not the system's"


def lacks_of(path):
    with open(path, "rb") as file:
        data = file.read()
    if data.startswith(b"\x7fELF\x02\x01"):
        return list(Elf(data).lacks())
    if data.startswith(b"MZ"):
        return list(Pe(data).lacks())
    return ["is neither a program nor a library"]


def main(paths):
    if not paths:
        sys.exit(__doc__.strip())
    found = [f"{path} {what}" for path in paths for what in lacks_of(path)]
    print("\n".join(found) or f"{len(paths)} built as hard as they should be")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
