#pragma once
// zlx::Variant: a value with Visual Basic's VARIANT kinds, numbers and conversion rules.
// Scalars live inline (no heap allocation); strings are QString (implicitly shared),
// objects and arrays are shared pointers, so copies are cheap.

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <variant>
#include <vector>

namespace zlx {

// VarType numbers as VB reports them.
enum VbVarType {
    vbEmpty = 0,
    vbNull = 1,
    vbInteger = 2,
    vbLong = 3,
    vbSingle = 4,
    vbDouble = 5,
    vbCurrency = 6,
    vbDate = 7,
    vbString = 8,
    vbObject = 9,
    vbError = 10,
    vbBoolean = 11,
    vbVariant = 12,
    vbDecimal = 14,
    vbByte = 17,
    vbArray = 8192
};

// VB run-time error numbers raised by conversions.
enum VbErrorNumber {
    vbErrOverflow = 6,
    vbErrSubscriptOutOfRange = 9,
    vbErrTypeMismatch = 13,
    vbErrInvalidUseOfNull = 94,
    vbErrObjectRequired = 424
};

// A VB run-time error: number and description ("Type mismatch" ...).
class VariantError : public std::runtime_error {
public:
    VariantError(int number, const QString& description);
    int Number() const { return m_number; }
    QString Description() const { return QString::fromUtf8(what()); }

private:
    int m_number;
};

// Base of every library object that can travel inside a Variant (VB's Object kind).
// TypeName() is the class name VB's TypeName() reports ("cMatriz", "cDatos", ...).
class Object {
public:
    virtual ~Object() = default;
    virtual QString TypeName() const = 0;
};
using ObjectPtr = std::shared_ptr<Object>;

struct Decimal;

// Currency: a 64-bit integer scaled by 10,000 (four decimals).
struct Currency {
    std::int64_t scaled = 0;
    static Currency FromDouble(double value); // rounds half to even; throws overflow
    static Currency FromDecimal(const Decimal& value);
    double ToDouble() const { return static_cast<double>(scaled) / 10000.0; }
    friend bool operator==(Currency a, Currency b) { return a.scaled == b.scaled; }
};

// Decimal: a 96-bit unsigned mantissa, a scale of 0..28 and a sign, as OLE's DECIMAL.
struct Decimal {
    std::uint64_t lo = 0;
    std::uint32_t hi = 0;
    std::uint8_t scale = 0;
    bool negative = false;
    static Decimal FromDouble(double value); // up to 15 significant digits, as VB's CDec
    static Decimal FromString(const QString& text, bool* ok = nullptr); // "-123.4500"
    double ToDouble() const;
    QString ToString() const; // "." as decimal separator, no trailing zeros beyond scale
    int Compare(const Decimal& other) const;
};

// An OLE date: days since 1899-12-30 as a double, the fraction being the time of day.
struct Date {
    double value = 0.0;
    friend bool operator==(Date a, Date b) { return a.value == b.value; }
};

// An Error-kind value (VB's CVErr; also "missing" optional arguments).
struct ErrorValue {
    std::int32_t code = 0;
};

class Variant;

// A VB array of any rank, each dimension with its own lower bound. Elements are stored
// with the first index varying fastest, as VB lays out a SAFEARRAY.
class VariantArray {
public:
    struct Bound {
        std::int32_t lower = 0;
        std::int32_t count = 0; // upper = lower + count - 1
    };

    VariantArray() = default;
    explicit VariantArray(std::vector<Bound> bounds);
    // A one-dimensional Byte array (lower bound 0) kept as raw bytes, one byte each, until an
    // element is reached through At or Data; binary columns and blobs travel this way.
    static std::shared_ptr<VariantArray> FromBytes(QByteArray bytes);

    int Rank() const { return static_cast<int>(m_bounds.size()); }
    std::int32_t LBound(int dimension = 1) const; // dimensions are numbered from 1, as VB
    std::int32_t UBound(int dimension = 1) const;
    std::size_t Size() const;
    // The bytes of a one-dimensional array whose elements are all Bytes (from the raw bytes
    // when it keeps them), else nothing.
    std::optional<QByteArray> Bytes() const;

    Variant& At(std::int32_t i);
    const Variant& At(std::int32_t i) const;
    Variant& At(std::int32_t i, std::int32_t j);
    const Variant& At(std::int32_t i, std::int32_t j) const;
    Variant& At(const std::vector<std::int32_t>& indexes);
    const Variant& At(const std::vector<std::int32_t>& indexes) const;

    // Elements in storage order (first index fastest).
    std::vector<Variant>& Data() {
        Expand();
        return m_data;
    }
    const std::vector<Variant>& Data() const {
        Expand();
        return m_data;
    }
    const std::vector<Bound>& Bounds() const { return m_bounds; }

    // ReDim Preserve of the last dimension.
    void RedimPreserveLast(std::int32_t newUpper);

private:
    std::size_t Offset(const std::vector<std::int32_t>& indexes) const;
    // Turns raw bytes into Byte elements, once.
    void Expand() const;
    std::vector<Bound> m_bounds;
    mutable std::vector<Variant> m_data;
    mutable QByteArray m_bytes; // the elements while m_compact
    mutable bool m_compact = false;
};
using VariantArrayPtr = std::shared_ptr<VariantArray>;

class Variant {
public:
    struct NullTag {};
    Variant() = default; // Empty
    Variant(NullTag) : m_value(NullValue{}) {}
    Variant(bool v) : m_value(v) {}
    Variant(std::int16_t v) : m_value(v) {}
    Variant(std::int32_t v) : m_value(v) {}
    Variant(float v) : m_value(v) {}
    Variant(double v) : m_value(v) {}
    Variant(std::uint8_t v) : m_value(v) {}
    Variant(Currency v) : m_value(v) {}
    Variant(Decimal v) : m_value(v) {}
    Variant(Date v) : m_value(v) {}
    Variant(ErrorValue v) : m_value(v) {}
    Variant(const QString& v) : m_value(v) {}
    Variant(QString&& v) : m_value(std::move(v)) {}
    Variant(const char* utf8) : m_value(QString::fromUtf8(utf8)) {}
    Variant(ObjectPtr v) : m_value(std::move(v)) {}
    Variant(VariantArrayPtr v) : m_value(std::move(v)) {}
    template <class T>
    requires std::is_base_of_v<Object, T> Variant(std::shared_ptr<T> v)
        : m_value(ObjectPtr(std::move(v))) {}
    // 64-bit integers have no VB kind: they become Decimal (as ADO's adBigInt read into VB6).
    static Variant FromInt64(std::int64_t v);

    static Variant Null() { return Variant(NullTag{}); }
    static Variant Missing() { return Variant(ErrorValue{static_cast<std::int32_t>(0x80020004)}); }
    // A one-dimensional array with lower bound 0, as VB's Array(...).
    static Variant Array(std::vector<Variant> items);
    // An array of the given bounds filled with Empty.
    static Variant MakeArray(std::vector<VariantArray::Bound> bounds);
    // A Byte array of the given bytes, kept compact (VariantArray::FromBytes).
    static Variant FromBytes(QByteArray bytes);

    // Kind
    VbVarType VarType() const; // vbArray | vbVariant for arrays
    QString TypeName() const;  // "Empty", "Null", "Integer", ..., "Variant()", object's name
    bool IsEmpty() const { return m_value.index() == 0; }
    bool IsNull() const { return m_value.index() == 1; }
    bool IsArray() const;
    bool IsObject() const;
    bool IsNumeric() const; // VB's IsNumeric (strings that parse as numbers too)
    // A number kind: Integer, Long, Single, Double, Currency, Decimal or Byte.
    bool IsNumber() const;
    bool IsDate() const; // VB's IsDate
    bool IsMissing() const;

    // Conversions with VB's rules (CInt, CLng, ...). They throw VariantError
    // (13 type mismatch, 6 overflow, 94 invalid use of Null).
    bool ToBool() const;               // CBool
    std::uint8_t ToByte() const;       // CByte
    std::int16_t ToInt() const;        // CInt: halves round to even
    std::int32_t ToLong() const;       // CLng: halves round to even
    std::int64_t ToInt64() const;      // for 64-bit columns
    float ToSingle() const;            // CSng
    double ToDouble() const;           // CDbl
    Currency ToCurrency() const;       // CCur
    Decimal ToDecimal() const;         // CDec
    Date ToDate() const;               // CDate
    QString ToString() const;          // CStr, Spanish regional settings: "1,5", dd/mm/yyyy
    QString ToInvariantString() const; // as CStr but numbers with "." and dates yyyy-mm-dd hh:nn:ss
    ObjectPtr ToObject() const;        // Set x = v (Nothing gives nullptr; non-objects throw 424)
    VariantArrayPtr ToArray() const;   // nullptr when not an array

    template <class T> std::shared_ptr<T> As() const {
        return std::dynamic_pointer_cast<T>(ToObject());
    }

    // Direct access to the stored value when the kind is known.
    template <class T> const T* Get() const { return std::get_if<T>(&m_value); }

    // VB's comparison of two variants: -1, 0, 1. Null compares as unknown: the result is
    // then 2 (callers treat it as "not equal"). Numbers compare by value whatever their kind,
    // strings compare binary (case-sensitively); a number against a string that is not
    // numeric gives type mismatch (13) when `strict`, and "different" otherwise.
    int Compare(const Variant& other, bool textCompare = false) const;

    // Variant equality as the library uses it (ValorEnLista): numbers by value, strings
    // exactly and case-sensitively, dates by value, a number never equals a string,
    // Null equals nothing, Empty equals Empty, 0 and "".
    bool Equals(const Variant& other) const;
    friend bool operator==(const Variant& a, const Variant& b) { return a.Equals(b); }

private:
    struct EmptyValue {};
    struct NullValue {};
    using Storage = std::variant<EmptyValue, NullValue, std::int16_t, std::int32_t, float, double,
                                 Currency, Date, QString, ObjectPtr, ErrorValue, bool, Decimal,
                                 std::uint8_t, VariantArrayPtr>;
    Storage m_value;
};

// Date helpers
Date MakeDate(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
void SplitDate(Date d, int& year, int& month, int& day, int& hour, int& minute, int& second);
// The companion library's "no date": 1753-01-01 00:00:00.
Date BlankDate();

// A double as VB writes it: 15 significant digits, exponent form "1E+16" / "1E-05", with the
// given decimal separator ("," for CStr under Spanish settings, "." for SQL text and files).
QString DoubleToString(double value, QChar decimalSeparator = u'.');

} // namespace zlx
