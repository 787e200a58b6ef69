#!/usr/bin/env python3
"""Runs every command with --json and holds what it prints to docs/json.schema.json.

    tests/json_schema.py QUARVEL

Status 77: there is no python3-jsonschema here.
"""

import copy
import json
import pathlib
import subprocess
import sys
import tempfile

try:
    import jsonschema
except ImportError:
    print("python3-jsonschema is not installed: not tested")
    sys.exit(77)

SOURCE = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = SOURCE / "examples"

# Infinite bounds of both kinds, numbers of 17 digits, names that would steer a terminal or are no UTF-8.
ODD = (
    b"NAME ODD\n* told\nROWS\n N COST\n G LOW\n L H\xe4lf\n E SAME\n G \x9bJ\nCOLUMNS\n"
    b" M 'MARKER' 'INTORG'\n X COST 0.1 LOW 10000000000\n X SAME 0.30000000000000004\n"
    b" M 'MARKER' 'INTEND'\n Y COST 1e10 H\xe4lf 1\n Y \x9bJ 5e-324\n Z SAME 1\n"
    b"RHS\n RHS LOW 1e-300 H\xe4lf 7\n RHS SAME 0.1\nBOUNDS\n MI B Y\n UP B Y 1e30\n FR B Z\n UP B X 7\n"
    b"ENDATA\n"
)
# Bounds of 1E+10 and more on both sides of none, as every command that prints bounds must print them.
LARGE = (
    b"ROWS\n N COST\n G LOW\n E SAME\nCOLUMNS\n X COST 1 LOW 1\n Y LOW 1 SAME 1\n Z SAME 1\n W COST 1\n"
    b"RHS\n RHS LOW 2e10 SAME 1e10\nBOUNDS\n LO B X 1e10\n FX B Y 1e30\n MI B Z\n UP B Z -1e10\n UP B W 1e10\n"
    b"ENDATA\n"
)
# Two rows of one element, an empty row and an empty column.
PLAIN = (
    b"ROWS\n N COST\n L CAP\n L CUT\n G EMPTY\nCOLUMNS\n X COST 1 CAP 2\n X CUT 1\n Y COST 1 CUT 1\n"
    b"RHS\n RHS CAP 8 CUT 9\nBOUNDS\n UP B Y 4\n"
)


def closed(schema):
    """The schema without room for members that it does not name."""
    if isinstance(schema, list):
        return [closed(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    made = {key: closed(part) for key, part in schema.items()}
    if "properties" in made:
        made["additionalProperties"] = False
    return made


def texts_of(value):
    """Every text in a value, the keys too."""
    if isinstance(value, dict):
        for key, part in value.items():
            yield key
            yield from texts_of(part)
    elif isinstance(value, list):
        for part in value:
            yield from texts_of(part)
    elif isinstance(value, str):
        yield value


class Tests:
    def __init__(self, program):
        self.program = program
        self.schema = json.loads((SOURCE / "docs/json.schema.json").read_text("utf-8"))
        jsonschema.Draft202012Validator.check_schema(self.schema)
        self.closed = closed(copy.deepcopy(self.schema))
        self.tested = set()
        self.failures = 0
        self.runs = 0

    def fail(self, words, what):
        print(f"{' '.join(words)}: {what}")
        self.failures += 1

    def run(self, *words, stdin=b""):
        run = subprocess.run([self.program, *words], input=stdin, capture_output=True, check=False,
                             timeout=120)
        return run.stdout

    def values(self, out):
        """The values of the output, one behind the other."""
        text = out.decode("utf-8")
        decoder = json.JSONDecoder(parse_constant=lambda word: self.fail([word], "is no JSON"))
        found = []
        while text.strip():
            value, end = decoder.raw_decode(text.lstrip())
            found.append(value)
            text = text.lstrip()[end:]
        return found

    def check(self, *words, stdin=b""):
        self.runs += 1
        command = words[0]
        self.tested.add(command)
        out = self.run(*words, "--json", stdin=stdin)
        for byte in range(0x20):
            if byte != 0x0A and bytes([byte]) in out:
                self.fail(words, f"control character {byte}")
        try:
            values = self.values(out)
        except ValueError as error:
            self.fail(words, f"{error}: {out[:200]!r}")
            return None
        if not values:
            self.fail(words, "prints nothing")
        schema = dict(self.closed)
        del schema["anyOf"]
        schema["$ref"] = f"#/$defs/{command}"
        for value in values:
            for error in jsonschema.Draft202012Validator(schema).iter_errors(value):
                place = "/".join(str(step) for step in error.absolute_path)
                self.fail(words, f"{place}: {error.message[:300]}")
        return values[0] if values else None

    def equal(self, words, found, expected):
        if found != expected or type(found) is not type(expected):
            self.fail([words], f"{found!r} instead of {expected!r}")


def look(tests, folder):
    """Commands that look at files of all kinds."""
    (folder / "odd.mps").write_bytes(ODD)
    (folder / "plain.mps").write_bytes(PLAIN)
    (folder / "large.mps").write_bytes(LARGE)
    (folder / "point.txt").write_text("X 100\nNOBODY 3\nX 90\n")
    odd, plain = str(folder / "odd.mps"), str(folder / "plain.mps")
    large = str(folder / "large.mps")
    files = [odd, plain, large] + sorted(str(path) for path in EXAMPLES.glob("*.mps"))
    for file in files:
        loose = ["--on-error", "continue"] if "mistakes" in file else []
        for command in ("info", "stats", "rows", "columns"):
            tests.check(command, file, *loose)
        tests.check("rows", file, "--equations", *loose)
        tests.check("columns", file, "--columns", "name,objective,upper", *loose)
        tests.check("check", file)
        tests.check("check", file, "--limit", "all", "--ignore", "W")
        tests.check("dialects", file)
    tests.check("info", odd, plain)
    tests.check("info", plain, str(folder / "missing.mps"), plain)
    tests.check("check", odd, plain, odd)
    tests.check("info", "-", stdin=PLAIN)
    for name in ("COST", "CAP"):
        tests.check("row", plain, name)
        tests.check("explain", plain, name)
        tests.check("evaluate", plain, name, "X=0.1")
    tests.check("explain", odd, "Z")
    tests.check("column", odd, "Y")
    tests.check("why", plain, str(folder / "point.txt"))
    tests.check("diff", odd, plain)
    tests.check("diff", plain, large)
    for name in ("LOW", "SAME"):
        tests.check("row", large, name)
        tests.check("evaluate", large, name, "X=0.1")
        tests.check("explain", large, name)
    for name in ("W", "X", "Y", "Z"):
        tests.check("column", large, name)
        tests.check("explain", large, name)
    told = tests.check("why", large, str(folder / "point.txt"))
    tests.equal("limits", [v["limit"] for v in told["violations"]], [1e30, 2e10, 1e10, -1e10, 1e10])
    columns = {column["name"]: column for column in tests.check("columns", large)}
    bounds = {name: (c["lowerBound"], c["upperBound"]) for name, c in columns.items()}
    tests.equal("large bounds", bounds, {"X": (10000000000, "inf"), "Y": (1e30, "inf"),
                                         "Z": ("-inf", -10000000000), "W": (0, "inf")})
    record = columns["W"]
    listed = {"$ref": "#/$defs/columns", "$defs": tests.schema["$defs"]}
    for member, value, good in (("lowerBound", 1e10, True), ("upperBound", -1e10, True),
                                ("lowerBound", -1e10, False), ("upperBound", 1e10, False),
                                ("lowerBound", "inf", False), ("upperBound", "-inf", False)):
        valid = jsonschema.Draft202012Validator(listed).is_valid([{**record, member: value}])
        tests.equal(f"{member} {value}", valid, good)
    tests.check("diff", plain, plain)
    rows = {row["name"]: row for row in tests.check("rows", odd)}
    columns = {column["name"]: column for column in tests.check("columns", odd)}
    tests.equal("no lower limit", rows["COST"]["lowerBound"], "-inf")
    tests.equal("no upper limit", rows["COST"]["upperBound"], "inf")
    tests.equal("all digits", rows["LOW"]["lowerBound"], 1e-300)
    tests.equal("no bound", columns["Y"]["upperBound"], "inf")
    tests.equal("a name of Windows-1252", "H\u00c4LF" in rows, True)
    cost = tests.check("row", odd, "COST")
    tests.equal("a coefficient of 1E+10", [float(e["value"]) for e in cost["elements"]], [0.1, 1e10])
    same = tests.check("row", odd, "SAME")
    tests.equal("17 digits", same["elements"][0]["value"], 0.30000000000000004)
    over = tests.check("evaluate", odd, "COST", "Y=1e308")
    tests.equal("beyond the doubles", over["activity"], "inf")
    for value in (rows, columns):
        for text in texts_of(value):
            if "\ufffd" in text:
                tests.fail([text], "characters were lost")


def write(tests, folder):
    """Commands that write, and what they tell when they do not."""
    plain, out = str(folder / "plain.mps"), str(folder / "out.mps")
    whole = str(folder / "whole.mps")
    (folder / "whole.mps").write_bytes(PLAIN + b"ENDATA\n")
    told = tests.check("convert", plain, out, "--allow-missing-endata")
    tests.equal("outcome", told["outcome"], "written")
    tests.equal("end", told["hasEndata"], False)
    tests.equal("problems", [p["code"] for p in told["problems"]][:1], ["W401"])
    told = tests.check("simplify", whole, out)
    tests.equal("simplified", told["simplified"], True)
    tests.equal("read", told["read"]["rows"], 4)
    tests.equal("rows left", told["model"]["rows"], 2)
    told = tests.check("edit", whole, out, stdin=b"set-bound X UP 4\n\nset-bound Y UP 5\n")
    tests.equal("commands", told["commands"], 2)
    told = tests.check("convert", whole, out, "--layout", "fixed")
    tests.equal("losses", [loss["kind"] for loss in told["losses"]][:1], ["empty-row"])
    told = tests.check("convert", whole, out, "--layout", "fixed", "--strict")
    tests.equal("strict", told["outcome"], "losses")
    told = tests.check("convert", whole, out + ".gz")
    tests.equal("packed", told["packing"], "gzip")
    told = tests.check("convert", whole, whole)
    tests.equal("in place", (told["inPlace"], told["receipt"]["whole"]), (True, True))
    told = tests.check("convert", whole, str(folder / "no" / "out.mps"))
    tests.equal("failed", (told["outcome"], "failure" in told), ("failed", True))


def commands_with_json(tests):
    """The commands whose help names --json."""
    names = [line.split()[0] for line in tests.run("--help").decode().splitlines()
             if line.startswith("  ") and line[2:3].isalpha()]
    helps = {name: tests.run(name, "--help").decode() for name in names}
    return {name for name, text in helps.items() if "  --json" in text}


def main():
    tests = Tests(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        look(tests, pathlib.Path(folder))
        write(tests, pathlib.Path(folder))
    expected = commands_with_json(tests)
    named = {part["$ref"].rsplit("/", 1)[1] for part in tests.schema["anyOf"]}
    tests.equal("commands with --json", sorted(expected), sorted(tests.tested))
    tests.equal("commands of the schema", sorted(named), sorted(expected))
    print(f"{tests.runs} outputs of {len(tests.tested)} commands, {tests.failures} failures")
    return 1 if tests.failures or tests.runs == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
