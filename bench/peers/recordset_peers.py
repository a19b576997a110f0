#!/usr/bin/python3
"""pandas doing the recordset benchmark's work on the same 1,000,000-row table.

Prints one JSON object: milliseconds per operation and the peak resident memory in MB.
The table is generated with the formulas of bench/BenchData.h.
"""
import json
import resource
import time

import numpy as np
import pandas as pd

ROWS = 1_000_000
SURNAMES = ["GARCIA", "LOPEZ", "GARRIDO", "MARTINEZ", "PEREZ", "GOMEZ", "SANCHEZ", "DIAZ"]
CITIES = ["Madrid", "Sevilla", "Bilbao", "Valencia", "Zaragoza", "Malaga", "Murcia", "Palma",
          "Vigo", "Gijon"]


def best_ms(action, repeat):
    best = None
    for _ in range(repeat):
        start = time.perf_counter()
        action()
        elapsed = (time.perf_counter() - start) * 1000.0
        best = elapsed if best is None else min(best, elapsed)
    return best


def load():
    i = np.arange(ROWS)
    return pd.DataFrame({
        "nombre": [f"{SURNAMES[k % 8]} {k}" for k in range(ROWS)],
        "ciudad": [CITIES[(k * 7) % 10] for k in range(ROWS)],
        "codigo": i.astype(np.int32),
        "importe": ((i.astype(np.int64) * 37) % 100000) / 100.0,
        "fecha": np.datetime64("2015-01-01") + (i % 3650).astype("timedelta64[D]"),
        "activo": (i % 2) == 1,
    })


def main():
    start = time.perf_counter()
    frame = load()
    load_ms = (time.perf_counter() - start) * 1000.0
    upper = frame["nombre"].str.upper()

    def filter_rows():
        return frame[upper.str.startswith("GAR") & (frame["importe"] > 100)]

    rows = len(filter_rows())
    results = {
        "load": load_ms,
        "filter": best_ms(filter_rows, 5),
        "sort": best_ms(lambda: frame.sort_values(["ciudad", "importe"],
                                                  ascending=[True, False], kind="stable"), 3),
    }
    indexed = frame.set_index("codigo", drop=False)
    codes = [(k * 654321) % ROWS for k in range(1, 201)]
    results["find_us"] = best_ms(lambda: [indexed.index.get_loc(c) for c in codes], 3) * 1000.0 / len(codes)
    results["filter_rows"] = rows
    results["peak_rss_mb"] = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024.0
    print(json.dumps(results))


if __name__ == "__main__":
    main()
