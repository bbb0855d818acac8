"""Every native function is in a table of docs/java-migration.md, and every name there exists.

usage: migration.py PAGE DECLARATIONS
"""

import pathlib
import re
import sys

page, declarations = (pathlib.Path(name).read_text() for name in sys.argv[1:])
functions = set(re.findall(r"\bnative\b[^(;]*?(\w*Kelpbox_\w+)\(", declarations))
rows = [line.split("|")[1] for line in page.splitlines() if line.startswith("| `")]
names = [name for row in rows for name in re.findall(r"`(\w*Kelpbox_[\w.]+)`", row)]
patterns = {name: re.compile(re.escape(name).replace(r"\.\.\.", r"\w+")) for name in names}

missing = [f for f in functions if not any(p.fullmatch(f) for p in patterns.values())]
unknown = [n for n, p in patterns.items() if not any(p.fullmatch(f) for f in functions)]
for function in sorted(missing):
    print(f"{function} is in no table")
for name in unknown:
    print(f"{name} is not a native function")
print(f"{len(functions)} native functions, {len(names)} names on the page")
sys.exit(1 if missing or unknown or not functions else 0)
