"""A copy of the project that faults are planted in, and the tests that can notice them there."""
import json
import os
import pathlib
import re
import select
import shutil
import signal
import subprocess
import time

# A planted fault may remove the wrong files, signal the wrong processes or take all the memory.
# The tests see the machine read-only, a /tmp of their own and only their own processes.
PROTECTED = """
mounted=$(cut -d " " -f 2 /proc/self/mounts | grep -vE "^/(proc|sys|dev)(/|$)")
for place in $mounted; do mount -o remount,ro,bind "$place" || exit 99; done
mount --bind "$1" "$1" && mount -o remount,rw,bind "$1" &&
mount -t tmpfs -o size=2g,mode=1777 tmpfs /tmp && ulimit -S -v "$2" && ulimit -c 0 || exit 99
shift 2
"$@"
exit $?
"""
UNSHARE = ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc"]

# The first programs to notice a fault of a folder, where they are not the one of its name.
OWN = {"cli": ["cli_tools", "cli"], "facade": ["facade", "exported"], "run": ["run", "facade"]}
TARGETS = {"jvm": ["kelpbox_jvm_tests"], "docs": ["kelpbox", "kelpbox_jvm_tests"],
           "report": ["kelpbox"], "cli": ["tests_cli", "kelpbox"]}  # fmt: skip
LAST = ["exported", "jobs", "cli_tools", "cli", "outputs", "jvm", "report", "docs"]


class TestsFail(Exception):
    pass


def near(folder):
    return OWN.get(folder, [folder])


class Copy:
    def __init__(self, root, folder):
        self.source = pathlib.Path(root)
        self.root = pathlib.Path(folder).resolve()
        self.build_folder = self.root / "build" / "release"
        self.times_file = self.root / "times.json"
        self.times = json.loads(self.times_file.read_text()) if self.times_file.exists() else {}

    def synchronise(self):
        """Brings the copy to the state of the working tree, and configures it."""
        listed = subprocess.run(
            ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=self.source, capture_output=True, check=True, text=True).stdout  # fmt: skip
        for name in filter(None, listed.split("\0")):
            original, copied = self.source / name, self.root / name
            if not original.is_file():
                copied.unlink(missing_ok=True)
                continue
            if not copied.is_file() or copied.read_bytes() != original.read_bytes():
                copied.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(original, copied)
        modules = self.root / "report" / "node_modules"
        if not modules.exists():
            modules.symlink_to(self.source / "report" / "node_modules")
        subprocess.run(
            ["cmake", "--preset", "release", "-DKELPBOX_COMMAND=ON", "-DKELPBOX_JVM=ON",
             "-DKELPBOX_WARNINGS_AS_ERRORS=ON"],
            cwd=self.root, check=True, stdout=subprocess.DEVNULL)  # fmt: skip
        self.list_tests()
        order = (self.build_folder / "tests" / "house" / "order.txt").read_text()
        self.links = {
            name: set(links.split())
            for name, links in re.findall(r"^(\w+): ?(.*)$", order, re.MULTILINE)
        }

    def list_tests(self):
        shown = subprocess.run(
            ["ctest", "--test-dir", self.build_folder, "--show-only=json-v1"],
            capture_output=True, check=True, text=True).stdout  # fmt: skip
        self.tests = json.loads(shown)["tests"]

    def far(self, folder):
        """The programs of the folders above, lowest first."""
        above, grown = {folder}, True
        while grown:
            more = {name for name, links in self.links.items() if links & above} | above
            grown, above = more != above, more
        direct = [name for name in self.links if name in above and name not in LAST]
        own = near(folder)
        return [name for name in direct + LAST if name not in own]

    def build(self, step):
        """Returns the end of what the build printed where it fails."""
        targets = TARGETS.get(step, [f"tests_{step}"])
        done = subprocess.run(
            ["cmake", "--build", self.build_folder, "-j2", "--target", *targets],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")  # fmt: skip
        return done.stdout[-2000:] if done.returncode else ""

    def run(self, step):
        """Returns what failed, or an empty string."""
        limit = 60 + 10 * self.times[step] if step in self.times else 1800
        for test in self.tests:
            group = test["name"].split(".")[0]
            if group != step or re.search(r"\.[A-Z]\w+$|^jvm\.", test["name"]):
                continue
            failed = self.run_test(test, step, limit)
            if failed:
                return failed
        return ""

    def run_test(self, test, step, limit):
        properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
        environment = dict(os.environ, GTEST_FAIL_FAST="1", TMPDIR="/tmp")
        environment.update(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
        memory = 16 if step in ("jvm", "docs", "report") else 6
        command = [*UNSHARE, "sh", "-c", PROTECTED, "sh", self.build_folder / "tests",
                   str(memory * 1024 * 1024), *test["command"]]  # fmt: skip
        process = subprocess.Popen(
            command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, start_new_session=True,
            cwd=properties.get("WORKING_DIRECTORY", self.build_folder))  # fmt: skip
        printed, deadline = b"", time.monotonic() + limit
        while (left := deadline - time.monotonic()) > 0:
            if select.select([process.stdout], [], [], left)[0]:
                more = os.read(process.stdout.fileno(), 65536)
                if not more:
                    break
                # The first failure: all later tests are skipped, each with a line.
                if b"[  FAILED  ]" not in printed:
                    printed = printed[-4000:] + more
        try:
            process.wait(max(left, 0.1))
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            return f"{test['name']}: still running after {limit:.0f} s"
        finally:
            process.stdout.close()
        text = printed.decode(errors="replace")
        if process.returncode == 99:
            raise TestsFail(f"cannot protect the machine from planted faults:\n{text}")
        if process.returncode == 0:
            return ""
        names = re.findall(r"\[  FAILED  \] ([A-Za-z]\w*\.[\w/]+)", text)
        return f"{test['name']}: " + (names[0] if names else f"ended with {process.returncode}")

    def measure(self, step):
        """Builds and runs the tests without a fault: they must pass."""
        if step in self.times:
            return
        failed = self.build(step)
        self.list_tests()  # programs that were not built had no command
        began = time.monotonic()
        failed = failed or self.run(step)
        if failed:
            raise TestsFail(f"without a fault: {failed}")
        self.times[step] = round(time.monotonic() - began, 2)
        self.times_file.write_text(json.dumps(self.times))
