"""Prints a source of the manual as Doxygen has to see it: filter.py FILE.

The header, the documents and the examples are written to be read as they stand.
"""

import re
import sys
from pathlib import Path

# Links between the files, as links between the pages that these become.
LINKS = [
    (r"\]\((?:\.\./)?strlib/include/(strlib\.h)\)", r"](@ref \1)"),
    (r"\]\(\.\./examples/porting/(\w+\.c)\)", r"](@ref \1)"),
    (r"\]\((?:docs/)?([a-z0-9-]+)\.md\)", r"](@ref \1)"),
]


def document(text, path):
    # Doxygen shows the marks of code in a heading, and of a document's own label it makes the page's address.
    text = re.sub(r"^#.*", lambda heading: heading[0].replace("`", ""), text, flags=re.MULTILINE)
    text = re.sub(r"\A# (.*)", rf"# \1 {{#{path.stem}}}", text)
    for pattern, replacement in LINKS:
        text = re.sub(pattern, replacement, text)
    return re.sub(r"(?:^\|.*\|$\n?)+", table, text, flags=re.MULTILINE)


def table(match):
    """Where a screen is too narrow for columns, cells stand below each other, and each needs its column's title."""
    rows = [re.split(r"(?<!\\)\|", row.strip()[1:-1]) for row in match[0].strip().splitlines()]
    rows = [[cell.strip().replace(r"\|", "|") for cell in row] for row in rows]
    titles, alignments = rows[0], ["right" if cell.endswith(":") else "left" for cell in rows[1]]
    head = "".join(f"<th>{title}</th>" for title in titles)
    lines = [
        "<tr>" + "".join(
            f'<td align="{alignment}" data-title="{title.replace("`", "")}">{cell}</td>'
            for cell, title, alignment in zip(row, titles, alignments)
        ) + "</tr>"
        for row in rows[2:]
    ]
    return "\n".join(['<table class="document">', f"<tr>{head}</tr>", *lines, "</table>", ""])


def example(text, path):
    # The opening comment makes it one.
    return re.sub(r"\A/\* ", f"/**\n * @example {path.name}\n * ", text)


def header(text, path):
    return text


def document_prose(text):
    # Quotation marks change what a backslash or a percent sign means to Doxygen; two dashes become one.
    return re.sub(r"[\\%]|--(?=\w)", r"\\\g<0>", text).replace('"', "&quot;")


def header_prose(text):
    # Doxygen drops a percent sign that no quotation marks surround.
    return text.replace("'%'", "'\\%'")


def code(text):
    # Doxygen ends a code span at an apostrophe unless its backticks are doubled.
    return f"`{text}`" if "'" in text and not text.startswith("``") else text


def main(path):
    kind, prose = {".md": (document, document_prose), ".c": (example, str), ".h": (header, header_prose)}[path.suffix]
    pieces = re.split(r"(```.*?```|`[^`\n]*`)", path.read_text(encoding="utf-8"), flags=re.DOTALL)
    pieces[::2] = map(prose, pieces[::2])
    pieces[1::2] = map(code, pieces[1::2])
    sys.stdout.write(kind("".join(pieces), path))


main(Path(sys.argv[1]))
