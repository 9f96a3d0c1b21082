"""Makes one manual page of each routine, and one of the main page, from Doxygen's XML.

Doxygen's own manual pages are one to a family, under names such as search(3) that belong to others.
"""

import re
import sys
import textwrap
import xml.etree.ElementTree as ElementTree
from pathlib import Path

EXAMPLES = Path(__file__).parents[2] / "examples/porting"

# Typesetting would turn these into look-alikes; here they are bytes of arguments and results.
ESCAPES = str.maketrans({"\\": r"\e", "'": r"\(aq", "`": r"\(ga", "-": r"\-", "^": r"\(ha", "~": r"\(ti"})
# Stands in running text until its blanks are settled.
LINE_BREAK = "\0"
FONTS = {"computeroutput": "B", "emphasis": "I", "bold": "B"}


def escaped(text):
    return (text or "").translate(ESCAPES)


def inline(node):
    """The running text of a paragraph, without the blocks in it."""
    text = escaped(node.text)
    for child in node:
        if child.tag == "linebreak":
            text += LINE_BREAK
        elif child.tag not in BLOCKS:
            inner = inline(child)
            if child.tag == "computeroutput":
                inner = re.sub("  +", lambda blanks: r"\ " * len(blanks[0]), inner)
            font = FONTS.get(child.tag)
            text += rf"\f{font}{inner}\fR" if font else inner
        text += escaped(child.tail)
    return text


def listing(node):
    for space in node.iter("sp"):
        space.text = " "
    lines = ["".join(line.itertext()) for line in node]
    return [".PP", ".RS 4", ".nf", *map(escaped, lines), ".fi", ".RE"]


def item_list(node):
    return [line for item in node for line in [r".IP \(bu 2", *paragraphs(item)[1:]]]


# The blocks that may stand in a paragraph; a parameter list and a result have sections of their own.
BLOCKS = {
    "heading": lambda node: [f".SS {escaped(node.text)}"],
    "itemizedlist": item_list,
    "programlisting": listing,
    "parameterlist": lambda node: [],
    "simplesect": lambda node: [],
}


def paragraph(para):
    text = " ".join(inline(para).split())
    lines = [".PP", re.sub(f" ?{LINE_BREAK} ?", "\n.br\n", text)] if text else []
    return lines + [line for child in para for line in BLOCKS.get(child.tag, lambda block: [])(child)]


def paragraphs(node):
    lines = []
    for child in node:
        if child.tag == "para":
            lines += paragraph(child)
        elif child.tag.startswith("sect"):
            lines += [f".SS {escaped(child.findtext('title'))}", *paragraphs(child)]
    return lines


def prototype(member):
    def declared(of, name):
        kind = "".join(of.find("type").itertext())
        return kind + ("" if kind.endswith("*") else " ") + name

    head = declared(member, member.findtext("name")) + "("
    parameters = [declared(param, param.findtext("declname")) for param in member.findall("param")]
    unbroken = ", ".join(parameter.replace(" ", "\0") for parameter in parameters)
    lines = textwrap.wrap(head.replace(" ", "\0") + unbroken + ");", 73, subsequent_indent="\0" * len(head))
    return [line.replace("\0", " ") for line in lines]


def page(name, brief, sections, version):
    lines = [f'.TH {name} 3 "" "strlib {version}" "strlib"', ".nh", ".ad l", ".SH NAME", rf"{name} \- {brief}"]
    for title, body in sections:
        lines += [f".SH {title}", *body] if body else []
    return "\n".join(lines) + "\n"


def example(path):
    """A program, shown whole; its opening comment says what it shows, and of which routines."""
    comment, code = re.fullmatch(r"/\* (.*?) \*/\n(.*)", path.read_text(encoding="utf-8"), re.DOTALL).groups()
    about = " ".join(line.strip().removeprefix("* ") for line in comment.splitlines())
    lines = [line.replace("\t", " " * 8) for line in code.rstrip().splitlines()]
    return about, [".PP", escaped(about), ".PP", ".nf", *map(escaped, lines), ".fi"]


def examples_of(name, examples):
    return [line for about, lines in examples if f"{name}()" in about for line in lines]


def routine_page(member, family, examples, version):
    name = member.findtext("name")
    details = member.find("detaileddescription")
    arguments = []
    for item in details.iterfind(".//parameteritem"):
        body = paragraphs(item.find("parameterdescription"))
        arguments += [".TP", rf"\fI{item.findtext('.//parametername')}\fR", *body[1:]]
    result = details.find(".//simplesect[@kind='return']")
    others = [other.findtext("name") for other in family.iterfind(".//memberdef") if other is not member]
    return page(name, inline(member.find("briefdescription/para")).strip(), [
        ("SYNOPSIS", [".nf", r"\fB#include <strlib.h>\fR", "", *map(escaped, prototype(member)), ".fi"]),
        ("DESCRIPTION", paragraphs(member.find("briefdescription")) + paragraphs(details)
                        + paragraphs(family.find("detaileddescription"))),
        ("ARGUMENTS", arguments),
        ("RESULT", paragraphs(result) if result is not None else []),
        ("EXAMPLES", examples_of(name, examples)),
        ("SEE ALSO", [", ".join(rf"\fB{other}\fR(3)" for other in [*others, "strlib"])]),
    ], version)


def main_page(root, header, families, version):
    routines = []
    for family in families:
        names = ", ".join(rf"\fB{member.findtext('name')}\fR(3)" for member in family.iterfind(".//memberdef"))
        routines += [".TP", escaped(family.findtext("title")), names]
    return page("strlib", inline(header.find("briefdescription/para")).strip(), [
        ("DESCRIPTION", paragraphs(root.find("detaileddescription"))),
        ("TERMS", paragraphs(header.find("detaileddescription"))),
        ("ROUTINES", routines),
    ], version)


def main(xml, target, version):
    def compound(identity):
        return ElementTree.parse(xml / f"{identity}.xml").getroot().find("compounddef")

    target.mkdir(parents=True)
    examples = [example(path) for path in sorted(EXAMPLES.glob("*.c"))]
    root = compound("indexpage")
    # The families in the order in which the main page lists them.
    references = [ref.get("refid") for ref in root.iter("ref") if ref.get("kindref") == "compound"]
    families = [compound(reference) for reference in references if reference.startswith("group__")]
    for family in families:
        for member in family.iterfind(".//memberdef[@kind='function']"):
            (target / f"{member.findtext('name')}.3").write_text(routine_page(member, family, examples, version))
    (target / "strlib.3").write_text(main_page(root, compound("strlib_8h"), families, version))


main(Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3])
