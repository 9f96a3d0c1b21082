"""Adds up what each routine takes in code and stack: footprint.py MODE TREE, where script/footprint has built. MODE is
--write, --check or --update."""

import re
import sys
from dataclasses import dataclass, field
from pathlib import Path

from pages import HERE, excesses, line, output_of, read_table, version_of, write_page, write_table

TABLES = HERE / "footprint"
BUILDS = {build: row for (build,), row in read_table(TABLES / "builds.tsv", 1).items()}
DETAILED = {f"{build} {kind}": f"{BUILDS[build]['title']} {kind}"
            for build in ("O2", "Os", "neon") for kind in ("code", "stack")}
SHARED, CONSTANTS, TOTAL = ("shared helpers",), ("constant data",), ("total",)
PREFIX = "arm-linux-gnueabihf-"
NEWLIB = "/usr/lib/arm-none-eabi/newlib/thumb/v7-a+fp/hard/libc.a"
GLIBC = "/usr/arm-linux-gnueabihf/lib/libc.a"


@dataclass
class Function:
    size: int = 0
    frame: int = None
    is_routine: bool = False
    calls: set = field(default_factory=set)


def fields_of(tool, *arguments):
    """The fields of each line that a tool for object files prints."""
    return [text.split() for text in output_of(PREFIX + tool, *arguments).splitlines()]


def key_of(member, symbol, is_local):
    """A local function's name may occur in several objects; a global or weak one is linked once."""
    return f"{member}:{symbol}" if is_local else symbol


def read_sizes(archive):
    """The functions of the library and the bytes of its constant data."""
    functions = {}
    for place, *_, size, kind, symbol in fields_of("nm", "-AS", "--defined-only", archive):
        if kind in "tTwW":
            key = key_of(place.split(":")[1], symbol.removesuffix(".cold"), kind == "t")
            function = functions.setdefault(key, Function(is_routine=kind == "T"))
            function.size = int(size, 16) + (0 if kind in "wW" else function.size)
    constants = 0
    for section, size, *_ in filter(None, fields_of("size", "-A", archive)):
        if section.startswith((".data", ".bss")) and size != "0":
            sys.exit(f"{archive}: the library has writable data, section {section}")
        constants += int(size) if section.startswith(".rodata") else 0
    return functions, constants


def read_calls(tree, functions):
    """Completes the functions from the compiler's call graphs. Functions of other libraries have no frame there."""
    for path in tree.rglob("*.ci"):
        graph, member = path.read_text(encoding="utf-8"), path.with_suffix(".o").name

        def name_of(title):
            symbol = title.rpartition(":")[2]
            return key_of(member, symbol, key_of(member, symbol, True) in functions)

        for title, frame, kind in re.findall(r'^node: .*title: "(.*?)" .*\\n(\d+) bytes \((.*)\)', graph, re.MULTILINE):
            if kind != "static":
                sys.exit(f"{title}: the stack frame is {kind}")
            if name_of(title) in functions:
                functions[name_of(title)].frame = int(frame)
        for caller, callee in re.findall(r'^edge: .*sourcename: "(.*?)" targetname: "(.*?)"', graph, re.MULTILINE):
            if name_of(caller) in functions:
                functions[name_of(caller)].calls.add(name_of(callee))
    for name, function in functions.items():
        if function.frame is None:
            sys.exit(f"{name}: no stack frame is known")
        if "__indirect_call" in function.calls:
            sys.exit(f"{name}: calls through a pointer, so that its depth is not known")


def depth(name, functions, path=()):
    """The frames on the deepest way through the library, added up."""
    if name in path:
        sys.exit(f"{name}: calls itself, so that its depth is not known")
    if name not in functions:
        return 0
    deepest = max((depth(callee, functions, (*path, name)) for callee in functions[name].calls), default=0)
    return functions[name].frame + deepest


def helpers_of(name, functions):
    """What a routine calls but for the other routines and what those call."""
    called = {callee for callee in functions[name].calls if callee in functions and not functions[callee].is_routine}
    return called.union(*(helpers_of(callee, functions) for callee in called))


def measure(tree):
    """Rows of code and stack for one build: the routines, then what belongs to none alone."""
    functions, constants = read_sizes(tree / "libstrlib.a")
    read_calls(tree, functions)
    stacks = {name: depth(name, functions) for name in sorted(functions, key=str.lower) if functions[name].is_routine}
    helpers = {name: helpers_of(name, functions) for name in stacks}
    shared, rows = functions.keys() - stacks, {}
    for name, stack in stacks.items():
        own = helpers[name].difference(*(helpers[other] for other in stacks if other != name))
        shared -= own
        rows[name,] = {"code": functions[name].size + sum(functions[helper].size for helper in own), "stack": stack}
    rows[SHARED] = {"code": sum(functions[name].size for name in shared)}
    rows[CONSTANTS] = {"code": constants}
    rows[TOTAL] = {"code": sum(row["code"] for row in rows.values()), "stack": max(stacks.values())}
    return rows


def peer_sizes(archive):
    """Sizes by symbol, and by the archive's member for those that carry no size or spread over several symbols."""
    sizes = {}
    for values in fields_of("nm", "-S", "--defined-only", archive):
        if len(values) == 4 and values[2] in "TW":
            sizes.setdefault(values[3], int(values[1], 16))
    for values in fields_of("size", archive):
        if values[0].isdigit():
            sizes[values[5]] = int(values[0])
    return sizes


def document(rows):
    peers = read_table(TABLES / "peers.tsv", 1)
    sizes = {"newlib": peer_sizes(NEWLIB), "glibc": peer_sizes(GLIBC)}
    yield f"""# Footprint on ARMv7-A

Bytes of code and of stack; `script/footprint` writes this file.

- {output_of(PREFIX + 'g++', '--version').splitlines()[0]}, `-mthumb -march=armv7-a+fp`, for NEON
  `-march=armv7-a+simd -mfpu=neon`; the library's own flags, position independent
- newlib {version_of('libnewlib-arm-none-eabi')}, `thumb/v7-a+fp/hard`
- glibc {version_of('libc6-dev-armhf-cross')}, static
- *code* is the routine with the local functions that it alone uses. What several routines use stands below
  them, so that the columns add up. The linker may put 2 bytes of padding behind each function.
- *stack* is the deepest way from the routine through the library, all its frames added up, without `memset`.
  Every frame is of fixed size, nothing recurses.
- The columns of the C libraries give routines of the same kind with their local functions, and not what else
  these draw in. Integer-only ones of newlib stand for the formats; glibc's `strtol`, `printf` and `scanf` are
  those with locales and floating point.

## The whole library

| | code | limit | stack | limit |
|---|--:|--:|--:|--:|"""
    for build, row in BUILDS.items():
        code, stack = rows[TOTAL][f"{build} code"], rows[TOTAL][f"{build} stack"]
        yield f"| {row['title']} | {code} | {row['code']} | {stack} | {row['stack']} |"
    heads = [*DETAILED.values(), "newlib code", "glibc code"]
    yield f"\n## Each routine\n\n| | {' | '.join(heads)} |\n|---|{'--:|' * len(heads)}"
    for key, row in rows.items():
        cells = [key[0] if key in (SHARED, CONSTANTS, TOTAL) else f"`{key[0]}`"]
        cells += [str(row.get(column, "")) for column in DETAILED]
        for library, known in sizes.items():
            parts = peers.get(key, {}).get(library, "-")
            cells.append("" if parts == "-" else str(sum(known[part] for part in parts.split("+"))))
        yield line(cells)


def main(mode, tree):
    rows = {}
    for build in BUILDS:
        for key, row in measure(Path(tree) / build).items():
            rows.setdefault(key, {}).update({f"{build} {kind}": size for kind, size in row.items()})
    if mode == "--update":
        ceilings = {key: {column: size + max(8, size * 3 // 100) for column, size in row.items()}
                    for key, row in rows.items()}
        write_table(TABLES / "ceilings.tsv", ["routine", *DETAILED], ceilings)
    elif mode == "--check":
        limits = {f"{build} {kind}": row[kind] for build, row in BUILDS.items() for kind in ("code", "stack")}
        problems = excesses(rows, read_table(TABLES / "ceilings.tsv", 1), "bytes")
        beyond = excesses({("the whole library",): rows[TOTAL]}, {("the whole library",): limits}, "bytes")
        sys.exit("\n".join([*problems, *beyond]) or 0)
    else:
        write_page("footprint.md", document(rows))


main(*sys.argv[1:])
