"""What the pages on speed and on size have in common: tables of figures, their ceilings, and Markdown."""

import csv
import subprocess
from pathlib import Path

HERE = Path(__file__).parent
DOCS = HERE.parent / "docs"


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def version_of(package):
    return output_of("dpkg-query", "-W", "-f=${Version}", package)


def read_rows(path):
    with open(path, newline="", encoding="utf-8") as file:
        return list(csv.reader(file, delimiter="\t"))


def read_table(path, keys):
    """The first columns, so many, as keys of the others, which are found by their heads."""
    heads, *rows = read_rows(path)
    return {tuple(row[:keys]): dict(zip(heads[keys:], row[keys:])) for row in rows}


def write_table(path, heads, table):
    with open(path, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, delimiter="\t", lineterminator="\n")
        writer.writerow(heads)
        for key, row in table.items():
            writer.writerow([*key, *(round(row[head], 1) if head in row else "" for head in heads[len(key):])])


def excesses(figures, ceilings, unit, tolerance=1):
    """A line for each figure that passes its ceiling; both are found by key and column."""
    for key in sorted(figures.keys() ^ ceilings):
        yield f"{', '.join(key)}: a measurement and a ceiling must both exist"
    for key in sorted(figures.keys() & ceilings):
        for column, ceiling in ceilings[key].items():
            figure = figures[key].get(column, 0)
            if figure > tolerance * float(ceiling or 0):
                yield f"{', '.join(key)}, {column}: {round(figure, 1)} {unit}, ceiling {ceiling}"


def line(cells):
    return "| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |"


def write_page(name, lines):
    DOCS.mkdir(exist_ok=True)
    (DOCS / name).write_text("\n".join(lines) + "\n", encoding="utf-8")
