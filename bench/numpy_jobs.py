"""Jobs of the library against what an engineer writes for them with numpy and scipy.

usage: numpy_jobs.py BUILD_FOLDER [--quick]

Both run in turns in this process, on one processor, and must give the same numbers: signals to
1e-9 of their peak, frames to the count, waves to 1e-9. Prints JSON: for each job the processor
seconds of the library and of numpy, the medians of some rounds. Fails if the numbers differ.
"""

import ctypes
import json
import os
import pathlib
import statistics
import sys
import time

import numpy as np

try:
    from scipy.fft import irfft
    transforms = "scipy"
except ImportError:
    from numpy.fft import irfft
    transforms = "numpy"

root = pathlib.Path(__file__).resolve().parent.parent
g = 9.81


def wave_numbers(omega, depth):
    """Guo (2002), with one Newton step."""
    k = omega**2 / g * (1 - np.exp(-(depth * omega**2 / g) ** 1.25)) ** -0.4
    t = np.tanh(k * depth)
    return k + (omega**2 - g * k * t) / (g * t + g * k * depth / np.cosh(k * depth) ** 2)


def fronts(repeat, low, high, count, amp, spread):
    """The sea of the measurements: harmonics, and for each front of each of them angle and phase."""
    h = np.arange(round(low * repeat), round(high * repeat) + 1)
    s = (h[:, None] * count + np.arange(count)).astype(float)
    return h, np.full(s.shape, amp), spread * np.sin(s), s


def drive(paddles, samples, count):
    """Signals of a straight row of full-depth pistons in 1 m of water."""
    repeat, width = samples / 32.0, 0.5
    h, amp, angle, phase = fronts(repeat, 0.3, 2.0, count, 1e-3, 0.9)
    y = width * np.arange(paddles)

    def run():
        k = wave_numbers(h * (2 * np.pi / repeat), 1.0)[:, None]
        ratio = 2 * np.sinh(k) ** 2 / (np.sinh(k) * np.cosh(k) + k)
        v = np.abs(np.sin(angle)) * (k * width / 2)
        gain = amp / ratio * np.cos(angle) / np.sinc(v / np.pi)
        gain[np.abs(angle) > np.arcsin(np.minimum(1, np.pi / (k * width)))] = 0
        across = k * np.sin(angle)
        spectra = np.zeros((paddles, samples // 2 + 1), complex)
        for p in range(paddles):
            psi = phase - np.pi / 2 - across * y[p]
            spectra[p, h] = ((gain * np.cos(psi)).sum(axis=1)
                             + 1j * (gain * np.sin(psi)).sum(axis=1))
        spectra *= samples / 2
        return irfft(spectra, samples, axis=1)
    return run


def animation(columns, samples, count):
    """Frames over a flat bottom 1 m deep, 61 rows."""
    rows = 61
    repeat = samples / 100.0
    h, amp, angle, phase = fronts(repeat, 0.3, 2.5, count, 5e-4, 0.7)
    if count == 1:
        angle[:] = 0
    x = 20 * np.arange(columns) / (columns - 1)
    y = 6 * np.arange(rows) / (rows - 1)
    frames = np.zeros((samples, columns, rows), np.int16)

    def store(series, ix):
        counts = series * (32767 / 4)
        frames[:, ix, :] = np.trunc(counts + np.copysign(0.5, counts)).astype(np.int16).T

    def run():
        k = wave_numbers(h * (2 * np.pi / repeat), 1.0)[:, None]
        along = k * np.cos(angle)
        if count == 1:
            sums = np.zeros((columns, samples // 2 + 1), complex)
            sums[:, h] = ((samples / 2) * amp * np.exp(1j * (phase - along * x))).T
            for ix, series in enumerate(irfft(sums, samples, axis=1)):
                store(series[None, :], ix)
            return frames
        # The phases across the tank are the same in every column: a product of matrices for each
        # harmonic sums the fronts at all rows.
        turns = np.exp(-1j * (k * np.sin(angle))[:, :, None] * y)
        sums = np.zeros((rows, samples // 2 + 1), complex)
        for ix in range(columns):
            waves = (samples / 2) * amp * np.exp(1j * (phase - along * x[ix]))
            sums[:, h] = np.matmul(waves[:, None, :], turns)[:, 0, :].T
            store(irfft(sums, samples, axis=1), ix)
        return frames
    return run


def crossings(record):
    """Period and height of the wave at two thirds of all, in order of height."""
    def run():
        first = np.flatnonzero((record[:-1] <= 0) & (record[1:] > 0))
        times = (first + record[first] / (record[first] - record[first + 1])) / 100.0
        inside = record[: first[-1] + 1]
        starts = first[:-1] + 1
        heights = np.maximum.reduceat(inside, starts) - np.minimum.reduceat(inside, starts)
        order = np.argsort(heights, kind="stable")
        wave = order[len(order) * 2 // 3]
        return np.array([times[wave + 1] - times[wave], heights[wave]])
    return run


class Library:
    """A job of the library."""

    def __init__(self, build):
        self.calls = ctypes.CDLL(str(build / "lib/libbench_numpy.so"))
        for name in ("bench_drive", "bench_animation", "bench_crossings", "bench_result"):
            getattr(self.calls, name).restype = ctypes.c_void_p

    def job(self, name, *arguments):
        made = getattr(self.calls, name)(
            *(a if isinstance(a, bytes) else ctypes.c_size_t(a) for a in arguments))
        if not made:
            sys.exit(f"{name} cannot be set up")
        return ctypes.c_void_p(made)

    def run(self, job):
        self.calls.bench_run(job)

    def result(self, job, index, count, kind):
        address = self.calls.bench_result(job, ctypes.c_size_t(index))
        return np.frombuffer((ctypes.c_char * (count * np.dtype(kind).itemsize))
                             .from_address(address), kind)


def same(name, ours, theirs, tolerance):
    error = np.max(np.abs(ours - theirs)) / np.max(np.abs(theirs))
    if not error <= tolerance:
        sys.exit(f"{name}: numpy gives other numbers, by {error:.1e}")


def compare(name, library, job, run, check, rounds):
    """In turns, after one round of each that also compares the numbers."""
    library.run(job)
    check(run())
    times = ([], [])
    for _ in range(rounds):
        library.calls.bench_prepare(job)
        for spent, work in zip(times, (lambda: library.run(job), run)):
            start = time.process_time()
            work()
            spent.append(time.process_time() - start)
    library.calls.bench_end(job)
    return {"name": name, "transforms": transforms, "library": statistics.median(times[0]),
            "numpy": statistics.median(times[1])}


def main(build, quick):
    os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})
    library = Library(build)
    rounds = 1 if quick else 7
    results = []
    paddles, samples = (16, 2048) if quick else (128, 32768)
    for count, title in ((1, "1 front"), (31, "31 directions")):
        name = f"drive, 128 paddles, {title}"
        job = library.job("bench_drive", paddles, samples, count)

        def check_signals(signals, job=job, name=name):
            for p, signal in enumerate(signals):
                same(name, library.result(job, p, samples, float), signal, 1e-9)
        results.append(compare(name, library, job, drive(paddles, samples, count), check_signals,
                               rounds))
    columns, length = (6, 1024) if quick else (101, 8192)
    for count, title in ((31, "31 directions"), (1, "uniform")):
        name = f"animation, {title}, whole"
        job = library.job("bench_animation", columns, length, count)

        def check_frames(frames, job=job, name=name):
            # A height halfway between two counts may fall on either.
            differ = 0
            for t, frame in enumerate(frames):
                ours = library.result(job, t, frame.size, np.int16).astype(int)
                errors = np.abs(ours.reshape(frame.shape) - frame)
                differ += np.count_nonzero(errors)
                if np.max(errors) > 1 or differ > 1e-6 * frames.size:
                    sys.exit(f"{name}: numpy gives other frames")
        results.append(compare(name, library, job, animation(columns, length, count), check_frames,
                               rounds))
    count = 100_000 if quick else 16_000_000
    name = "zero crossings, 16 million samples"
    job = library.job("bench_crossings", str(root / "examples/flume.site").encode(), count)
    record = library.result(job, 0, count, float)
    results.append(compare(
        name, library, job, crossings(record),
        lambda waves: same(name, library.result(job, 1, 2, float), waves, 1e-9), min(rounds, 5)))
    json.dump(results, sys.stdout, indent=1)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), "--quick" in sys.argv[2:])
