#!/usr/bin/python3
"""pandas doing table_bench's work on the same DBF file.

Usage: table_peers.py FILE.dbf
Prints one JSON object: mean milliseconds per operation, the rows found and the peak
resident memory in MB.

Loading: pandas has no DBF reader of its own, so the file is read the way a pandas user
would do it with numpy: the whole file into memory, the records viewed through a structured
dtype built from the field descriptors, then one column per field: texts decoded (numpy's
own cast when they are plain ASCII, else cp1252) with their trailing blanks removed,
numbers through astype, dates computed from their eight digits (blank or impossible ones
become NaT), logicals compared with T/Y. Deleted records are kept, as cDatos keeps them.
"""
import json
import resource
import sys
import time

import numpy as np
import pandas as pd


def text_column(values, size):
    """Python strings without trailing blanks; numpy decodes plain ASCII on its own."""
    if np.ascontiguousarray(values).view(np.uint8).max(initial=0) < 0x80:
        return pd.Series(values.astype(f"U{size}")).str.rstrip()
    return pd.Series([v.decode("cp1252").rstrip() for v in values.tolist()])


def read_dbf(path):
    raw = np.fromfile(path, dtype=np.uint8)
    count = int.from_bytes(raw[4:8].tobytes(), "little")
    header = int.from_bytes(raw[8:10].tobytes(), "little")
    length = int.from_bytes(raw[10:12].tobytes(), "little")
    fields = []
    for pos in range(32, header - 1, 32):
        if raw[pos] == 0x0D:
            break
        descriptor = raw[pos:pos + 32].tobytes()
        name = descriptor[:11].split(b"\0")[0].decode("ascii").strip()
        fields.append((name, chr(descriptor[11]), int.from_bytes(descriptor[12:16], "little"),
                       descriptor[16], descriptor[17]))
    layout = np.dtype({"names": [f[0] for f in fields],
                       "formats": [f"S{f[3]}" for f in fields],
                       "offsets": [f[2] for f in fields],
                       "itemsize": length})
    records = np.frombuffer(raw, dtype=layout, count=count, offset=header)
    columns = {}
    for name, kind, _, size, decimals in fields:
        values = records[name]
        if kind == "C":
            columns[name] = text_column(values, size)
        elif kind == "N":
            columns[name] = values.astype(np.float64 if decimals else np.int64)
        elif kind == "D":
            digits = np.ascontiguousarray(values).view(np.uint8).reshape(count, 8).astype(
                np.int32) - 48
            year = digits[:, 0] * 1000 + digits[:, 1] * 100 + digits[:, 2] * 10 + digits[:, 3]
            month = digits[:, 4] * 10 + digits[:, 5]
            day = digits[:, 6] * 10 + digits[:, 7]
            months = ((year - 1970) * 12 + month - 1).astype("datetime64[M]")
            dates = months.astype("datetime64[D]") + (day - 1).astype("timedelta64[D]")
            dates[(month < 1) | (month > 12) | (day < 1) | (day > 31)] = np.datetime64("NaT")
            columns[name] = dates.astype("datetime64[ns]")
        elif kind == "L":
            columns[name] = np.isin(values, [b"T", b"t", b"Y", b"y"])
    return pd.DataFrame(columns)


def mean_ms(action, repeat):
    total = 0.0
    result = None
    for _ in range(repeat):
        result = None  # the previous result is not kept alive during the next run
        start = time.perf_counter()
        result = action()
        total += (time.perf_counter() - start) * 1000.0
    return total / repeat, result


def main():
    path = sys.argv[1]
    load_ms, frame = mean_ms(lambda: read_dbf(path), 3)

    # NAME LIKE 'Cliente 1*' AND PRICE > 500, case-insensitive as the LIKE of cDatos.
    def filter_rows():
        return frame[frame["NAME"].str.upper().str.startswith("CLIENTE 1") &
                     (frame["PRICE"] > 500)]

    filter_ms, found = mean_ms(filter_rows, 5)
    sort_ms, _ = mean_ms(lambda: frame.sort_values(["QTY", "NAME"], kind="stable"), 3)
    sort_numbers_ms, _ = mean_ms(lambda: frame.sort_values(
        ["ACTIVE", "PRICE"], ascending=[True, False], kind="stable"), 3)
    sum_ms, total = mean_ms(lambda: frame["PRICE"].sum(), 5)
    print(json.dumps({
        "load": load_ms, "filter": filter_ms, "sort": sort_ms, "sort_numbers": sort_numbers_ms,
        "sum": sum_ms,
        "rows": len(frame), "filter_rows": len(found), "total": float(total),
        "peak_rss_mb": resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024.0,
    }))


if __name__ == "__main__":
    main()
