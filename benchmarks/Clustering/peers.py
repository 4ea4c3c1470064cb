"""The tasks of KernelBenchmark.cpp in scikit-learn, on one thread:

    OMP_NUM_THREADS=1 OPENBLAS_NUM_THREADS=1 /usr/bin/python3 benchmarks/Clustering/peers.py

Needs python3-sklearn. Prints the median time of each task in milliseconds.
"""

import time

import numpy as np
from sklearn.cluster import SpectralClustering
from sklearn.metrics.pairwise import pairwise_kernels


def scatter(i, irrational):
    multiple = (i + 1) * irrational
    return multiple - np.floor(multiple)


def make_cube(nb_samples, dimension):
    return scatter(np.arange(nb_samples * dimension), 0.6180339887498949).reshape(nb_samples, dimension)


def make_rings(nb_samples):
    i = np.arange(nb_samples)
    radius = np.where(i % 2 == 0, 1.0, 3.0) + 0.3 * scatter(i, 0.4142135623730951)
    angle = 2.0 * np.pi * scatter(i, 0.6180339887498949)
    return np.stack([radius * np.cos(angle), radius * np.sin(angle)], axis=1)


def median_time(task, nb_runs=5):
    task()
    times = []
    for _ in range(nb_runs):
        start = time.perf_counter()
        task()
        times.append(time.perf_counter() - start)
    return 1e3 * sorted(times)[nb_runs // 2]


def main():
    kernels = [
        ("Linear", "linear", {}, (2, 16, 64)),
        ("Polynomial", "poly", {"gamma": 0.7, "coef0": 1.0, "degree": 2.0}, (2, 64)),
        ("RadialBasis", "rbf", {"gamma": 0.5 / 0.8**2}, (2, 16, 64)),
        ("Sigmoid", "sigmoid", {"gamma": 0.05, "coef0": 0.0}, (2, 64)),
    ]
    for name, metric, parameters, dimensions in kernels:
        for dimension in dimensions:
            data = make_cube(2000, dimension)
            milliseconds = median_time(lambda: pairwise_kernels(data, metric=metric, **parameters))
            print(f"kernelMatrix{name}/{dimension} {milliseconds:.2f} ms")

    for nb_samples in (500, 1000, 2000):
        data = make_rings(nb_samples)
        clustering = SpectralClustering(n_clusters=2, gamma=0.5 / 0.3**2, n_init=10, random_state=1)
        milliseconds = median_time(lambda: clustering.fit(data), 3)
        first = max(np.bincount(clustering.labels_))
        print(f"spectralClustering/{nb_samples} {milliseconds:.2f} ms, {first} in the first cluster")


main()
