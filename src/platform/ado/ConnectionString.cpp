#include "platform/ado/ConnectionString.h"

#include <QStringList>

namespace zlx::ado {

namespace {

// Reads a value that starts at `i`: quoted with ' or " (the quote doubled inside), in
// braces, or plain up to the next ';'.
QString ReadValue(const QString& text, qsizetype& i) {
    const qsizetype n = text.size();
    while (i < n && text[i].isSpace())
        ++i;
    if (i < n && (text[i] == u'"' || text[i] == u'\'' || text[i] == u'{')) {
        const QChar close = text[i] == u'{' ? QChar(u'}') : text[i];
        QString value;
        for (++i; i < n; ++i) {
            if (text[i] != close) {
                value += text[i];
            } else if (i + 1 < n && text[i + 1] == close) {
                value += close;
                ++i;
            } else {
                ++i;
                break;
            }
        }
        if (close == u'}') value = u'{' + value + u'}';
        while (i < n && text[i] != u';')
            ++i;
        return value;
    }
    const qsizetype start = i;
    while (i < n && text[i] != u';')
        ++i;
    return text.mid(start, i - start).trimmed();
}

// A libpq conninfo value: single-quoted, with backslash escapes.
QString QuoteLibpq(QString value) {
    value.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
    return u'\'' + value + u'\'';
}

} // namespace

ConnectionString::ConnectionString(const QString& text) : m_text(text) {
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n) {
        const qsizetype equals = text.indexOf(u'=', i);
        const qsizetype semicolon = text.indexOf(u';', i);
        if (equals < 0 || (semicolon >= 0 && semicolon < equals)) {
            if (semicolon < 0) break;
            i = semicolon + 1; // a piece without "=" is ignored, as ADO does
            continue;
        }
        const QString key = text.mid(i, equals - i).trimmed();
        i = equals + 1;
        QString value = ReadValue(text, i);
        if (!key.isEmpty()) m_pairs.emplace_back(key, std::move(value));
        ++i; // the ';'
    }
}

QString ConnectionString::Value(std::initializer_list<const char*> keys) const {
    for (const auto& [key, value] : m_pairs)
        for (const char* wanted : keys)
            if (key.compare(QLatin1String(wanted), Qt::CaseInsensitive) == 0) return value;
    return {};
}

bool ConnectionString::Has(std::initializer_list<const char*> keys) const {
    for (const auto& pair : m_pairs)
        for (const char* wanted : keys)
            if (pair.first.compare(QLatin1String(wanted), Qt::CaseInsensitive) == 0) return true;
    return false;
}

QString ConnectionString::Server() const {
    return Value({"Server", "Data Source", "Address", "Addr", "Network Address"});
}

QString ConnectionString::Database() const {
    return Value({"Initial Catalog", "Database"});
}

QString ConnectionString::UserId() const {
    return Value({"User ID", "UID", "User"});
}

QString ConnectionString::Password() const {
    return Value({"Password", "PWD"});
}

ConnectionString::Engine ConnectionString::Which() const {
    const QString provider = Provider();
    if (provider.contains(QLatin1String("Jet"), Qt::CaseInsensitive) ||
        provider.contains(QLatin1String("ACE.OLEDB"), Qt::CaseInsensitive)) {
        if (Value({"Extended Properties"}).startsWith(QLatin1String("EXCEL"), Qt::CaseInsensitive))
            return Engine::Workbook;
        return Server().isEmpty() ? Engine::None : Engine::SqliteFile;
    }
    if (Has({"SourceDB"})) return Engine::DbfFolder;
    const QString server = Server();
    if (server.startsWith(QLatin1String("sqlite:"), Qt::CaseInsensitive))
        return Engine::SqliteFolder;
    if (server.startsWith(QLatin1String("postgres:"), Qt::CaseInsensitive)) return Engine::Postgres;
    if (!server.isEmpty() || Has({"Driver", "DSN"})) return Engine::Odbc;
    return Engine::None;
}

QString ConnectionString::QuoteOdbc(const QString& value) {
    if (!value.contains(u';') && !value.contains(u'{') && !value.contains(u'}')) return value;
    QString escaped = value;
    escaped.replace(u'}', QStringLiteral("}}"));
    return u'{' + escaped + u'}';
}

// A SQL Server reached through ODBC: the string's own ODBC pairs when it names a driver or
// DSN, otherwise the FreeTDS driver with the server, database and login.
QString ConnectionString::OdbcTarget(const QString& user, const QString& password) const {
    if (Has({"Driver", "DSN"})) {
        QStringList pairs;
        for (const auto& [key, value] : m_pairs)
            if (key.compare(QLatin1String("Provider"), Qt::CaseInsensitive) != 0)
                pairs << key + u'=' + value;
        if (!user.isEmpty()) pairs << QStringLiteral("UID=") + QuoteOdbc(user);
        if (!password.isEmpty()) pairs << QStringLiteral("PWD=") + QuoteOdbc(password);
        return pairs.join(u';');
    }
    QStringList pairs{QStringLiteral("Driver=FreeTDS"), QStringLiteral("Server=") + Server()};
    if (!Database().isEmpty()) pairs << QStringLiteral("Database=") + QuoteOdbc(Database());
    pairs << QStringLiteral("UID=") + QuoteOdbc(user)
          << QStringLiteral("PWD=") + QuoteOdbc(password);
    return pairs.join(u';');
}

ConnectParams ConnectionString::Params(const QString& user, const QString& password) const {
    const QString login = user.isEmpty() ? UserId() : user;
    const QString secret = password.isEmpty() ? Password() : password;
    ConnectParams params;
    params.defaultDatabase = Database();
    const QString server = Server();
    switch (Which()) {
    case Engine::SqliteFolder:
        params.target = server.mid(7);
        break;
    case Engine::Postgres: {
        params.target = server.mid(9);
        if (!login.isEmpty()) params.target += QStringLiteral(" user=") + QuoteLibpq(login);
        if (!secret.isEmpty()) params.target += QStringLiteral(" password=") + QuoteLibpq(secret);
        break;
    }
    case Engine::SqliteFile:
    case Engine::Workbook:
        params.target = server;
        break;
    case Engine::DbfFolder:
        params.target = Value({"SourceDB"});
        break;
    case Engine::Odbc:
        params.target = OdbcTarget(login, secret);
        break;
    default:
        break;
    }
    return params;
}

} // namespace zlx::ado
