#!/usr/bin/env python3
"""Prints how much of src/ ran, and each place that did not.

    report.py EXPORT BUILD

EXPORT is written by `llvm-cov export`, BUILD is the folder of the build. Exits with 1 if less ran
than the floors below, or if a place did not run for which uncovered.txt has no reason.
"""

import collections
import pathlib
import sys

import counts
import reasons

FLOOR_OF_LINES = 99.5
FLOOR_OF_BRANCHES = 97.0

root = pathlib.Path(__file__).resolve().parents[2]


def share(covered, total):
    return 100.0 * covered / total if total else 100.0


def totals(file):
    """Lines covered and in total, branches covered and in total."""
    outcomes = [count for pair in file.branches.values() for count in pair]
    return (sum(count > 0 for count in file.lines.values()), len(file.lines),
            sum(count > 0 for count in outcomes), len(outcomes))


def gaps_of(path, file):
    """The gaps of a file as (line, text, what did not run). Lines that follow each other are one
    gap, which includes the branches on them."""
    text = path.read_text().splitlines()
    gaps = []
    lines = list(file.lines)
    missed = {line for line in lines if file.lines[line] == 0}
    for before, line in zip([None, *lines], lines):
        if line not in missed:
            continue
        if before in missed:
            gaps[-1][2] += 1
        else:
            gaps.append([line, text[line - 1].strip(), 1])
    found = [(line, code, "line" if count == 1 else f"{count} lines")
             for line, code, count in gaps]
    for place, (true, false) in file.branches.items():
        if place.line in missed or (true and false):
            continue
        first = text[place.line - 1]
        same_line = place.line == place.end_line
        condition = first[place.column - 1:place.end_column - 1 if same_line else None].strip()
        never = "reached" if not (true or false) else "false" if true else "true"
        found.append((place.line, first.strip(), f"never {never}: {condition}"))
    return sorted(found)


def print_table(files):
    """Prints the totals. Returns whether they reach the floors."""
    folders = collections.defaultdict(lambda: (0, 0, 0, 0))
    for path, file in files.items():
        folder = path.relative_to(root).parts[1]
        for name in (folder, "total"):
            folders[name] = tuple(map(sum, zip(folders[name], totals(file))))
    whole = folders.pop("total")
    print(f"{'':12}{'lines':>16}{'%':>8}{'branches':>16}{'%':>8}")
    for name, of in [*sorted(folders.items()), ("total", whole)]:
        print(f"{name:12}{of[0]:>8}/{of[1]:>7}{share(*of[:2]):>8.2f}"
              f"{of[2]:>8}/{of[3]:>7}{share(*of[2:]):>8.2f}")
    return share(*whole[:2]) >= FLOOR_OF_LINES and share(*whole[2:]) >= FLOOR_OF_BRANCHES


def print_gaps(files, excuses):
    """Prints the gaps. Returns the number of those without a reason."""
    unexplained = 0
    for path, file in files.items():
        name = str(path.relative_to(root))
        for line, text, what in gaps_of(path, file):
            reason = excuses.find(name, text)
            unexplained += reason is None
            print(f"{name}:{line}: {what}\n    {text}\n    {reason or 'NO REASON'}")
    return unexplained


def unlinked(files):
    """Sources that no test contains, so that nothing is known of them."""
    return [path for path in sorted((root / "src").rglob("*.cpp")) if path not in files]


def main(export, build):
    files = counts.read(pathlib.Path(export), root, pathlib.Path(build).resolve())
    excuses = reasons.Reasons(root / "tests/coverage/uncovered.txt")
    unexplained = print_gaps(files, excuses)
    for entry in excuses.unused():
        print(f"uncovered.txt: this runs, or is gone: {entry}")
    for path in unlinked(files):
        print(f"{path.relative_to(root)}: no counts")
    print()
    enough = print_table(files)
    if unexplained:
        print(f"coverage: {unexplained} places did not run and have no reason in uncovered.txt")
    if not enough:
        print(f"coverage: less than {FLOOR_OF_LINES} % of the lines or {FLOOR_OF_BRANCHES} % of "
              "the branches ran")
    return 0 if enough and not unexplained else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
