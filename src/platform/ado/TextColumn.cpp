#include "platform/ado/TextColumn.h"

#include <algorithm>

namespace zlx::ado {

std::size_t TextColumn::Size() const {
    return HasDictionary() ? m_codes.size() : m_lengths.size();
}

void TextColumn::Reserve(std::size_t rows) {
    if (HasDictionary()) {
        m_codes.reserve(rows);
    } else {
        m_starts.reserve(rows);
        m_lengths.reserve(rows);
    }
}

void TextColumn::Clear() {
    m_codes.clear();
    m_values.clear();
    m_codeOf.clear();
    m_chars.clear();
    m_starts.clear();
    m_lengths.clear();
    m_unusedChars = 0;
}

void TextColumn::UseBuffer(std::size_t chars) {
    if (!HasDictionary() || !m_codes.empty()) return;
    m_layout = Layout::Buffer;
    m_starts.reserve(m_codes.capacity());
    m_lengths.reserve(m_codes.capacity());
    m_chars.reserve(chars);
    m_codes = {};
}

void TextColumn::Append(const QString& text) {
    if (HasDictionary()) {
        const std::uint32_t code = CodeOf(text, &text);
        if (HasDictionary()) {
            m_codes.push_back(code);
            return;
        }
    }
    AppendToBuffer(text);
}

void TextColumn::Append(QStringView text) {
    if (HasDictionary()) {
        const std::uint32_t code = CodeOf(text, nullptr);
        if (HasDictionary()) {
            m_codes.push_back(code);
            return;
        }
    }
    AppendToBuffer(text);
}

void TextColumn::Set(std::size_t row, const QString& text) {
    if (HasDictionary()) {
        const std::uint32_t code = CodeOf(text, &text);
        if (HasDictionary()) {
            m_codes[row] = code;
            return;
        }
    }
    WriteToBuffer(row, text);
}

QStringView TextColumn::At(std::size_t row) const {
    if (HasDictionary()) return m_values[m_codes[row]];
    return QStringView(m_chars.data() + m_starts[row], static_cast<qsizetype>(m_lengths[row]));
}

QString TextColumn::Get(std::size_t row) const {
    if (HasDictionary()) return m_values[m_codes[row]];
    return At(row).toString();
}

// The value's number, added when new; a value past the most kept moves the column to the
// buffer layout (and the caller then stores the text there).
std::uint32_t TextColumn::CodeOf(QStringView text, const QString* shared) {
    // A QString over the caller's characters, for the lookup only: nothing is copied.
    const auto found = m_codeOf.constFind(QString::fromRawData(text.data(), text.size()));
    if (found != m_codeOf.constEnd()) return *found;
    if (m_values.size() == kMostValues) {
        MoveToBuffer();
        return 0;
    }
    const auto code = static_cast<std::uint32_t>(m_values.size());
    m_values.push_back(shared ? *shared : text.toString());
    m_codeOf.insert(m_values.back(), code);
    return code;
}

void TextColumn::MoveToBuffer() {
    std::size_t chars = 0;
    for (std::uint32_t code : m_codes)
        chars += static_cast<std::size_t>(m_values[code].size());
    // Room for the rows reserved at the length of the texts so far, or half as many again.
    const std::size_t rows = std::max<std::size_t>(m_codes.size(), 1);
    m_chars.reserve(std::max(chars + chars / 2, chars * m_codes.capacity() / rows));
    m_starts.reserve(m_codes.capacity());
    m_lengths.reserve(m_codes.capacity());
    m_layout = Layout::Buffer;
    for (std::uint32_t code : m_codes)
        AppendToBuffer(m_values[code]);
    m_codes = {};
    m_values = {};
    m_codeOf = {};
}

void TextColumn::AppendToBuffer(QStringView text) {
    m_starts.push_back(m_chars.size());
    m_lengths.push_back(static_cast<std::uint32_t>(text.size()));
    m_chars.insert(m_chars.end(), text.utf16(), text.utf16() + text.size());
}

// A text that fits where the row's old one was takes its place; a longer one goes to the end
// (the row's old text being the last one in the buffer, it is simply replaced).
void TextColumn::WriteToBuffer(std::size_t row, QStringView text) {
    const auto length = static_cast<std::size_t>(text.size());
    const std::size_t oldLength = m_lengths[row];
    std::uint64_t start = m_starts[row];
    if (start + oldLength == m_chars.size()) {
        m_chars.resize(start);
    } else if (length > oldLength) {
        m_unusedChars += oldLength;
        start = m_chars.size();
    } else {
        m_unusedChars += oldLength - length;
    }
    if (start + length > m_chars.size()) m_chars.resize(start + length);
    std::copy(text.utf16(), text.utf16() + length, m_chars.begin() + static_cast<qsizetype>(start));
    m_starts[row] = start;
    m_lengths[row] = static_cast<std::uint32_t>(length);
    CompactIfWasteful();
}

void TextColumn::CompactIfWasteful() {
    constexpr std::size_t kLeastWaste = 1 << 16;
    if (m_unusedChars < kLeastWaste || m_unusedChars < m_chars.size() / 2) return;
    LargeVector<char16_t> chars;
    chars.reserve(m_chars.size() - m_unusedChars);
    for (std::size_t row = 0; row < m_lengths.size(); ++row) {
        const auto from = m_chars.begin() + static_cast<qsizetype>(m_starts[row]);
        m_starts[row] = chars.size();
        chars.insert(chars.end(), from, from + m_lengths[row]);
    }
    m_chars = std::move(chars);
    m_unusedChars = 0;
}

} // namespace zlx::ado
