#!/usr/bin/env python3
"""Changes the program one operator, constant, comparison or rounding call at a time and runs the
tests of the changed room: a change that no test notices has survived.

    scripts/mutate.py [room or file ...]      core geodesy aprs map settings panels records batch
    scripts/mutate.py --jobs 2 --list core    shows the changes without making them
    scripts/mutate.py --again LOG core        only the changes that an earlier run's output names

Everything happens in build-mutation; the sources are only read. A change that does not compile does
not count, and an empty starting value ("{}") is not changed. Survivors are compared with
docs/mutation.md, which says of each why it changes nothing that can be observed. Exit status: 0
where every survivor is explained there, everything that is explained there has survived, and of all
changes of all rooms at least 95 of 100 are killed.
"""

import argparse
import concurrent.futures
import functools
import json
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build-mutation"
ROOMS = ["core", "geodesy", "aprs", "map", "settings", "panels", "records", "batch"]
SUPPORT = ["tests/support/main.cpp", "tests/support/panel_actions.cpp", "tests/support/table.cpp",
           "tests/support/in_process.cpp", "tests/support/made_log.cpp",
           "tests/support/world_outlines.cpp"]
# What the programs need of the operating system; not changed.
PLATFORM = ["platform/byte_stream.cpp", "platform/environment.cpp", "platform/file_descriptor.cpp",
            "platform/paths.cpp", "platform/program_folder.cpp", "platform/safe_file.cpp"]
MAIN = "batch/main.cpp"
SECONDS = 40  # the slowest of these programs takes eight
BYTES = 1 << 30  # a change that makes something endless fills the memory before its time is over

# The programs that look at a room, the quickest first.
PROGRAMS = {
    "core": [["tests/core/*.cpp"], ["tests/proof/number_texts_test.cpp"],
             ["tests/proof/locator_axes_test.cpp", "tests/proof/locator_borders_test.cpp",
              "tests/proof/locator_reference.cpp"]],
    "geodesy": [["tests/geodesy/*.cpp"],
                ["tests/proof/great_circle_pairs_test.cpp", "tests/proof/vincenty_pairs_test.cpp",
                 "tests/proof/locator_reference.cpp"]],
    "aprs": [["tests/aprs/*.cpp"],
             ["tests/proof/compressed_codes_test.cpp", "tests/proof/uiview_codes_test.cpp"]],
    "map": [["tests/map/*.cpp"],
            ["tests/proof/map_lines_test.cpp", "tests/proof/map_projection_test.cpp"]],
    "settings": [["tests/settings/*.cpp"]],
    "panels": [["tests/panels/*.cpp"]],
    "records": [["tests/records/*.cpp"], ["tests/batch/made_log_test.cpp"]],
    "batch": [["tests/batch/batch_run_test.cpp", "tests/batch/[ciop]*_test.cpp",
               "tests/batch/distance_test.cpp", "tests/batch/m[ae][ps]*_test.cpp"],
              ["tests/batch/batch_program_test.cpp", "tests/support/child.cpp"]],
}
# What the last of them runs: in the folder that they all run in.
EXECUTABLE = "orbisgrid-batch"
LIBRARIES = ["-lgtest", "-lGeographicLib", "-lpthread"]

# Pattern, replacement. Operators stand between blanks, as the formatter leaves them: what is
# written without is a template, a pointer or a reference.
CHANGES = [
    (r"(?<= )<(?= )", "<="), (r"(?<= )<=(?= )", "<"), (r"(?<= )>(?= )", ">="),
    (r"(?<= )>=(?= )", ">"), (r"(?<= )==(?= )", "!="), (r"(?<= )!=(?= )", "=="),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"),
    (r"(?<= )/(?= )", "*"), (r"(?<= )%(?= )", "/"), (r"(?<= )\+=(?= )", "-="),
    (r"(?<= )-=(?= )", "+="), (r"(?<= )\*=(?= )", "/="), (r"(?<= )/=(?= )", "*="),
    (r"(?<= )&&(?= )", "||"), (r"(?<= )\|\|(?= )", "&&"), (r"(?<![\w)\]])!(?=[\w(])", ""),
    (r"\+\+(?=\w)", "--"), (r"(?<![\w)])--(?=\w)", "++"), (r"(?<=\w)\+\+", "--"),
    (r"(?<=\w)--(?!>)", "++"), (r"(?<=[( ,{\[])-(?=[\w(])", ""),
    (r"\bstd::floor\b", "std::ceil"), (r"\bstd::trunc\b", "std::floor"),
    (r"\bstd::round\b", "std::trunc"), (r"\bstd::nearbyint\b", "std::floor"),
    (r"\bstd::fabs\b", ""), (r"\bstd::max\b", "std::min"), (r"\bstd::min\b", "std::max"),
    (r"\bstatic_cast<float>", "static_cast<double>"), (r"\btrue\b", "false"),
]
NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+(?:\.\d+)?(?:e-?\d+)?)(?=[fFuU]?\b)")
CHARACTER = re.compile(r"u'(\\?.)'")


def code_only(text):
    """The text with comments, preprocessor lines and string literals blanked out."""
    pattern = r"//[^\n]*|^#[^\n]*|u?\"(?:\\.|[^\"\\])*\"|^using [^\n]*"
    return re.sub(pattern, lambda match: "\0" * len(match.group()), text, flags=re.MULTILINE)


def other_number(text):
    if text.startswith("0x"):
        return hex(int(text, 16) + 1)
    if re.search(r"[.e]", text):
        return repr(float(text) * 1.001)
    return str(int(text) + 1)


def changes_of(path):
    """(start, end, replacement) of every change of a file."""
    text = (ROOT / path).read_text(encoding="utf-8")
    code = code_only(text)
    found = []
    for pattern, replacement in CHANGES:
        found += [(match.start(), match.end(), replacement) for match in re.finditer(pattern, code)]
    found += [(match.start(), match.end(), other_number(match.group()))
              for match in NUMBER.finditer(code)]
    found += [(match.start(), match.end(), "u'\\u0105'" if match.group(1) != "\\u0105" else "u'x'")
              for match in CHARACTER.finditer(code)]
    return text, sorted(found)


def name_of(path, text, change):
    """The changed line with the change marked: a name that survives other lines' edits."""
    start, end, replacement = change
    first = text.rfind("\n", 0, start) + 1
    last = text.find("\n", end)
    line = text[first:start] + "⟦" + text[start:end] + " → " + replacement + "⟧" + text[end:last]
    return f"{path}: {' '.join(line.split())}"


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False,
                          **options).returncode


@functools.cache
def commands():
    """How ./test compiles each source."""
    subprocess.run(["cmake", "--preset", "test"], cwd=ROOT, stdout=subprocess.DEVNULL, check=True)
    listed = json.loads((ROOT / "build-test" / "compile_commands.json").read_text(encoding="utf-8"))
    return {entry["file"]: shlex.split(entry["command"]) for entry in listed}


@functools.cache
def compiler(path):
    """The compiler and its options for a source, as ./test has them; but a change is compiled once
    and run for seconds, so it is optimised less, and nobody reads its warnings."""
    command = commands()[str(ROOT / path)]
    compiler_at = next(i for i, word in enumerate(command) if re.search(r"(g|c|clang)\+\+$", word))
    words = iter(command[compiler_at:])
    options = []
    for word in words:
        if word in ("-o", "-c", "-MT", "-MF"):
            next(words)
        elif word.startswith("-DORBISGRID_BATCH="):
            options.append(f'-DORBISGRID_BATCH="./{EXECUTABLE}"')
        elif word not in ("-MD", "-Werror"):
            options.append(re.sub(r"^-O[23]$", "-O1", word))
    return options + ["-w"]


def compiled(source, target, path, headers=ROOT):
    """Compiles a source with the options of `path`; it takes its headers from `headers`, or from the
    tree if not there."""
    target.parent.mkdir(parents=True, exist_ok=True)
    first, *options = compiler(path)
    return run([first, f"-I{headers}", *options, "-c", str(source), "-o", str(target)]) == 0


def object_of(path):
    return BUILD / "objects" / (str(path).replace("/", "_") + ".o")


def expanded(patterns):
    return [str(path.relative_to(ROOT)) for pattern in patterns for path in sorted(ROOT.glob(pattern))]


@functools.cache
def headers_of(path):
    """The headers of ours that a source reads, and those that they read."""
    listed = subprocess.run(compiler(path) + ["-MM", str(ROOT / path)], stdout=subprocess.PIPE, check=True,
                            text=True).stdout
    return {str(pathlib.Path(word).relative_to(ROOT)) for word in listed.split()
            if word.startswith(f"{ROOT}/")}


def library():
    """Every source that each program is linked with."""
    rooms = [path for room in ROOMS for path in expanded([f"{room}/*.cpp"]) if path != MAIN]
    return rooms + SUPPORT + PLATFORM


def prepare(rooms, jobs):
    """Compiles what stays as it is. Result: False where something does not compile or pass."""
    sources = {MAIN, *library()}
    for room in rooms:
        for patterns in PROGRAMS[room]:
            sources |= set(expanded(patterns))
    commands()  # once, before the threads ask for them
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        if not all(pool.map(lambda path: compiled(ROOT / path, object_of(path), path), sorted(sources))):
            return False
        return not any(pool.map(
            lambda room: is_noticed(room, lambda path: None, BUILD / f"check-{room}"), rooms))


def link(program, paths, changed):
    """Links a program, with the objects that `changed` has for a source in place of its own."""
    objects = [str(changed(path) or object_of(path)) for path in paths]
    command = ["g++", "-fuse-ld=lld", "-o", str(program)] + objects + LIBRARIES
    if run(command) != 0:
        raise RuntimeError("does not link: " + " ".join(command))


def make_executable(folder, changed):
    link(folder / EXECUTABLE, [MAIN] + [path for path in library() if path not in SUPPORT], changed)
    outlines = "orbisgrid-map.dat"
    (folder / outlines).unlink(missing_ok=True)
    (folder / outlines).symlink_to(ROOT / "map" / "data" / outlines)


def is_noticed(room, changed, program):
    """Links each program of a room and runs it."""
    for patterns in PROGRAMS[room]:
        if any("batch_program" in pattern for pattern in patterns):
            make_executable(program.parent, changed)
        link(program, expanded(patterns) + library(), changed)
        try:
            if run(["prlimit", f"--as={BYTES}", str(program), "--gtest_fail_fast"],
                   timeout=SECONDS, cwd=program.parent) != 0:
                return True
        except subprocess.TimeoutExpired:
            return True
    return False


class DoesNotCompile(Exception):
    pass


def outcome(number, path, text, change):
    """killed, survived, or nothing where the change does not compile."""
    start, end, replacement = change
    place = BUILD / "mutants" / str(number)
    source = place / path
    source.parent.mkdir(parents=True, exist_ok=True)
    source.write_text(text[:start] + replacement + text[end:], encoding="utf-8")
    room = path.split("/")[0]
    objects = {}

    def changed(used):
        """Of the room and its tests alone: others do not see a change of a header."""
        if used not in objects:
            is_near = used == path or used.startswith((f"{room}/", "tests/"))
            if not is_near or (used != path and path not in headers_of(used)):
                objects[used] = None
            else:
                objects[used] = place / (used.replace("/", "_") + ".o")
                if not compiled(source if used == path else ROOT / used, objects[used], used, place):
                    raise DoesNotCompile
        return objects[used]

    try:
        result = "killed" if is_noticed(room, changed, place / "program") else "survived"
    except DoesNotCompile:
        result = None
    subprocess.run(["rm", "-r", str(place)], check=True)
    return result


def explained():
    document = ROOT / "docs" / "mutation.md"
    return document.read_text(encoding="utf-8") if document.exists() else ""


def report(names, outcomes, paths, wanted):
    """Prints each survivor as soon as it is known, and the share of the killed at the end, of which
    `wanted` per cent are wanted; then what is explained of `paths` without need."""
    known = explained()
    results = []
    survivors = []
    for name, result in zip(names, outcomes):
        results.append(result)
        if result == "survived":
            survivors.append(name)
            print(("explained: " if f"`{name}`" in known else "SURVIVED:  ") + name, flush=True)
    killed = results.count("killed")
    unknown = [name for name in survivors if f"`{name}`" not in known]
    share = 100 * killed / max(1, killed + len(survivors))
    print(f"{killed} killed, {len(survivors)} survived ({len(unknown)} of them unexplained), "
          f"{results.count(None)} did not compile: {share:.1f} % killed")
    needless = [entry for entry in re.findall(r"`([^`]+: [^`]*⟦[^`]*⟧[^`]*)`", known)
                if entry.split(":")[0] in paths and entry not in survivors]
    for entry in needless:
        print("EXPLAINED WITHOUT NEED: " + entry)
    return killed > 0 and share >= wanted and not unknown and not needless


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--again", type=pathlib.Path)
    parser.add_argument("places", nargs="*", default=ROOMS)
    options = parser.parse_args()
    paths = [path for place in options.places
             for path in ([place] if "." in place else expanded([f"{place}/*.cpp", f"{place}/*.h"]))]
    work = []
    for path in paths:
        text, changes = changes_of(path)
        work += [(path, text, change) for change in changes]
    if options.again:
        earlier = options.again.read_text(encoding="utf-8")
        work = [item for item in work if name_of(*item) in earlier]
    names = [name_of(*item) for item in work]
    if options.list:
        print("\n".join(names))
        return 0
    rooms = sorted({path.split("/")[0] for path in paths})
    if not prepare(rooms, options.jobs):
        print("the unchanged program does not compile or does not pass its tests")
        return 2
    print(f"{len(work)} changes", flush=True)
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        outcomes = pool.map(lambda item: outcome(item[0], *item[1]), enumerate(work))
        is_whole = options.places == ROOMS and not options.again
        return 0 if report(names, outcomes, [] if options.again else paths,
                           95 if is_whole else 0) else 1


if __name__ == "__main__":
    sys.exit(main())
