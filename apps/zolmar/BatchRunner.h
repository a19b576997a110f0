#pragma once
// `zolmar batch`: one JSON call a line in, one JSON answer a line out, in order.
// In:  {"fn": NAME, "args": [...]}       Out: {"ok": VALUE} or {"error": TEXT}

#include <QByteArray>
#include <cstdio>

namespace zlx {

class BatchFunctions;

// The answer line (without its line end) to one input line. A line that is not a call
// answers an error; nothing escapes.
QByteArray AnswerBatchLine(const QByteArray& line, const BatchFunctions& functions);

// Answers every line of `in` on `out`. Output is buffered unless `flushEachLine` (for a
// person typing at a terminal). Returns the process exit code.
int RunBatch(std::FILE* in, std::FILE* out, const BatchFunctions& functions, bool flushEachLine);

} // namespace zlx
