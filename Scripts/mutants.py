"""The work of Scripts/mutants, which says what it does."""

import difflib
import json
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

CHECKOUT = Path(__file__).resolve().parent.parent
SAMPLED = ("Source/Filter", "Source/Platform")
SAMPLED_GOAL = 97  # percent; what is left are changes that change nothing, as of a shortcut
QUICK_TEST_SECONDS = 0.05  # tests up to here run first, in one process
MEMORY_LIMIT = 6 << 30  # bytes; for changes that make a loop endless


# --- Changes: each operator gives (start, end, replacement) for places in the code of a line. ---------------

SIGN_SWAPS = {"==": "!=", "!=": "==", "<": "<=", ">": ">=", "<=": "<", ">=": ">", "&&": "||", "||": "&&",
              "+": "-", "-": "+", "*": "+", "/": "*", "%": "*", "&": "|", "|": "&", "<<": ">>", ">>": "<<",
              "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|="}
NAME_SWAPS = {"true": "false", "false": "true", "min": "max", "max": "min", "starts_with": "ends_with",
              "front": "back", "back": "front", "begin": "end"}


def code_of(line):
    """The line with comments and the insides of literals blanked, and the places of the literals."""
    code, literals, place = list(line), [], 0
    while place < len(line):
        if line.startswith("//", place) or line.startswith("/*", place):
            code[place:] = " " * (len(line) - place)
            break
        quote = line[place]
        digit_separator = quote == "'" and place > 0 and line[place - 1].isdigit()
        if quote in "\"'" and not digit_separator:
            end = place + 1
            while end < len(line) and line[end] != quote:
                end += 2 if line[end] == "\\" else 1
            literals.append((place + 1, end))
            code[place + 1:end] = "_" * (end - place - 1)
            place = end
        place += 1
    return "".join(code), literals


def operators(line, code):
    """clang-format puts blanks around those with two operands, and none around template brackets."""
    for match in re.finditer(r" (==|!=|<=|>=|<<|>>|\+=|-=|\|=|&=|&&|\|\||[-<>+*/%&|]) ", code):
        yield match.start(1), match.end(1), SIGN_SWAPS[match.group(1)]
    for match in re.finditer(r"\+\+|--", code):
        yield match.start(), match.end(), "--" if match.group() == "++" else "++"
    for match in re.finditer(r"(?<![\w)\]])!(?=[\w(])", code):
        yield match.start(), match.end(), ""


def names(line, code):
    for match in re.finditer(r"\b(%s)\b" % "|".join(NAME_SWAPS), code):
        yield match.start(), match.end(), NAME_SWAPS[match.group()]


def numbers(line, code):
    for match in re.finditer(r"(?<![\w.'])(0x[0-9a-fA-F]+|[0-9]+)(?=(u|U|l|L|LL|ull)?\b)(?![.'])", code):
        yield match.start(1), match.end(1), str(int(match.group(1), 0) + 1)


def conditions(line, code):
    for match in re.finditer(r"\b(if|while) (constexpr )?\(", code):
        depth, end = 1, match.end()
        while end < len(code) and depth > 0:
            depth += {"(": 1, ")": -1}.get(code[end], 0)
            end += 1
        inside = code[match.end():end - 1]
        if depth == 0 and ";" not in inside and not re.match(r"(const|auto)\b", inside):
            yield match.end(), end - 1, "!(" + line[match.end():end - 1] + ")"


def statements(line, code):
    """Calls, assignments, jumps; alone on a line or behind a condition."""
    statement = (r"(?:^\s*|\) |else )((?:[\w:]+(?:->|\.))*[\w:]+\(.*\);|[\w.\[\]>-]+ [-+|&]?= .*;|"
                 r"break;|continue;)$")
    for match in re.finditer(statement, code.rstrip()):
        yield match.start(1), match.end(1), ";"
    for match in re.finditer(r"\breturn (?!nullptr|false)([^;{}]+);", code):
        yield match.start(1), match.end(1), "{}"


def texts(line, literals):
    for start, end in literals:
        old = line[start:end]
        if line[end:end + 1] == '"':
            yield start, end, old + "x"
        elif len(old) == 1:
            yield start, end, "x" if old != "x" else "y"


def changes_of(line):
    code, literals = code_of(line)
    found = []
    for operator in (operators, names, numbers, conditions, statements):
        found += operator(line, code)
    found += texts(line, literals)
    return [line[:start] + new + line[end:] for start, end, new in found if line[start:end] != new]


def sites(file):
    """The lines of a source that can be changed, with their changes."""
    skipping, comment = False, False
    for number, line in enumerate(file.read_text().split("\n")):
        text = line.strip()
        comment = comment or text.startswith("/*")
        plain = not comment and text and not re.match(r"#|//|using |namespace |template |\[\[", text)
        skipping = skipping or bool(re.match(r"static_assert|extern \"C\"", text))
        if plain and not skipping:
            changed = changes_of(line)
            if changed:
                yield number, line, changed
        if "*/" in text:
            comment = False
        if text.endswith(";") or text.endswith("{"):
            skipping = False


# --- The copy, its build and its tests. ---------------------------------------------------------------------

class Copy:
    def __init__(self, folder):
        self.folder = folder
        self.build_folder = folder / "build" / "mutants"
        listing = ["git", "-C", CHECKOUT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
        listed = subprocess.run(listing, check=True, capture_output=True, text=True).stdout
        for name in filter(None, listed.split("\0")):
            if (CHECKOUT / name).is_file():
                (folder / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(CHECKOUT / name, folder / name)
        self.environment = dict(os.environ, CCACHE_BASEDIR=str(folder), CCACHE_NOHASHDIR="1")
        options = ["-DBUILD_TESTING=ON", "-DCMAKE_BUILD_TYPE=", "-DCMAKE_CXX_FLAGS=-O0",
                   "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"]
        if shutil.which("ccache"):
            options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        self.run(["cmake", "-S", folder, "-B", self.build_folder, "-G", "Ninja", *options], 600, check=True)

    def run(self, command, seconds, check=False):
        """Whether the command succeeded in time. Ends all that it has started."""
        log = self.folder / "build" / "log"
        log.parent.mkdir(exist_ok=True)
        with log.open("wb") as output:
            process = subprocess.Popen([str(part) for part in command], stdout=output, stderr=output,
                                       stdin=subprocess.DEVNULL, env=self.environment, cwd=self.folder,
                                       start_new_session=True, preexec_fn=limit_memory)
            try:
                succeeded = process.wait(timeout=seconds) == 0
            except subprocess.TimeoutExpired:
                succeeded = False
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()
        if check and not succeeded:
            sys.exit(log.read_text(errors="replace") + "\nThe unchanged program failed.")
        return succeeded

    def build(self, check=False):
        return self.run(["cmake", "--build", self.build_folder, "--target", "moduletests"], 1800, check)

    def measure_tests(self):
        """Runs all tests, which must pass, and makes the runs: quick tests first, then the others by time."""
        self.binary = next(self.build_folder.rglob("moduletests"))
        report = self.folder / "build" / "report.json"
        started = time.monotonic()
        self.run([self.binary, "--gtest_output=json:%s" % report], 1800, check=True)
        total = time.monotonic() - started
        times = {}
        for suite in json.loads(report.read_text())["testsuites"]:
            for test in suite["testsuite"]:
                times[suite["name"] + "." + test["name"]] = float(test["time"].rstrip("s"))
        slow = sorted((test for test in times if times[test] > QUICK_TEST_SECONDS), key=times.get)
        quick = [test for test in times if test not in slow]
        self.runs = [(":".join(quick), 30 + 10 * sum(times[test] for test in quick))]
        self.runs += [(test, 30 + 10 * times[test]) for test in slow]
        print("%d tests in %.0f s, %d of them quick" % (len(times), total, len(quick)), flush=True)

    def catches(self):
        """What caught the change that the copy holds; None when nothing did."""
        for tests, seconds in self.runs:
            if not self.run([self.binary, "--gtest_fail_fast", "--gtest_filter=" + tests], seconds):
                return "the quick tests" if ":" in tests else tests
        return None


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def rows_of(name):
    """The rows of a data file beside this one, as lists of fields."""
    lines = (CHECKOUT / "Scripts" / name).read_text().splitlines()
    return [line.split("\t") for line in lines if line and not line.startswith("#")]


def without_stages():
    """For each stage of the pipeline a change like those rows: that it is gone."""
    file = "Source/Filter/DeviceSpecific_Common/JobPipeline.cpp"
    array = re.search(r"stages\[\] = \{([^}]*)\}", (CHECKOUT / file).read_text()).group(1)
    return [("no " + stage, file, r"/stages\[\]/,/^}/s/\<%s\>/EmptyStage/" % stage)
            for stage in re.findall(r"\w+", array) if stage != "EmptyStage"]


class Tally:
    def __init__(self):
        self.caught, self.survivors = 0, []
        self.known = {(file, line): why for file, line, why in rows_of("mutants-without-effect.tsv")}

    def add(self, name, catcher, difference):
        old, _, new = difference.partition("    +")
        changed = new.strip() if new.strip() != ";" else old.strip()  # "-" and the line that is gone
        why = self.known.get((name.split(":")[0], changed))
        if catcher is None and why:
            print("no effect %s: %s" % (name, why), flush=True)
        elif catcher is None:
            self.survivors.append(name)
            print("SURVIVED %s\n%s" % (name, difference), flush=True)
        else:
            self.caught += 1
            print("caught   %s by %s" % (name, catcher), flush=True)

    def percent(self):
        return 100 * self.caught / max(self.caught + len(self.survivors), 1)

    def share(self):
        total = self.caught + len(self.survivors)
        return "%d of %d caught (%.1f %%)" % (self.caught, total, self.percent())


def try_change(copy, file, new, tally, name):
    """Whether the changed source compiled. The copy is then what it was before."""
    path = copy.folder / file
    old = path.read_text()
    path.write_text(new)
    try:
        if not copy.build():
            return False
        lines = [line for line in difflib.unified_diff(old.split("\n"), new.split("\n"), n=0, lineterm="")
                 if line[0] in "-+" and line[:3] not in ("---", "+++")]
        tally.add(name, copy.catches(), "\n".join("    " + line for line in lines))
        return True
    finally:
        path.write_text(old)


def try_named(copy):
    tally = Tally()
    for name, file, expression in without_stages() + rows_of("mutants.tsv"):
        old = (copy.folder / file).read_text()
        command = ["sed", "-E", expression, copy.folder / file]
        new = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        if new == old:
            sys.exit("%s: the expression changes nothing in %s" % (name, file))
        if not try_change(copy, file, new, tally, name):
            sys.exit("%s: does not compile" % name)
    print("named: " + tally.share(), flush=True)
    return not tally.survivors


def try_sampled(copy, wanted, seed, first):
    """Passes over the first ones of this seed."""
    chosen = random.Random(seed)
    found = []
    for folder in SAMPLED:
        for path in sorted((copy.folder / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                found += [(str(path.relative_to(copy.folder)), *site) for site in sites(path)]
    chosen.shuffle(found)
    tally, refused, passed = Tally(), 0, 0
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    try:
        for file, number, line, changed in found:
            if tally.caught + len(tally.survivors) >= wanted:
                break
            lines = (copy.folder / file).read_text().split("\n")
            lines[number] = chosen.choice(changed)
            if passed < first:
                passed += 1
                continue
            compiled = try_change(copy, file, "\n".join(lines), tally, "%s:%d" % (file, number + 1))
            refused += not compiled
            passed += 1
    except KeyboardInterrupt:
        print("stopped early", flush=True)
    print("sampled with seed %d: %s; %d more did not compile" % (seed, tally.share(), refused))
    print("survivors: %s" % (" ".join(tally.survivors) or "none"))
    print("Scripts/mutants N %d %d goes on from here" % (seed, passed))
    return tally.percent() >= SAMPLED_GOAL


def main():
    wanted = int(sys.argv[1])
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1 << 30)
    first = int(sys.argv[3]) if len(sys.argv) > 3 else 0
    with tempfile.TemporaryDirectory(prefix="mutants-") as folder:
        copy = Copy(Path(folder))
        copy.build(check=True)
        copy.measure_tests()
        enough = first > 0 or try_named(copy)
        if wanted > 0:
            enough = try_sampled(copy, wanted, seed, first) and enough
    sys.exit(0 if enough else 1)


main()
