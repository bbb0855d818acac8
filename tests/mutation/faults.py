"""Small faults that can be planted in a source file, and the random choice among them."""
import dataclasses
import random
import re

from source_text import INSIDE

SWAPS = {
    "operator": [
        (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "), (" % ", " * "),
        (" == ", " != "), (" != ", " == "), (" && ", " || "), (" || ", " && "),
        ("++", "--"), ("--", "++"), (" += ", " -= "), (" -= ", " += "),
        (" *= ", " /= "), (" /= ", " *= "),
    ],
    "bound": [
        (" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "),
        (" < ", " > "), (" > ", " < "),
        (" + 1", ""), (" - 1", ""), (".size()", ".size() - 1"), (".end()", ".end() - 1"),
    ],
    "function": [
        ("std::min", "std::max"), ("std::max", "std::min"),
        ("std::floor", "std::ceil"), ("std::ceil", "std::floor"),
        ("std::sin", "std::cos"), ("std::cos", "std::sin"),
        ("std::sinh", "std::cosh"), ("std::cosh", "std::sinh"),
        ("lower_bound", "upper_bound"), ("upper_bound", "lower_bound"),
        ("front()", "back()"), ("back()", "front()"),
    ],
    "constant": [("true", "false"), ("false", "true")],
}
# What would mostly not compile: text has no minus, and arguments of different kinds do not swap.
TEXT = re.compile(r'"|string|\bfmt\b')
MACRO = re.compile(r"\b(KELPBOX_\w+|call<?\w*>?)$")
# Functions whose first two arguments may come in any order.
COMMUTE = re.compile(r"\b(Mul|Add|min|max|hypot|fmin|fmax)$")
STATEMENT = re.compile(
    r"^\s+(?:\+\+|--)?[a-zA-Z_][\w:.\->]*(?:\[.*\])?(?:\(.*\)|\s*[-+*/]?= .*|\+\+|--);\s*$"
)
LEAVES = re.compile(r"^\s+(?:if \(.*\) )?(?:return\b.*|break|continue|throw\b.*);\s*$")
PARAMETER = re.compile(r"^(const )?[\w:<>, ]+[\w>][&*]* (const )?[&*]?\w+( = .*)?$")


@dataclasses.dataclass(frozen=True)
class Fault:
    file: str
    line: int  # from 1
    kind: str
    before: str  # the line, or two lines joined by a line end
    after: str

    @property
    def key(self):
        return f"{self.file}:{self.line}: {self.before!r} -> {self.after!r}"


def edits_of_tokens(code):
    for kind, swaps in SWAPS.items():
        for old, new in swaps:
            # A whole word or operator: "min" is not part of "minimum", "+ 1" not of "+ 10".
            pattern = re.escape(old)
            if old[-1].isalnum():
                pattern += r"\b(?!\.\d)"
            if old[0].isalpha():
                pattern = r"\b" + pattern
            for found in re.finditer(pattern, code):
                if old in (" + ", " += ") and TEXT.search(code):
                    continue
                yield kind, found.start(), found.end(), new
    for found in re.finditer(r"(?:(?<=[(\[{,=?:] )|(?<=[(\[{])|(?<=return ))-(?=[\w(.])", code):
        yield "operator", found.start(), found.end(), ""
    for found in re.finditer(r"!(?=[\w(])", code):
        yield "condition", found.start(), found.end(), ""
    for found in re.finditer(r"(?<![\w.])(\d[\d']*)(u|z|uz|L|LL|U)?(?![\w.'])", code):
        value = int(found.group(1).replace("'", ""))
        others = {0: "1", 1: "0"}.get(value, str(value + 1))
        yield "constant", found.start(1), found.end(1), others
        if value == 1:
            yield "constant", found.start(1), found.end(1), "2"
    for found in re.finditer(r"(?<![\w.])\d+\.\d*(?:[eE][-+]?\d+)?|(?<![\w.])\d+[eE][-+]?\d+", code):
        value = float(found.group())
        yield "constant", *found.span(), repr(value * 1.01) if value else "0.01"
    for found in re.finditer(r"(?<=[\w)\]])\[(\w+)\](?=[^({]|$)", code):
        yield "bound", found.start(1), found.end(1), found.group(1) + " + 1"


def matching(code, opening):
    depth = 0
    for i in range(opening, len(code)):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth == 0:
            return i
    return -1


def edits_of_conditions(code):
    for found in re.finditer(r"\b(if|while|else if)( constexpr)? \(", code):
        end = matching(code, found.end() - 1)
        if end > 0 and ";" not in code[found.end() : end] and not found.group(2):
            inside = code[found.end() : end]
            if not re.search(r"[^=!<>]=[^=]", inside):
                yield "condition", found.end(), found.end(), "!("


def arguments(code, opening, end):
    spans, depth, start = [], 0, opening + 1
    for i in range(opening + 1, end + 1):
        if depth == 0 and (code[i] == "," or i == end):
            lead = len(code[start:i]) - len(code[start:i].lstrip())
            spans.append((start + lead, i))
            start = i + 1
        depth += (code[i] in "([{") - (code[i] in ")]}")
    return spans


def kind_of(argument):
    if argument[0] in "\"'{[&":
        return argument[0]
    if argument[0].isdigit() or argument[0] == "-":
        return "number"
    return "string" if TEXT.search(argument) else "number"


def edits_of_arguments(line, code):
    for found in re.finditer(r"(?<=[\w>])[({]", code):
        callee = code[: found.start()]
        if re.search(r"\b(if|for|while|switch|catch|return)$", callee) or MACRO.search(callee):
            continue
        if COMMUTE.search(callee):
            continue
        end = matching(code, found.start())
        spans = arguments(code, found.start(), end) if end > 0 else []
        for (a, b), (c, d) in zip(spans, spans[1:]):
            if any(PARAMETER.match(one) for one in (line[a:b], line[c:d])):
                continue
            if line[a:b] == line[c:d] or kind_of(line[a:b]) != kind_of(line[c:d]):
                continue
            yield "order", a, d, line[c:d] + ", " + line[a:b]


def declares(code):
    """A function declared or an object constructed with parameters, which cannot be left out."""
    found = re.search(r"\((.*)\)", code)
    inside = found.group(1).split(", ") if found else []
    return any(PARAMETER.match(one) for one in inside)


def faults_of_line(source, number):
    """All faults of one line, counted from 0."""
    line, code = source.lines[number], source.code[number]
    edits = []
    if re.match(r"\s*virtual\b", code):
        return []
    for kind, start, end, new in edits_of_tokens(code):
        edits.append((kind, line[:start] + new + line[end:]))
    for kind, start, _, new in edits_of_conditions(code):
        end = matching(code, start - 1)
        edits.append((kind, line[:start] + new + line[start:end] + ")" + line[end:]))
    for kind, start, end, new in edits_of_arguments(line, code):
        edits.append((kind, line[:start] + new + line[end:]))
    for _, start, end in (span for span in source.literals if span[0] == number):
        for found in re.finditer(r"(?<![\\{:%])[A-Za-z](?=[A-Za-z ])", line[start:end]):
            at = start + found.start()
            edits.append(("message", line[:at] + ("x" if line[at] != "x" else "y") + line[at + 1 :]))
    before_ends = number > 0 and source.code[number - 1].rstrip().endswith((";", "{", "}", ":"))
    if before_ends and STATEMENT.match(code) and not declares(code):
        edits.append(("removed", ""))
    inner = re.match(r"^ {4,}", code) or re.match(r"^\s+if ", code)
    if LEAVES.match(code) and inner and (before_ends or code.lstrip().startswith("if ")):
        edits.append(("removed", ""))
    faults = [Fault(source.path, number + 1, kind, line, new) for kind, new in edits]

    following = number + 1 < len(source.lines) and source.code[number + 1]
    if before_ends and following and STATEMENT.match(code) and STATEMENT.match(following):
        same_depth = re.match(r"\s*", code).group() == re.match(r"\s*", following).group()
        shared = set(re.findall(r"[A-Za-z_]\w*", code)) & set(re.findall(r"[A-Za-z_]\w*", following))
        if same_depth and shared:
            one, two = line, source.lines[number + 1]
            faults.append(Fault(source.path, number + 1, "order", f"{one}\n{two}", f"{two}\n{one}"))
    return [fault for fault in faults if fault.after != fault.before]


def sequence(sources, seed):
    """Faults in random order, each line once: a random kind first, so that rare kinds are not lost
    among constants and messages."""
    draw = random.Random(seed)
    places = [
        (source, number)
        for source in sources
        for number, code in enumerate(source.code)
        if code.strip(" {};" + INSIDE)
    ]
    draw.shuffle(places)
    for source, number in places:
        faults = faults_of_line(source, number)
        if faults:
            kind = draw.choice(sorted({fault.kind for fault in faults}))
            yield draw.choice([fault for fault in faults if fault.kind == kind])


def planned(sources, count, seed):
    """A quota of faults by size, and an endless supply, for each folder."""
    sizes = {}
    for source in sources:
        lines = sum(1 for code in source.code if code.strip())
        sizes[source.folder] = sizes.get(source.folder, 0) + lines
    whole = sum(sizes.values())
    plan = {}
    for folder, size in sorted(sizes.items()):
        own = [source for source in sources if source.folder == folder]
        quota = max(1, round(count * size / whole))
        plan[folder] = (quota, sequence(own, f"{seed} {folder}"))
    return plan
