#!/usr/bin/env python3
"""Lints src/ with clang-tidy, as .clang-tidy says.

    .ci/lint.py <build folder>     a build by clang, whose compile commands are used

The analyzer follows the paths through each source by itself. The other checks match patterns, and
spend most of their time in the headers of the standard library, once for each unit that is
compiled. So they read the sources of a folder as one unit that includes them all. A source that does
not compile after the others, because both use one name for something of their own, waits for
another unit.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

root = pathlib.Path(__file__).resolve().parent.parent
counts = re.compile(r"^(\d+ warnings? generated\.|Suppressed \d+ warnings.*|Use -header-filter.*)\n",
                    re.MULTILINE)


def tidy(database, file, *options):
    """Prints what clang-tidy finds. Returns whether it finds nothing."""
    run = subprocess.run(["clang-tidy", "--quiet", f"--config-file={root / '.clang-tidy'}",
                          "-p", str(database), *options, str(file)], capture_output=True, text=True)
    if run.returncode != 0:
        print(f"lint: {file}\n{run.stdout}{counts.sub('', run.stderr)}", end="", flush=True)
    return run.returncode == 0


def analyse(build, file):
    return tidy(build, file, "--checks=-*,clang-analyzer-*")


def sources_by_command(build):
    """The sources below src/, by folder, working directory and compile command without the file."""
    tracked = subprocess.run(["git", "ls-files", "src/*.cpp"], cwd=root, check=True,
                             capture_output=True, text=True).stdout.split()
    entries = {entry["file"]: entry
               for entry in json.loads((build / "compile_commands.json").read_text())}
    groups = {}
    for name in tracked:
        file = str(root / name)
        if file not in entries:
            sys.exit(f"lint: {build} does not compile {name}")
        words = shlex.split(entries[file]["command"])
        output = words.index("-o")
        del words[output:output + 2]
        words.remove("-c")
        words.remove(file)
        # The build reports the compiler's own warnings, of each source by itself.
        words.append("-Wno-everything")
        key = (os.path.dirname(file), entries[file]["directory"], tuple(words))
        groups.setdefault(key, []).append(file)
    return groups


def clashing(unit, files, directory, words):
    """The files with errors in the unit, which they do not have alone."""
    run = subprocess.run([*words, "-fsyntax-only", "-ferror-limit=0", str(unit)],
                         cwd=directory, capture_output=True, text=True)
    if run.returncode == 0:
        return []
    named = set(re.findall(r"^(/[^:\n]+):\d+:\d+: (?:fatal )?error:", run.stderr, re.MULTILINE))
    # The first file stays, so that each unit has at least one.
    return [file for file in files[1:] if file in named] or files[1:]


def match_unit(folder, files, directory, words):
    """Matches patterns in as many of the files as compile together, and returns the others."""
    folder.mkdir()
    unit = folder / "unit.cpp"
    left = []
    while True:
        unit.write_text("".join(f'#include "{file}"  // NOLINT(bugprone-suspicious-include)\n'
                                for file in files))
        clash = clashing(unit, files, directory, words)
        if not clash:
            break
        left += clash
        files = [file for file in files if file not in clash]
    (folder / "compile_commands.json").write_text(json.dumps([{
        "directory": directory, "file": str(unit),
        "command": shlex.join([*words, "-c", str(unit)])}]))
    clean = tidy(folder, unit, "--checks=-clang-analyzer-*", r"--header-filter=src/.*\.(h|cpp)$")
    return left, clean


def match(folder, files, directory, words):
    """Returns whether nothing is found, in how many units."""
    clean = True
    count = 0
    while files:
        count += 1
        files, unit_clean = match_unit(folder / str(count), files, directory, words)
        clean = clean and unit_clean
    return clean, count


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: .ci/lint.py <build folder>")
    build = pathlib.Path(sys.argv[1]).resolve()
    groups = sources_by_command(build)
    with tempfile.TemporaryDirectory() as temporary, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        units = []
        # The largest first, so that no core waits at the end.
        for key, files in sorted(groups.items(), key=lambda group: -len(group[1])):
            folder = pathlib.Path(temporary) / str(len(units))
            folder.mkdir()
            units.append(pool.submit(match, folder, files, *key[1:]))
        sources = [pool.submit(analyse, build, file) for files in groups.values() for file in files]
        matched = [unit.result() for unit in units]
        analysed = [source.result() for source in sources]
    print(f"lint: {len(sources)} sources, matched in {sum(count for _, count in matched)} units")
    return 0 if all(analysed) and all(clean for clean, _ in matched) else 1


if __name__ == "__main__":
    sys.exit(main())
