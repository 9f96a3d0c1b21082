"""Prints the ratios of two builds' results; with --write also renews docs/speed.md and docs/speed.svg."""

import csv
import json
import re
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).parent
DOCS = HERE.parent / "docs"
BUILDS = ("baseline", "v3")


def read_results(path):
    """The context of a run and the fastest ns a call, by routine and workload, then by contender, in listed order."""
    with open(path, encoding="utf-8") as file:
        results = json.load(file)
    runs = [run for run in results["benchmarks"] if run.get("aggregate_name") == "fastest"]
    times = {}
    for run in sorted(runs, key=lambda run: run["family_index"]):
        routine, workload, contender = run["run_name"].split("/", 2)
        times.setdefault((routine, workload), {})[contender] = run["cpu_time"] / run["calls"]
    contests = {key: value for key, value in times.items() if "ours" in value and len(value) > 1}
    return results["context"], contests


def peer_of(times, wanted="best"):
    """The name of the fastest peer, or of the one wanted."""
    if wanted != "best":
        return wanted
    return min((name for name in times if name != "ours"), key=times.get)


def ratio(times, peer):
    return times[peer] / times["ours"]


def table_of_ratios(builds):
    yield "| routine | workload | best peer | ours, ns | ratio | v3: ours, ns | ratio |"
    yield "|---|---|---|--:|--:|--:|--:|"
    for routine, workload in builds[0]:
        measured = [build[routine, workload] for build in builds]
        peers = [peer_of(times) for times in measured]
        cells = " | ".join(f"{times['ours']:.1f} | {ratio(times, peer):.2f}" for times, peer in zip(measured, peers))
        yield f"| {routine} | {workload} | {', '.join(dict.fromkeys(peers))} | {cells} |"


def verdict(value, target):
    return "met" if round(value, 2) >= target else f"{max(1, int(100 * (1 - value / target)))} % short"


def table_of_targets(builds):
    """The routines of each target, in the target's order; those that were not run are left out."""
    yield "| group | routine | workload | peer | target | measured | | v3: target | measured | |"
    yield "|---|---|---|---|--:|--:|---|--:|--:|---|"
    with open(HERE / "targets.tsv", newline="", encoding="utf-8") as file:
        targets = list(csv.DictReader(file, delimiter="\t"))
    for row in targets:
        for routine in row["routines"].split():
            measured = [build.get((routine, row["workload"])) for build in builds]
            if None in measured:
                continue
            values = [ratio(times, peer_of(times, row["peer"])) for times in measured]
            cells = " | ".join(
                f"{row[name]} | {value:.2f} | {verdict(value, float(row[name]))}"
                for name, value in zip(BUILDS, values))
            yield f"| {row['group']} | {routine} | {row['workload']} | {row['peer']} | {cells} |"


def aligned(table):
    """A Markdown table as columns of text."""
    rows = [[cell.strip() for cell in line.strip("|").split("|")] for line in table if not line.startswith("|---")]
    widths = [max(map(len, column)) for column in zip(*rows)]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in rows)


def processor():
    return re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text(encoding="utf-8"))[1]


def document(contexts, builds):
    context = contexts[0]
    targets = list(table_of_targets(builds))
    missed = sum(line.count("% short") for line in targets)
    return f"""# Speed on x86-64

The time of what a user would call instead, divided by ours: above 1 ours is faster. `script/bench` writes this file.

- Processor: {processor()}. Only ratios within one run count; they repeat to about 10 %, on short texts to 15 %.
- Compiler: {context["compiler"]}, library and benchmark alike with `{contexts[0]["flags"]}`, and for the v3 columns with
  `{contexts[1]["flags"]}`.
- Peers: glibc {context["glibc"]} (which chooses its variants for the processor at run time), {{fmt}} {context["fmt"]}, utf8proc
  {context["utf8proc"]}, all dynamically linked; `std::from_chars` and `std::to_chars` of the compiler's library; `plain` is a loop
  where no library has such a routine. Where there are several, the fastest counts.
- The fastest of many short interleaved repetitions, in processor time: a machine's other work only ever adds to it.
- Every peer was seen to give the same results before it was timed.
- *mix* is 4,096 calls on texts of 0 to 32 bytes at random alignments in random order; a number is the length in bytes.

![Ratios of each routine](speed.svg)

## Targets

{missed} of {2 * (len(targets) - 2)} are missed; [why, and what was tried](speed-shortfalls.md).

{chr(10).join(targets)}

## All workloads

{chr(10).join(table_of_ratios(builds))}
"""


def draw(builds):
    """One row a routine, one point a workload."""
    routines = list(dict.fromkeys(routine for routine, _ in builds[0]))
    data = ["$ratios << END"]
    for routine, workload in builds[0]:
        values = [ratio(build[routine, workload], peer_of(build[routine, workload])) for build in builds]
        short = not re.search(r"^long|64$|\d{3,}$", workload)
        data.append(f'{routines.index(routine)} "{routine}" {values[0]} {values[1]} {int(short)}')
    data += ["END", f"output = '{DOCS / 'speed.svg'}'", f"routines = {len(routines)}", ""]
    script = (HERE / "speed.gnuplot").read_text(encoding="utf-8")
    subprocess.run(["gnuplot"], input="\n".join(data) + script, text=True, check=True)


def main(arguments):
    write = arguments[:1] == ["--write"]
    contexts, builds = zip(*(read_results(path) for path in arguments[write:]))
    if not builds[0]:
        sys.exit("bench: the filter leaves nothing to compare")
    print(aligned(table_of_ratios(builds)))
    targets = aligned(table_of_targets(builds))
    if "\n" in targets:
        print("\n" + targets)
    if write:
        DOCS.mkdir(exist_ok=True)
        (DOCS / "speed.md").write_text(document(contexts, builds), encoding="utf-8")
        draw(builds)


main(sys.argv[1:])
