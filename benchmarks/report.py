"""Turns measurements into the pages on speed: report.py armv7 MODE GENERAL.tsv NEON.tsv CYCLES.md, or report.py x86-64
MODE DEFAULT.json BASELINE.json. MODE is --write, --print=REGULAR_EXPRESSION, and on ARM --check or --update. Prints what a
board has counted: report.py board REGULAR_EXPRESSION BOARD.tsv."""

import csv
import json
import re
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).parent
DOCS = HERE.parent / "docs"
CEILINGS = HERE / "ceilings.tsv"
TOLERANCE = 1.05
CALL_AND_RETURN = 2
TITLES = {
    "general": "General registers: `-march=armv7-a+fp`", "neon": "NEON: `-march=armv7-a+simd -mfpu=neon`",
    "default": "The default build", "baseline": "The baseline: `-DSTRLIB_X86_64_CHOICE=OFF`"}
WORST = "worst: "


def read_table(path):
    with open(path, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file, delimiter="\t"))


def read_counts(path):
    """The instructions a call, by routine and workload, then by implementation."""
    costs, empty = {}, 0
    with open(path, newline="", encoding="utf-8") as file:
        for routine, workload, implementation, calls, *count in csv.reader(file, delimiter="\t"):
            if not count:
                sys.exit(f"{path}: {routine} was not counted; does this qemu-arm take plugins?")
            if implementation == "empty":
                empty = int(count[0])
            else:
                cost = (int(count[0]) - empty) / int(calls) + CALL_AND_RETURN
                costs.setdefault((routine, workload), {})[implementation] = cost
    return costs


def read_times(path):
    """The fastest ns a call, by routine and workload, then by implementation."""
    with open(path, encoding="utf-8") as file:
        results = json.load(file)
    costs = {}
    for run in sorted(results["benchmarks"], key=lambda run: run["family_index"]):
        if run.get("aggregate_name") == "fastest":
            routine, workload, implementation = run["run_name"].split("/", 2)
            costs.setdefault((routine, workload), {})[implementation] = run["cpu_time"] / run["calls"]
    return results["context"], {key: cost for key, cost in costs.items() if "ours" in cost and len(cost) > 1}


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


class Goals:
    """What the ratio is to reach in one build. The worst inputs have one in common: so many times a plain loop."""

    def __init__(self, build, costs):
        self.build, self.costs, self.rows = build, costs, {}
        for row in read_table(HERE / "goals.tsv"):
            key = row["routine"], row["workload"]
            if row.get(build) and key in costs:
                self.rows[key] = row["peer"], float(row[build])
        for key in costs:
            if key[1].startswith(WORST):
                self.rows[key] = "plain", 0.125 if key[0] == "TQ_stristr" else 0.25

    def peer(self, key):
        return self.rows.get(key, ("library", 0))[0]

    def is_met(self, key):
        return round(ratio(self.costs[key], self.peer(key)), 2) >= self.rows[key][1]

    def cells(self, key):
        if key not in self.rows:
            return ["", ""]
        value, goal = ratio(self.costs[key], self.peer(key)), self.rows[key][1]
        return [f"{goal:g}", "goal met" if self.is_met(key) else f"{int(100 * value / goal)} % of it"]

    def summary(self):
        """How many goals are met, and why others are not."""
        missed = [key for key in self.rows if not self.is_met(key)]
        known = {(row["routine"], row["workload"]): row["reason"]
                 for row in read_table(HERE / "reasons.tsv") if self.build in row["builds"].split()}
        yield f"{len(self.rows) - len(missed)} of {len(self.rows)} goals are met."
        if missed:
            yield from ["", "| falls short | workload | reached | why |", "|---|---|--:|---|"]
        for key in missed:
            yield line([f"`{key[0]}`", key[1], self.cells(key)[1], known.get(key, "")])


def line(cells):
    return "| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |"


def table(unit, builds, goals, columns):
    """All workloads, with the goals of the first build; one group of columns for each build."""
    heads = ["routine", "workload"]
    for number, build in enumerate(builds):
        prefix = "" if number == 0 else f"{build}: "
        heads += [f"{prefix}ours, {unit}", *columns, "best peer", f"{prefix}peer / ours (more is better)"]
        heads += ["goal", ""] if number == 0 else []
    yield line(heads)
    yield line(["---", "---"] + ["--:"] * (len(heads) - 2))
    for key in by_routine(builds[next(iter(builds))]):
        cells = [f"`{key[0]}`", key[1]]
        for number, costs in enumerate(builds.values()):
            cost = costs.get(key, {"ours": 0.0, "plain": 0.0})
            peer = best_peer(cost, goals.peer(key))
            cells += [f"{cost['ours']:.1f}", *(f"{cost[name]:.1f}" if name in cost else "" for name in columns)]
            cells += [peer, f"{cost[peer] / cost['ours']:.2f}" if cost["ours"] else ""]
            cells += goals.cells(key) if number == 0 else []
        yield line(cells)


def aligned(lines):
    """A Markdown table as columns of text."""
    rows = [[cell.strip(" `") for cell in re.split(r"(?<!\\)\|", line)[1:-1]] for line in lines if "---" not in line]
    widths = [max(map(len, column)) for column in zip(*rows)]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in rows)


def print_rows(pattern, unit, builds):
    for build, costs in builds.items():
        chosen = {key: cost for key, cost in costs.items() if re.search(pattern, ", ".join(key))}
        if not chosen:
            sys.exit(f"{build}: nothing matches {pattern}")
        print(f"{build}: {unit} a call, less is better; peer / ours above 1: ours is better")
        print(aligned(list(table(unit, {build: chosen}, Goals(build, chosen), []))))


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()[0]


def version_of(package):
    return output_of("dpkg-query", "-W", "-f=${Version}\n", package)


def armv7_document(builds, cycles):
    yield f"""# Speed on ARMv7-A

Instructions a call, counted exactly by an emulator: fewer are better. `script/bench-armv7` writes this file.

- {output_of('arm-linux-gnueabihf-g++', '--version')}, `-O2 -mthumb`, hard float
- {output_of('qemu-arm', '--version')}
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
    for build, costs in builds.items():
        goals = Goals(build, costs)
        slower = [f"`{routine}` ({workload})" for (routine, workload), cost in costs.items()
                  if not workload.startswith(WORST) and cost["ours"] > 1.1 * cost.get("plain", cost["ours"])]
        yield f"\n## {TITLES[build]}\n"
        yield from goals.summary()
        yield f"\nMore than 10 % above the plain loop: {', '.join(slower) or 'nothing'}.\n"
        yield from table("instructions", {build: costs}, goals, ["glibc", "newlib", "plain"])
    yield "\n" + cycles.rstrip()
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


def x86_document(contexts, builds):
    processor = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text(encoding="utf-8"))[1]
    context, goals = contexts[0], Goals("default", builds["default"])
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
- Every peer was seen to give the same results before it was timed.
- *mix* is 4,096 calls on texts of 0 to 32 bytes at random alignments in random order; a number is the length in bytes.
- *worst* are inputs of 16,384 bytes that were made to be slow to search. Their peer is a plain loop for the length of
  the same text; the goal is no more than 4 times its time, folded 8 times.

![Ratios of each routine](speed.svg)
"""
    yield from goals.summary()
    yield ""
    yield from table("ns", builds, goals, [])


def draw(builds):
    """One row a routine, one point a workload."""
    default, baseline = builds.values()
    keys = [key for key in by_routine(default) if key in baseline and not key[1].startswith(WORST)]
    routines = list(dict.fromkeys(routine for routine, _ in keys))
    data = ["$ratios << END"]
    for routine, workload in keys:
        values = [ratio(costs[routine, workload]) for costs in (default, baseline)]
        short = not re.search(r"(^|\^)\d{2,}", workload)
        data.append(f'{routines.index(routine)} "{routine}" {values[0]} {values[1]} {int(short)}')
    data += ["END", f"output = '{DOCS / 'speed.svg'}'", f"routines = {len(routines)}", ""]
    script = (HERE / "speed.gnuplot").read_text(encoding="utf-8")
    subprocess.run(["gnuplot"], input="\n".join(data) + script, text=True, check=True)


def update_ceilings(builds):
    with open(CEILINGS, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, delimiter="\t", lineterminator="\n")
        writer.writerow(("routine", "workload", *builds))
        for key in builds["general"]:
            writer.writerow((*key, *(f"{costs[key]['ours']:.1f}" for costs in builds.values())))


def excesses(builds):
    """One line for each routine and build that passes a ceiling, naming its worst workload."""
    ceilings = {(row["routine"], row["workload"]): row for row in read_table(CEILINGS)}
    for key in builds["general"].keys() ^ ceilings.keys():
        yield f"{key[0]}, {key[1]}: a measurement and a ceiling must both exist"
    for build, costs in builds.items():
        worst = {}
        for key in costs.keys() & ceilings.keys():
            measured, ceiling = costs[key]["ours"], float(ceilings[key][build])
            entry = (measured / ceiling, key[1], measured, ceiling)
            worst[key[0]] = max(worst.get(key[0], entry), entry)
        for routine, (excess, workload, measured, ceiling) in sorted(worst.items()):
            if excess > TOLERANCE:
                yield f"{routine}, {build}, {workload}: {measured:.1f} instructions a call, ceiling {ceiling:.1f}"


def write(name, lines):
    DOCS.mkdir(exist_ok=True)
    (DOCS / name).write_text("\n".join(lines) + "\n", encoding="utf-8")


def report_armv7(mode, general, neon, cycles):
    builds = {"general": read_counts(general), "neon": read_counts(neon)}
    unknown = [row for row in read_table(HERE / "goals.tsv")
               if row["general"] and (row["routine"], row["workload"]) not in builds["general"]]
    if unknown:
        sys.exit(f"goals.tsv: nothing measures {unknown[0]['routine']}, {unknown[0]['workload']}")
    if mode == "--update":
        update_ceilings(builds)
    elif mode == "--check":
        sys.exit("\n".join(sorted(excesses(builds))) or 0)
    elif mode == "--write":
        write("speed-armv7.md", armv7_document(builds, Path(cycles).read_text(encoding="utf-8")))
    else:
        print_rows(mode.removeprefix("--print="), "instructions", builds)


def report_x86(mode, *paths):
    contexts, costs = zip(*map(read_times, paths))
    builds = dict(zip(("default", "baseline"), costs))
    if mode == "--write":
        write("speed.md", x86_document(contexts, builds))
        draw(builds)
    else:
        print_rows(mode.removeprefix("--print="), "ns", builds)


def report_board(pattern, path):
    print_rows(pattern, "cycles", {"board": read_counts(path)})


{"armv7": report_armv7, "x86-64": report_x86, "board": report_board}[sys.argv[1]](*sys.argv[2:])
