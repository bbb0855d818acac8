"""The hand-written lines of src/, and what in them is code, comment or message."""
import dataclasses
import pathlib
import re

INSIDE = "\x01"  # stands for each character of a string or character literal


@dataclasses.dataclass
class SourceFile:
    path: str  # relative to the root of the project
    lines: list  # as written, without line ends
    code: list  # the same, with comments blank and literals masked
    literals: list  # (line, start, end) of the contents of each string on one line

    @property
    def folder(self):
        return self.path.split("/")[1]


def mask_line(line, state):
    """Returns the line with comments blank and literals masked, its strings, and the state that
    the next line starts in: "", "comment", or the end mark of a raw string."""
    out, strings, i = [], [], 0
    while i < len(line):
        if state == "comment":
            end = line.find("*/", i)
            stop = len(line) if end < 0 else end + 2
            out.append(" " * (stop - i))
            state = "comment" if end < 0 else ""
            i = stop
        elif state:
            end = line.find(state, i)
            stop = len(line) if end < 0 else end
            out.append(INSIDE * (stop - i))
            if stop > i:
                strings.append((i, stop))
            if end >= 0:
                out.append(state)
                i, state = end + len(state), ""
            else:
                i = stop
        elif line.startswith("//", i):
            out.append(" " * (len(line) - i))
            i = len(line)
        elif line.startswith("/*", i):
            state = "comment"
        elif raw := re.compile(r'R"(\w*)\(').match(line, i):
            out.append(raw.group())
            i, state = raw.end(), ")" + raw.group(1) + '"'
        elif line[i] == "\\":
            out.append(line[i : i + 2])
            i += 2
        elif line[i] == '"' or (line[i] == "'" and not (i and line[i - 1].isalnum())):
            literal = re.compile(line[i] + r"((?:[^\\" + line[i] + r"]|\\.)*)" + line[i])
            found = literal.match(line, i)
            if not found:
                out.append(line[i])
                i += 1
                continue
            out.append(line[i] + INSIDE * len(found.group(1)) + line[i])
            if line[i] == '"':
                strings.append(found.span(1))
            i = found.end()
        else:
            out.append(line[i])
            i += 1
    return "".join(out), strings, state


def read(root, path):
    lines = (root / path).read_text(encoding="utf-8").split("\n")
    code, literals, state, directive = [], [], "", False
    for number, line in enumerate(lines):
        directive = directive or (not state and line.lstrip().startswith(("#", "%")))
        masked, strings, state = mask_line(line, state)
        if directive or re.match(r"\s*(using|namespace|static_assert|extern)\b", masked):
            masked, strings = " " * len(line), []
        directive = directive and line.endswith("\\")
        code.append(masked)
        literals += [(number, *span) for span in strings]
    return SourceFile(path, lines, code, literals)


def read_all(root):
    root = pathlib.Path(root)
    paths = sorted(
        str(path.relative_to(root))
        for path in (root / "src").glob("*/*")
        if path.suffix in (".cpp", ".h")
    )
    return [read(root, path) for path in paths]
