"""What became of each planted fault, kept in a file."""
import json
import shutil
import threading


def has_ccache():
    return shutil.which("ccache") is not None


def shown(text):
    """A line as survivors.txt has it."""
    return " / ".join(" ".join(line.split()) for line in text.split("\n")) or "(removed)"


def listed(root):
    """The faults that nobody can see: (file, before, after) -> reason."""
    path = root / "tests" / "mutation" / "survivors.txt"
    found = {}
    for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
        if line.strip() and not line.startswith("#"):
            file, before, after, reason = line.split(" @ ")
            found[file, before, after] = reason
    return found


class Store:
    def __init__(self, root, seed, near):
        self.near, self.lock = near, threading.Lock()
        self.planned = set()
        self.reasons = listed(root)
        self.path = root / "build" / "mutation" / f"results-{seed}.jsonl"
        self.path.parent.mkdir(parents=True, exist_ok=True)
        self.records = {}
        if self.path.exists():
            for line in self.path.read_text(encoding="utf-8").splitlines():
                record = json.loads(line)
                self.records[record["key"]] = record

    def unseeable(self, record):
        """The reason why nobody can see the fault, if survivors.txt has one."""
        place = (record["file"], shown(record["before"]), shown(record["after"]))
        return self.reasons.get(place)

    def of(self, fault):
        empty = {"key": fault.key, "file": fault.file, "line": fault.line, "kind": fault.kind,
                 "before": fault.before, "after": fault.after, "outcome": "", "passed": []}  # fmt: skip
        return self.records.setdefault(fault.key, empty)

    def save(self, record):
        """The last line about a fault counts."""
        with self.lock, self.path.open("a", encoding="utf-8") as out:
            out.write(json.dumps(record) + "\n")

    def plan(self, chosen):
        """Takes the results that a run with the same options would take."""
        for quota, supply in chosen.values():
            while quota > 0 and (fault := next(supply, None)):
                self.planned.add(fault.key)
                outcome = self.records.get(fault.key, {}).get("outcome")
                quota -= outcome != "not compiled"

    def report(self):
        rows, open_ones = {}, []
        for key in self.planned:
            record = self.records.get(key, {"outcome": ""})
            if record["outcome"] not in ("noticed", "survived"):
                continue
            row = rows.setdefault(record["file"].split("/")[1], [0, 0, 0, 0])
            row[0] += 1
            if record["outcome"] == "noticed":
                row[1] += 1
            elif self.unseeable(record):
                row[2] += 1
            else:
                row[3] += 1
                open_ones.append(record)
        print(f"\n{'folder':12}{'planted':>9}{'noticed':>9}{'unseeable':>11}{'survived':>10}")
        for folder, row in sorted(rows.items()):
            print(f"{folder:12}{row[0]:9}{row[1]:9}{row[2]:11}{row[3]:10}")
        whole = [sum(column) for column in zip(*rows.values())] or [0, 0, 0, 0]
        print(f"{'all':12}{whole[0]:9}{whole[1]:9}{whole[2]:11}{whole[3]:10}")
        if whole[0]:
            seeable = whole[0] - whole[2]
            print(f"\nnoticed: {100 * whole[1] / whole[0]:.1f} % of all, "
                  f"{100 * whole[1] / max(seeable, 1):.1f} % of those that can be seen")  # fmt: skip
        for record in open_ones:
            print(f"\nsurvived: {record['file']}:{record['line']} ({record['kind']}) "
                  f"tests passed: {', '.join(record['passed'])}")  # fmt: skip
            print("  - " + record["before"].replace("\n", "\n  - "))
            print("  + " + record["after"].replace("\n", "\n  + "))
        return 1 if open_ones else 0
