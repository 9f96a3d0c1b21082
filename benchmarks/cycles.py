"""Estimates, with llvm-mca, the cycles of the loops that long texts are spent in.

A loop is the code between a backward branch and its target that holds no other loop, with or without what a branch in
it passes over. Of several in a routine and in what it calls, the one meant is known by the instructions that were
counted: those of a turn, divided by those that each further byte of a text takes, are a power of two, the bytes of a
turn."""

import math
import re
import subprocess

from pages import line, output_of

CORES = ("cortex-r52", "cortex-a57")
PEERS = {"glibc": "{}", "newlib": "newlib_{}"}
ALIKE = ", aligned alike"
ROUTINES = {  # with the peer's name, and what the names of the workloads of 256 and of 4096 bytes end in
    "TQANSI_strlen": ("strlen", ""), "TQANSI_strchr": ("strchr", ""), "TQANSI_strrchr": ("strrchr", ""),
    "TQANSI_memchr": ("memchr", ""), "TQANSI_strpbrk": ("strpbrk", ", set of 3"), "TQANSI_memset": ("memset", ""),
    "TQANSI_strcpy": ("strcpy", ALIKE), "TQANSI_strcmp": ("strcmp", ALIKE), "TQANSI_memcmp": ("memcmp", ALIKE),
    "TQANSI_stricmp": ("strcasecmp", ALIKE)}
CHOSEN_AT_LOAD_TIME = {"memchr": "__memchr_neon"}


def read_functions(program):
    """For each function its instructions, as pairs of address and text."""
    functions, current = {}, []
    for text in output_of("arm-linux-gnueabihf-objdump", "-d", "--no-show-raw-insn", program).splitlines():
        if head := re.match(r"[0-9a-f]+ <(.*)>:$", text):
            current = functions.setdefault(head[1], [])
        elif code := re.match(r"\s*([0-9a-f]+):\s+(.*?)\s*(?:[@;].*)?$", text):
            current.append((int(code[1], 16), code[2].replace("\t", " ")))
    starts = {code[0][0]: code for code in functions.values() if code}
    for text in output_of("arm-linux-gnueabihf-nm", program).splitlines():  # Listings give one name of several.
        if symbol := re.match(r"([0-9a-f]+) [TtWi] (.*)", text):
            functions.setdefault(symbol[2], starts.get(int(symbol[1], 16) & ~1, []))
    return functions


def reachable(functions, start):
    """A function and what it calls or ends in."""
    found = [start] if start in functions else []
    for name in found:
        for _, text in functions[name]:
            call = re.match(r"(?:b|bl|blx)(?:\.\w)? [0-9a-f]+ <([^+>]*)>", text)
            if call and call[1] in functions and call[1] not in found:
                found.append(call[1])
    return found


def loops_of(instructions):
    index_of = {address: index for index, (address, _) in enumerate(instructions)}
    jumps = []
    for index, (_, text) in enumerate(instructions):
        if target := re.match(r"(?:b\w*(?:\.\w)?|cbn?z \w+,) ([0-9a-f]+) <", text):
            jumps.append((index, index_of.get(int(target[1], 16), -1)))
    spans = [(to, at) for at, to in jumps if 0 <= to <= at]
    for first, last in spans:
        if not any(first <= a and b <= last and (a, b) != (first, last) for a, b in spans):
            passed = [range(at + 1, to) for at, to in jumps if first <= at < to <= last]
            for skipped in [(), *passed]:
                yield [instructions[index][1] for index in range(first, last + 1) if index not in skipped]


def hot_loop(functions, symbol, instructions_per_byte):
    """The bytes of a turn and the loop, or nothing if none fits."""
    candidates = []
    for name in reachable(functions, symbol):
        for loop in loops_of(functions[name]):
            size = 2 ** max(0, round(math.log2(len(loop) / instructions_per_byte)))
            candidates.append((abs(len(loop) / size / instructions_per_byte - 1), size, loop))
    deviation, size, loop = min(candidates, default=(1, 0, []))
    return (size, loop) if deviation < 0.02 else (0, [])


def in_arm_state(text):
    """The same instruction in the other set: llvm-mca fails on some of Thumb, and on blocks of conditions."""
    text = re.sub(r"^(\w+(?:\.[ifsu]?\d+)?)\.[wn] ", r"\1 ", re.sub(r"\b[0-9a-f]+ <.*>$", "turn", text))
    if branch := re.match(r"cb(n?)z (\w+), turn", text):
        return [f"cmp {branch[2]}, #0", "bne turn" if branch[1] else "beq turn"]
    # Not every constant and operation exists there; others cost the same.
    return [] if re.match(r"it[te]* ", text) else [re.sub(r"#\d{4,}", "#1", re.sub("^orn", "orr", text))]


def with_even_pairs(code):
    """Other registers, as in that set ldrd takes an even one and the next. The stack pointer keeps its place."""
    for name, number in (("sl", 10), ("fp", 11), ("ip", 12), ("lr", 14)):
        code = re.sub(rf"\b{name}\b", f"r{number}", code)
    pairs = dict.fromkeys(re.findall(r"(?:ldrd|strd)\w* (r\d+), (r\d+)", code))
    order = list(dict.fromkeys([register for pair in pairs for register in pair] + re.findall(r"\br\d+\b", code)))
    names = dict(zip(order, (f"r{number}" for number in (*range(13), 14))))
    return re.sub(r"\br\d+\b", lambda match: names[match[0]], code)


def cycles(loop, core):
    """The cycles of one turn among many; nothing if the model of the core lacks an instruction."""
    code = with_even_pairs("\n".join(["turn:", *(line for text in loop for line in in_arm_state(text)), ""]))
    result = subprocess.run(["llvm-mca", "-mtriple=armv8-none-eabihf", f"-mcpu={core}", "-iterations=1000"],
                            input=code, capture_output=True, text=True, check=False)
    total = re.search(r"Total Cycles:\s+(\d+)", result.stdout)
    return int(total[1]) / 1000 if total and "error" not in result.stderr else None


def section(tree, builds):
    """A section of the page on ARMv7-A, from the instructions counted and the tree with the programs."""
    version = re.search(r"version (\S+)", output_of("llvm-mca", "--version"))[1]
    yield f"""
## Cycles a byte

What instruction counts cannot see: how instructions wait for one another. `llvm-mca`
{version} estimates the cycles of the loop that long texts are spent in, for an in-order core (`-mcpu=cortex-r52`) and
for one that is out of order (`-mcpu=cortex-a57`); it has no usable model of the Cortex-A7, A8 and A9. All data is taken
to be in the nearest cache, all branches to be foreseen; texts that are compared or copied are aligned alike. Less is
better. Empty where the time is not spent in one loop, or where the model lacks one of its instructions."""
    heads = [f"{name}: {core.removeprefix('cortex-').upper()}" for name in ("ours", *PEERS) for core in CORES]
    for title, (build, costs) in zip(("General registers", "NEON"), builds.items()):
        yield f"\n### {title}\n\n| routine | {' | '.join(heads)} |\n|---|{'--:|' * len(heads)}"
        functions = read_functions(tree / build / "bench")
        for routine, (peer, ending) in ROUTINES.items():
            cells = [f"`{routine}`"]
            for name, pattern in {"ours": routine, **PEERS}.items():
                symbol = CHOSEN_AT_LOAD_TIME.get(pattern.format(peer), pattern.format(peer))
                per_byte = (costs[routine, f"4096{ending}"][name] - costs[routine, f"256{ending}"][name]) / 3840
                size, loop = hot_loop(functions, symbol, per_byte)
                estimates = [cycles(loop, core) if loop else None for core in CORES]
                cells += [f"{estimate / size:.2f}" if estimate else "" for estimate in estimates]
            yield line(cells)
