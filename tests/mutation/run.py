"""Changes the module at one place at a time, and looks whether a test notices.

    run.py PROJECT

MUTATION_COUNT changes (150) are drawn by MUTATION_SEED (1) and tried one after the other in a copy of the project under
build/mutation; the project itself is never touched. Only what a change affects is built, and the first test that fails
ends it. A change that does not compile, or that leaves the built module as it was, is none: another is drawn. What no
test notices is told as it is found: it either makes no difference, or a test is missing.
"""

import hashlib
import os
import random
import resource
import shutil
import subprocess
import sys
import time
from collections import Counter
from itertools import zip_longest
from pathlib import Path

from changes import KINDS, all_changes

JOBS = 2
TIME_LIMIT = 60 * 60  # seconds for all changes; those that are left are told
TEST_LIMIT = 60  # seconds; a test that takes longer has failed
TEST_MEMORY = 4 << 30  # bytes; a walk that does not end would record calls without end

MODULE = "lib/libymap_oclacp.so"
RUNNERS = ("golden_runner", "fault_runner")
# In the order in which they are most likely to notice a change.
UNIT_TESTS = ("oc_lacp_test", "frame_test", "native_test", "lifecycle_test", "store_library_test", "tables_test")


class Copy:
    """The project's copy, its build, and its tests."""

    def __init__(self, project):
        self.project = project
        self.tree = project / "build/mutation/tree"
        self.build = project / "build/mutation/build"
        self.cases = []

    def update(self):
        """Makes the copy what the project is; what did not change keeps its time, and is not built again."""
        wanted = set()
        for folder, folders, files in os.walk(self.project):
            if Path(folder) == self.project:
                folders[:] = [name for name in folders if name != "build" and not name.startswith(".")]
            for name in files:
                source = Path(folder) / name
                target = self.tree / source.relative_to(self.project)
                wanted.add(target)
                if not target.exists() or target.read_bytes() != source.read_bytes():
                    target.parent.mkdir(parents=True, exist_ok=True)
                    shutil.copy(source, target)
        for target in [path for path in self.tree.rglob("*") if path.is_file() and path not in wanted]:
            target.unlink()
        self.cases = sorted(str(path.parent) for path in (self.tree / "tests/golden").glob("*/request"))

    def configure(self):
        # Optimised so far that a change without effect leaves no trace in the module.
        options = ["-DCMAKE_BUILD_TYPE=RelWithDebInfo", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1"]
        command = ["cmake", "-S", str(self.tree), "-B", str(self.build), "-G", "Ninja", *options]
        if (done := run(command)).returncode != 0:
            sys.exit(done.stdout)

    def make(self, *targets):
        """Whether the targets could be built, and what the compiler said."""
        done = run(["cmake", "--build", str(self.build), "-j", str(JOBS), "--target", *targets])
        return done.returncode == 0, done.stdout

    def module(self):
        return hashlib.sha256((self.build / MODULE).read_bytes()).digest()

    def complaint(self):
        """What notices that the built module is wrong: the name of a test, or None."""
        golden = [str(self.build / "bin/golden_runner"), str(self.build / MODULE)]
        if fails(golden + self.cases):
            return "golden"
        if not self.make(*UNIT_TESTS)[0]:
            return "compiling the unit tests"
        for name in UNIT_TESTS:
            if fails([str(self.build / "bin" / name), "--gtest_fail_fast", "--gtest_brief=1"]):
                return name
        fault = [str(self.build / "bin/fault_runner"), str(self.build / MODULE)]
        return next(("fault" for case in self.cases if fails([*fault, case])), None)


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          check=False, **options)


def fails(command):
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (TEST_MEMORY, TEST_MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    try:
        return run(command, timeout=TEST_LIMIT, preexec_fn=limit).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def texts(folder, *patterns):
    """Texts by file, relative to the folder's parent."""
    files = sorted(file for pattern in patterns for file in folder.rglob(pattern))
    return {str(file.relative_to(folder.parent)): file.read_text() for file in files}


def in_turn(lists):
    """The first of each list, then the second of each, and so on."""
    return [item for row in zip_longest(*lists) for item in row if item is not None]


def draw(changes, seed):
    """All changes in the order in which they are tried. Kinds take turns, and so do the places of a kind: one with many
    alternatives crowds out no other.
    """
    generator = random.Random(seed)
    kinds = []
    for kind in KINDS:
        places = {}
        for change in changes:
            if change.kind == kind:
                places.setdefault((change.file, change.start, change.end), []).append(change)
        for alternatives in places.values():
            generator.shuffle(alternatives)
        shuffled = list(places.values())
        generator.shuffle(shuffled)
        kinds.append(in_turn(shuffled))
    return in_turn(kinds)


def shown(change, source):
    """Where a change stands, and the lines that it changes, before and after."""
    line = source.count("\n", 0, change.start) + 1
    first = source.rfind("\n", 0, change.start) + 1
    changed = change.applied(source)
    end = source.find("\n", change.end)
    last = len(source) if end < 0 else end
    before, after = source[first:last], changed[first : last + len(changed) - len(source)]
    lines = [f"{change.file}:{line}"]
    lines += [f"  - {text.strip()}" for text in before.split("\n")]
    lines += [f"  + {text.strip()}" for text in after.split("\n")]
    return "\n".join(lines)


def try_change(copy, change, source, unchanged):
    """How a change ends: as "survived", as what noticed it, or as what keeps it from being one."""
    file = copy.tree / change.file
    file.write_text(change.applied(source))
    try:
        if not copy.make("ymap_oclacp")[0]:
            return "does not compile"
        if copy.module() == unchanged:
            return "makes no difference"
        return copy.complaint() or "survived"
    finally:
        file.write_text(source)


def prepare(copy):
    """Builds the copy as it is, and makes sure that its tests pass. Answers the module."""
    copy.update()
    copy.configure()
    built, said = copy.make("ymap_oclacp", *RUNNERS, *UNIT_TESTS)
    if not built:
        sys.exit(said)
    if complaint := copy.complaint():
        sys.exit(f"without any change fails already: {complaint}")
    return copy.module()


def main():
    count = int(os.environ.get("MUTATION_COUNT", "150"))
    seed = int(os.environ.get("MUTATION_SEED", "1"))
    copy = Copy(Path(sys.argv[1]).resolve())
    unchanged = prepare(copy)
    sources = texts(copy.tree / "mapping", "*.cpp", "*.h", "*.inc")
    changes = all_changes(sources, texts(copy.tree / "platform", "*.h"))
    print(f"{len(changes)} changes are possible; trying {count} drawn by seed {seed}", flush=True)
    began = time.monotonic()
    ends = Counter()
    dropped = Counter()
    try:
        for change in draw(changes, seed):
            if sum(ends.values()) == count or time.monotonic() - began > TIME_LIMIT:
                break
            end = try_change(copy, change, sources[change.file], unchanged)
            (dropped if end in ("does not compile", "makes no difference") else ends)[end] += 1
            if end == "survived":
                print(shown(change, sources[change.file]), flush=True)
    except KeyboardInterrupt:
        pass  # what was tried until then is told
    for end, times in ends.most_common():
        print(f"{times:5} {end if end == 'survived' else 'noticed by ' + end}")
    for end, times in dropped.most_common():
        print(f"{times:5} drawn again: {end}")
    tried = sum(ends.values())
    print(f"{tried} of {count} changes in {time.monotonic() - began:.0f} s (seed {seed}): "
          f"{tried - ends['survived']} noticed, {ends['survived']} survived")


if __name__ == "__main__":
    main()
