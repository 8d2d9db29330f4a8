"""What the tests of the package share: the C library as a witness, and states of every sub-region."""

import ctypes
import os
from pathlib import Path

import numpy as np
import pytest

import ktl
from ktl._lists import PAIRS, PROPERTIES

SOURCE = Path(__file__).resolve().parents[2]


class _Result(ctypes.Structure):
    _fields_ = [("fault", ctypes.c_int), ("cancelled", ctypes.c_int), ("solved", ctypes.c_size_t)]


class CLibrary:
    """The shared library, through its plain C calls."""

    def __init__(self, path):
        self._library = ctypes.CDLL(path)
        self._library.ktl_batch.restype = _Result
        self._library.ktl_state_count.argtypes = [ctypes.c_int, ctypes.c_double, ctypes.c_double]

    def batch(self, pair, a, b):
        """Every property by name, and the statuses."""
        a, b = np.ascontiguousarray(a), np.ascontiguousarray(b)
        columns = np.empty((len(PROPERTIES), a.size))
        status = np.empty(a.size, np.uint8)
        pointer = ctypes.c_void_p
        outputs = (pointer * len(PROPERTIES))(*(column.ctypes.data for column in columns))
        result = self._library.ktl_batch(
            PAIRS[pair].number, pointer(a.ctypes.data), pointer(b.ctypes.data), ctypes.c_size_t(a.size),
            bytes(range(len(PROPERTIES))), outputs, ctypes.c_size_t(len(PROPERTIES)), pointer(status.ctypes.data), None,
        )
        assert result.fault == 0
        return dict(zip(PROPERTIES, columns)), status

    def count(self, pair, a, b):
        return self._library.ktl_state_count(PAIRS[pair].number, a, b)


@pytest.fixture(scope="session")
def c_library():
    return CLibrary(os.environ["KTL_LIBRARY"])


def drawn_states(n=1000, seed=1):
    """Values of states of every sub-region: one phase, near the critical point, mixtures; by property."""
    rng = np.random.default_rng(seed)
    p = np.concatenate([np.exp(rng.uniform(np.log(0.0062), np.log(1000), n)), rng.uniform(210, 240, n // 4)])
    t = np.concatenate([rng.uniform(0.01, 800, n), rng.uniform(370, 380, n // 4)])
    one_phase = ktl.batch("pt", p, t, "p t v h s u x")
    mixtures = ktl.batch("tx", rng.uniform(0.01, 374.1, n), rng.uniform(0, 1, n), "p t v h s u x")
    return {name: np.concatenate([getattr(one_phase, name), getattr(mixtures, name)]) for name in "ptvhsux"}


def same_bits(a, b):
    """True if two arrays of doubles are equal bit for bit, any NaN being equal to any other."""
    a, b = np.asarray(a), np.asarray(b)
    return a.shape == b.shape and bool(np.all((a.view(np.int64) == b.view(np.int64)) | (np.isnan(a) & np.isnan(b))))
