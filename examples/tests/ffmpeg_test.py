"""Makes streams with ffmpeg, and compares what y4m_meter and a reader of its own say of them:
ffmpeg_test.py PROGRAM [EMULATOR...]. Ends with 77 when ffmpeg is not installed."""

import array
import pathlib
import shutil
import subprocess
import sys
import tempfile

COMMAND = sys.argv[2:] + [sys.argv[1]]
FRAMES = 3

# Pixel format, size, rate, filters, and what the table must say: rate, aspect, colour space, interlacing.
STREAMS = [
    ("yuv420p", "33x17", "30000/1001", [], "30000/1001", "1/1", "420jpeg", "none"),
    ("yuv411p", "39x21", "25", ["setdar=4/3"], "25/1", "28/39", "411", "none"),
    ("yuv422p", "35x18", "24000/1001", ["setsar=10/11", "setfield=tff"], "24000/1001", "10/11", "422",
     "top field first"),
    ("yuv444p", "16x16", "60", ["setsar=0", "setfield=bff"], "60/1", "unknown", "444", "bottom field first"),
    ("yuva444p", "21x13", "25", [], "25/1", "1/1", "444alpha", "none"),
    ("yuvj420p", "2x2", "1/2", [], "1/2", "1/1", "420jpeg", "none"),
    ("gray", "31x9", "25", [], "25/1", "1/1", "mono", "none"),
    ("gray16le", "31x9", "25", [], "25/1", "1/1", "mono16", "none"),
    ("yuv420p9le", "33x17", "25", [], "25/1", "1/1", "420p9", "none"),
    ("yuv420p10le", "1921x3", "50", [], "50/1", "1/1", "420p10", "none"),
    ("yuv422p12le", "33x17", "25", [], "25/1", "1/1", "422p12", "none"),
    ("yuv444p14le", "33x17", "25", [], "25/1", "1/1", "444p14", "none"),
    ("yuv420p16le", "33x17", "25", [], "25/1", "1/1", "420p16", "none"),
    ("yuv444p", "20000x2", "25", [], "25/1", "1/1", "444", "none"),
]


def make_stream(ffmpeg, path, pixels, size, rate, filters):
    """Writes a stream, and its frames alone beside it."""
    graph = ",".join([*filters, f"format={pixels}", "split[framed][bare]"])
    subprocess.run([ffmpeg, "-v", "error", "-nostdin", "-f", "lavfi", "-i", f"testsrc=size={size}:rate={rate}",
                    "-filter_complex", graph,
                    "-map", "[framed]", "-frames:v", str(FRAMES), "-strict", "-1", "-f", "yuv4mpegpipe", path,
                    "-map", "[bare]", "-frames:v", str(FRAMES), "-f", "rawvideo", path.with_suffix(".raw")], check=True)


def split_planes(pixels, size, frame):
    """The rows of the planes of a bare frame. Knows the pixel format by ffmpeg's name, not by a stream's header."""
    width, height = map(int, size.split("x"))
    columns, rows = {"411": (4, 1), "420": (2, 2), "422": (2, 1), "444": (1, 1), "gra": (1, 1)}[
        pixels.removeprefix("yuv").lstrip("aj")[:3]]
    luma = (height, width)
    chroma = (-(-height // rows), -(-width // columns))
    planes = []
    for count, samples in [luma] if pixels.startswith("gray") else [luma, chroma, chroma] + [luma] * ("a4" in pixels):
        length = samples * (2 if pixels.endswith("le") else 1)
        planes.append([frame[i * length:(i + 1) * length] for i in range(count)])
        frame = frame[count * length:]
    assert not frame, (pixels, size)
    return planes


def mean(pixels, rows):
    """The mean of the whole samples of a plane."""
    samples = array.array("H" if pixels.endswith("le") else "B")
    for row in rows:
        samples.frombytes(row[:len(row) // samples.itemsize * samples.itemsize])
    if sys.byteorder == "big" and samples.itemsize > 1:
        samples.byteswap()
    return sum(samples) / len(samples)


def read_frames(path):
    """The frames of a stream, told apart by their marks and by the size that all of them must have."""
    header, _, rest = path.read_bytes().partition(b"\n")
    assert header.startswith(b"YUV4MPEG2 "), header
    size, remainder = divmod(len(rest), FRAMES)
    frames = [rest[i * size:(i + 1) * size] for i in range(FRAMES)]
    assert remainder == 0 and all(frame.startswith(b"FRAME\n") for frame in frames), path
    return [frame[len(b"FRAME\n"):] for frame in frames]


def read_table(path):
    printed = subprocess.run([*COMMAND, path], capture_output=True, check=True, timeout=120)
    assert printed.stderr == b"", printed.stderr
    rows = (line.split(None, 2) for line in printed.stdout.decode("utf-8").splitlines())
    return {row[0]: row[2].strip().strip('"') for row in rows if len(row) == 3}


def check(ffmpeg, folder, pixels, size, rate, filters, *said):
    path = folder / f"{pixels} {size}.y4m"
    make_stream(ffmpeg, path, pixels, size, rate, filters)
    frames = read_frames(path)
    bare = path.with_suffix(".raw").read_bytes()
    planes = split_planes(pixels, size, bare[-(len(bare) // FRAMES):])
    if frames[-1] != b"".join(map(b"".join, planes)):  # ffmpeg 5 cuts chroma rows of odd sizes: they lack a byte
        planes[1:] = [[row[:-1] for row in plane] for plane in planes[1:]]
    assert frames[-1] == b"".join(map(b"".join, planes)), "the second reader sees ffmpeg's last frame"
    table = read_table(path)
    depth = next((depth for depth in ("9", "10", "12", "14", "16") if pixels.endswith(depth + "le")), "8")
    expected = dict(zip(("frameRate", "pixelAspect", "colourSpace", "interlacing"), said),
                    width=size.split("x")[0], height=size.split("x")[1], frameCount=str(FRAMES), bitDepth=depth)
    assert {name: table[name] for name in expected} == expected, (table, expected)
    measured = [float(text) for text in table["lastFrameMeans"].strip("[]").split()]
    means = [mean(pixels, plane) for plane in planes]
    assert len(measured) == len(means), (measured, means)
    for ours, theirs in zip(measured, means):
        assert abs(ours - theirs) <= 1e-5 * theirs, (measured, means)  # printed with six digits
    print(f"{pixels} {size} {rate}: {measured}", flush=True)


def main():
    ffmpeg = shutil.which("ffmpeg")
    if not ffmpeg:
        print("skipped: ffmpeg is not installed")
        return 77
    with tempfile.TemporaryDirectory() as folder:
        for stream in STREAMS:
            check(ffmpeg, pathlib.Path(folder), *stream)
    return 0


if __name__ == "__main__":
    sys.exit(main())
