#!/usr/bin/env python3
"""mutants.py [COUNT] [SEED]: counts how many of COUNT (default: 300) random faults in the core the
tests find.

A mutant is one file of the core with one change: a flipped comparison, a negated condition, a
changed constant or a removed statement. It is compiled outside the work tree and linked before the
core library of build/release. Then the tests run until one fails, starting with those of the same
file or folder. Mutants that survive the unit tests go to the programs that make random and hostile
catalogues. A mutant that does not compile is replaced by another one. Forms, files for one system,
tables of texts and colours, reserved memory and headers are not changed.

mutants-equal.txt lists the mutants without an observable effect, with the reason. They are reported
but not counted.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import random
import re
import shlex
import subprocess
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "release"
PLACE = ROOT / "build" / "mutants"
FOLDERS = ["text", "system", "lang", "settings", "formats", "comm", "catalogue", "forecast", "findings",
           "import", "picture", "export", "report", "paste", "editors", "app", "plan"]
EQUAL = ROOT / "scripts" / "mutants-equal.txt"
NO_CORE = re.compile(r"/(Win\w+|Posix\w+|Palette|TypeColours)\.cpp$")
PROGRAMS = ["zekview-tests", "zekview-fuzz-corpora", "zekview-round-trips", "zekview-cli"]
# A mutant may take this many times the processor time without one, then it counts as found. The
# time on the clock also depends on what else the machine does, so that limit is wide.
TIMES = 5
LEAST_SECONDS = 5
CLOCK_TIMES = 6
MOST_SECONDS = 300  # until the times are known

FLIPPED = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||",
           "||": "&&"}
COMPARISON = re.compile(r" (==|!=|<=|>=|<|>|&&|\|\|) ")
CONDITION = re.compile(r"^(\s*(?:\} else )?(?:if|while) \()")
ASSIGNMENT = re.compile(r"(?<![=!<>])=(?!=)|;")
NUMBER = re.compile(r"(?<![\w.'])(\d+)(?![\w.'])|\b(true|false)\b")
STATEMENT = re.compile(r"^(\s+(?:if \(.*\) |else )?)((?:\+\+|--)?[A-Za-z_][\w.:>\[\]()*-]*"
                       r"(?:\(.*\)| [-+|&]?= .*|\+\+|--)?);$")
NO_STATEMENT = re.compile(r"^(return|using|const|constexpr|static|auto|namespace|public|class|struct"
                          r"|default|case|friend|throw|template|typedef|goto)\b"
                          r"|.*\.reserve\(")
TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\((\w+),", re.MULTILINE)
STRING = re.compile(r'R"\(.*?\)"|"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'')

Mutant = collections.namedtuple("Mutant", "kind file row before after")


def key_of(mutant):
    """The identity of a mutant in mutants-equal.txt, independent of its row."""
    return str(mutant.file.relative_to(ROOT)), mutant.before.strip(), mutant.after.strip()


def read_equal():
    """The reasons in mutants-equal.txt by key."""
    rows = [row for row in EQUAL.read_text().split("\n") if not row.startswith("#")]
    reasons = {}
    for block in filter(None, "\n".join(rows).strip().split("\n\n")):
        file, before, after, reason = (block.strip().split("\n") + [""] * 4)[:4]
        if before[:2] != "- " or after[:2] != "+ " or not reason.startswith("reason: "):
            raise SystemExit(f"{EQUAL.name}: not in its format:\n{block}")
        reasons[file, before[2:], after[2:]] = reason.removeprefix("reason: ")
    return reasons


def without_texts(line):
    """The line with strings replaced by blanks, so that columns stay, and without its comment."""
    blank = STRING.sub(lambda match: '"' + " " * (len(match[0]) - 2) + '"', line)
    comment = blank.find("//")
    return blank if comment < 0 else blank[:comment].rstrip()


def balanced(text):
    depth = 0
    for letter in text:
        depth += (letter == "(") - (letter == ")")
        if depth < 0:
            return False
    return depth == 0


def changes(line):
    """Pairs of a kind and the changed line."""
    code = without_texts(line)
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "template")):
        return
    for match in COMPARISON.finditer(code):
        if "operator" not in code:
            yield "comparison", line[:match.start(1)] + FLIPPED[match[1]] + line[match.end(1):]
    condition = CONDITION.match(code)
    end = closing(code, condition.end() - 1) if condition else None
    if end and not ASSIGNMENT.search(code[condition.end():end]):
        inside = line[condition.end():end]
        yield "condition", line[:condition.end()] + "!(" + inside + ")" + line[end:]
    for match in NUMBER.finditer(code):
        new = {"true": "false", "false": "true"}.get(match[0])
        for other in [new] if new else [str(int(match[0]) + 1), str(int(match[0]) - 1)]:
            if other != "-1":
                yield "constant", line[:match.start()] + other + line[match.end():]
    statement = STATEMENT.match(code)
    if statement and balanced(statement[2]) and not NO_STATEMENT.match(statement[2]):
        if re.fullmatch(r"break|continue", statement[2]) or re.search(r"[(=]|\+\+|--", statement[2]):
            yield "statement", line[:len(statement[1])] + "{}"


def closing(code, opening):
    """The index of the bracket that closes the one at `opening`, or None if the line has none."""
    depth = 0
    for place in range(opening, len(code)):
        depth += (code[place] == "(") - (code[place] == ")")
        if depth == 0:
            return place
    return None


def all_mutants():
    """All mutants by kind, so that frequent kinds do not crowd out the others."""
    found = collections.defaultdict(list)
    for folder in FOLDERS:
        for path in sorted((ROOT / "src" / folder).rglob("*.cpp")):
            if NO_CORE.search(str(path)):
                continue
            for row, line in enumerate(path.read_text().split("\n"), 1):
                for kind, changed in changes(line):
                    found[kind].append(Mutant(kind, path, row, line, changed))
    return found


def order_of(found, seed):
    """All mutants in a random order in which the kinds alternate."""
    shuffle = random.Random(seed)
    for mutants in found.values():
        shuffle.shuffle(mutants)
    longest = max(len(mutants) for mutants in found.values())
    for place in range(longest):
        for kind in sorted(found):
            if place < len(found[kind]):
                yield found[kind][place]


def run(command, **options):
    """True if the command succeeded within its time limit."""
    try:
        return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False, **options).returncode == 0
    except subprocess.TimeoutExpired:
        return False


class Builder:
    """Compiles and links mutants with the commands of build/release."""

    def __init__(self):
        self.links = {}
        for program in PROGRAMS:
            output = subprocess.run(["ninja", "-C", BUILD, "-t", "commands", program], check=True,
                                    stdout=subprocess.PIPE, text=True).stdout
            self.links[program] = self.link_of(output, program)
        entries = json.loads((BUILD / "compile_commands.json").read_text())
        self.compiles = {entry["file"]: shlex.split(entry["command"]) for entry in entries
                         if "zekview-core.dir" in entry["command"]}

    @staticmethod
    def link_of(output, program):
        for line in reversed(output.splitlines()):
            words = shlex.split(line.split(" && ")[1] if line.startswith(": && ") else line)
            if "-o" in words and words[words.index("-o") + 1].endswith(program):
                return words
        raise SystemExit(f"build/release has no rule for {program}")

    def compile(self, mutant, folder):
        lines = mutant.file.read_text().split("\n")
        lines[mutant.row - 1] = mutant.after
        source = folder / mutant.file.name
        source.write_text("\n".join(lines))
        words = self.compiles[str(mutant.file)]
        words = words[:words.index("-o")] + ["-O0", "-w", "-o", str(folder / "mutant.o"), "-c",
                                             str(source)]
        return run([word for word in words if word != "-Werror"], cwd=BUILD, timeout=300)

    def link(self, program, folder):
        words = list(self.links[program])
        words[words.index("-o") + 1] = str(folder / program)
        place = next(i for i, word in enumerate(words) if word.endswith(".a"))
        words[place:place] = [str(folder / "mutant.o")]
        return run([words[0], "-fuse-ld=gold", *words[1:]], cwd=BUILD, timeout=300)


def run_limited(command, folder, seconds):
    """As `run`, with limits of memory and of processor time."""
    limits = f"ulimit -v 8000000 -c 0 -t {int(seconds)}; exec \"$@\""
    return run(["bash", "-c", limits, "bash", *map(str, command)], cwd=folder,
               timeout=CLOCK_TIMES * seconds)


def processor_seconds():
    """What all ended children took."""
    times = os.times()
    return times.children_user + times.children_system


def suites_of(file):
    """The test suites in the test files named after a core file, else all suites of its folder."""
    paths = list((ROOT / "tests" / file.parent.relative_to(ROOT / "src")).glob("*.cpp"))
    named = [path for path in paths if path.stem.startswith(file.stem)]
    return sorted({suite for path in named or paths for suite in TEST.findall(path.read_text())})


class Tests:
    """Runs the tests against a mutant. A run without a change sets the time limits."""

    def __init__(self, builder):
        self.builder = builder
        self.seconds = {}

    def commands(self, program, folder, file):
        if program == "zekview-tests":
            unit = [folder / program, "--gtest_fail_fast", "--gtest_brief=1"]
            own = ":".join(f"*{suite}.*" for suite in suites_of(file))
            return [[*unit, f"--gtest_filter={own}"], [*unit, f"--gtest_filter=-{own}"]] if own else [unit]
        return [{
            "zekview-fuzz-corpora": [folder / program, ROOT / "fuzz" / "corpus"],
            "zekview-round-trips": [folder / program, "300"],
            "zekview-cli": [ROOT / "tests/cli/random-catalogues.py", folder, ROOT / "data", "300"],
        }[program]]

    def find(self, mutant, folder):
        """The program that fails with the mutant, or None if the mutant survives."""
        for program in PROGRAMS:
            if not self.builder.link(program, folder):
                raise SystemExit(f"{program} can't be linked with a mutant")
            for command in self.commands(program, folder, mutant.file):
                if not run_limited(command, folder, self.seconds[program]):
                    return program
        return None

    def measure(self, mutant):
        folder = PLACE / "0"
        folder.mkdir(parents=True, exist_ok=True)
        same = mutant._replace(after=mutant.before)
        if not self.builder.compile(same, folder):
            raise SystemExit(f"{mutant.file} can't be compiled as it stands")
        for program in PROGRAMS:
            self.builder.link(program, folder)
            begin = processor_seconds()
            for command in self.commands(program, folder, mutant.file):
                if not run_limited(command, folder, MOST_SECONDS):
                    raise SystemExit(f"{program} fails without a mutant")
            self.seconds[program] = max(LEAST_SECONDS, TIMES * (processor_seconds() - begin))


def main():
    count = int(sys.argv[1]) if len(sys.argv) > 1 else 300
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    equal, found = read_equal(), all_mutants()
    unknown = equal.keys() - {key_of(mutant) for mutants in found.values() for mutant in mutants}
    if unknown:
        raise SystemExit(f"{EQUAL.name}: there is no such mutant: {sorted(unknown)}")
    order = order_of(found, seed)
    tests = Tests(Builder())
    tests.measure(next(order))
    lock = threading.Lock()
    results, named = [], []
    left = [count]

    def work(number):
        folder = PLACE / str(number)
        folder.mkdir(parents=True, exist_ok=True)
        while True:
            with lock:
                mutant = next(order, None) if left[0] > 0 else None
                if mutant is None:
                    return
                left[0] -= 1
                if key_of(mutant) in equal:
                    named.append(mutant)
                    continue
            if not tests.builder.compile(mutant, folder):
                with lock:
                    left[0] += 1
                continue
            caught = tests.find(mutant, folder)
            with lock:
                results.append((mutant, caught))
                place = f"{mutant.file.relative_to(ROOT)}:{mutant.row}"
                print(f"{len(results)} {caught or 'SURVIVES'} {mutant.kind} {place}", flush=True)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(work, range(os.cpu_count())))

    survivors = [mutant for mutant, caught in results if caught is None]
    for mutant in sorted(survivors):
        print(f"\nsurvivor: {mutant.kind}, {mutant.file.relative_to(ROOT)}:{mutant.row}")
        print(f"  - {mutant.before.strip()}\n  + {mutant.after.strip()}")
    for mutant in sorted(named):
        print(f"\nnot counted: {mutant.kind}, {mutant.file.relative_to(ROOT)}:{mutant.row}")
        print(f"  - {mutant.before.strip()}\n  + {mutant.after.strip()}\n  {equal[key_of(mutant)]}")
    by_program = collections.Counter(caught for _, caught in results)
    print("\ncaught by: " + ", ".join(f"{name} {by_program[name]}" for name in PROGRAMS))
    print(f"figure: mutants that change nothing observable: {len(named)} of {count}")
    print(f"figure: mutants caught: {len(results) - len(survivors)} of {len(results)}")


main()
