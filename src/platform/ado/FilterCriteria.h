#pragma once
// A Filter or Find criteria string compiled once into a predicate over the typed columns:
// clauses "field op value" (=, <>, <, >, <=, >=, LIKE with * or % at the ends), values as
// 'text', #date#, numbers or Null, joined with AND / OR and grouped by parentheses.
// Malformed text raises 3001, an unknown field 3265, a value that cannot be compared with
// its field 3421.

#include "platform/ado/ColumnStore.h"

#include <QString>
#include <memory>
#include <vector>

namespace zlx::ado {

class Fields;

class FilterCriteria {
public:
    enum class Operator { Equal, NotEqual, Less, Greater, LessEqual, GreaterEqual, Like };

    // `singleClause` is Find's form: exactly one clause, no AND / OR.
    static FilterCriteria Compile(const QString& text, const Fields& fields,
                                  const std::vector<ColumnStore>& columns,
                                  bool singleClause = false);

    bool Matches(std::size_t row) const;

    // When the whole criteria is one equality on a column, that column and the value
    // (so that an index on the column can answer it).
    bool IsSingleEquality(int& column, Variant& value) const;

    struct Clause;
    struct Node;

private:
    const std::vector<ColumnStore>* m_columns = nullptr;
    std::vector<Clause> m_clauses;
    std::vector<Node> m_nodes;
    int m_root = -1;

    bool Evaluate(int node, std::size_t row) const;
    bool ClauseMatches(const Clause& clause, std::size_t row) const;
    friend class CriteriaParser;
};

struct FilterCriteria::Clause {
    int column = -1;
    Operator op = Operator::Equal;
    bool isNull = false;    // "= Null" / "<> Null"
    double number = 0.0;    // numeric kinds
    QString text;           // text kind (case-folded); LIKE pattern without its wildcards
    Variant value;          // the value as written, for the other kinds
    bool likeStart = false; // wildcard before the pattern
    bool likeEnd = false;   // wildcard after the pattern
};

struct FilterCriteria::Node {
    enum class Kind { Clause, And, Or } kind = Kind::Clause;
    int left = -1; // clause index for Kind::Clause
    int right = -1;
};

} // namespace zlx::ado
