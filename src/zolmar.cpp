#include "zolmar.h"

namespace zlx {

QString LibraryVersion() { return QStringLiteral(ZLX_VERSION); }

} // namespace zlx
