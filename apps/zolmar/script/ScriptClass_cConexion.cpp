#include "connection/cConexion.h"
#include "language/cIdioma.h"
#include "script/ScriptRegistry.h"
#include "table/cDatos.h"

namespace zlx {
namespace {

// Optional by-reference numbers: the method fills those given, which come back in "out".
template <class Fn>
auto WithOutNumbers(ScriptArgs& a, std::size_t first, std::size_t count, Fn fn) {
    std::int32_t numbers[4] = {};
    std::int32_t* given[4] = {};
    for (std::size_t i = 0; i < count; ++i)
        if (a.Given(first + i)) given[i] = &numbers[i];
    auto result = fn(given);
    for (std::size_t i = 0; i < count; ++i)
        if (given[i]) a.Out(first + i, numbers[i]);
    return result;
}

void Lifecycle(ScriptClassBuilder<cConexion>& c) {
    c.Property(
        "nDBProvider", [](cConexion& o) { return o.nDBProvider(); },
        [](cConexion& o, const Variant& v) { o.nDBProvider(v.ToLong()); });
    c.Property(
        "cDBServer", [](cConexion& o) { return o.cDBServer(); },
        [](cConexion& o, const Variant& v) { o.cDBServer(v.ToString()); });
    c.Property(
        "cDBUser", [](cConexion& o) { return o.cDBUser(); },
        [](cConexion& o, const Variant& v) { o.cDBUser(v.ToString()); });
    c.Property(
        "cDBPassword", [](cConexion& o) { return o.cDBPassword(); },
        [](cConexion& o, const Variant& v) { o.cDBPassword(v.ToString()); });
    c.Property("cn", [](cConexion& o) { return o.cn(); });
    c.Property("cnXLock", [](cConexion& o) { return o.cnXLock(); });
    c.Property(
        "nTally", [](cConexion& o) { return o.nTally(); },
        [](cConexion& o, const Variant& v) { o.nTally(v.ToLong()); });
    c.Property(
        "lFlagDeadLock", [](cConexion& o) { return o.lFlagDeadLock(); },
        [](cConexion& o, const Variant& v) { o.lFlagDeadLock(v.ToBool()); });
    // Init(nProveedor, cFileName, cServer, cUser, cPassword, nModo, lQuiet, cReturnErrors,
    // nConnectionTimeout): cReturnErrors, when given, comes back in "out".
    c.Method("Init", 1, 9, [](cConexion& o, ScriptArgs& a) {
        QString errors = a.String(7);
        const bool done =
            o.Init(a.Long(0), a.String(1), a.String(2), a.String(3), a.String(4), a.Long(5, 16),
                   a.Bool(6), a.Given(7) ? &errors : nullptr, a.Long(8, 60));
        if (a.Given(7)) a.Out(7, errors);
        return done;
    });
    c.Method("Connection_String", 1, 3, [](cConexion& o, ScriptArgs& a) {
        int provider = a.Long(0);
        const QString text = o.Connection_String(provider, a.String(1), a.String(2));
        a.Out(0, provider);
        return text;
    });
    c.Method("Close_Connection", 0, 0, [](cConexion& o, ScriptArgs&) { o.Close_Connection(); });
    c.Property(
        "DBName", [](cConexion& o) { return o.DBName(); },
        [](cConexion& o, const Variant& v) { o.DBName(v.ToString()); });
    c.Method("SetIdioma", 1, 1,
             [](cConexion& o, ScriptArgs& a) { o.SetIdioma(a.Object<cIdioma>(0)); });
    c.Method("SetWTSClientName", 1, 1,
             [](cConexion& o, ScriptArgs& a) { o.SetWTSClientName(a.String(0)); });
}

void ErrorState(ScriptClassBuilder<cConexion>& c) {
    c.Method("GetLastError", 0, 0, [](cConexion& o, ScriptArgs&) { return o.GetLastError(); });
    c.Method("GetLastErrorDescription", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.GetLastErrorDescription(); });
    c.Method("GetLastSQLNativeError", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.GetLastSQLNativeError(); });
    c.Method("GetSQLErrorMessages", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.GetSQLErrorMessages(); });
    c.Method("CheckNativeCode", 1, 1,
             [](cConexion& o, ScriptArgs& a) { return o.CheckNativeCode(a.Long(0)); });
    const std::pair<const char*, bool (cConexion::*)()> shortcuts[] = {
        {"CheckNativeCode_VerifyDB_OK", &cConexion::CheckNativeCode_VerifyDB_OK},
        {"CheckNativeCode_RestoreDB_OK", &cConexion::CheckNativeCode_RestoreDB_OK},
        {"CheckNativeCode_BackupDB_OK", &cConexion::CheckNativeCode_BackupDB_OK},
        {"CheckNativeCode_RenameDB_OK", &cConexion::CheckNativeCode_RenameDB_OK},
        {"CheckNativeCode_DropDB_ERROR", &cConexion::CheckNativeCode_DropDB_ERROR},
        {"CheckNativeCode_RestoreDB_PASS_REQUIRED",
         &cConexion::CheckNativeCode_RestoreDB_PASS_REQUIRED},
        {"CheckNativeCode_RestoreDB_BAD_VERSION",
         &cConexion::CheckNativeCode_RestoreDB_BAD_VERSION},
        {"CheckNativeCode_StringTruncated", &cConexion::CheckNativeCode_StringTruncated},
        {"CheckNativeCode_DB_IS_SHUTDOWN", &cConexion::CheckNativeCode_DB_IS_SHUTDOWN},
    };
    for (const auto& [name, check] : shortcuts)
        c.Method(name, 0, 0, [check](cConexion& o, ScriptArgs&) { return (o.*check)(); });
    c.Method("ChkError", 0, 0, [](cConexion& o, ScriptArgs&) { return o.ChkError(); });
    c.Method("ConnectionWasBroken", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.ConnectionWasBroken(); });
    c.Method("ChkCnBroken", 0, 0, [](cConexion& o, ScriptArgs&) { return o.ChkCnBroken(); });
    // GetSQLVersion(nMayor, nMenor, nBuild, nRev): the parts given come back in "out".
    c.Method("GetSQLVersion", 0, 4, [](cConexion& o, ScriptArgs& a) {
        return WithOutNumbers(
            a, 0, 4, [&o](std::int32_t** n) { return o.GetSQLVersion(n[0], n[1], n[2], n[3]); });
    });
}

void Statements(ScriptClassBuilder<cConexion>& c) {
    c.Method("Execute", 1, 5, [](cConexion& o, ScriptArgs& a) {
        return o.Execute(a.String(0), a.Long(1, zlxExecuteReturn_Nothing),
                         a.Value(2, Variant(std::int16_t(0))), a.Bool(3), a.Long(4));
    });
    // Open_RecordSet(rs, cTabla, ...): the recordset comes back in "out".
    c.Method("Open_RecordSet", 2, 8, [](cConexion& o, ScriptArgs& a) {
        ado::RecordsetPtr rs = a.Object<ado::Recordset>(0);
        const std::int32_t result =
            o.Open_RecordSet(rs, a.String(1), a.Long(2, 3), a.Long(3, 1), a.Long(4), a.Long(5, 1),
                             a.String(6), a.Bool(7));
        a.Out(0, Variant(rs));
        return result;
    });
    c.Method("Insert", 3, 3, [](cConexion& o, ScriptArgs& a) {
        return o.Insert(a.String(0), a.Value(1), a.Value(2));
    });
    c.Method("Update", 4, 4, [](cConexion& o, ScriptArgs& a) {
        return o.Update(a.String(0), a.Long(1), a.Value(2), a.Value(3));
    });
    c.Method("RecCount", 1, 2,
             [](cConexion& o, ScriptArgs& a) { return o.RecCount(a.String(0), a.String(1)); });
    c.Method("ValorMasAlto", 2, 2,
             [](cConexion& o, ScriptArgs& a) { return o.ValorMasAlto(a.String(0), a.String(1)); });
    // SQLSelect2Vars(cSQL, xVar1 .. xVar5): the variables come back in "out".
    c.Method("SQLSelect2Vars", 2, 6, [](cConexion& o, ScriptArgs& a) {
        Variant* vars[4] = {};
        for (std::size_t i = 0; i < 4; ++i)
            if (a.Given(2 + i)) vars[i] = &a.Ref(2 + i);
        return o.SQLSelect2Vars(a.String(0), a.Ref(1), vars[0], vars[1], vars[2], vars[3]);
    });
    c.Method("GetStructureFromQuery", 1, 2, [](cConexion& o, ScriptArgs& a) {
        return o.GetStructureFromQuery(a.String(0), a.String(1, QStringLiteral("*")));
    });
    c.Method("ExecuteAsync", 1, 2, [](cConexion& o, ScriptArgs& a) {
        return o.ExecuteAsync(a.String(0), a.Long(1, -1));
    });
    c.Method("CancelAsyncOp", 0, 1,
             [](cConexion& o, ScriptArgs& a) { o.CancelAsyncOp(a.Bool(0)); });
}

void ServerAndLocks(ScriptClassBuilder<cConexion>& c) {
    c.Method("ServerRegRead", 3, 3, [](cConexion& o, ScriptArgs& a) {
        return o.ServerRegRead(a.String(0), a.String(1), a.String(2));
    });
    c.Method("GetSQLDefaultPathForData", 0, 1,
             [](cConexion& o, ScriptArgs& a) { return o.GetSQLDefaultPathForData(a.String(0)); });
    c.Method("AddLinkedServer", 1, 4, [](cConexion& o, ScriptArgs& a) {
        return o.AddLinkedServer(a.String(0), a.String(1, QStringLiteral("SQL Server")),
                                 a.String(2, QStringLiteral("sa")), a.String(3));
    });
    c.Method("DropLinkedServer", 1, 2, [](cConexion& o, ScriptArgs& a) {
        return o.DropLinkedServer(a.String(0), a.Bool(1, true));
    });
    c.Method("xLock", 4, 9, [](cConexion& o, ScriptArgs& a) {
        return o.xLock(a.Long(0), a.Bool(1), a.String(2), a.Long(3), a.Long(4), a.Long(5),
                       a.String(6), a.Long(7, zlxLockRetryUntilCancel), a.Value(8, Variant("")));
    });
    c.Method("BeginTrans", 0, 1, [](cConexion& o, ScriptArgs& a) { o.BeginTrans(a.String(0)); });
    c.Method("CommitTrans", 0, 2,
             [](cConexion& o, ScriptArgs& a) { o.CommitTrans(a.String(0), a.Bool(1)); });
    c.Method("RollBackTrans", 0, 1,
             [](cConexion& o, ScriptArgs& a) { o.RollBackTrans(a.String(0)); });
    c.Method("TransactionCount", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.TransactionCount(); });
    c.Method("InternalTransactionCount", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.InternalTransactionCount(); });
    c.Method("DebugTransactionInfo", 0, 0,
             [](cConexion& o, ScriptArgs&) { return o.DebugTransactionInfo(); });
    c.Property(
        "CompanyLockList", [](cConexion& o) { return o.CompanyLockList(); },
        [](cConexion& o, const Variant& v) { o.CompanyLockList() = v.ToString(); });
    c.Property(
        "GroupLockList", [](cConexion& o) { return o.GroupLockList(); },
        [](cConexion& o, const Variant& v) { o.GroupLockList() = v.ToString(); });
}

void Members(ScriptClassBuilder<cConexion>& c) {
    Lifecycle(c);
    ErrorState(c);
    Statements(c);
    ServerAndLocks(c);
}

const ScriptRegistration<cConexion> registration(QStringLiteral("cConexion"), Members);

} // namespace
} // namespace zlx
