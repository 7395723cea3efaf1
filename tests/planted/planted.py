#!/usr/bin/env python3
"""Plants one small error at a time in a clone of the tree and tells which of them no test notices.

    planted.py COUNT SEED FOLDER...

The clone is build/planted, of the last commit. What survives is a gap in the tests, or changes
nothing that can be seen.
"""
import os
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
COPY = ROOT / "build/planted"

# How many seconds they may take, and the commands.
BUILD = 400, "cmake", "--build", "--preset", "release"
TEST = (300, "ctest", "--preset", "release", "--exclude-regex", "^house", "--stop-on-failure",
        "--timeout", "100", "--parallel", str(os.cpu_count()))
QUICK, IN_WINDOWS = (*TEST, "--label-exclude", "windows"), (*TEST, "--label-regex", "windows")

# What is looked for in a line of code, and what takes its place.
CHANGES = [
    (r"(?<![\w.'])\d+(?![\w.'])", lambda found: str(int(found) + 1)),
    (r"(?<![\w.'])\d+\.\d+(?![\w.'])", lambda found: str(float(found) * 1.01 + 0.001)),
    (r" == ", " != "), (r" != ", " == "), (r" <= ", " < "), (r" >= ", " > "),
    (r" < ", " <= "), (r" > ", " >= "), (r" && ", " || "), (r" \|\| ", " && "),
    (r" \+ ", " - "), (r" - ", " + "), (r" \* ", " / "), (r" / ", " * "), (r" \+= ", " -= "),
    (r" -= ", " += "), (r"\+\+", "--"), (r"--", "++"), (r"(?<=[( ])-(?=[\w(])", ""),
    (r"(?<=[( ])!(?=[\w(])", ""), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<=if \().*(?=\) \{$)", "true"), (r"(?<=if \().*(?=\) \{$)", "false"),
    (r"^ *[A-Za-z][\w.:<>\[\]-]*(\(| = | [+-]= |\+\+).*;$", ""),  # leaves a statement out
]
NO_CODE = re.compile(r"\s*(#|//|using |namespace |static_assert|return;|break;|continue;|\}|$)")


def errors_in(path, pick):
    """One (path, line number, changed line) for each line of a file where something can change."""
    for number, line in enumerate(path.read_text().split("\n")):
        code = line.split("//")[0].rstrip()
        changed = [code[:found.start()] + (new(found.group()) if callable(new) else new)
                   + code[found.end():] for pattern, new in CHANGES
                   for found in re.finditer(pattern, code)
                   if code[:found.start()].count('"') % 2 == 0 and not NO_CODE.match(code)]
        if changed:
            yield path, number, pick.choice(changed)


def run(seconds, *command):
    """The output and status of a command, which is killed with all it started when time is up."""
    done = subprocess.run(["timeout", "--signal=KILL", str(seconds), "nice", *command], cwd=COPY,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    return done.stdout, done.returncode


def fate_of(path, number, changed):
    """What became of one error: "no code" that compiles, "noticed" by build or tests, "SURVIVED"."""
    original = path.read_text()
    lines = original.split("\n")
    lines[number] = changed
    path.write_text("\n".join(lines))
    try:
        output, status = run(*BUILD)
        if status != 0:
            return "no code" if "error: " in output else "noticed"
        return "noticed" if run(*QUICK)[1] or run(*IN_WINDOWS)[1] else "SURVIVED"
    finally:
        path.write_text(original)


def prepare():
    if not COPY.exists():
        subprocess.run(["git", "clone", "--quiet", ROOT, COPY], check=True)
    for command in (["fetch", "--quiet", ROOT, "HEAD"], ["reset", "--hard", "FETCH_HEAD"]):
        subprocess.run(["git", *command], cwd=COPY, check=True)
    os.environ |= {"CCACHE_BASEDIR": str(COPY), "CCACHE_NOHASHDIR": "1", "LC_ALL": "C.UTF-8"}
    run(60, "cmake", "--preset", "release", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
    for step in (BUILD, QUICK, IN_WINDOWS):
        output, status = run(*step)
        if status != 0:
            sys.exit(f"{output}\nwithout an error in it")


def main(count, seed, *folders):
    prepare()
    pick = random.Random(seed)
    errors = [error for folder in folders for path in sorted((COPY / folder).rglob("*"))
              if path.suffix in (".cpp", ".h") for error in errors_in(path, pick)]
    pick.shuffle(errors)
    fates = []
    while errors and len(fates) < int(count):
        path, number, changed = errors.pop()
        before = path.read_text().split("\n")[number].strip()
        fate = fate_of(path, number, changed)
        fates += [fate] if fate != "no code" else []
        print(f"{fate}: {path.relative_to(COPY)}:{number + 1}: {before} -> {changed.strip()}",
              flush=True)
    print(f"{len(fates)} errors planted, {fates.count('SURVIVED')} survived")


main(*sys.argv[1:])
