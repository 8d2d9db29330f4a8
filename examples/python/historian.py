"""Enthalpy and entropy of a plant historian's rows: by DuckDB on one machine, and by Dask on two worker processes.

    python historian.py --rows 100_000_000

Writes the rows as Parquet files first: pressure and temperature of live steam with daily swings, a drifting sensor, gaps
and bad values. Both engines then read them part by part, so memory does not grow with the rows, and their sums must be
equal. The sums are of whole units of 1e-3 kJ/kg and 1e-6 kJ/(kg K): whole numbers add up the same in any order.

Needs duckdb, pyarrow, pandas, dask[dataframe,distributed].
"""

from __future__ import annotations

import argparse
import sys
import tempfile
import time
from pathlib import Path

import duckdb
import numpy as np
import pandas as pd
import pyarrow as pa
import pyarrow.parquet as pq

import dask.dataframe as dd
import ktl
import ktl.duckdb
from dask.distributed import Client, LocalCluster, progress

ROWS_OF_A_FILE = 500_000


def part_of_historian(begin: int, rows: int) -> pa.Table:
    """A row each second from the given second on."""
    random = np.random.default_rng(begin)
    second = np.arange(begin, begin + rows)
    day = 2 * np.pi * second / 86400
    pressure = 160 + 12 * np.sin(day) + 2e-7 * second + random.normal(0, 0.3, rows)  # the sensor drifts
    temperature = 536 + 6 * np.sin(day + 1) + random.normal(0, 1.0, rows)
    bad = random.random(rows)
    pressure[bad < 0.002] = -9999.0  # the historian's mark of a bad value
    temperature[(bad > 0.002) & (bad < 0.003)] = 1372.0  # a broken thermocouple
    gap = (second // 600) % 400 == 7  # ten minutes without data now and then
    return pa.table({"second": second, "p": pa.array(pressure, mask=gap), "t": pa.array(temperature, mask=gap)})


def write(folder: Path, rows: int) -> None:
    for begin in range(0, rows, ROWS_OF_A_FILE):
        table = part_of_historian(begin, min(ROWS_OF_A_FILE, rows - begin))
        pq.write_table(table, folder / f"part-{begin // ROWS_OF_A_FILE:06}.parquet")


def by_duckdb(folder: Path) -> list[int]:
    connection = duckdb.connect(config={"memory_limit": "1GB"})
    connection.execute("set enable_progress_bar = true")
    ktl.duckdb.register(connection, ["h_pt", "s_pt"])
    query = f"""
        select count(h), sum(cast(floor(h * 1e3) as bigint)), sum(cast(floor(s * 1e6) as bigint))
        from (select h_pt(p, t) as h, s_pt(p, t) as s from '{folder}/*.parquet')"""
    return [int(value) for value in connection.execute(query).fetchall()[0]]


def sums_of_part(part: pd.DataFrame) -> pd.DataFrame:
    with np.errstate(invalid="ignore"):
        h = ktl.h_pt(part["p"].to_numpy(), part["t"].to_numpy())
        s = ktl.s_pt(part["p"].to_numpy(), part["t"].to_numpy())
    known = ~np.isnan(h)
    whole = [np.floor(column[known] * scale).astype(np.int64).sum() for column, scale in ((h, 1e3), (s, 1e6))]
    return pd.DataFrame({"rows": [known.sum()], "h": [whole[0]], "s": [whole[1]]})


def by_dask(folder: Path) -> tuple[list[int], list[float]]:
    """The sums, and the peak memory of each worker in MB."""
    cluster = LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None)
    with cluster, Client(cluster) as client:
        parts = dd.read_parquet(folder, columns=["p", "t"]).map_partitions(sums_of_part).persist()
        progress(parts, notebook=False)
        found = parts.compute().sum()
        memory = client.run(peak_memory)
    return [int(found[name]) for name in ("rows", "h", "s")], sorted(memory.values())


def peak_memory() -> float:
    """MB, of this process. (The resource usage of a worker would have the peak of the process that started it, too.)"""
    status = Path("/proc/self/status").read_text()  # Linux
    return float(status.split("VmHWM:")[1].split()[0]) / 1024


def main() -> int:
    parser = argparse.ArgumentParser(description="Enthalpies and entropies of a historian's rows by DuckDB and by Dask.")
    parser.add_argument("--rows", type=int, default=10_000_000)
    rows = parser.parse_args().rows
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        write(folder, rows)
        before = peak_memory()
        begin = time.perf_counter()
        one_machine = by_duckdb(folder)
        took = time.perf_counter() - begin
        print(f"\nDuckDB: {rows / took:.3g} rows/s; peak memory {peak_memory():.0f} MB, {before:.0f} MB before")
        begin = time.perf_counter()
        workers, memory = by_dask(folder)
        took = time.perf_counter() - begin
        print(f"\nDask: {rows / took:.3g} rows/s with the start of its workers; peak memory {memory[0]:.0f} and {memory[1]:.0f} MB")
    equal = one_machine == workers
    print(f"{one_machine[0]} rows with a state of {rows}; sums {'equal' if equal else 'DIFFER'}: {one_machine} {workers}")
    return 0 if equal else 1


if __name__ == "__main__":
    sys.exit(main())
