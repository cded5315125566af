#!/usr/bin/env python3
"""Plants faults in a copy of the tree and tells which test program catches each.

  plant.py [NAME...]             plants all, or those named, one at a time
  plant.py --together [NAME...]  several in one build, where no program could see two of them
  plant.py --rough [NAME...]     several in one build where their programs differ: faster, but a program may
                                 fail for the fault of another room, which the name of its test tells
  plant.py --wide [NAME...]      asks every test program that holds the file where those named miss a fault
  plant.py --list                the faults
  plant.py --check               whether each is found in its file exactly once; builds nothing

The faults stand in faults.txt beside this file. The copy is build/planted/tree; what has been built there
stays, and ccache gives the rest.
"""
import argparse
import os
import re
import subprocess
import sys
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).resolve().parent
TREE = HERE.parent.parent
COPY = TREE / "build/planted/tree"
BUILD = COPY / "build/release"
SECONDS = 300  # longer is a program that hangs
LOW_ROOMS = ("src/meter/", "src/platform/", "src/settings/", "src/link/", "src/transfer/", "src/controls/",
             "src/session/")  # most programs fail with these
SYSTEM_TARGETS = ["counterctl", "counter-sim", "libmodbus_server"]


@dataclass
class Fault:
    name: str
    file: str
    programs: list
    why: str = ""
    old: list = field(default_factory=list)
    new: list = field(default_factory=list)

    def planted(self, content):
        return content.replace("\n".join(self.old), "\n".join(self.new))

    def wrong(self):
        path = TREE / self.file
        if not path.is_file():
            return f"{self.file} does not exist"
        times = path.read_text().count("\n".join(self.old)) if self.old else 0
        return "" if times == 1 else f"its text is found {times} times in {self.file}"


def read_faults():
    faults = []
    for line in (HERE / "faults.txt").read_text().splitlines():
        mark, text = line[:2], line[2:]
        if not line or mark[0] == "#":
            continue
        if mark in ("- ", "-"):
            faults[-1].old.append(text)
        elif mark in ("+ ", "+"):
            faults[-1].new.append(text)
        elif mark == "! ":
            faults[-1].why = text
        else:
            name, file, programs = (part.strip() for part in line.split("|"))
            faults.append(Fault(name, file, programs.split()))
    return faults


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, errors="replace", **options)


def copy_tree():
    """Brings the copy up to date; a file that is the same keeps its time, so that nothing is built again."""
    listed = run("git", "-C", TREE, "ls-files", "-zco", "--exclude-standard", check=True).stdout
    wanted = {name for name in listed.split("\0") if name and (TREE / name).is_file()}
    for name in wanted:
        source, copy = TREE / name, COPY / name
        if copy.is_file() and copy.read_bytes() == source.read_bytes():
            continue
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_bytes(source.read_bytes())
        copy.chmod(source.stat().st_mode)
    for folder in ("src", "sim", "tests"):
        for copy in (COPY / folder).rglob("*"):
            if copy.is_file() and str(copy.relative_to(COPY)) not in wanted:
                copy.unlink()
    if not (BUILD / "build.ninja").is_file():
        run("cmake", "--preset", "release", "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST", cwd=COPY,
            check=True)


def build(programs):
    targets = {target for name in programs
               for target in (SYSTEM_TARGETS if name.startswith("system.") else [name])}
    return run("ninja", "-C", BUILD, "-j", "2", "-k", "0", *sorted(targets))


def first_failure(name):
    """Of a test program: the test that fails or ends it, empty where all is well."""
    if name.startswith("system."):
        done = run("ctest", "--test-dir", BUILD, "-R", f"^{re.escape(name)}$")
        return "" if done.returncode == 0 else "fails"
    work = BUILD / "planted"
    work.mkdir(exist_ok=True)
    command = [BUILD / "bin" / name, "--gtest_fail_fast"]
    try:
        done = run(*command, cwd=work, timeout=SECONDS, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
    except subprocess.TimeoutExpired:
        return "hangs"
    if done.returncode == 0:
        return ""
    failed = re.findall(r"\[  FAILED  \] ([\w/]+\.[\w/]+)", done.stdout)
    begun = re.findall(r"\[ RUN      \] (\S+)", done.stdout)
    return failed[0] if failed else f"{begun[-1] if begun else 'start'} (ends the program)"


def sources_of(program, known={}):
    """The files that a test program is made of, headers excepted; for a system test everything."""
    if program not in known:
        listed = run("ninja", "-C", BUILD, "-t", "inputs", f"bin/{program}").stdout.split()
        known[program] = {os.path.relpath(line, COPY) for line in listed if line.startswith("/")}
    return known[program]


def sees(program, file):
    return program.startswith("system.") or file.endswith(".h") or file in sources_of(program)


def apart(a, b):
    return (a.file != b.file and not any(sees(program, b.file) for program in a.programs) and
            not any(sees(program, a.file) for program in b.programs))


def differ(a, b):
    low = any(fault.file.startswith(room) for fault in (a, b) for room in LOW_ROOMS)
    return a.file != b.file and not set(a.programs) & set(b.programs) and (not low or apart(a, b))


def batches(faults, may_share):
    whole = []
    for fault in faults:
        fitting = [batch for batch in whole if all(may_share(fault, other) for other in batch)]
        if fitting:
            fitting[0].append(fault)
        else:
            whole.append([fault])
    return whole


def wider(fault):
    names = re.findall(r"^bin/(\w+_tests?): ", run("ninja", "-C", BUILD, "-t", "targets", "all").stdout, re.M)
    left_out = {*fault.programs, "gui_monkey_tests", "file_kill_tests"}
    return [name for name in sorted(set(names) - left_out) if sees(name, fault.file)]


def try_programs(fault, programs):
    for name in programs:
        failure = first_failure(name)
        if failure:
            return f"caught by {name}: {failure}"
    return ""


def verdict(fault, wide):
    found = try_programs(fault, fault.programs)
    if not found and wide:
        programs = wider(fault)
        build(programs)
        found = try_programs(fault, programs)
    return found or "GOT AWAY"


def restore(fault):
    (COPY / fault.file).write_bytes((TREE / fault.file).read_bytes())


def build_planted(batch):
    """Plants and builds; returns those that don't build, restored, so that no program is one of before."""
    for fault in batch:
        path = COPY / fault.file
        path.write_text(fault.planted(path.read_text()))
    programs = [program for fault in batch for program in fault.programs]
    built = build(programs)
    if built.returncode == 0:
        return []
    broken = [fault for fault in batch if re.search(re.escape(fault.file) + r":\d+:\d+: error", built.stdout)]
    for fault in broken:
        restore(fault)
    return broken if broken and build(programs).returncode == 0 else batch


def plant(batch, wide):
    try:
        broken = build_planted(batch)
        return [(fault, "DOES NOT BUILD" if fault in broken else verdict(fault, wide)) for fault in batch]
    finally:
        for fault in batch:
            restore(fault)


def whole_before(faults):
    """A program that fails without a fault proves nothing."""
    programs = sorted({program for fault in faults for program in fault.programs})
    built = build(programs)
    if built.returncode != 0:
        sys.exit("the tree does not build:\n" + built.stdout[-3000:])
    failing = [f"{name}: {failure}" for name in programs if (failure := first_failure(name))]
    if failing:
        sys.exit("these fail without a fault:\n" + "\n".join(failing))


def check(faults):
    names = [fault.name for fault in faults]
    wrong = [f"{fault.name}: {fault.wrong()}" for fault in faults if fault.wrong()]
    wrong += [f"{name}: stands twice" for name in sorted(set(names)) if names.count(name) > 1]
    print("\n".join(wrong) or f"{len(faults)} faults match their files")
    return 1 if wrong else 0


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("names", nargs="*", metavar="NAME")
    for name in ("together", "rough", "wide", "list", "check"):
        options.add_argument("--" + name, action="store_true")
    asked = options.parse_args()
    faults = read_faults()
    unknown = set(asked.names) - {fault.name for fault in faults}
    if unknown:
        sys.exit("no fault is named " + ", ".join(sorted(unknown)))
    if asked.names:
        faults = [fault for fault in faults if fault.name in asked.names]
    if asked.list:
        for fault in faults:
            print(f"{fault.name:24} {fault.file:42} {fault.why}")
        return 0
    wrong = check(faults)
    if wrong or asked.check:
        return wrong
    copy_tree()
    whole_before(faults)
    away = []
    may_share = apart if asked.together else differ if asked.rough else lambda a, b: False
    for batch in batches(faults, may_share):
        for fault, text in plant(batch, asked.wide):
            print(f"{fault.name:24} {text}", flush=True)
            if not text.startswith("caught"):
                away.append(fault.name)
    print(f"{len(faults) - len(away)} of {len(faults)} are caught" + "".join(f"\n  {name}" for name in away))
    return 1 if away else 0


if __name__ == "__main__":
    sys.exit(main())
