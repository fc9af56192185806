"""Prints what a program has with gdb and the library's printers: gdb_test.py ROOT LIBRARIES FOLDER.

The program is built with each compiler that is installed, and looks once at the library as it was built and once at a
copy without debug information. Ends with 77 when gdb is not installed or may not run programs.
"""

import pathlib
import re
import shutil
import subprocess
import sys

INSIDE = {
    "set": 'ZrvProperties of size 9 = {["bytes"] = bytePtr ADDRESS, ["count"] = KELINT32 -1, ["gain"] = float 0.5, '
           '["means"] = floatList {0.5, 0.5, 0.5}, ["object"] = KELSysTSBaseUnknownPtr ADDRESS (ZrvPrototypeImpl), '
           '["on"] = KELBoolean true, ["rate"] = double 0.25, '
           '["title"] = KELUnicodeString "a text that is too long to lie inside", ["width"] = KELUINT32 1920}',
    "empty": "ZrvProperties of size 0",
    "*prototype": 'ZrvPrototypeImpl of size 2 = {["stream"] = KELSysTSBaseUnknownPtr = {prototype = '
                  'ZrvPrototypeImpl of size 1 = {["depth"] = KELINT32}}, ["width"] = KELUINT32}',
}
NOT_INSIDE = {
    "set": "(the library has no debug information: ZrvProperties is not known)",
    "*prototype": "(no debug information: ZrvPrototypeImpl is not known)",
}
EVERYWHERE = {
    "rc": "zrvEC_OK",
    "failure": 'zrvEC_Error: "what went wrong"',
    "shortText": r'"\"short\" 電\n"',
    "longText": '"a text that is too long to lie inside"',
    "names": r'KELListValKELUnicodeString of size 1 = {[1] = "\"short\" 電\n"}',
    "floats": "{0.5, 0.5, 0.5}",
    "value": "ADDRESS: double 0.25",
    "*value": "double 0.25",
    "missing": "null",
}


def run(*command, **options):
    return subprocess.run(list(map(str, command)), check=True, stdout=subprocess.PIPE, encoding="utf-8", **options).stdout


def build(compiler, root, libraries, folder):
    program = folder / f"inside-{compiler}"
    run(compiler, "-g", "-std=c++17", f"-I{root}/PublicInterfaces", f"-I{root}/Platform/include",
        root / "tests/inside/Inside.cpp", f"-L{libraries}", "-lZorvel", "-lKELPlatform", "-o", program)
    return program


def strip(libraries, folder):
    """A copy of the libraries without debug information."""
    bare = folder / "bare"
    bare.mkdir()
    for library in libraries.glob("lib*.so*"):
        shutil.copy(library, bare)
        run("strip", "--strip-debug", bare / library.name)
    return bare


def look(program, libraries, printers, expected):
    """The expressions that gdb shows otherwise than expected."""
    commands = [f"set environment LD_LIBRARY_PATH {libraries}", "set host-charset UTF-8", f"source {printers}",
                "break Stop", "run", "up", *(f"print {expression}" for expression in expected)]
    arguments = [argument for command in commands for argument in ("-ex", command)]
    printed = run("gdb", "-nx", "-batch", *arguments, program, stderr=subprocess.STDOUT)
    if "Breakpoint 1, Stop" not in printed:
        print(printed)
        sys.exit(77 if "ptrace" in printed else 1)
    values = dict(re.findall(r"^\$(\d+) = (.*)$", re.sub(r"0x[0-9a-f]+", "ADDRESS", printed), re.MULTILINE))
    wrong = [f"{program.name} {libraries}: {expression}\n  shown:    {values.get(str(number))}\n  expected: {text}"
             for number, (expression, text) in enumerate(expected.items(), 1) if values.get(str(number)) != text]
    return wrong + ([printed] if wrong else [])


def main():
    root, libraries, folder = map(pathlib.Path, sys.argv[1:])
    if not shutil.which("gdb"):
        print("skipped: gdb is not installed")
        return 77
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    bare = strip(libraries, folder)
    has_debug_information = ".debug_info" in run("readelf", "--sections", "--wide", libraries / "libZorvel.so")
    compilers = [compiler for compiler in ("g++", "clang++") if shutil.which(compiler)]
    assert compilers
    wrong = []
    for compiler in compilers:
        program = build(compiler, root, libraries, folder)
        for place, here in ((libraries, INSIDE if has_debug_information else NOT_INSIDE), (bare, NOT_INSIDE)):
            wrong += look(program, place, root / "tools/gdb/zorvel_printers.py", {**here, **EVERYWHERE})
        print(f"{compiler}: {len(EVERYWHERE) + len(INSIDE)} values")
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
