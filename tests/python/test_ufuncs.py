"""The ufuncs as NumPy knows them: signals, types, memory of any layout, bad input, pickle, threads, processes."""

import multiprocessing
import os
import pickle
import subprocess
import sys
import threading
import time
import warnings

import numpy as np
import pytest
from conftest import drawn_states, same_bits
from hypothesis import given, settings
from hypothesis import strategies as st

import ktl

STATES = drawn_states(2000)
P, H = STATES["p"], STATES["h"]
KNOWN = ~np.isnan(H)
P, H = P[KNOWN], H[KNOWN]
T = ktl.batch("ph", P, H, "t").t


# ---- The "invalid" signal ----------------------------------------------------------------------------------------------

@pytest.mark.parametrize("p, h, raised", [
    (P, H, False),
    (100.0, 2800.0, False),
    (100.0, 1e5, True),
    (100.0, np.inf, True),
    (np.nan, 2800.0, False),
    (np.nan, 1e5, False),
    (np.append(P, 100.0), np.append(H, 1e5), True),
    (np.append(100.0, P), np.append(1e5, H), True),
    (np.repeat(100.0, 9000)[::2], np.append(1e5, np.repeat(2800.0, 4499)), True),
])
def test_only_rows_without_a_state_raise(p, h, raised):
    with np.errstate(all="raise"):
        if raised:
            with pytest.raises(FloatingPointError, match="invalid value encountered in t_ph"):
                ktl.t_ph(p, h)
        else:
            ktl.t_ph(p, h)
    with warnings.catch_warnings(record=True) as warned:
        warnings.simplefilter("always")
        ktl.t_ph(p, h)
    assert len(warned) == raised
    with np.errstate(all="raise"):  # how many and why are answers, not failures
        ktl.status_ph(p, h), ktl.states_ph(p, h)


def test_a_property_that_a_state_lacks_raises_nothing():
    with np.errstate(all="raise"):
        assert np.isnan(ktl.cp_ph(100.0, 2000.0)) and np.isnan(ktl.x_ph(100.0, 3000.0))
    with np.errstate(all="raise"), pytest.raises(FloatingPointError):
        ktl.psat(400.0)


def test_signals_of_an_earlier_row_survive_later_buffers():
    h = np.repeat(2800.0, 50000).astype(np.float32)  # cast in buffers: the loop runs several times
    h[0] = 1e5
    with np.errstate(all="raise"), pytest.raises(FloatingPointError):
        ktl.t_ph(100.0, h)


# ---- Layout ------------------------------------------------------------------------------------------------------------

@settings(max_examples=150, deadline=None)
@given(st.data())
def test_any_view_gives_the_same_bits(data):
    rows = data.draw(st.integers(0, 3000))
    step = data.draw(st.sampled_from([1, 2, 3, -1, -2, 7]))
    a, b = np.resize(P, rows * 7 + 7), np.resize(H, rows * 7 + 7)
    view = slice(None, None, step)
    p, h = a[view][:rows], b[view][:rows]
    wanted = ktl.t_ph(p.copy(), h.copy())
    kind = data.draw(st.sampled_from(["plain", "swapped", "misaligned", "fortran", "field", "out", "in place", "one"]))
    if kind == "plain":
        found = ktl.t_ph(p, h)
    elif kind == "swapped":
        found = ktl.t_ph(p.astype(">f8"), h.astype(">f8"))
    elif kind == "misaligned":
        memory = bytearray(8 * rows + 1)
        odd = np.frombuffer(memory, np.float64, rows, 1)
        odd[...] = h
        found = ktl.t_ph(p, odd)
    elif kind == "fortran":
        square = p[: rows // 4 * 4].reshape(-1, 4), h[: rows // 4 * 4].reshape(-1, 4)
        found = ktl.t_ph(np.asfortranarray(square[0]), square[1]).ravel()
        wanted = wanted[: rows // 4 * 4]
    elif kind == "field":
        table = np.zeros(rows, [("flag", "i1"), ("p", "f8"), ("h", "f8")])
        table["p"], table["h"] = p, h
        found = ktl.t_ph(table["p"], table["h"])
    elif kind == "out":
        out = np.zeros(rows * 7 + 7)[view][:rows]
        assert ktl.t_ph(p, h, out=out) is out
        found = out
    elif kind == "in place":
        found = p.copy()
        ktl.t_ph(found, h, out=found)
    else:
        found, wanted = ktl.t_ph(p, 2800.0), ktl.t_ph(p.copy(), np.full(rows, 2800.0))
    assert same_bits(found, wanted)


@pytest.mark.parametrize("shift", [-2000, -1, 0, 1, 5, 3000])
@pytest.mark.parametrize("function", ["t_ph", "status_ph", "psat"])
def test_overlapping_out(function, shift):
    ufunc = getattr(ktl, function)
    memory = np.concatenate([np.resize(H, 9000)])
    rows = slice(3000, 6000)
    arguments = [np.resize(P, 3000)] * (ufunc.nin - 1) + [memory[rows]]
    with np.errstate(invalid="ignore"):
        wanted = ufunc(*(argument.copy() for argument in arguments))
        out = memory[3000 + shift : 6000 + shift]
        ufunc(*arguments, out=out, casting="unsafe")
    assert np.array_equal(out, wanted, equal_nan=True)


def test_accumulate_follows_its_own_results():
    with np.errstate(invalid="ignore"):
        values = np.array([100.0, 2800.0, 500.0, 1000.0])
        t1 = ktl.t_ph(values[0], values[1])
        assert same_bits(ktl.t_ph.accumulate(values)[:3], [100.0, t1, ktl.t_ph(t1, values[2])])
        assert ktl.t_ph.reduce([100.0, 2800.0]) == t1


@pytest.mark.parametrize("dtype", ["f4", "f2", "i1", "i8", "u8", "?"])
def test_narrower_types_are_cast(dtype):
    p, h = np.array([1, 50, 100]).astype(dtype), np.array([10, 50, 100]).astype(dtype)
    found = ktl.t_ph(p, h)
    assert found.dtype == np.float64
    assert same_bits(found, ktl.t_ph(p.astype(float), h.astype(float)))


@pytest.mark.parametrize("a, b, error", [
    (np.array([1, 2], object), 2800.0, TypeError),
    (1 + 0j, 2800.0, TypeError),
    ("100", 2800.0, TypeError),
    (np.longdouble(100), 2800.0, TypeError),
    (np.datetime64("2020"), 2800.0, TypeError),
    ([[1, 2], [3]], 2800.0, ValueError),
    (np.ones(3), np.ones(4), ValueError),
    (None, 2800.0, TypeError),
])
def test_bad_input_is_refused(a, b, error):
    for call in (lambda: ktl.t_ph(a, b), lambda: ktl.t(p=a, h=b), lambda: ktl.state(p=a, h=b), lambda: ktl.batch("ph", a, b, "t")):
        with pytest.raises(error):
            call()


def test_bad_outputs_are_refused():
    locked = np.zeros(3)
    locked.flags.writeable = False
    for out in (locked, np.zeros(4), np.zeros(3, int), [0.0] * 3):
        with pytest.raises((ValueError, TypeError)):
            ktl.t_ph(np.ones(3), 2800.0, out=out)


@pytest.mark.parametrize("shape", [(0,), (3, 0), (), (1, 1, 1), (2, 3, 4)])
def test_shapes(shape):
    assert ktl.t_ph(np.full(shape, 100.0), 2800.0).shape == shape
    assert ktl.batch("ph", np.full(shape, 100.0), 2800.0, "t").t.shape == shape
    assert ktl.state(p=np.full(shape, 100.0), h=2800.0).shape == shape


def test_huge_strides():
    far = np.lib.stride_tricks.as_strided(np.zeros(2**20 * 3 + 1), (4,), (2**20 * 8,))
    far[...] = [1.0, 10.0, 100.0, 20.0]
    assert same_bits(ktl.t_ph(far, 2800.0), ktl.t_ph(far.copy(), 2800.0))


# ---- Pickle, threads, processes ----------------------------------------------------------------------------------------

@pytest.mark.parametrize("thing", [ktl.t_ph, ktl.si.t_ph, ktl.us.status_ph, ktl.psat, ktl.h, ktl.si.h, ktl.state, ktl.si.batch,
                                   ktl.Status.solved], ids=str)
def test_pickle(thing):
    assert pickle.loads(pickle.dumps(thing)) is thing


def test_threads_run_at_once():
    wanted = ktl.t_ph(np.resize(P, 200000), np.resize(H, 200000))
    found = [None] * 4

    def work(k):
        found[k] = ktl.t_ph(np.resize(P, 200000), np.resize(H, 200000))

    threads = [threading.Thread(target=work, args=(k,)) for k in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert all(same_bits(column, wanted) for column in found)


def test_another_thread_runs_meanwhile():
    """The lock is free while a call runs. The bound is loose: the machine may be busy; bench/python measures."""
    p, h = np.resize(P, 4_000_000), np.resize(H, 4_000_000)
    for call in (lambda: ktl.t_ph(p, h), lambda: ktl.batch("ph", p, h, "t", threads=1)):
        ticks, done = [], threading.Event()

        def tick():
            while not done.is_set():
                ticks.append(time.perf_counter())
                time.sleep(0.001)

        thread = threading.Thread(target=tick)
        thread.start()
        begin = time.perf_counter()
        call()
        took = time.perf_counter() - begin
        done.set()
        thread.join()
        assert len([x for x in ticks if x < begin + took]) > 10
        assert max(np.diff(ticks)) < took / 2


def _in_child(queue):
    queue.put(ktl.batch("ph", P, H, "t", threads=2).t)


@pytest.mark.filterwarnings("ignore:.*fork.*:DeprecationWarning")
def test_a_forked_process_computes():
    ktl.batch("ph", P, H, "t", threads=2)
    context = multiprocessing.get_context("fork")
    queue = context.Queue()
    child = context.Process(target=_in_child, args=(queue,))
    child.start()
    found = queue.get(timeout=60)
    child.join(60)
    assert child.exitcode == 0 and same_bits(found, T)


def run(code):
    return subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, timeout=120, env=os.environ)


def test_a_subinterpreter_is_refused():
    code = """if True:
        import _testcapi
        status = _testcapi.run_in_subinterp('''if True:
            import sys
            try:
                import ktl._ktl
            except ImportError as e:
                print("refused:", e)
        ''')
        print("ended", status)
    """
    if run("import _testcapi").returncode != 0:
        code = """if True:
            import _xxsubinterpreters as s
            i = s.create()
            s.run_string(i, 'import ktl._ktl')
        """
        ended = run(code)
        assert ended.returncode == 1 and "ImportError" in ended.stderr
        return
    ended = run(code)
    assert "refused:" in ended.stdout and "ended 0" in ended.stdout, ended.stderr


def test_import_and_unload():
    """Modules dropped while their ufuncs live, imported again, and the interpreter's end: no crash."""
    ended = run("""if True:
        import gc, sys
        import ktl
        kept = ktl.t_ph
        for name in [name for name in sys.modules if name.startswith("ktl")]:
            del sys.modules[name]
        del ktl
        gc.collect()
        import ktl
        print(kept(100.0, 2800.0) == ktl.t_ph(100.0, 2800.0))
    """)
    assert ended.returncode == 0 and ended.stdout == "True\n", ended.stderr
