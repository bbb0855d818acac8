"""One planted fault: the objects that it changes, and the programs linked with these objects.

The build folder stays as it is. Compilers and tests see the changed file and the changed programs
in place of the original ones, through mounts of their own."""
import concurrent.futures
import os
import re
import shutil
import subprocess

UNSHARE = ["unshare", "--mount"] + (["--map-root-user"] if os.geteuid() else [])
# Least time to compile and run. Some sources set a higher level after this one.
OPTIMISATION = "-O1"


class Planted:
    def __init__(self, copy, fault, folder):
        self.copy, self.fault, self.folder = copy, fault, folder
        self.objects = {}  # the changed ones, by the path of the original
        self.replaced = {}  # programs, by the path of the original
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        lines = (copy.root / fault.file).read_text(encoding="utf-8").split("\n")
        first, count = fault.line - 1, fault.before.count("\n") + 1
        if "\n".join(lines[first : first + count]) != fault.before:
            raise ValueError(f"{fault.file} has changed since the faults were drawn")
        lines[first : first + count] = fault.after.split("\n")
        self.changed = folder / "source"
        self.changed.write_text("\n".join(lines), encoding="utf-8")

    def build(self, outputs):
        """Returns whether all outputs could be built."""
        return all(self.link(output) for output in outputs)

    def link(self, output):
        if output in self.replaced:
            return True
        command = self.copy.link_command(output)
        named = set(re.findall(r"\S+\.o\b", command))
        libraries = set(re.findall(r"lib/lib(kelpbox_\w+)\.a", command))
        affected = [
            made for made in self.copy.objects_with(self.fault.file)
            if made in named or made.split("/")[3].removesuffix(".dir") in libraries
        ]  # fmt: skip
        if not affected:
            return True
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            if not all(pool.map(self.compile, affected)):
                return False
        program = self.folder / output.replace("/", "_")
        # A linker takes nothing from a library that an object before it already defines.
        added = [self.objects[made] for made in affected if made not in named]
        for made in affected:
            command = command.replace(f" {made} ", f" {self.objects[made]} ")
        command = command.replace(f" -o {output} ", f" -o {program} {' '.join(added)} ")
        if subprocess.run(
            ["sh", "-c", command], cwd=self.copy.build_folder,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode:  # fmt: skip
            return False
        self.replaced[output] = program
        return True

    def compile(self, made):
        if made in self.objects:
            return True
        changed = str(self.folder / made.replace("/", "_"))
        command = self.copy.compile_commands[made].replace(f" -o {made} ", f" -o {changed} ")
        if made.startswith("src/"):
            command = re.sub(r" -O\d ", f" {OPTIMISATION} ", command, count=1)
        mounted = 'mount --bind "$1" "$2" && cd "$3" && eval "$4"'
        done = subprocess.run(
            [*UNSHARE, "sh", "-c", mounted, "sh", self.changed, self.copy.root / self.fault.file,
             self.copy.build_folder, command],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # fmt: skip
        if done.returncode == 0:
            self.objects[made] = changed
        return done.returncode == 0
