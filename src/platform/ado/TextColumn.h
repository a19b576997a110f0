#pragma once
// The texts of one recordset column, held compactly. While the column has few distinct values
// each row keeps only the number of its value in a table of them (cities, states and codes
// repeat a great deal). Past kMostValues distinct values the column moves to one shared
// buffer of UTF-16 characters with every row's text one after another, each row knowing where
// its text starts and how long it is. A changed text goes to the end of the buffer; the
// buffer is compacted once most of it is left over from earlier values.

#include "platform/ado/HugePageAllocator.h"

#include <QHash>
#include <QString>
#include <QStringView>
#include <cstdint>
#include <vector>

namespace zlx::ado {

class TextColumn {
public:
    enum class Layout { Dictionary, Buffer };
    static constexpr std::size_t kMostValues = 65536;

    explicit TextColumn(Layout layout = Layout::Dictionary) : m_layout(layout) {}

    std::size_t Size() const;
    void Reserve(std::size_t rows);
    void Clear();
    // An empty column keeps its texts in the buffer from the start, with room for `chars`
    // characters: a loader that finds its texts distinct skips the table of values.
    void UseBuffer(std::size_t chars);
    void Append(const QString& text);
    // As Append, the text copied only when the column keeps it as a new value.
    void Append(QStringView text);
    // Appends `count` texts, each written by `write(i, out)` into room for `most` characters at
    // `out` and answering its length: in the buffer layout straight into the buffer.
    template <class Writer> void AppendWritten(std::size_t count, std::size_t most, Writer&& write);
    void Set(std::size_t row, const QString& text);
    // Valid until the column next changes.
    QStringView At(std::size_t row) const;
    // The text as a QString; a dictionary's value is shared, not copied.
    QString Get(std::size_t row) const;

    // The table of values and each row's number in it, while the column keeps one.
    bool HasDictionary() const { return m_layout == Layout::Dictionary; }
    const std::vector<QString>& Values() const { return m_values; }
    std::uint32_t CodeAt(std::size_t row) const { return m_codes[row]; }

private:
    // `shared`: the same text as a QString the table of values can share, when there is one.
    std::uint32_t CodeOf(QStringView text, const QString* shared);
    void MoveToBuffer();
    void AppendToBuffer(QStringView text);
    void WriteToBuffer(std::size_t row, QStringView text);
    void CompactIfWasteful();

    Layout m_layout;
    // Dictionary layout
    LargeVector<std::uint32_t> m_codes;
    std::vector<QString> m_values;
    QHash<QString, std::uint32_t> m_codeOf;
    // Buffer layout
    LargeVector<char16_t> m_chars;
    LargeVector<std::uint64_t> m_starts;
    LargeVector<std::uint32_t> m_lengths;
    std::vector<char16_t> m_written; // a text written for the dictionary layout
    std::size_t m_unusedChars = 0;
};

template <class Writer>
void TextColumn::AppendWritten(std::size_t count, std::size_t most, Writer&& write) {
    if (HasDictionary()) {
        m_written.resize(most);
        for (std::size_t i = 0; i < count; ++i)
            Append(
                QStringView(m_written.data(), static_cast<qsizetype>(write(i, m_written.data()))));
        return;
    }
    std::size_t end = m_chars.size();
    const std::size_t rows = m_lengths.size();
    m_chars.resize(end + count * most);
    m_starts.resize(rows + count);
    m_lengths.resize(rows + count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t length = write(i, m_chars.data() + end);
        m_starts[rows + i] = end;
        m_lengths[rows + i] = static_cast<std::uint32_t>(length);
        end += length;
    }
    m_chars.resize(end);
}

} // namespace zlx::ado
