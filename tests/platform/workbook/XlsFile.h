#pragma once
// A small .xls writer for tests (no writer of the format is packaged): BIFF8 records for
// texts (through the shared string table), numbers and dates (numbers in a date style), in
// a compound file with one "Workbook" stream.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <deque>

namespace zlx::test {

class XlsSheet {
public:
    XlsSheet(QString name, QStringList& strings) : m_name(std::move(name)), m_strings(strings) {}
    XlsSheet& Text(int row, int column, const QString& text);
    XlsSheet& Number(int row, int column, double value);
    XlsSheet& Date(int row, int column, double serial);

    const QString& Name() const { return m_name; }
    // The sheet's substream: BOF, DIMENSIONS, the cells, EOF.
    QByteArray Stream() const;

private:
    void Extend(int row, int column);

    QString m_name;
    QStringList& m_strings;
    QByteArray m_cells;
    int m_rows = 0, m_columns = 0;
};

class XlsFile {
public:
    XlsSheet& AddSheet(const QString& name) { return m_sheets.emplace_back(name, m_strings); }
    void Save(const QString& path) const;

private:
    QByteArray WorkbookStream() const;

    QStringList m_strings;
    std::deque<XlsSheet> m_sheets;
};

} // namespace zlx::test
