#pragma once
// New tables of any field type the folder engine creates. A table of C, N, F, D and L fields
// only is written as dBASE III (version 3), which every reader opens; one with I, Y, B, T or M
// fields as Visual FoxPro (version 0x30: the 263-byte area after the descriptors, binary memo
// block numbers), its memos in a .fpt file beside it.

#include "platform/dbfformat/DbfLayout.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <vector>

namespace zlx::DbfNewTable {

// The length a field of `type` always has (I 4; Y, B, T and D 8; L 1; M 4); 0 when the length
// is the caller's (C, N, F).
std::uint8_t FixedLength(char type);
// The header and descriptors of an empty table; empty when too large.
QByteArray Header(const std::vector<DbfFieldDefinition>& fields, const QDate& today);
// Writes an empty table at `path` (replacing any file there) and, when it has memo fields, an
// empty memo file beside it unless one is there already. False when either cannot be written.
bool Create(const QString& path, const std::vector<DbfFieldDefinition>& fields);
// The memo file of a table written here: the same name with .fpt.
QString MemoPath(const QString& tablePath);
// An empty .fpt (its 512-byte header, blocks of 64 bytes).
bool CreateMemoFile(const QString& path);

} // namespace zlx::DbfNewTable
