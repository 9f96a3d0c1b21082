"""Adds up what each routine takes in code and stack, writes docs/footprint.md, or compares with the ceilings."""

import csv
import re
import subprocess
import sys
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).parent
BUILDS = {  # Each with its title and its limit of code. Vector code is longer; what a compiler split up is, too.
    "O2": ("`-O2`", 12288),
    "Os": ("`-Os`", 9504),
    "neon": ("NEON `-O2`", 14336),
    "strict": ("`-O2 -mno-unaligned-access`", 13312),
    "strict-neon": ("NEON `-O2 -mno-unaligned-access`", 15360),
    "small": ("the small profile for boot loaders: `-Os -DSTRLIB_BLOCK_BYTE`", 5500),
}
DETAILED = ("O2", "Os", "neon")
COLUMNS = [f"{build} {kind}" for build in DETAILED for kind in ("code", "stack")]
CEILINGS = HERE / "ceilings.tsv"
SHARED, CONSTANTS, TOTAL = "shared helpers", "constant data", "total"
DEEPEST_STACK = 512
PREFIX = "arm-linux-gnueabihf-"
NEWLIB = "/usr/lib/arm-none-eabi/newlib/thumb/v7-a+fp/hard/libc.a"
GLIBC = "/usr/arm-linux-gnueabihf/lib/libc.a"


def lines_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


@dataclass
class Function:
    size: int = 0
    frame: int = None
    is_routine: bool = False
    calls: set = field(default_factory=set)


def key_of(member, symbol, is_local):
    """A local function's name may occur in several objects; a global or weak one is linked once."""
    return f"{member}:{symbol}" if is_local else symbol


def read_sizes(archive):
    """The functions of the library and the bytes of its constant data."""
    functions = {}
    for line in lines_of(PREFIX + "nm", "-AS", "--defined-only", archive):
        place, *values = line.split()
        member = place.split(":")[1]
        size, kind, symbol = int(values[-3], 16), values[-2], values[-1]
        if kind not in "tTwW":
            continue
        key = key_of(member, symbol.removesuffix(".cold"), kind == "t")
        function = functions.setdefault(key, Function(is_routine=kind == "T"))
        function.size = size if kind in "wW" else function.size + size
    constants = 0
    for line in lines_of(PREFIX + "size", "-A", archive):
        section, _, size = line.partition(" ")
        if section.startswith((".data", ".bss")) and size.split()[0] != "0":
            sys.exit(f"{archive}: the library has writable data, section {section}")
        constants += int(size.split()[0]) if section.startswith(".rodata") else 0
    return functions, constants


def read_calls(tree, functions):
    """Completes the functions from the compiler's call graphs. Functions of other libraries have no frame there."""
    for graph in tree.rglob("*.ci"):
        member = graph.name.replace(".ci", ".o")

        def key(title):
            symbol = title.rpartition(":")[2]
            local = key_of(member, symbol, True)
            return local if local in functions else symbol

        for line in graph.read_text(encoding="utf-8").splitlines():
            if line.startswith("node:") and (frame := re.search(r'title: "(.*?)" .*\\n(\d+) bytes \((.*)\)', line)):
                if frame[3] != "static":
                    sys.exit(f"{frame[1]}: the stack frame is {frame[3]}")
                if key(frame[1]) in functions:
                    functions[key(frame[1])].frame = int(frame[2])
            elif edge := re.search(r'sourcename: "(.*?)" targetname: "(.*?)"', line):
                if key(edge[1]) in functions:
                    functions[key(edge[1])].calls.add(key(edge[2]))
    for name, function in functions.items():
        if function.frame is None:
            sys.exit(f"{name}: no stack frame is known")
        if "__indirect_call" in function.calls:
            sys.exit(f"{name}: calls through a pointer, so that its depth is not known")


def helpers_of(name, functions):
    """What a routine calls but for the other routines and what those call."""
    found, waiting = set(), [name]
    while waiting:
        for callee in functions[waiting.pop()].calls - found:
            if callee in functions and not functions[callee].is_routine:
                found.add(callee)
                waiting.append(callee)
    return found


def depth(name, functions, path=()):
    """The frames on the deepest way through the library, added up."""
    if name in path:
        sys.exit(f"{name}: calls itself, so that its depth is not known")
    if name not in functions:
        return 0
    deepest = max((depth(callee, functions, (*path, name)) for callee in functions[name].calls), default=0)
    return functions[name].frame + deepest


def measure(tree, build):
    """Rows of code and stack for one build: the routines, then what belongs to none alone."""
    functions, constants = read_sizes(tree / "libstrlib.a")
    read_calls(tree, functions)
    routines = sorted((name for name in functions if functions[name].is_routine), key=str.lower)
    helpers = {name: helpers_of(name, functions) for name in routines}
    users = {helper: [name for name in routines if helper in helpers[name]] for helper in functions}
    rows = {}
    for name in routines:
        own = sum(functions[helper].size for helper in helpers[name] if len(users[helper]) == 1)
        rows[name] = {f"{build} code": functions[name].size + own, f"{build} stack": depth(name, functions)}
    shared = [name for name in functions if not functions[name].is_routine and len(users[name]) != 1]
    rows[SHARED] = {f"{build} code": sum(functions[name].size for name in shared)}
    rows[CONSTANTS] = {f"{build} code": constants}
    rows[TOTAL] = {
        f"{build} code": sum(function.size for function in functions.values()) + constants,
        f"{build} stack": max(rows[name][f"{build} stack"] for name in routines),
    }
    return rows


def read_table(path):
    with open(path, newline="", encoding="utf-8") as file:
        return {row.pop(next(iter(row))): row for row in csv.DictReader(file, delimiter="\t")}


def ceiling(value):
    return value + max(8, value * 3 // 100)


def update_ceilings(rows):
    with open(CEILINGS, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, delimiter="\t", lineterminator="\n")
        writer.writerow(("routine", *COLUMNS))
        for name, row in rows.items():
            writer.writerow((name, *(ceiling(row[column]) if column in row else "" for column in COLUMNS)))


def excesses(rows):
    ceilings = read_table(CEILINGS)
    for name in rows.keys() ^ ceilings.keys():
        yield f"{name}: a measurement and a ceiling must both exist"
    for name in rows.keys() & ceilings.keys():
        passed = [column for column in COLUMNS if rows[name].get(column, 0) > int(ceilings[name][column] or 0)]
        if passed:
            sizes = (f"{rows[name][column]} bytes of {column} (ceiling {ceilings[name][column]})" for column in passed)
            yield f"{name}: {', '.join(sizes)}"
    for build, (_, largest) in BUILDS.items():
        for kind, limit in (("code", largest), ("stack", DEEPEST_STACK)):
            if (value := rows[TOTAL][f"{build} {kind}"]) > limit:
                yield f"the whole library: {value} bytes of {build} {kind}, limit {limit}"


def peer_sizes(archive):
    """Sizes by symbol, and by the archive's member for those that carry no size or spread over several symbols."""
    sizes = {}
    for line in lines_of(PREFIX + "nm", "-S", "--defined-only", archive):
        values = line.split()
        if len(values) == 4 and values[2] in "TW":
            sizes.setdefault(values[3], int(values[1], 16))
    for line in lines_of(PREFIX + "size", archive):
        values = line.split()
        if values[0].isdigit():
            sizes[values[5]] = int(values[0])
    return sizes


def peer_cells(peers, sizes, name):
    """The size of a peer's parts, as one number, for each C library."""
    for library, known in sizes.items():
        parts = peers.get(name, {}).get(library, "-")
        yield "" if parts == "-" else str(sum(known[part] for part in parts.split("+")))


def version_of(package):
    return lines_of("dpkg-query", "-W", "-f=${Version}\n", package)[0]


def document(rows):
    peers = read_table(HERE / "peers.tsv")
    sizes = {"newlib": peer_sizes(NEWLIB), "glibc": peer_sizes(GLIBC)}
    yield "# Footprint on ARMv7-A"
    yield ""
    yield "Bytes of code and of stack; `script/footprint` writes this file."
    yield ""
    yield f"- {lines_of(PREFIX + 'g++', '--version')[0]}, `-mthumb -march=armv7-a+fp`, for NEON"
    yield "  `-march=armv7-a+simd -mfpu=neon`; the library's own flags, position independent"
    yield f"- newlib {version_of('libnewlib-arm-none-eabi')}, `thumb/v7-a+fp/hard`"
    yield f"- glibc {version_of('libc6-dev-armhf-cross')}, static"
    yield "- *code* is the routine with the local functions that it alone uses. What several routines use stands below"
    yield "  them, so that the columns add up. The linker may put 2 bytes of padding behind each function."
    yield "- *stack* is the deepest way from the routine through the library, all its frames added up, without `memset`."
    yield "  Every frame is of fixed size, nothing recurses."
    yield "- The columns of the C libraries give routines of the same kind with their local functions, and not what else"
    yield "  these draw in. Integer-only ones of newlib stand for the formats; glibc's `strtol`, `printf` and `scanf` are"
    yield "  those with locales and floating point."
    yield ""
    yield "## The whole library"
    yield ""
    yield "| | code | limit | stack | limit |"
    yield "|---|--:|--:|--:|--:|"
    for build, (title, largest) in BUILDS.items():
        code, stack = (rows[TOTAL][f"{build} {kind}"] for kind in ("code", "stack"))
        yield f"| {title} | {code} | {largest} | {stack} | {DEEPEST_STACK} |"
    yield ""
    yield "## Each routine"
    yield ""
    heads = [f"{BUILDS[build][0]} {kind}" for build in DETAILED for kind in ("code", "stack")]
    yield "| | " + " | ".join([*heads, "newlib code", "glibc code"]) + " |"
    yield "|---|" + "--:|" * (len(heads) + 2)
    for name, row in rows.items():
        label = name if name in (SHARED, CONSTANTS, TOTAL) else f"`{name}`"
        cells = [str(row.get(column, "")) for column in COLUMNS]
        yield "| " + " | ".join([label, *cells, *peer_cells(peers, sizes, name)]) + " |"


def main():
    mode, build_tree = sys.argv[1:]
    rows = {}
    for build in BUILDS:
        for name, row in measure(Path(build_tree) / build, build).items():
            rows.setdefault(name, {}).update(row)
    if mode == "--update":
        update_ceilings(rows)
    elif mode == "--check":
        lines = sorted(excesses(rows))
        print("\n".join(lines), end="\n" if lines else "", file=sys.stderr)
        sys.exit(1 if lines else 0)
    else:
        path = HERE.parent.parent / "docs" / "footprint.md"
        path.parent.mkdir(exist_ok=True)
        path.write_text("\n".join(document(rows)) + "\n", encoding="utf-8")


main()
