"""Turns measurements into the pages on speed, or prints them.

MODE is --write or --print=REGULAR_EXPRESSION, on ARM also --check or --update. TREE is where script/bench-armv7 has
built and counted; a board's TABLE is what it has written."""

import json
import re
import subprocess
import sys
from pathlib import Path

import cycles
from pages import DOCS, HERE, excesses, line, output_of, read_rows, read_table, version_of, write_page, write_table

USAGE = "usage: report.py armv7 MODE TREE | x86-64 MODE DEFAULT.json BASELINE.json | board REGULAR_EXPRESSION TABLE"
CEILINGS = HERE / "ceilings.tsv"
TOLERANCE = 1.05
CALL_AND_RETURN = 2
WORST = "worst: "


def read_counts(path):
    """The instructions a call, by routine and workload, then by implementation."""
    costs, empty = {}, 0
    for row in read_rows(path):
        if len(row) != 5 or not row[4].isdigit():
            sys.exit(f"{path}: {row[0]} was not counted; does this qemu-arm take plugins?")
        routine, workload, implementation, calls, count = row
        if implementation == "empty":
            empty = int(count)
        else:
            cost = (int(count) - empty) / int(calls) + CALL_AND_RETURN
            costs.setdefault((routine, workload), {})[implementation] = cost
    return costs


def read_times(path):
    """The fastest ns a call, by routine and workload, then by implementation, and what was compared."""
    with open(path, encoding="utf-8") as file:
        results = json.load(file)
    costs = {}
    for run in sorted(results["benchmarks"], key=lambda run: run["family_index"]):
        if run.get("aggregate_name") == "fastest":
            routine, workload, implementation = run["run_name"].split("/", 2)
            costs.setdefault((routine, workload), {})[implementation] = run["cpu_time"] / run["calls"]
    return {key: cost for key, cost in costs.items() if "ours" in cost and len(cost) > 1}, results["context"]


def by_routine(costs):
    """The measurements of a routine together, the routines in the order in which they first come."""
    order = list(dict.fromkeys(routine for routine, _ in costs))
    return sorted(costs, key=lambda key: order.index(key[0]))


def best_peer(cost, wanted="library"):
    """The best implementation by others, or the one wanted; a plain loop only where there is no other."""
    if wanted != "library":
        return wanted
    return min((name for name in cost if name not in ("ours", "plain")), key=cost.get, default="plain")


def ratio(cost, wanted="library"):
    return cost[best_peer(cost, wanted)] / cost["ours"]


def goals_of(build, costs):
    """The peer and the ratio to reach. The worst inputs have one in common: so many times a plain loop."""
    goals = {key[:2]: (key[2], float(row[build])) for key, row in read_table(HERE / "goals.tsv", 3).items()
             if row.get(build) and key[:2] in costs}
    worst = (key for key in costs if key[1].startswith(WORST))
    return goals | {key: ("plain", 0.125 if key[0] == "TQ_stristr" else 0.25) for key in worst}


def verdict(cost, peer, goal):
    reached = ratio(cost, peer)
    return "goal met" if round(reached, 2) >= goal else f"{int(100 * reached / goal)} % of it"


def summary(build, costs, goals):
    """How many goals are met, and why others are not."""
    verdicts = {key: verdict(costs[key], *goal) for key, goal in goals.items()}
    missed = {key: text for key, text in verdicts.items() if text != "goal met"}
    reasons = {key[:2]: row["reason"] for key, row in read_table(HERE / "reasons.tsv", 3).items()
               if build in key[2].split()}
    yield f"{len(verdicts) - len(missed)} of {len(verdicts)} goals are met."
    if missed:
        yield "\n| falls short | workload | reached | why |\n|---|---|--:|---|"
    for key, text in missed.items():
        yield line([f"`{key[0]}`", key[1], text, reasons.get(key, "")])


def table(unit, costs, goals, columns=()):
    yield ["routine", "workload", f"ours, {unit}", *columns, "best peer", "peer / ours (more is better)", "goal", ""]
    for key in by_routine(costs):
        cost, (peer, goal) = costs[key], goals.get(key, ("library", None))
        yield [*key, *(f"{cost[name]:.1f}" if name in cost else "" for name in ("ours", *columns)),
               best_peer(cost, peer), f"{ratio(cost, peer):.2f}",
               *([f"{goal:g}", verdict(cost, peer, goal)] if goal else ["", ""])]


def markdown(rows):
    heads, *rows = rows
    rules = ["---", "---"] + ["--:"] * (len(heads) - 2)
    return [line(heads), line(rules), *(line([f"`{routine}`", *cells]) for routine, *cells in rows)]


def print_rows(pattern, unit, builds):
    for build, costs in builds.items():
        chosen = {key: cost for key, cost in costs.items() if re.search(pattern, ", ".join(key))}
        if not chosen:
            sys.exit(f"{build}: nothing matches {pattern}")
        print(f"{build}: {unit} a call, less is better; peer / ours above 1: ours is better")
        rows = list(table(unit, chosen, goals_of(build, chosen)))
        widths = [max(map(len, column)) for column in zip(*rows)]
        for row in rows:
            print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


def armv7_document(tree, builds):
    yield f"""# Speed on ARMv7-A

Instructions a call, counted exactly by an emulator: fewer are better. `script/bench-armv7` writes this file.

- {output_of('arm-linux-gnueabihf-g++', '--version').splitlines()[0]}, `-O2 -mthumb`, hard float
- {output_of('qemu-arm', '--version').splitlines()[0]}
- glibc {version_of('libc6-dev-armhf-cross')}, static
- newlib {version_of('libnewlib-arm-none-eabi')}, `thumb/v7-a+fp/hard` and `thumb/v7-a+simd/hard`
- The call and the return count, what the caller does before and after them does not. An instruction that its
  condition suppresses counts.
- *mix* is 512 texts of 0 to 32 bytes at any alignment; a number is that many bytes at the alignments 0 to 7.
  Half of the mixed texts have the byte sought, half of the mixed pairs differ.
- *peer / ours* takes the better C library, or the plain loop where no C library has such a routine and for
  `TQANSI_atoi`. Above 1 ours takes fewer instructions; more is better. Goals are for this ratio.
- *worst* are inputs of 16,384 bytes that were made to be slow to search. Beside them the plain loop only looks for the
  text's end; the goal is no more than 4 times its instructions, folded 8 times.
- Where a C library has no routine of the kind, its column is what a caller writes with it: `strnlen` and
  `memcpy` for the bounded copy, `strspn` and `strcspn` for tokens and blanks, `memchr` and `memcpy` for lines,
  `snprintf` for `TQANSI_itoa`.
- glibc chooses `memchr` and `memcpy` at run time and takes the NEON ones in both tables."""
    titles = "General registers: `-march=armv7-a+fp`", "NEON: `-march=armv7-a+simd -mfpu=neon`"
    for title, (build, costs) in zip(titles, builds.items()):
        goals = goals_of(build, costs)
        slower = [f"`{routine}` ({workload})" for (routine, workload), cost in costs.items()
                  if not workload.startswith(WORST) and cost["ours"] > 1.1 * cost.get("plain", cost["ours"])]
        yield f"\n## {title}\n"
        yield from summary(build, costs, goals)
        yield f"\nMore than 10 % above the plain loop: {', '.join(slower) or 'nothing'}.\n"
        yield from markdown(table("instructions", costs, goals, ["glibc", "newlib", "plain"]))
    yield from cycles.section(tree, builds)
    yield """
## On your own board

`script/bench-armv7 --board FLAGS...` builds the same program without an operating system, as
`build/bench-armv7/board/board.elf`. The flags are those of `arm-none-eabi-g++` for your core, and what links a program
for your board: its start-up code and linker script, or `--specs=rdimon.specs` for a console through the debugger. It
needs some 4 MB of memory and unaligned access (or `-mno-unaligned-access`). What it writes is a line a run, with cycles of
the core's own counter: PMCCNTR on Cortex-A and R, DWT CYCCNT on Cortex-M where it exists. Kept in a file, these lines
become a table with `python3 benchmarks/report.py board REGULAR_EXPRESSION FILE`.

Without flags the program is for a Cortex-A15 and runs in an emulator. That only shows that it works: cycles there mean
nothing."""


def x86_document(default, baseline, context):
    processor = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text(encoding="utf-8"))[1]
    yield f"""# Speed on x86-64

Time a call: less is better. *peer / ours* is the time of what a user would call instead, divided by ours: above 1 ours
is faster, and more is better. `script/bench` writes this file.

- Processor: {processor}. Only ratios within one run count; they repeat to about 10 %, on short texts to 15 %.
- Compiler: {context["compiler"]}, library and benchmark alike with `{context["flags"]}`.
- The default build chooses its routines for the processor when a program is loaded, as glibc does. The baseline
  (`-DSTRLIB_X86_64_CHOICE=OFF`) stands beside it. Goals are for the default build.
- Peers as users get them: glibc {context["glibc"]}, {{fmt}} {context["fmt"]}, utf8proc {context["utf8proc"]}, dynamically
  linked; `std::from_chars` and `std::to_chars` of the compiler's library; `plain` is a loop where no library has such a
  routine. Where there are several, the fastest counts, or the one that the goal names.
- The fastest of many short interleaved repetitions, in processor time: a machine's other work only ever adds to it.
- Peers gave the same results before each repetition, but in radix 16: `snprintf` takes the sign for a digit there.
- *mix* is 4,096 calls on texts of 0 to 32 bytes at random alignments in random order; a number is the length in bytes.
- *worst* are inputs of 16,384 bytes that were made to be slow to search. Their peer is a plain loop for the length of
  the same text; the goal is no more than 4 times its time, folded 8 times.

![Ratios of each routine](speed.svg)
"""
    goals = goals_of("default", default)
    yield from summary("default", default, goals)
    yield ""
    rows = [row + other[2:5] for row, other in zip(table("ns", default, goals), table("ns", baseline, goals))]
    rows[0][-3:] = "baseline: ours, ns", "best peer", "baseline: peer / ours (more is better)"
    yield from markdown(rows)


def draw(default, baseline):
    """One row a routine, one point a workload."""
    keys = [key for key in by_routine(default) if key in baseline and not key[1].startswith(WORST)]
    routines = list(dict.fromkeys(routine for routine, _ in keys))
    data = ["$ratios << END"]
    for key in keys:
        short = not re.search(r"(^|\^)\d{2,}", key[1])
        data.append(f'{routines.index(key[0])} "{key[0]}" {ratio(default[key])} {ratio(baseline[key])} {int(short)}')
    data += ["END", f"output = '{DOCS / 'speed.svg'}'", f"routines = {len(routines)}", ""]
    script = (HERE / "speed.gnuplot").read_text(encoding="utf-8")
    subprocess.run(["gnuplot"], input="\n".join(data) + script, text=True, check=True)


def report_armv7(mode, tree):
    builds = {build: read_counts(tree / f"{build}.tsv") for build in ("general", "neon")}
    figures = {key: {build: costs[key]["ours"] for build, costs in builds.items()} for key in builds["general"]}
    for key, row in read_table(HERE / "goals.tsv", 3).items():
        if row["general"] and key[:2] not in figures:
            sys.exit(f"goals.tsv: nothing measures {', '.join(key[:2])}")
    if mode == "--update":
        write_table(CEILINGS, ["routine", "workload", *builds], figures)
    elif mode == "--check":
        problems = excesses(figures, read_table(CEILINGS, 2), "instructions a call", TOLERANCE)
        sys.exit("\n".join(problems) or 0)
    elif mode == "--write":
        write_page("speed-armv7.md", armv7_document(tree, builds))
    else:
        print_rows(mode.removeprefix("--print="), "instructions", builds)


def report_x86(mode, *paths):
    (default, context), (baseline, _) = map(read_times, paths)
    if mode == "--write":
        write_page("speed.md", x86_document(default, baseline, context))
        draw(default, baseline)
    else:
        print_rows(mode.removeprefix("--print="), "ns", {"default": default, "baseline": baseline})


try:
    match sys.argv[1:]:
        case "armv7", mode, tree:
            report_armv7(mode, Path(tree))
        case "x86-64", mode, default, baseline:
            report_x86(mode, default, baseline)
        case "board", pattern, path:
            print_rows(pattern, "cycles", {"board": read_counts(path)})
        case _:
            sys.exit(USAGE)
except (OSError, re.error) as problem:
    sys.exit(f"report.py: {problem}")
