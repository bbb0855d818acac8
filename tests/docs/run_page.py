"""Runs what a page shows, in the order of the page, in one empty folder.

    ```toml storm.toml      the block is written to the file storm.toml; so for any file name
    ```sh                   the block is run by bash; every command must succeed
    ```console              each line that begins with "$ " is run, and the lines after it must be
                            exactly what it prints; a line "..." stands for any lines
    ```java                 a part of one host: the imports of all these blocks, then their statements
                            in the order of the page, are compiled and must run without an exception
    ```sh elsewhere         not run: needs something that a test machine does not have; so for java

Other blocks are ignored. `examples` in the folder are the examples of the repository, and JAR is
build/release/lib/kelpbox.jar. Without JAR, Java is not run. The file BEFORE begins the host.

usage: run_page.py PAGE KELPBOX EXAMPLES FOLDER [JAR [BEFORE]]
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys


def blocks(page):
    """The fenced blocks of a page: line number, words after the fence, lines."""
    fence = None
    for number, line in enumerate(page.read_text().splitlines(), 1):
        if fence is None and line.startswith("```"):
            fence, words, content = number, line[3:].split(), []
        elif fence is not None and line.startswith("```"):
            yield fence, words, content
            fence = None
        elif fence is not None:
            content.append(line)


def commands(lines):
    """The commands of a console block, each with the lines that it is shown to print."""
    found = []
    for line in lines:
        if line.startswith("$ "):
            found.append((line[2:], []))
        elif found:
            found[-1][1].append(line)
    return found


def fits(shown, printed):
    pattern = "".join(".*" if line == "..." else re.escape(line) + "\n" for line in shown)
    text = "".join(line.rstrip() + "\n" for line in printed.splitlines())
    return re.fullmatch(pattern, text, re.DOTALL) is not None


def bash(text, folder, environment):
    return subprocess.run(["bash", "-e", "-c", text], cwd=folder, env=environment, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=600)


def host(lines):
    """The source of a class that has these lines as its body."""
    imports = [line for line in lines if line.startswith("import ")]
    body = [line for line in lines if not line.startswith("import ")]
    return "\n".join([*imports, "class Host {",
                      "public static void main(String[] args) throws Exception {", *body, "}", "}"])


def main():
    page, kelpbox, examples, folder, *rest = (pathlib.Path(name).resolve() for name in sys.argv[1:])
    jar, before = (rest + [None, None])[:2]
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    (folder / "examples").symlink_to(examples)
    if jar:
        (folder / "build/release/lib").mkdir(parents=True)
        (folder / "build/release/lib" / jar.name).symlink_to(jar)
    environment = dict(os.environ, PATH=f"{kelpbox.parent}:{os.environ['PATH']}", COLUMNS="100",
                       NO_COLOR="1", LC_ALL="C.UTF-8")
    wrong = 0
    count = 0
    java = []

    def complain(line, what, printed):
        nonlocal wrong
        wrong += 1
        print(f"{page.name}:{line}: {what}\n{printed}")

    for line, words, content in blocks(page):
        kind = words[0] if words else ""
        if kind == "console":
            for command, shown in commands(content):
                count += 1
                ended = bash(command, folder, environment)
                while shown and not shown[-1]:
                    shown.pop()
                if not fits(shown, ended.stdout.rstrip("\n") + "\n" if ended.stdout else ""):
                    complain(line, f"`{command}` prints something else:", ended.stdout)
        elif kind == "sh" and "elsewhere" not in words:
            count += 1
            ended = bash("\n".join(content), folder, environment)
            if ended.returncode != 0:
                complain(line, f"the block ends with {ended.returncode}:", ended.stdout)
        elif len(words) == 2 and "." in words[1]:
            count += 1
            (folder / words[1]).parent.mkdir(exist_ok=True)
            (folder / words[1]).write_text("\n".join(content) + "\n")
        elif words == ["java"] and jar:
            count += 1
            java += [(line, content)]
    if java:
        lines = before.read_text().splitlines() if before else []
        lines += [row for _, content in java for row in content]
        (folder / "Host.java").write_text(host(lines))
        ended = bash("java -cp build/release/lib/kelpbox.jar Host.java", folder, environment)
        if ended.returncode != 0:
            complain(java[0][0], f"the host ends with {ended.returncode}:", ended.stdout)
    if count == 0:
        complain(1, "nothing on this page can be run", "")
    print(f"{page.name}: {count} blocks and commands, {wrong} wrong")
    sys.exit(1 if wrong else 0)


main()
