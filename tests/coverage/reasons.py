"""Reads uncovered.txt: what may stay uncovered, and why."""


class Reasons:
    """Reasons by file and text of a line. The text, unlike the number, stays as other lines come
    and go."""

    def __init__(self, path):
        self.reasons = {}
        self.used = set()
        key = None
        for line in path.read_text().splitlines():
            if line.startswith("#") or not line.strip():
                continue
            if not line.startswith(" "):
                key = tuple(line.split(": ", 1))
                self.reasons[key] = ""
            else:
                self.reasons[key] = (self.reasons[key] + " " + line.strip()).strip()

    def find(self, name, text):
        if (name, text) not in self.reasons:
            return None
        self.used.add((name, text))
        return self.reasons[name, text]

    def unused(self):
        return [": ".join(key) for key in self.reasons if key not in self.used]
