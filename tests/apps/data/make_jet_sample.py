#!/usr/bin/env python3
"""Writes clientes.mdb: a small Access 2000 (Jet 4) database for the mdb-import test.

Two user tables, each with its primary key and one with a second index:
  Clientes (Id autonumber PK, Nombre text(40), Saldo currency, Alta date, Activo yes/no,
            Notas memo, Puntos double, Nivel byte, Codigo integer, Ratio single)
  Pedidos  (Numero long PK, Cliente long [index Cliente], Importe double, Fecha date)
The file has only what a reader needs (header, catalog, table definitions, usage maps,
data pages); indexes are declared in the table definitions without index pages.
Run: python3 make_jet_sample.py clientes.mdb
"""
import datetime
import struct
import sys

PAGE = 4096

# Jet column types
BOOL, BYTE, INT, LONG, MONEY, FLOAT, DOUBLE, DATETIME, TEXT, OLE, MEMO = 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12
FIXED_SIZE = {BOOL: 0, BYTE: 1, INT: 2, LONG: 4, MONEY: 8, FLOAT: 4, DOUBLE: 8, DATETIME: 8}


def rc4(key, data):
    s = list(range(256))
    j = 0
    for i in range(256):
        j = (j + s[i] + key[i % len(key)]) % 256
        s[i], s[j] = s[j], s[i]
    out = bytearray()
    i = j = 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + s[i]) % 256
        s[i], s[j] = s[j], s[i]
        out.append(byte ^ s[(s[i] + s[j]) % 256])
    return bytes(out)


def ucs2(text):
    return text.encode("utf-16-le")


def ole_date(value):
    delta = value - datetime.datetime(1899, 12, 30)
    return delta.days + delta.seconds / 86400.0


class Column:
    def __init__(self, name, kind, length=0, autonumber=False):
        self.name, self.kind, self.autonumber = name, kind, autonumber
        self.fixed = kind in FIXED_SIZE
        self.length = FIXED_SIZE[kind] if self.fixed else length


class Table:
    def __init__(self, name, columns, indexes, rows, system=False):
        # indexes: [(name, [column names], unique, primary)]
        self.name, self.columns, self.indexes, self.rows = name, columns, indexes, rows
        self.system = system
        offset = 0
        var_number = 0
        for number, column in enumerate(columns):
            column.number = number
            if column.fixed:
                column.offset = offset
                offset += column.length
            else:
                column.offset = 0
                column.var_number = var_number
                var_number += 1
        self.fixed_bytes = offset
        self.var_count = var_number


def encode_value(column, value):
    kind = column.kind
    if kind == BYTE:
        return struct.pack("<B", value)
    if kind == INT:
        return struct.pack("<h", value)
    if kind == LONG:
        return struct.pack("<I", value & 0xFFFFFFFF)
    if kind == MONEY:
        return struct.pack("<q", round(value * 10000))
    if kind == FLOAT:
        return struct.pack("<f", value)
    if kind == DOUBLE:
        return struct.pack("<d", value)
    if kind == DATETIME:
        return struct.pack("<d", ole_date(value))
    if kind == TEXT:
        return ucs2(value)
    if kind == MEMO:  # an inline memo: length with the "in this row" flag, then the text
        text = ucs2(value)
        return struct.pack("<II", len(text) | 0x80000000, 0) + struct.pack("<I", 0) + text
    raise ValueError(kind)


def encode_row(table, values):
    count = len(table.columns)
    fixed = bytearray(table.fixed_bytes)
    present = [False] * count
    var_data = []
    for column, value in zip(table.columns, values):
        if column.kind == BOOL:
            present[column.number] = bool(value)  # a yes/no lives in the null mask
            continue
        if value is None:
            if not column.fixed:
                var_data.append((column, b""))
            continue
        present[column.number] = True
        data = encode_value(column, value)
        if column.fixed:
            fixed[column.offset:column.offset + len(data)] = data
        else:
            var_data.append((column, data))
    row = bytearray(struct.pack("<H", count)) + fixed
    mask = bytearray((count + 7) // 8)
    for number, flag in enumerate(present):
        if flag:
            mask[number // 8] |= 1 << (number % 8)
    if table.var_count == 0:
        return bytes(row + mask)
    offsets = []
    for _, data in var_data:
        offsets.append(len(row))
        row += data
    end_of_data = len(row)
    row += struct.pack("<H", end_of_data)
    for offset in reversed(offsets):
        row += struct.pack("<H", offset)
    row += struct.pack("<H", len(offsets))
    return bytes(row + mask)


def data_page(tdef_page, rows):
    page = bytearray(PAGE)
    page[0:2] = b"\x01\x01"
    struct.pack_into("<I", page, 4, tdef_page)
    struct.pack_into("<H", page, 12, len(rows))
    end = PAGE
    for number, row in enumerate(rows):
        start = end - len(row)
        page[start:end] = row
        struct.pack_into("<H", page, 14 + 2 * number, start)
        end = start
    struct.pack_into("<H", page, 2, end - (14 + 2 * len(rows)))
    return page


def usage_map(pages):
    bitmap = bytearray(59)
    for page in pages:
        bitmap[page // 8] |= 1 << (page % 8)
    return b"\x00" + struct.pack("<I", 0) + bytes(bitmap)


def tdef_page(table, map_row):
    body = bytearray()
    real = [index for index in table.indexes]
    for _ in real:
        body += struct.pack("<III", 0, len(table.rows), 0)
    for column in table.columns:
        entry = bytearray(25)
        entry[0] = column.kind
        struct.pack_into("<H", entry, 5, column.number)
        struct.pack_into("<H", entry, 7, 0 if column.fixed else column.var_number)
        struct.pack_into("<H", entry, 9, column.number)
        if column.kind in (TEXT, MEMO):
            struct.pack_into("<HH", entry, 11, 0x409, 0x100)
        flags = 0x02 | (0x01 if column.fixed else 0) | (0x04 if column.autonumber else 0)
        entry[15] = flags
        struct.pack_into("<H", entry, 21, column.offset)
        struct.pack_into("<H", entry, 23, column.length)
        body += entry
    for column in table.columns:
        name = ucs2(column.name)
        body += struct.pack("<H", len(name)) + name
    by_name = {column.name: column for column in table.columns}
    for name, columns, unique, primary in real:
        entry = bytearray(struct.pack("<I", 0))
        for slot in range(10):
            if slot < len(columns):
                entry += struct.pack("<HB", by_name[columns[slot]].number, 1)
            else:
                entry += struct.pack("<HB", 0xFFFF, 0)
        flags = (0x01 if unique else 0) | (0x08 if primary else 0)
        entry += struct.pack("<IIB", 0, 0, flags) + bytes(9)
        body += entry
    for number, (name, columns, unique, primary) in enumerate(real):
        body += struct.pack("<IIIBiIBBB", 0, number, number, 0, -1, 0, 0, 0, 1 if primary else 0)
        body += bytes(4)
    for name, _, _, _ in real:
        encoded = ucs2(name)
        body += struct.pack("<H", len(encoded)) + encoded
    body += struct.pack("<H", 0xFFFF)

    header = bytearray(63)
    header[0:2] = b"\x02\x01"
    struct.pack_into("<I", header, 8, 63 + len(body))
    struct.pack_into("<I", header, 16, len(table.rows))
    autonumbers = [column for column in table.columns if column.autonumber]
    next_number = 1 + max((row[0] for row in table.rows), default=0) if autonumbers else 0
    struct.pack_into("<I", header, 20, next_number)
    header[24] = 1 if autonumbers else 0
    header[40] = 0x53 if table.system else 0x4E
    struct.pack_into("<HHH", header, 41, len(table.columns), table.var_count, len(table.columns))
    struct.pack_into("<II", header, 47, len(real), len(real))
    struct.pack_into("<II", header, 55, map_row, map_row)
    page = bytearray(PAGE)
    content = header + body
    assert len(content) <= PAGE
    page[0:len(content)] = content
    struct.pack_into("<H", page, 2, PAGE - len(content) - 8)
    return page


def header_page():
    page = bytearray(PAGE)
    page[0:4] = b"\x00\x01\x00\x00"
    page[4:20] = b"Standard Jet DB\x00"
    struct.pack_into("<I", page, 0x14, 1)  # Jet 4
    plain = bytearray(128)
    struct.pack_into("<H", plain, 0x3C - 0x18, 1252)  # code page
    struct.pack_into("<I", plain, 0x3E - 0x18, 0)  # no page encryption
    struct.pack_into("<I", plain, 0x6E - 0x18, 0x409)  # general sort order
    page[0x18:0x18 + 128] = rc4(bytes([0xC7, 0xDA, 0x39, 0x6B]), bytes(plain))
    return page


def sample_tables():
    d = datetime.datetime
    clientes = Table(
        "Clientes",
        [Column("Id", LONG, autonumber=True), Column("Nombre", TEXT, 80),
         Column("Saldo", MONEY), Column("Alta", DATETIME), Column("Activo", BOOL),
         Column("Notas", MEMO), Column("Puntos", DOUBLE), Column("Nivel", BYTE),
         Column("Codigo", INT), Column("Ratio", FLOAT)],
        [("PrimaryKey", ["Id"], True, True)],
        [[1, "Peña Álvarez", 1250.75, d(2021, 3, 14, 9, 30, 0), True, "Cliente preferente", 3.5,
          2, 101, 0.25],
         [2, "Zoë Martín", -40.5, d(1999, 12, 31), False, None, 0.0, 0, -7, 1.5],
         [3, "Óscar Núñez", 0.0, None, True, "Sin fecha de alta", None, 255, 32767, None]])
    pedidos = Table(
        "Pedidos",
        [Column("Numero", LONG), Column("Cliente", LONG), Column("Importe", DOUBLE),
         Column("Fecha", DATETIME)],
        [("PrimaryKey", ["Numero"], True, True), ("Cliente", ["Cliente"], False, False)],
        [[1001, 1, 99.95, d(2024, 2, 29)], [1002, 1, 10.0, d(2024, 3, 1)],
         [1003, 3, 250.0, d(2024, 3, 2, 18, 45, 10)]])
    return [clientes, pedidos]


def build():
    tables = sample_tables()
    # pages: 0 header, 1 usage maps, 2/3 catalog, then a definition and a data page per table
    layout = [(2, 3)] + [(4 + 2 * i, 5 + 2 * i) for i in range(len(tables))]
    catalog_rows = [[2, 0x0F000000, "MSysObjects", 1, 0x80000002, None]]
    for table, (tdef, _) in zip(tables, layout[1:]):
        catalog_rows.append([tdef, 0x0F000000, table.name, 1, 0, None])
    catalog = Table(
        "MSysObjects",
        [Column("Id", LONG), Column("ParentId", LONG), Column("Name", TEXT, 256),
         Column("Type", INT), Column("Flags", LONG), Column("LvProp", OLE)],
        [], catalog_rows, system=True)
    everything = [catalog] + tables
    maps = [usage_map([dpage]) for _, dpage in layout]
    pages = [header_page(), data_page(0, maps)]
    for number, (table, (tdef, dpage)) in enumerate(zip(everything, layout)):
        pages.append(tdef_page(table, (1 << 8) | number))
        pages.append(data_page(tdef, [encode_row(table, row) for row in table.rows]))
    return b"".join(pages)


if __name__ == "__main__":
    with open(sys.argv[1], "wb") as out:
        out.write(build())
