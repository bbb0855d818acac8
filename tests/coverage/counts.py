"""What of src/ ran, read from the export of llvm-cov.

A function that is compiled several times, as a template or for several instruction sets, counts as
one: a line or a branch of it is covered if it is in any of them. Of scanners and parsers only what
stands in the .l and .y files counts, because the rest is the work of flex and bison. Lines without
code do not count, and neither do conditions that are constant.
"""

import collections
import json
import pathlib
import re

CODE, SKIPPED, GAP = 0, 2, 3  # kinds of regions

Branch = collections.namedtuple("Branch", "line column end_line end_column")


class File:
    """Counts of one file: lines by number, and branches by place as [times true, times false]."""

    def __init__(self):
        self.lines = {}
        self.branches = {}


def instance_lines(regions):
    """Counts by line of one instance of a function. A line has the largest count of what begins on
    it and of what it is inside of at its start."""
    counts = {}
    first = min(region[0] for region in regions)
    last = max(region[2] for region in regions)
    for line in range(first, last + 1):
        starts = [region[4] for region in regions if region[0] == line and region[7] == CODE]
        around = [region for region in regions
                  if (region[0], region[1]) < (line, 1) < (region[2], region[3])]
        if around:
            inside = max(around, key=lambda region: (region[0], region[1]))
            if inside[7] == SKIPPED and not starts:
                continue
            starts.append(inside[4])
        if starts:
            counts[line] = max(starts)
    return counts


def line_counts(instances):
    """Counts by line of a file, from the counts of each function there by its place. A function
    inside another one, such as a lambda, alone counts for the lines that begin in it."""
    counts = {}
    for place, lines in sorted(instances.items()):
        for line, count in lines.items():
            begins_before = place[0] < line
            counts[line] = count if begins_before else max(count, counts.get(line, 0))
    return counts


def is_constant(branch, regions):
    """A condition that the compiler decides has no counts in a function that runs there."""
    if branch[4] or branch[5]:
        return False
    place = (branch[0], branch[1])
    around = [region for region in regions if region[7] == CODE and region[5] == branch[6]
              and (region[0], region[1]) <= place < (region[2], region[3])]
    return bool(around) and max(around, key=lambda region: (region[0], region[1]))[4] > 0


def grammar_lines(generated):
    """By line of generated code, the grammar and its line that the code comes from."""
    mapped = {}
    origin = None
    for number, text in enumerate(generated.read_text().splitlines(), 1):
        directive = re.match(r'#line (\d+) "(.*)"', text)
        if directive:
            file = pathlib.Path(directive[2])
            origin = (file, int(directive[1])) if file.suffix in (".l", ".y") else None
        elif text.strip() == "YY_BREAK":
            origin = None
        elif origin:
            mapped[number] = origin
            origin = (origin[0], origin[1] + 1)
    return mapped


class Sources:
    """Maps the names of files in the export to files of src/ and lines there."""

    def __init__(self, root, build):
        self.source, self.generated = root / "src", build / "src"
        self.files = {}
        self.grammars = {}

    def find(self, name):
        """The file and, for generated code, the lines that it comes from. None: not of src/."""
        if name not in self.files:
            path = pathlib.Path(name).resolve()
            if path.is_relative_to(self.generated) and path.exists():
                self.grammars[name] = grammar_lines(path)
                self.files[name] = path
            else:
                self.files[name] = path if path.is_relative_to(self.source) else None
        return self.files[name]

    def place(self, name, line):
        path = self.find(name)
        if path is None or name not in self.grammars:
            return path, line
        return self.grammars[name].get(line, (None, line))


def has_code(text):
    text = text.strip()
    return bool(text) and not text.startswith("//")


def add_lines(files, sources, export):
    by_file = collections.defaultdict(dict)
    for function in export["functions"]:
        regions_by_file = collections.defaultdict(list)
        for region in function["regions"]:
            if region[7] in (CODE, SKIPPED, GAP):
                regions_by_file[region[5]].append(region)  # a macro has a number of its own
        for number, regions in regions_by_file.items():
            name = function["filenames"][number]
            path = sources.find(name)
            if path is None:
                continue
            place = tuple(regions[0][:2]) + (-regions[0][2], -regions[0][3])
            lines = by_file[name if name in sources.grammars else str(path)].setdefault(place, {})
            for line, count in instance_lines(regions).items():
                lines[line] = max(count, lines.get(line, 0))
    for name, instances in by_file.items():
        for number, count in line_counts(instances).items():
            path, line = sources.place(name, number)
            if path:
                lines = files[path].lines
                lines[line] = max(lines.get(line, 0), count)


def add_branches(files, sources, export):
    for function in export["functions"]:
        for branch in function["branches"]:
            name = function["filenames"][branch[6]]
            path, line = sources.place(name, branch[0])
            if path is None or is_constant(branch, function["regions"]):
                continue
            place = Branch(line, branch[1], line + branch[2] - branch[0], branch[3])
            counts = files[path].branches.setdefault(place, [0, 0])
            counts[0] = max(counts[0], branch[4])
            counts[1] = max(counts[1], branch[5])


def read(export, root, build):
    """The counts by file, sorted by name."""
    export = json.loads(export.read_text())["data"][0]
    sources = Sources(root, build)
    files = collections.defaultdict(File)
    add_lines(files, sources, export)
    add_branches(files, sources, export)
    for path, file in files.items():
        text = path.read_text().splitlines()
        file.lines = {line: count for line, count in sorted(file.lines.items())
                      if line <= len(text) and has_code(text[line - 1])}
    return dict(sorted(files.items()))
