#!/usr/bin/env python3
"""Mutation check: plants single-token faults in the library and reports which the tests catch.

    tools/mutate.py [--count 200] [--seed 1] [--build build-mutate] [--state FILE]
                    [--files REGEX] [--report] [--list]

Each mutant is one change in one line of src/: an arithmetic or shift operator swapped
(+ -, * /, << >>), a comparison flipped (< <=, > >=, == !=), && and || swapped, an integer
constant moved by one, or a statement dropped (an assignment, a call, a return of a status, a
VEK_CHECK). The candidates of every file are listed in a fixed order and a sample is drawn with
the seed, so a run is reproducible. For each mutant the file is changed, the build directory is
rebuilt incrementally (only the test programs that matter), and the tests that mirror the
mutated folder run (src/stats/norm/... runs every program of tests/stats/, src/core and src/simd
every program) together with the conformance suite and the huge-length checks, each with a
time limit. A mutant is killed when a test fails, crashes or times out; it survives when all
pass; it is stillborn when it does not compile. The file is restored after every mutant,
whatever happens.

Results go to the state file (default: <build>/mutate-state.json) as they come, so an
interrupted run resumes where it stopped. Mutants judged equivalent (no test could tell them
apart from the original) are listed by id, one per line, in tools/mutate-equivalent.txt; they do
not count in the score. Mutants that pass the release build's tests but that the
AddressSanitizer build of the same tests catches (a read or write past a buffer that stays
inside the allocation's slack otherwise; checked by hand) are listed in
tools/mutate-sanitizer.txt and count as killed. --report prints the score, the survivors with
their change, and for each test case the mutants only it kills (test cases that kill nothing
alone are candidates for removal). The whole run is niced; the build uses two jobs.

--fast builds and runs one program at a time, those named after the mutated file's folder or
stem first (the conformance suite and then the slow huge-length checks last), and stops at the
first that fails: the outcome is the same (killed when any test fails), but a killed mutant
records only that first failing program, so the list of test cases that alone kill a mutant is
then an upper bound, not a measure of redundancy.
"""
import argparse
import hashlib
import json
import os
import random
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
TESTS = ROOT / "tests"
EQUIVALENT = ROOT / "tools" / "mutate-equivalent.txt"
SANITIZED = ROOT / "tools" / "mutate-sanitizer.txt"

SWAPS = [
    (r"(?<![<>=!&|+\-*/%^])\+(?![+=])", "-", "operator"),
    (r"(?<![<>=!&|+\-*/%^>-])-(?![-=>])", "+", "operator"),
    (r"(?<![*/])\*(?![=*/])", "/", "operator"),
    (r"<<(?!=)", ">>", "operator"),
    (r">>(?!=)", "<<", "operator"),
    (r"(?<![<>=!])<=", "<", "comparison"),
    (r"(?<![<>=!])>=", ">", "comparison"),
    (r"(?<![<>=!-])<(?![<=])", "<=", "comparison"),
    (r"(?<![<>=!-])>(?![>=])", ">=", "comparison"),
    (r"==", "!=", "comparison"),
    (r"!=", "==", "comparison"),
    (r"&&", "||", "logical"),
    (r"\|\|", "&&", "logical"),
]
INT_LITERAL = re.compile(r"(?<![\w.])(\d+)(?![\w.])")
STATEMENT = re.compile(
    r"^\s*(VEK_CHECK\(.*\);|return vekSts\w+;|[\w.\[\]>*-]+\s*(=|\+=|-=|\*=|/=|\|=|&=|<<=|>>=)"
    r"[^=].*;|[\w:.>-]+\(.*\);|\+\+\w+;|\w+\+\+;)\s*$")


def code_part(line):
    """The line without comments and string or character literals (blanked, same length)."""
    out, i, n = [], 0, len(line)
    while i < n:
        if line.startswith("//", i):
            out.append(" " * (n - i))
            break
        if line[i] in "\"'":
            q, j = line[i], i + 1
            while j < n and line[j] != q:
                j += 2 if line[j] == "\\" else 1
            out.append(" " * (min(j, n - 1) - i + 1))
            i = j + 1
            continue
        out.append(line[i])
        i += 1
    return "".join(out)[:n]


def candidates(path):
    """Every mutant of one file, in a fixed order."""
    rel = path.relative_to(ROOT).as_posix()
    lines = path.read_text().split("\n")
    result, in_comment, in_template_args = [], False, False
    for no, line in enumerate(lines, 1):
        stripped = line.strip()
        if in_comment:
            if "*/" in line:
                in_comment = False
            continue
        if stripped.startswith("/*"):
            in_comment = "*/" not in stripped
            continue
        if not stripped or stripped.startswith(("#", "//", "*")):
            continue
        if re.match(r"^(template|using|typedef|namespace|struct|class|enum)\b", stripped):
            continue
        code = code_part(line)
        if "#include" in code or "static_assert" in code:
            continue
        for pattern, repl, kind in SWAPS:
            for m in re.finditer(pattern, code):
                # '<' and '>' of templates, '->' and '*' of pointer declarations are not
                # operators: left to the compiler (stillborn) unless clearly arithmetic.
                if m.group(0) in ("<", ">", "<=", ">=") and re.search(
                        r"\w<\w|\w>\(|>\s*\w+\s*[=;(]|<\s*(class|typename|int|size_t|T\b)",
                        code[max(0, m.start() - 12):m.end() + 12]):
                    continue
                if m.group(0) == "*" and re.search(r"(\w|>)\*\s*\w+\s*[=;,)]|\(\*|\*\)",
                                                   code[max(0, m.start() - 20):m.end() + 12]):
                    continue
                result.append((rel, no, m.start(), m.group(0), repl, kind))
        for m in INT_LITERAL.finditer(code):
            v = int(m.group(1))
            for w in (v + 1, v - 1):
                if w >= 0:
                    result.append((rel, no, m.start(), m.group(1), str(w), "constant"))
        if STATEMENT.match(code) and not re.match(r"^\s*(const\s+)?[\w:<>]+\s+[\w]+\s*=", code):
            result.append((rel, no, 0, line, "", "statement"))
    return result


def mutant_id(c):
    rel, no, col, old, new, kind = c
    h = hashlib.sha1(f"{rel}:{no}:{col}:{old}:{new}:{kind}".encode()).hexdigest()[:10]
    return f"{rel}:{no}:{kind}:{h}"


def apply(c, text):
    rel, no, col, old, new, kind = c
    lines = text.split("\n")
    line = lines[no - 1]
    if kind == "statement":
        lines[no - 1] = re.sub(r"\S.*$", "", line) + "(void)0;"
    else:
        assert line[col:col + len(old)] == old, (rel, no, line, old)
        lines[no - 1] = line[:col] + new + line[col + len(old):]
    return "\n".join(lines), lines[no - 1]


def test_programs(build, rel):
    """The test programs for a mutated file: its subsystem's folder and the conformance suite."""
    parts = Path(rel).parts  # src/<subsystem>/...
    sub = parts[1] if len(parts) > 2 else ""
    folders = [TESTS / sub] if (TESTS / sub).is_dir() and sub not in ("simd", "core") else \
        [d for d in TESTS.iterdir() if d.is_dir() and d.name not in ("conformance", "threads")]
    if sub == "core":
        folders = [TESTS / "core"]
    names = sorted({p.stem for f in folders for p in f.glob("test_*.cpp")})
    return names + ["test_conformance", "test_huge_lengths"]


def run_tests(build, programs, limits):
    """Runs each program; returns {program: [failed test cases]} for those that failed."""
    failed = {}
    for prog in programs:
        exe = Path(build) / "tests" / prog
        out = Path(build) / "mutate-result.json"
        if out.exists():
            out.unlink()
        try:
            r = subprocess.run([str(exe), "--gtest_brief=1", f"--gtest_output=json:{out}"],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               timeout=limits.get(prog, 120))
            code = r.returncode
        except subprocess.TimeoutExpired:
            failed[prog] = ["(timeout)"]
            continue
        if code == 0:
            continue
        cases = []
        try:
            data = json.loads(out.read_text())
            for suite in data.get("testsuites", []):
                for t in suite.get("testsuite", []):
                    if t.get("failures"):
                        cases.append(f"{suite['name']}.{t['name']}")
        except (OSError, ValueError):
            pass
        failed[prog] = cases or [f"(exit {code})"]
    return failed


def likely_first(rel, programs):
    """The programs named after the mutated file's folder or stem first, the conformance suite
    last: the order in which --fast tries them."""
    parts = Path(rel).with_suffix("").parts
    words = set(re.split(r"_", "_".join(parts[2:]).lower())) - {"simd", "entry", "run"}

    def rank(prog):
        if prog in ("test_conformance", "test_huge_lengths"):
            return 2 if prog == "test_conformance" else 3
        stem = prog[len("test_"):].split("_")
        return 0 if any(w.startswith(x) for w in stem for x in words if len(x) > 1) else 1

    return sorted(programs, key=lambda p: (rank(p), p))


def build_and_run_fast(build, programs, limits):
    """One program at a time, stopping at the first that fails; None when a build fails."""
    for prog in programs:
        if not build_targets(build, [prog]):
            return None
        failed = run_tests(build, [prog], limits)
        if failed:
            return failed
    return {}


def build_targets(build, programs):
    r = subprocess.run(["cmake", "--build", build, "-j2", "--target", *programs],
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return r.returncode == 0


def load_state(path):
    if path.exists():
        return json.loads(path.read_text())
    return {"results": {}, "pending": None}


def save_state(path, state):
    tmp = path.with_suffix(".tmp")
    tmp.write_text(json.dumps(state, indent=1))
    tmp.replace(path)


def listed(path):
    """The mutant ids of a list file: the first word of each line that is not a comment."""
    if not path.exists():
        return set()
    return {l.split()[0] for l in path.read_text().splitlines()
            if l.strip() and not l.startswith("#")}


def report(state, sample_ids):
    equivalent = listed(EQUIVALENT)
    sanitized = listed(SANITIZED)
    res = state["results"]
    done = [i for i in sample_ids if i in res]
    kinds = {}
    for i in done:
        kinds.setdefault(res[i]["outcome"], []).append(i)
    by_sanitizer = [i for i in kinds.get("survived", []) if i in sanitized]
    killed = kinds.get("killed", []) + by_sanitizer
    survived = [i for i in kinds.get("survived", []) if i not in equivalent | sanitized]
    eq = [i for i in kinds.get("survived", []) if i in equivalent]
    stillborn = kinds.get("stillborn", [])
    seconds = sum(res[i].get("seconds", 0) for i in done)
    counted = len(killed) + len(survived)
    print(f"mutants: {len(done)} of {len(sample_ids)} run, {len(stillborn)} stillborn, "
          f"{len(eq)} equivalent")
    if counted:
        print(f"score: {len(killed)} killed of {counted} = {100.0 * len(killed) / counted:.1f}%"
              f" ({len(by_sanitizer)} of them by the sanitizer build)")
    print(f"time: {seconds / 60:.1f} min")
    for i in survived:
        print(f"SURVIVED {i}\n    {res[i]['line'].strip()}")
    # Test cases that alone kill a mutant.
    only = {}
    for i in kinds.get("killed", []):
        cases = [f"{p}:{c}" for p, cs in res[i]["failed"].items() for c in cs]
        if len(cases) == 1:
            only.setdefault(cases[0], []).append(i)
    print("test cases that alone kill a mutant:")
    for case, ids in sorted(only.items()):
        print(f"    {case}: {len(ids)}")


def main():
    ap = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    ap.add_argument("--count", type=int, default=200)
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--build", default=str(ROOT / "build-mutate"))
    ap.add_argument("--state")
    ap.add_argument("--files", default=r"^src/.*\.(cpp|hpp)$")
    ap.add_argument("--report", action="store_true")
    ap.add_argument("--list", action="store_true", help="print the sample and stop")
    ap.add_argument("--fast", action="store_true",
                    help="stop at the first failing program (see above)")
    args = ap.parse_args()
    os.nice(10)
    build = args.build
    state_path = Path(args.state or Path(build) / "mutate-state.json")

    files = sorted(p for p in SRC.rglob("*") if p.is_file() and
                   re.search(args.files, p.relative_to(ROOT).as_posix()))
    every = [c for f in files for c in candidates(f)]
    rng = random.Random(args.seed)
    sample = rng.sample(every, min(args.count, len(every)))
    ids = [mutant_id(c) for c in sample]
    if args.list:
        for c, i in zip(sample, ids):
            print(i, repr(c[3] if c[5] != "statement" else "drop"), "->", repr(c[4]))
        return
    if not Path(build, "CMakeCache.txt").exists():
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        subprocess.run(["cmake", "-S", str(ROOT), "-B", build, "-G", "Ninja",
                        "-DCMAKE_BUILD_TYPE=Release", "-DVEKS_BUILD_TESTS=ON",
                        "-DVEKS_BUILD_EXAMPLES=OFF", "-DVEKS_BUILD_TOOLS=OFF", *launcher],
                       check=True, stdout=subprocess.DEVNULL)
    state = load_state(state_path)
    if args.report:
        report(state, ids)
        return

    # A run that was killed while a file was changed: put the file back first.
    if state.get("pending"):
        p = state["pending"]
        (ROOT / p["file"]).write_text(p["original"])
        state["pending"] = None
        save_state(state_path, state)

    # Baseline: everything builds and passes; the time limits come from its run times.
    programs_all = sorted({p for c in sample for p in test_programs(build, c[0])})
    if not build_targets(build, programs_all):
        sys.exit("the unmutated tree does not build")
    limits = {}
    for prog in programs_all:
        t0 = time.time()
        failed = run_tests(build, [prog], {})
        if failed:
            sys.exit(f"{prog} fails without a mutant: {failed}")
        limits[prog] = 5 * (time.time() - t0) + 20

    # A mutant in a header every kernel includes rebuilds the whole library, and so does the next
    # mutant after it: such mutants run last, one after another, so that each costs one rebuild.
    def rebuilds_all(c):
        core_header = c[0].startswith("src/core/") and c[0].endswith(".hpp")
        return c[0].startswith("src/simd/") or core_header

    order = sorted(range(len(sample)), key=lambda k: (rebuilds_all(sample[k]), k))
    for n, (c, mid) in ((k + 1, (sample[k], ids[k])) for k in order):
        if mid in state["results"]:
            continue
        path = ROOT / c[0]
        original = path.read_text()
        mutated, new_line = apply(c, original)
        state["pending"] = {"file": c[0], "original": original}
        save_state(state_path, state)
        t0 = time.time()
        try:
            path.write_text(mutated)
            programs = test_programs(build, c[0])
            if args.fast:
                failed = build_and_run_fast(build, likely_first(c[0], programs), limits)
                outcome = "stillborn" if failed is None else "killed" if failed else "survived"
                failed = failed or {}
            elif not build_targets(build, programs):
                outcome, failed = "stillborn", {}
            else:
                failed = run_tests(build, programs, limits)
                outcome = "killed" if failed else "survived"
        finally:
            path.write_text(original)
            # the restored file must be older than nothing the build made from the mutant
            os.utime(path, None)
        state["pending"] = None
        state["results"][mid] = {"outcome": outcome, "failed": failed, "line": new_line,
                                 "seconds": round(time.time() - t0, 1)}
        save_state(state_path, state)
        print(f"[{n}/{len(sample)}] {outcome:9} {mid}", flush=True)
    build_targets(build, programs_all)  # leave the build matching the tree
    report(state, ids)


if __name__ == "__main__":
    main()
