#pragma once
// The indexes a record cursor's moves need: every move filters on its order column and its
// ZolmarID and sorts by them, so an index on (order column, ZolmarID) lets each move read one
// index entry whatever the table's size. The helper names the index after the table and the
// order, creates it on any engine through the connection, and warns in the library log when a
// cursor opens on an order without one.

#include "connection/cConexion.h"

namespace zlx {

class OrderIndex {
public:
    // "IX_" + the table without its database + "_" + the order's columns joined by "_".
    static QString Name(const QString& cTabla, const QString& cOrden);
    // The index's statement; empty for an order expression over several columns (the server
    // cannot index an expression).
    static QString CreateStatement(const QString& cTabla, const QString& cOrden);
    // Creates the index when it is missing; false when it cannot be made.
    static bool Ensure(cConexion& oCn, const QString& cTabla, const QString& cOrden);
    static bool Exists(cConexion& oCn, const QString& cTabla, const QString& cOrden);
    // A warning line in the library log when the order has no index of this helper.
    static void WarnIfMissing(cConexion& oCn, const QString& cTabla, const QString& cOrden);
};

} // namespace zlx
