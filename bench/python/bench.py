"""The speed table of docs/python.md: the package against the library's own batch call, in the same run.

    PYTHONPATH=build/release/python build/python/bin/python bench/python/bench.py build/release/src/libktl.so

Every figure is the least of short runs that alternate between what is compared, so that another load on the machine
touches both.
"""

import ctypes
import subprocess
import sys
import threading
import time
import timeit

import numpy as np

import ktl
from ktl._lists import PAIRS, PROPERTIES

ROWS = 1_000_000


class _Options(ctypes.Structure):
    _fields_ = [("threads", ctypes.c_uint), ("progress", ctypes.c_void_p), ("context", ctypes.c_void_p)]


def library_batch(path, pair, a, b, name, threads):
    """A call of the library's batch with everything prepared."""
    call = ctypes.CDLL(path).ktl_batch
    out, status = np.empty(a.size), np.empty(a.size, np.uint8)
    pointer, size = ctypes.c_void_p, ctypes.c_size_t
    options = _Options(threads, None, None)
    outputs = (pointer * 1)(out.ctypes.data)
    arguments = (PAIRS[pair].number, pointer(a.ctypes.data), pointer(b.ctypes.data), size(a.size),
                 bytes([PROPERTIES[name].number]), outputs, size(1), pointer(status.ctypes.data), ctypes.byref(options))
    keep = (out, status, options, outputs)
    return lambda: (call(*arguments), keep)


def least(calls, runs=9):
    """Seconds of each call, the least of runs that alternate."""
    best = [float("inf")] * len(calls)
    for _ in range(runs):
        for k, call in enumerate(calls):
            begin = time.perf_counter()
            call()
            best[k] = min(best[k], time.perf_counter() - begin)
    return best


def columns(kind):
    random = np.random.default_rng(1)
    if kind == "steam":
        return random.uniform(1, 100, ROWS), random.uniform(320, 800, ROWS)
    return random.uniform(100, 1000, ROWS), random.uniform(1, 300, ROWS)


def column_table(path):
    print("| task | kind | library, 1 thread | ufunc | ratio | library, all | `batch(threads=0)` | ratio |")
    print("| --- | --- | --- | --- | --- | --- | --- | --- |")
    for pair, name in (("pt", "h"), ("ph", "t"), ("hs", "p")):
        for kind in ("water", "steam"):
            p, t = columns(kind)
            given = dict(zip("pths", (p, t, *ktl.batch("pt", p, t, "h s")[:2])))
            a, b = given[pair[0]], given[pair[1]]
            ufunc, out = getattr(ktl, f"{name}_{pair}"), np.empty(ROWS)
            seconds = least([
                library_batch(path, pair, a, b, name, 1), lambda: ufunc(a, b, out=out),
                library_batch(path, pair, a, b, name, 0), lambda: ktl.batch(pair, a, b, name, threads=0),
            ])
            one, mine, all_, batch = (x * 1e9 / ROWS for x in seconds)
            print(f"| {pair[0]},{pair[1]} to {name} | {kind} | {one:.1f} | {mine:.1f} | {mine / one:.2f} "
                  f"| {all_:.1f} | {batch:.1f} | {batch / all_:.2f} |")


def longest_wait():
    """The longest time between two runs of another thread, ms, with the call and without."""
    p, t = (np.resize(column, 10_000_000) for column in columns("steam"))

    def waits(call):
        ticks, done = [], threading.Event()

        def tick():
            while not done.is_set():
                ticks.append(time.perf_counter())
                time.sleep(0.0005)

        thread = threading.Thread(target=tick)
        thread.start()
        call()
        done.set()
        thread.join()
        return max(np.diff(ticks)) * 1e3

    return [min(waits(call) for _ in range(3)) for call in
            (lambda: ktl.h_pt(p, t), lambda: ktl.batch("pt", p, t, "h", threads=1), lambda: time.sleep(0.5))]


def import_time():
    code = "import time, numpy; t = time.perf_counter(); import ktl; print(time.perf_counter() - t)"
    whole = "import time; t = time.perf_counter(); import ktl; print(time.perf_counter() - t)"
    return [min(float(subprocess.check_output([sys.executable, "-c", text])) for _ in range(7)) * 1e3 for text in (code, whole)]


def scalar(call, number=20000):
    return min(timeit.repeat(call, number=number, repeat=15)) / number * 1e6


def main():
    column_table(sys.argv[1])
    print("\n| call | time |\n| --- | --- |")
    print(f"| `ktl.h_pt(100.0, 500.0)` | {scalar(lambda: ktl.h_pt(100.0, 500.0)):.2f} us |")
    print(f"| `ktl.t_ph(100.0, 2800.0)` | {scalar(lambda: ktl.t_ph(100.0, 2800.0)):.2f} us |")
    print(f"| `ktl.h(p=100.0, t=500.0)` | {scalar(lambda: ktl.h(p=100.0, t=500.0)):.2f} us |")
    print(f"| for comparison, `np.add(100.0, 500.0)` | {scalar(lambda: np.add(100.0, 500.0)):.2f} us |")
    alone, whole = import_time()
    print(f"| `import ktl` after NumPy; NumPy included | {alone:.0f} ms; {whole:.0f} ms |")
    ufunc, batch, idle = longest_wait()
    print(f"| longest wait of another thread: ufunc; batch; no call | {ufunc:.1f} ms; {batch:.1f} ms; {idle:.1f} ms |")


if __name__ == "__main__":
    main()
