"""A copy of the project that is built once, and the tests that can notice a fault there."""
import json
import os
import pathlib
import re
import select
import shutil
import signal
import subprocess
import threading
import time

from planted import UNSHARE

# A planted fault may remove the wrong files, signal the wrong processes or take all the memory.
# The tests see the machine read-only, a /tmp of their own and only their own processes. The
# changed programs are mounted over the original ones.
PROTECTED = """
for pair in $PLANTED; do mount --bind "${pair%%:*}" "${pair#*:}" || exit 99; done
mounted=$(cut -d " " -f 2 /proc/self/mounts | grep -vE "^/(proc|sys|dev)(/|$)")
for place in $mounted; do mount -o remount,ro,bind "$place" || exit 99; done
mount --bind "$1" "$1" && mount -o remount,rw,bind "$1" &&
mount -t tmpfs -o size=2g,mode=1777 tmpfs /tmp && ulimit -S -v "$2" && ulimit -c 0 || exit 99
shift 2
"$@"
exit $?
"""
OWN_PROCESSES = ["--pid", "--fork", "--kill-child", "--mount-proc"]

# The first programs to notice a fault of a folder, where they are not the one of its name.
OWN = {"cli": ["cli_tools", "cli"], "facade": ["facade", "exported"], "run": ["run", "facade"]}
OUTPUTS = {"cli": ["bin/tests_cli", "bin/kelpbox"], "jvm": ["lib/libKelpboxSwig.so"],
           "docs": ["bin/kelpbox"], "report": ["bin/kelpbox"]}  # fmt: skip
TARGETS = {"cli": ["tests_cli", "kelpbox"], "jvm": ["kelpbox_jvm_tests"], "report": ["kelpbox"],
           "docs": ["kelpbox", "kelpbox_jvm_tests"]}  # fmt: skip
LAST = ["exported", "jobs", "cli_tools", "cli", "outputs", "jvm", "report", "docs"]


def properties_of(test):
    return {entry["name"]: entry["value"] for entry in test.get("properties", [])}


def environment_of(test):
    return dict(entry.split("=", 1) for entry in properties_of(test).get("ENVIRONMENT", []))


class TestsFail(Exception):
    pass


def near(folder):
    return OWN.get(folder, [folder])


def outputs(step):
    return OUTPUTS.get(step, [f"bin/tests_{step}"])


def last_line(text):
    return text.rstrip("\n").rsplit("\n", 1)[-1]


class Copy:
    def __init__(self, root, folder):
        self.source, self.root = pathlib.Path(root).resolve(), pathlib.Path(folder).absolute()
        # Files are overwritten in the copy: through a link they would be those of another folder.
        if self.root != self.root.resolve() or self.root == self.source:
            raise TestsFail(f"{self.root} must be a folder, not a link")
        self.build_folder = self.root / "build" / "release"
        self.times_file = self.root / "times.json"
        self.times = json.loads(self.times_file.read_text()) if self.times_file.exists() else {}
        self.lock = threading.RLock()
        self.links_of, self.built = {}, set()

    def ask(self, *command):
        return subprocess.run(command, cwd=self.build_folder, check=True, text=True,
                              capture_output=True).stdout  # fmt: skip

    def synchronise(self):
        """Brings the copy to the state of the working tree, and configures it."""
        self.build_folder.mkdir(parents=True, exist_ok=True)
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
            # Not one symbolic link: the page is built without the licences of linked packages.
            original = self.source / "report" / "node_modules"
            shutil.copytree(original, modules, symlinks=True, copy_function=os.link)
        subprocess.run(
            ["cmake", "--preset", "release", "-DKELPBOX_COMMAND=ON", "-DKELPBOX_JVM=ON",
             "-DKELPBOX_WARNINGS_AS_ERRORS=ON"],
            cwd=self.root, check=True, stdout=subprocess.DEVNULL)  # fmt: skip
        self.list_tests()
        database = json.loads((self.build_folder / "compile_commands.json").read_text())
        self.compile_commands = {
            re.search(r" -o (\S+)", entry["command"]).group(1): entry["command"]
            for entry in database
        }
        order = (self.build_folder / "tests" / "house" / "order.txt").read_text()
        self.links = {
            name: set(links.split())
            for name, links in re.findall(r"^(\w+): ?(.*)$", order, re.MULTILINE)
        }

    def list_tests(self):
        self.tests = json.loads(self.ask("ctest", "--show-only=json-v1"))["tests"]

    def far(self, folder):
        """The programs of the folders above, lowest first."""
        above, grown = {folder}, True
        while grown:
            more = {name for name, links in self.links.items() if links & above} | above
            grown, above = more != above, more
        direct = [name for name in self.links if name in above and name not in LAST]
        own = near(folder)
        return [name for name in direct + LAST if name not in own]

    def link_command(self, output):
        with self.lock:
            if output not in self.links_of:
                self.links_of[output] = last_line(self.ask("ninja", "-t", "commands", output))
            return self.links_of[output]

    def objects_with(self, file):
        """The objects that are compiled from a source or include a header."""
        name = file.removeprefix("src/")
        if not file.endswith(".h"):
            folder, source = name.split("/")
            return [f"src/{folder}/CMakeFiles/kelpbox_{folder}.dir/{source}.o"]
        with self.lock:
            listed = self.ask("ninja", "-t", "deps")
        found = re.findall(r"^(\S+\.o): #deps.*\n((?: .*\n)*)", listed, re.MULTILINE)
        return [
            made for made, deps in found
            if f"/{name}\n" in deps and made in self.compile_commands and "_headers.dir" not in made
        ]  # fmt: skip

    def run(self, step, replaced=None):
        """Returns what failed, or an empty string."""
        limit = 30 + 5 * self.times[step] if step in self.times else 1800
        for test in self.tests:
            group = test["name"].split(".")[0]
            if group != step or re.search(r"^(jvm|exported)\.", test["name"]):
                continue
            # One process runs the tests of all shards: a single test would belong to the first.
            if environment_of(test).get("GTEST_SHARD_INDEX", "0") != "0":
                continue
            # A test that fails by chance on a busy machine, or without the fault too, has noticed
            # nothing. The others run again.
            left_out = []
            for _ in range(5):
                filters = [f"--gtest_filter=-{':'.join(left_out)}"] if left_out else []
                failed, name = self.run_test(test, step, limit, replaced or {}, filters)
                if not failed:
                    break
                if not name:  # a crash or a hang
                    if self.run_test(test, step, limit, {}, filters)[0]:
                        failed = ""
                    break
                only = [f"--gtest_filter={name}"]
                if (self.run_test(test, step, limit, replaced or {}, only)[0]
                        and not self.run_test(test, step, limit, {}, only)[0]):  # fmt: skip
                    break
                left_out.append(name)
                failed = ""
            if failed:
                return failed
        return ""

    def run_test(self, test, step, limit, replaced, only=()):
        """Returns what failed, or an empty string, and the name of the test if it is known."""
        environment = dict(os.environ, GTEST_FAIL_FAST="1", TMPDIR="/tmp")
        environment.update(environment_of(test), GTEST_TOTAL_SHARDS="1")
        environment["PLANTED"] = " ".join(
            f"{made}:{self.build_folder / output}" for output, made in replaced.items()
        )
        memory = 16 if step in ("jvm", "docs", "report") else 6
        command = [*UNSHARE, *OWN_PROCESSES, "sh", "-c", PROTECTED, "sh",
                   self.build_folder / "tests", str(memory * 1024 * 1024),
                   *test["command"], *only]  # fmt: skip
        process = subprocess.Popen(
            command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, start_new_session=True,
            cwd=properties_of(test).get("WORKING_DIRECTORY", self.build_folder))  # fmt: skip
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
            return f"{test['name']}: still running after {limit:.0f} s", ""
        finally:
            process.stdout.close()
        text = printed.decode(errors="replace")
        if process.returncode == 99:
            raise TestsFail(f"cannot protect the machine from planted faults:\n{text}")
        if process.returncode == 0:
            return "", ""
        names = re.findall(r"\[  FAILED  \] ([A-Za-z][\w/]*\.[\w/]+)", text)
        name = names[0] if names else ""
        return f"{test['name']}: " + (name or f"ended with {process.returncode}"), name

    def measure(self, step):
        """Builds and runs the tests without a fault: they must pass."""
        with self.lock:
            if step in self.built:
                return
            targets = TARGETS.get(step, [f"tests_{step}"])
            built = subprocess.run(
                ["cmake", "--build", self.build_folder, "-j2", "--target", *targets],
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)  # fmt: skip
            if built.returncode:
                raise TestsFail(f"without a fault: {built.stdout[-2000:]}")
            self.list_tests()  # programs that were not built had no command
            self.built.add(step)
            if step in self.times and "no work to do" in built.stdout:
                return
            began = time.monotonic()
            if failed := self.run(step):
                raise TestsFail(f"without a fault: {failed}")
            self.times[step] = round(time.monotonic() - began, 2)
            self.times_file.write_text(json.dumps(self.times))
