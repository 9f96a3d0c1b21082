"""Turns the counts of both builds into docs/speed-armv7.md, or compares them with the ceilings."""

import csv
import math
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).parent
BUILDS = ("general", "neon")
TITLES = {"general": "General registers: `-march=armv7-a+fp`", "neon": "NEON: `-march=armv7-a+simd -mfpu=neon`"}
CALL_AND_RETURN = 2
TOLERANCE = 1.05
CEILINGS = HERE / "ceilings.tsv"


def read_table(path):
    with open(path, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file, delimiter="\t"))


def read_costs(path):
    """The instructions a call, by routine and workload, then by implementation."""
    fields = ("routine", "workload", "implementation", "calls", "instructions")
    costs = {}
    empty = 0
    with open(path, newline="", encoding="utf-8") as file:
        for run in csv.DictReader(file, fields, delimiter="\t"):
            if not run["instructions"]:
                sys.exit(f"{path}: {run['routine']} was not counted; does this qemu-arm take plugins?")
            instructions = int(run["instructions"])
            if run["implementation"] == "empty":
                empty = instructions
                continue
            cost = (instructions - empty) / int(run["calls"]) + CALL_AND_RETURN
            costs.setdefault((run["routine"], run["workload"]), {})[run["implementation"]] = cost
    return costs


def best_peer(costs, kind):
    """The better of the C libraries, or the plain loop where that is asked for or is the only peer."""
    libraries = [costs[name] for name in ("glibc", "newlib") if name in costs]
    return min(libraries) if libraries and kind != "plain" else costs["plain"]


def verdict(ratio, target):
    if ratio >= target:
        return "met"
    return f"{100 * ratio / target:.0f} % of it"


def by_routine(costs):
    """The measurements of a routine together, the routines in the order in which they first come."""
    order = list(dict.fromkeys(routine for routine, _ in costs))
    return sorted(costs.items(), key=lambda item: order.index(item[0][0]))


def table(costs, targets, build):
    yield "| routine | workload | ours | glibc | newlib | plain loop | peer / ours | target | |"
    yield "|---|---|--:|--:|--:|--:|--:|--:|---|"
    for key, cost in by_routine(costs):
        target = targets.get(key)
        ratio = best_peer(cost, target["peer"] if target else "library") / cost["ours"]
        cells = [f"{cost[name]:.1f}" if name in cost else "" for name in ("ours", "glibc", "newlib", "plain")]
        goal = [target[build], verdict(ratio, float(target[build]))] if target else ["", ""]
        yield "| " + " | ".join([f"`{key[0]}`", key[1].replace("|", "\\|"), *cells, f"{ratio:.2f}", *goal]) + " |"


def summary(costs, targets, build):
    missed = 0
    for key, target in targets.items():
        missed += best_peer(costs[key], target["peer"]) / costs[key]["ours"] < float(target[build])
    yield f"{missed} of {len(targets)} targets are missed; [why, and what was tried](speed-shortfalls.md)."
    yield ""
    slower = [
        f"`{routine}` ({workload})"
        for (routine, workload), cost in costs.items()
        if cost["ours"] > 1.1 * cost.get("plain", math.inf)
    ]
    yield f"More than 10 % above the plain loop: {', '.join(slower) or 'nothing'}."


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()[0]


def version_of(package):
    return output_of("dpkg-query", "-W", "-f=${Version}\n", package)


def document(costs, targets):
    yield "# Speed on ARMv7-A"
    yield ""
    yield "Instructions a call, counted exactly by an emulator; `script/bench-armv7` writes this file."
    yield ""
    yield f"- {output_of('arm-linux-gnueabihf-g++', '--version')}, `-O2 -mthumb`, hard float"
    yield f"- {output_of('qemu-arm', '--version')}"
    yield f"- glibc {version_of('libc6-dev-armhf-cross')}, static"
    yield f"- newlib {version_of('libnewlib-arm-none-eabi')}, `thumb/v7-a+fp/hard` and `thumb/v7-a+simd/hard`"
    yield "- The call and the return count, what the caller does before and after them does not. An instruction that its"
    yield "  condition suppresses counts."
    yield "- *mix* is 512 texts of 0 to 32 bytes at any alignment; a number is that many bytes at the alignments 0 to 7."
    yield "  Half of the mixed texts have the byte sought, half of the mixed pairs differ."
    yield "- *peer / ours* takes the better C library, or the plain loop where no C library has such a routine and for"
    yield "  `TQANSI_atoi`. Above 1 ours takes fewer instructions."
    yield "- Where a C library has no routine of the kind, its column is what a caller writes with it: `strnlen` and"
    yield "  `memcpy` for the bounded copy, `strspn` and `strcspn` for tokens and blanks, `memchr` and `memcpy` for lines,"
    yield "  `snprintf` for `TQANSI_itoa`."
    yield "- glibc chooses `memchr` and `memcpy` at run time and takes the NEON ones in both tables."
    for build in BUILDS:
        yield ""
        yield f"## {TITLES[build]}"
        yield ""
        yield from summary(costs[build], targets, build)
        yield ""
        yield from table(costs[build], targets, build)


def write_document(costs):
    targets = {(row["routine"], row["workload"]): row for row in read_table(HERE / "targets.tsv")}
    unknown = [key for key in targets if key not in costs[BUILDS[0]]]
    if unknown:
        sys.exit(f"targets.tsv: no such measurement: {unknown[0]}")
    path = HERE.parent.parent / "docs" / "speed-armv7.md"
    path.parent.mkdir(exist_ok=True)
    path.write_text("\n".join(document(costs, targets)) + "\n", encoding="utf-8")


def update_ceilings(costs):
    with open(CEILINGS, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, delimiter="\t", lineterminator="\n")
        writer.writerow(("routine", "workload", *BUILDS))
        for key in costs[BUILDS[0]]:
            writer.writerow((*key, *(f"{costs[build][key]['ours']:.1f}" for build in BUILDS)))


def excesses(costs):
    """One line for each routine and build that passes a ceiling, naming its worst workload."""
    ceilings = {(row["routine"], row["workload"]): row for row in read_table(CEILINGS)}
    for key in costs[BUILDS[0]].keys() ^ ceilings.keys():
        yield f"{key[0]}, {key[1]}: a measurement and a ceiling must both exist"
    for build in BUILDS:
        worst = {}
        for key in costs[build].keys() & ceilings.keys():
            measured, ceiling = costs[build][key]["ours"], float(ceilings[key][build])
            entry = (measured / ceiling, key[1], measured, ceiling)
            worst[key[0]] = max(worst.get(key[0], entry), entry)
        for routine, (ratio, workload, measured, ceiling) in sorted(worst.items()):
            if ratio > TOLERANCE:
                yield f"{routine}, {build}, {workload}: {measured:.1f} instructions a call, ceiling {ceiling:.1f}"


def main():
    mode, *paths = sys.argv[1:]
    costs = {build: read_costs(path) for build, path in zip(BUILDS, paths)}
    if mode == "--update":
        update_ceilings(costs)
    elif mode == "--check":
        lines = sorted(excesses(costs))
        print("\n".join(lines), end="\n" if lines else "", file=sys.stderr)
        sys.exit(1 if lines else 0)
    else:
        write_document(costs)


main()
