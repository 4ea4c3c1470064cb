"""The tables of MunkresBenchmark.cpp in SciPy, on one thread:

    OMP_NUM_THREADS=1 OPENBLAS_NUM_THREADS=1 /usr/bin/python3 benchmarks/Graph/peers.py

Needs python3-scipy. Prints the median time of each table in milliseconds, and the total.
"""

import time

import numpy as np
from scipy.optimize import linear_sum_assignment


def make_random(n):
    return np.random.RandomState(1).random_sample((n, n))


def make_distances(n):
    points = np.random.RandomState(1).random_sample((2 * n, 2))
    return -np.hypot(points[:n, None, 0] - points[None, n:, 0], points[:n, None, 1] - points[None, n:, 1])


def make_products(n):
    numbers = np.arange(1.0, n + 1)
    return -np.outer(numbers, numbers)


def make_integers(n, limit):
    return np.floor(limit * make_random(n))


def main():
    tables = [
        ("Random", make_random),
        ("Distances", make_distances),
        ("Products", make_products),
        ("SmallIntegers", lambda n: make_integers(n, 100.0)),
        ("Ties", lambda n: make_integers(n, 4.0)),
    ]
    for name, make_table in tables:
        for n, nb_runs in ((200, 21), (1000, 5), (2000, 3)):
            table = make_table(n)
            times = []
            for _ in range(nb_runs):
                start = time.perf_counter()
                rows, columns = linear_sum_assignment(table, maximize=True)
                times.append(time.perf_counter() - start)
            milliseconds = 1e3 * sorted(times)[nb_runs // 2]
            print(f"munkres{name}/{n} {milliseconds:.2f} ms, total {table[rows, columns].sum():.6f}")


main()
