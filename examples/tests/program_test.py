"""Runs y4m_meter as people do: program_test.py PROGRAM [EMULATOR...]."""

import os
import pathlib
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest

HERE = pathlib.Path(__file__).parent
IS_POSIX = len(sys.argv) == 2  # an emulator runs a program for Windows
COMMAND = sys.argv[2:] + [sys.argv[1]]
TIMEOUT = 120  # seconds; a first run of an emulator takes long

HEADER = b"YUV4MPEG2 W2 H2 F30000:1001 Cmono10\n"
FRAME = b"FRAME\n" + bytes([0, 0, 1, 0, 0, 2, 255, 3])  # samples 0, 1, 512, 1023

CLIP_TABLE = """stream:
bitDepth     KELUINT32               8
colourSpace  KELUnicodeString        "420jpeg"
frameRate    KELUnicodeString        "25/1"
height       KELUINT32               48
interlacing  KELUnicodeString        "none"
pixelAspect  KELUnicodeString        "1/1"
title        KELUnicodeString        "Moving_bars"
width        KELUINT32               64
frames:
frameCount      KELINT32                250
lastFrameBytes  bytePtr                 (bytes)
lastFrameMeans  floatList               [128 80 92]
stream          KELSysTSBaseUnknownPtr  (object)
overall: 250 frames, N per second
"""


class Run:
    """What a run of the program printed. All of it must be well-formed and printable."""

    def __init__(self, *arguments, stream=b"", **options):
        result = subprocess.run([*COMMAND, *arguments], input=None if "stdin" in options else stream,
                                stdout=options.pop("stdout", subprocess.PIPE), stderr=subprocess.PIPE,
                                timeout=TIMEOUT, check=False, **options)
        self.code = result.returncode
        self.output = re.sub(r", \d+ per second", ", N per second", self.read(result.stdout))
        self.errors = self.read(result.stderr)

    @staticmethod
    def read(printed):
        text = (printed or b"").decode("utf-8").replace("\r\n", "\n")
        assert text.replace("\n", "").isprintable(), ascii(text)
        return text

    def rows(self):
        """The values of the table by name."""
        return {row[0]: row[2].strip() for row in (line.split(None, 2) for line in self.output.splitlines())
                if len(row) == 3}


class Program(unittest.TestCase):
    maxDiff = None

    def expect(self, run, code, errors=""):
        self.assertEqual((run.errors, run.code), (errors, code))
        return run

    def test_measures_its_clip_a_file_and_standard_input(self):
        for arguments in ([], ["--"]):
            self.assertEqual(self.expect(Run(*arguments), 0).output, CLIP_TABLE)
        from_file = self.expect(Run(str(HERE / "small.y4m")), 0).output
        self.assertIn('"30000/1001"', from_file)
        self.assertIn("[40 50 60]", from_file)
        stream = (HERE / "small.y4m").read_bytes()
        for arguments in (["-"], ["--", "-"]):
            from_input = self.expect(Run(*arguments, stream=stream), 0).output
            self.assertEqual(from_input, from_file.replace("small.y4m", "standard input"))

    def test_options(self):
        usage = Run("--help").output
        self.assertTrue(usage.startswith("usage: y4m_meter"))
        for arguments, code, output, errors in [
                (["-h"], 0, usage, ""),
                (["--version"], 0, "y4m_meter 1.0.0\n", ""),
                (["-x\x1b"], 2, "", "y4m_meter: the option '-x?' is not known\n" + usage),
                (["one", "two"], 2, "", "y4m_meter: one stream at a time is measured\n" + usage),
                (["--", "-x"], 1, "", "y4m_meter: -x: the input cannot be read: No such file or directory\n")]:
            self.assertEqual(self.expect(Run(*arguments), code, errors).output, output)

    def test_prints_what_the_header_says(self):
        for tags, *values in [
                (b"", "unknown", "unknown", "unknown", "420jpeg", "standard input"),
                (b"F30000:1001 A10:11 Ip C422 XTITLE=Waves", "30000/1001", "10/11", "none", "422", "Waves"),
                (b"F0:0 A0:0 I? Cmono16 XYSCSS=none Q7", "unknown", "unknown", "unknown", "mono16", "standard input"),
                (b" F4294967295:1  A1:1 It ", "4294967295/1", "1/1", "top field first", "420jpeg", "standard input"),
                (b"F0:1 Ib", "unknown", "unknown", "bottom field first", "420jpeg", "standard input"),
                (b"F25:1 Im X XTITLE=", "25/1", "unknown", "mixed", "420jpeg", "standard input")]:
            rows = self.expect(Run("-", stream=b"YUV4MPEG2 W16777216 H1 " + tags + b"\n"), 0).rows()
            self.assertEqual((rows["width"], rows["height"], rows["frameCount"]), ("16777216", "1", "0"))
            self.assertEqual([rows[name] for name in ("frameRate", "pixelAspect", "interlacing", "colourSpace", "title")],
                             [f'"{value}"' for value in values])

    def test_prints_what_was_read_and_then_the_error(self):
        start = b"YUV4MPEG2 W2 H2 "
        for stream, frames, error in [  # no number of frames when not even the header is good
                (b"", None, "the input is empty"),
                (b"YUV4MPEG2 W2 H", None, "the header is cut short after 14 bytes"),
                (b"YUV4MPEG2X W2 H2\n", None, "the input does not start as a YUV4MPEG2 stream, in the header"),
                (100000 * b"Y", None, "the input does not start as a YUV4MPEG2 stream, in the header"),
                (start + 100000 * b"x", None, "the header is too long"),
                (b"YUV4MPEG2 W2\n", None, "no height is given, in the header"),
                (start + b"W0\n", None, "a width of '0' is not between 1 and 16777216, in the header"),
                (start + b"H16777217\n", None, "a height of '16777217' is not between 1 and 16777216, in the header"),
                (start + b"F25:0\n", None, "a frame rate of '25:0' is not a ratio of two numbers, in the header"),
                (start + b"I\n", None, "an interlacing of '' is not known, in the header"),
                (start + b"C420p17\n", None,
                 "the colour space '420p17' is not supported (only 420, 420jpeg, 420mpeg2, 420paldv, 411, 422, 444, "
                 "444alpha, mono, 420p9..16, 422p9..16, 444p9..16, mono9..16), in the header"),
                (HEADER + b"FRA", 0, "the stream is cut short within a line, in frame 1"),
                (HEADER + FRAME + b"FRAME " + 100000 * b"x", 1, "a line is too long, in frame 2"),
                (HEADER + FRAME + b"FRAMES\nabcdefgh", 1, "'FRAME' is not there, in frame 2"),
                (HEADER + FRAME + FRAME + b"garbage", 2, "'FRAME' is not there, in frame 3"),
                (HEADER + FRAME + b"FRAME\n", 1, "the stream is cut short after 0 of 8 bytes, in frame 2"),
                (HEADER + FRAME + FRAME[:-1], 1, "the stream is cut short after 7 of 8 bytes, in frame 2"),
                (b"YUV4MPEG2 W16777216 H16777216\nFRAME\nabc", 0,  # and takes no such memory
                 "the stream is cut short after 3 of 422212465065984 bytes, in frame 1")]:
            run = self.expect(Run("-", stream=stream), 1, f"y4m_meter: standard input: {error}\n")
            self.assertEqual(run.rows().get("frameCount"), None if frames is None else str(frames))
            self.assertEqual(run.rows().get("lastFrameMeans"), "[384]" if frames else None)
            self.assertEqual(run.output == "", frames is None)

    def test_takes_chroma_rows_of_odd_sizes_with_and_without_their_last_byte(self):
        header = b"YUV4MPEG2 W3 H2 C422p10\n"
        luma = 6 * b"\1\2"  # 513
        for cb, cr in [(b"\4\0\6\0", b"\0\1\0\3"), (b"\5\0\xff", b"\0\2\xff")]:  # 5, 512
            for frames in (1, 2):
                run = self.expect(Run("-", stream=header + frames * (b"FRAME\n" + luma + 2 * cb + 2 * cr)), 0)
                self.assertEqual(run.rows()["lastFrameMeans"], "[513 5 512]")
                self.assertEqual(run.rows()["frameCount"], str(frames))

    def test_says_why_a_file_cannot_be_read(self):
        with tempfile.TemporaryDirectory() as folder:
            missing = os.path.join(".", "x" * 100, "..", "missing file.y4m")
            for path, reason in [(folder, "Is a directory"), (missing, "No such file or directory"),
                                 ("", "No such file or directory")]:
                self.expect(Run(path), 1, f"y4m_meter: {path or chr(39) * 2}: the input cannot be read: {reason}\n")

    def test_takes_names_in_any_script(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "фильм 電影 ταινία 😀.y4m"
            path.write_bytes(HEADER + FRAME)
            run = self.expect(Run(str(path)), 0)
            self.assertEqual(run.rows()["title"], f'"{path.name}"')
            path.write_bytes(b"")
            self.expect(Run(str(path)), 1, f"y4m_meter: {path}: the input is empty\n")

    def test_prints_nothing_that_controls_a_terminal(self):
        bad = b"a\x9b1m\xe2\x80\xae\xc2\x9b\x1b[2Jz"
        self.expect(Run("-", stream=HEADER[:-1] + b" XTITLE=" + bad + b"\n" + FRAME), 0)
        run = Run("-", stream=HEADER[:-1] + b" A" + bad + b"\n")
        self.expect(run, 1, "y4m_meter: standard input: a pixel aspect of 'a?1m???[2Jz' is not a ratio of two numbers, "
                            "in the header\n")
        if IS_POSIX:
            self.expect(Run(bad), 1, "y4m_meter: a?1m???[2Jz: the input cannot be read: No such file or directory\n")
            with tempfile.TemporaryDirectory() as folder:
                path = os.fsencode(folder) + b"/" + bad + b"\n"
                pathlib.Path(os.fsdecode(path)).write_bytes(HEADER + FRAME)
                self.assertEqual(self.expect(Run(path), 0).rows()["title"], '"a?1m???[2Jz?"')

    @unittest.skipUnless(IS_POSIX, "descriptors of POSIX")
    def test_says_what_is_wrong_with_standard_files(self):
        self.expect(Run("-", stdin=None, preexec_fn=lambda: os.close(0)), 1,
                    "y4m_meter: standard input: the input cannot be read: it is closed, or not open for reading\n")
        for argument in ("--version", str(HERE / "small.y4m")):
            with open("/dev/full", "wb") as full:
                self.expect(Run(argument, stdout=full), 1,
                            "y4m_meter: standard output cannot be written: No space left on device\n")


class Screen:
    """A terminal of some columns that shows a line."""

    def __init__(self, columns):
        self.columns = columns
        self.lines = [""]
        self.column = 0

    def show(self, text):
        for character in text:
            if character == "\n":
                self.lines.append("")
            elif character == "\r":
                self.column = 0
            elif character == "\b":
                self.column = max(0, self.column - 1)
            else:
                assert character.isprintable() and self.column < self.columns, ascii(text)
                line = self.lines[-1].ljust(self.column)
                self.lines[-1] = line[:self.column] + character + line[self.column + 1:]
                self.column += 1


@unittest.skipUnless(IS_POSIX, "terminals of POSIX")
class Terminal(unittest.TestCase):
    def setUp(self):
        self.terminal, theirs = os.openpty()
        self.process = subprocess.Popen([*COMMAND, "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=theirs)
        os.close(theirs)
        self.written = ""

    def tearDown(self):
        self.process.kill()
        self.process.communicate()
        os.close(self.terminal)

    def feed(self, stream):
        self.process.stdin.write(stream)
        self.process.stdin.flush()

    def take_written(self, seconds):
        while select.select([self.terminal], [], [], seconds)[0]:
            try:
                self.written += os.read(self.terminal, 1000).decode()
            except OSError:  # the other end is closed
                return

    def await_progress(self, frames):
        """Feeds frames until some progress is written; returns their number."""
        deadline = time.monotonic() + TIMEOUT
        before = self.written
        while self.written == before and time.monotonic() < deadline:
            self.feed(FRAME)
            frames += 1
            self.take_written(0.05)
        return frames

    def test_progress_fits_and_an_interruption_leaves_the_table_alone(self):
        self.feed(HEADER + 100000 * FRAME)
        frames = self.await_progress(self.await_progress(100000))
        screen = Screen(20)
        screen.show(self.written)
        self.assertRegex(screen.lines[0], r"^\d+ frames(, \d+/s)? *$")
        self.process.send_signal(signal.SIGINT)  # it waits for input by now, or will
        output, _ = self.process.communicate(timeout=TIMEOUT)
        self.take_written(1)
        screen = Screen(80)
        screen.show(self.written)
        self.assertEqual([line.rstrip() for line in screen.lines], ["y4m_meter: standard input: interrupted", ""])
        self.assertEqual(self.process.returncode, 130)
        table, _, overall = output.decode().rpartition("\noverall: ")
        self.assertIn("lastFrameMeans", table)
        self.assertTrue(0 < int(overall.split()[0]) <= frames, overall)


@unittest.skipUnless(IS_POSIX, "signals of POSIX")
class Interruption(unittest.TestCase):
    def test_is_left_to_whoever_ignores_it(self):
        process = subprocess.Popen([*COMMAND, "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
        process.stdin.write(HEADER + FRAME)
        process.stdin.flush()
        time.sleep(0.2)
        process.send_signal(signal.SIGINT)
        output, _ = process.communicate(FRAME, timeout=TIMEOUT)
        self.assertIn(b"overall: 2 frames", output)
        self.assertEqual(process.returncode, 0)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
