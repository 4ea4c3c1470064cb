"""The tasks of this folder in SciPy and scikit-image, on one thread:

    OMP_NUM_THREADS=1 OPENBLAS_NUM_THREADS=1 /usr/bin/python3 benchmarks/Statistics/peers.py [ROW...]

Needs python3-scipy and python3-skimage. Prints the median time of each row in milliseconds, and what it found. A row is
a task and its sequence, such as tophat/3/noise; parts of it choose all rows that hold them. find_peaks tells a plateau by
its middle alone, local_maxima by all its elements; h_maxima keeps a rise of exactly the height as well.
"""

import sys
import time

import numpy as np
from scipy.ndimage import gaussian_filter1d, white_tophat
from scipy.signal import argrelmax, find_peaks
from skimage.morphology import h_maxima, local_maxima

NB_ELEMENTS = 10_000_000


def scramble(i):
    bits = (i + np.uint64(1)) * np.uint64(0x9E3779B97F4A7C15)
    bits = (bits ^ bits >> np.uint64(30)) * np.uint64(0xBF58476D1CE4E5B9)
    bits = (bits ^ bits >> np.uint64(27)) * np.uint64(0x94D049BB133111EB)
    return bits ^ bits >> np.uint64(31)


def make_noise():
    return (scramble(np.arange(NB_ELEMENTS, dtype=np.uint64)) >> np.uint64(11)) * 2.0**-53


def make_smooth():
    i = np.arange(NB_ELEMENTS, dtype=float)
    return 0.5 + 0.3 * np.sin(i / 100.0) + 0.2 * np.sin(i / 37.0)


def make_plateaus():
    i = np.arange(NB_ELEMENTS, dtype=np.uint64)
    starts = scramble(i) % np.uint64(8) == 0
    heights = (scramble(i + np.uint64(NB_ELEMENTS)) % np.uint64(16)) / 16.0
    latest = np.maximum.accumulate(np.where(starts, np.arange(NB_ELEMENTS), -1))
    return np.where(latest < 0, 0.0, heights[latest])


SEQUENCES = {"noise": make_noise, "smooth": make_smooth, "plateaus": make_plateaus}


def count_runs(flags):
    return int(np.count_nonzero(np.diff(flags.astype(np.int8), prepend=0) == 1))


TASKS = {
    "strictMaxima": {
        "find_peaks": lambda values: len(find_peaks(values)[0]),
        "find_peaks, of one element": lambda values: len(find_peaks(values, plateau_size=(1, 1))[0]),
        "argrelmax": lambda values: len(argrelmax(values)[0]),
    },
    "plateauMaxima": {
        "find_peaks": lambda values: len(find_peaks(values)[0]),
        "local_maxima": lambda values: len(local_maxima(values, indices=True, allow_borders=False)[0]),
    },
    "dilatedMaxima": {"h_maxima": lambda values: count_runs(h_maxima(values, 0.25))},
    "tophat/3": {"white_tophat": lambda values: count_runs(white_tophat(values.astype(np.float32), 7) > 0.25)},
    "tophat/20": {"white_tophat": lambda values: count_runs(white_tophat(values.astype(np.float32), 41) > 0.25)},
    "smoothing/2": {"gaussian_filter1d": lambda values: gaussian_filter1d(values.astype(np.float32), 2, truncate=1).size},
    "smoothing/8": {"gaussian_filter1d": lambda values: gaussian_filter1d(values.astype(np.float32), 8, truncate=1).size},
}


def median_time(task, nb_runs=3):
    """Of slow tasks one run has to do."""
    times = []
    result = None
    while len(times) < nb_runs and sum(times) < 10.0:
        start = time.perf_counter()
        result = task()
        times.append(time.perf_counter() - start)
    return 1e3 * sorted(times)[len(times) // 2], result


def main():
    for name, make_sequence in SEQUENCES.items():
        rows = {f"{task}/{name}": peers for task, peers in TASKS.items()}
        chosen = [row for row in rows if len(sys.argv) == 1 or any(part in row for part in sys.argv[1:])]
        values = make_sequence() if chosen else None
        for row in chosen:
            for peer, function in rows[row].items():
                milliseconds, found = median_time(lambda: function(values))
                print(f"{row} {peer} {milliseconds:.0f} ms, {found}", flush=True)


main()
